#pragma once

#include <QRect>

#include <optional>

/// Where a card of `taille` stands beside `bloc`, which it never covers: to its right, its left, below or
/// above, inside `ecran`; nothing where none of these has room.
std::optional<QRect> PlaceFiche(const QRect &bloc, QSize taille, const QRect &ecran);

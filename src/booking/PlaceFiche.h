#pragma once

#include <QRect>

#include <optional>

/// Where a card of `taille` stands beside `bloc`: to its right, its left, below or above, inside `ecran`. It
/// covers neither `bloc` nor `choisi`, which keys act on; nothing where none of these has room.
std::optional<QRect> PlaceFiche(const QRect &bloc, const QRect &choisi, QSize taille, const QRect &ecran);

#pragma once

#include <QDate>
#include <optional>

class ChampDate;
struct Environnement;

/// The day that a field spells. Nothing when it spells none, which is told; the text is there to be typed
/// over.
std::optional<QDate> JourSaisi(const Environnement &env, ChampDate &champ);

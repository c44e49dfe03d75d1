#pragma once

#include "schedule/Configuration.h"

#include <optional>

/// The four bounds in the order of the screen: morning start and end, afternoon start and end. An hour that
/// the user has not spelled yet is invalid.
using Horaires = std::array<QTime, 4>;

Horaires HorairesDe(const Configuration &config);

/// The time that a typed text spells: "9:30", "09:30", "9h30", "9h", "930", "0930"; nothing for any other
/// text.
std::optional<QTime> LitHeure(const QString &texte);

/// Bounds of every date that may be typed.
inline const QDate premiereDate(1900, 1, 1);
inline const QDate derniereDate(2999, 12, 31);
/// The date that a typed text spells: "02/12/2026", "2-12-2026", "2.12.26" (this century), "02122026", or the
/// long form "mercredi 02 déc. 2026", whose day of the week counts for nothing; nothing for any other text.
std::optional<QDate> LitDate(const QString &texte);

enum class Fleche { Augmenter, Diminuer };

/// Bound `champ` (0 … 3) after a click of its arrow, 5 minutes on; nothing when it has reached its limit,
/// which is the neighbouring bound, 00:00 or 23:00.
std::optional<QTime> HeureApresFleche(const Horaires &horaires, size_t champ, Fleche fleche);

/// For the bounds 1 to 3, the first slot boundary at or after it, as "hh:mm"; slots begin at bound 0 and last
/// `intervalle` minutes. Empty where a bound is no time, or when `intervalle` is below 1.
std::array<QString, 3> MajInfoBulles(const Horaires &horaires, int intervalle);

/// The first bound (1 … 3) that lies before the one above it; 0 when the four are in order.
size_t PremierDesordre(const Horaires &horaires);

/// Whether the day or the afternoon would have fewer than two slots. `config` has four hours and a slot
/// length of at least 1 minute.
bool TropRapproches(const Configuration &config);

/// The message about the first bound that does not sit on the slot grid; empty when all do.
QString VerifieCoherence(const Configuration &config);

#pragma once

#include <QTime>

/// The start and the end of an appointment in a dialog. Its arrows move them by whole slots.
struct HorairesRDV {
    QTime debut;
    QTime fin;

    friend bool operator==(const HorairesRDV &, const HorairesRDV &) = default;
};

enum class Deplace { Debut, Fin, LesDeux };
enum class Sens { PlusTard, PlusTot };

/// `horaires` after one click; unchanged where a stop is reached: a start one slot below the end, 00:00
/// below, an end at 23:00 above, an end one slot after the start. `intervalle` is the slot length in minutes.
HorairesRDV DeplaceHoraires(const HorairesRDV &horaires, Deplace quoi, Sens sens, int intervalle);

/// The end of `horaires` one slot later or earlier, in whole minutes: no later than 23:59, and no appointment
/// gets shorter than one slot. As it was where nothing can change.
QTime FinChangee(const HorairesRDV &horaires, Sens sens, int intervalle);

#pragma once

#include "schedule/Configuration.h"

#include <QDate>
#include <QTime>

#include <optional>

/// Slot arithmetic of the grids. Rows count from 1 (row 0 is the header); times are minutes of the day,
/// seconds never count. Every function expects a configuration without default (see DefautConfiguration).

/// A range of one day, half-open: its start belongs to it, its end does not.
struct PlageHoraire {
    QTime debut;
    QTime fin;

    friend bool operator==(const PlageHoraire &, const PlageHoraire &) = default;
};

/// Up to the next whole number for x > 0, down to the next for x <= 0.
double MaxInt(double x);

/// Whole minutes from `a` to `b`, positive when `b` is later.
int Minutes(QTime a, QTime b);

/// The slots of one grid: where they begin, where they end, how long each is (minutes).
struct Creneaux {
    QTime debut;
    QTime fin;
    int intervalle = 1;

    /// Header, slots and closing row.
    int lignes() const;
    /// The time at the top of `ligne` (1 … lignes() - 1); past midnight it goes on at 00:00.
    QTime heure(int ligne) const;
    /// First row of an appointment that starts at `t`; below 1 when it starts before the grid.
    int premiereLigne(QTime t) const;
    /// Where `t` lies in rows, 1 being the top of row 1; nothing before the first slot or after the last.
    std::optional<double> place(QTime t) const;
    /// Last row of an appointment that ends at `t`.
    int derniereLigne(QTime t) const;

    friend bool operator==(const Creneaux &, const Creneaux &) = default;
};

/// The week grid's slots: from the morning start to the afternoon end without a jump.
Creneaux CreneauxSemaine(const Configuration &config);

/// Rows of the week grid.
int NbLignes(const Configuration &config);
/// Rows of the span from HeureMatDebut to HeurePMFin: the same as NbLignes.
int NbLignes02(const Configuration &config);
/// Rows of the span from HeurePMDebut to HeurePMFin.
int NbLignes03(const Configuration &config);

/// First and last row of the lunch break; none when the first is greater.
int PremiereLigneMidi(const Configuration &config);
int DerniereLigneMidi(const Configuration &config);

/// 1 (Monday) … 7 (Sunday); 0 for an invalid date.
int Jour(QDate date);
/// The Monday of the date's week.
QDate Lundi(QDate date);

/// The grid column (1 …) of a weekday among the displayed days, 0 when it is not displayed.
int ColonneDuJour(int jour, const std::array<int, 7> &jourAffich);

/// The first displayed day from `date` on; `date` itself when seven days bring none.
QDate PremierJourAffiche(QDate date, const std::array<int, 7> &jourAffich);

/// Windows colour value 0x00BBGGRR of a weekday; 0 for any other number.
unsigned CouleurJour(int jour);
inline constexpr unsigned couleurGris = 0xA0A0A0;

/// How a time range of a weekday stands to the working hours: 1 inside, 0 outside, 2 across a boundary.
int HoraireProf(const Configuration &config, int jour, QTime debut, QTime fin);

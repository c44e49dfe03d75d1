#pragma once

#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"
#include "schedule/TrancheHoraire.h"

#include <QList>
#include <optional>

/// The search for free slots: rules on a configuration and on one day's appointments of its practitioner and
/// chair. Times are counted in minutes of the day, which midnight never turns over.

/// How many days a search goes through, its first one counted.
inline constexpr int joursCherches = 366;

/// What is searched. `config` is the one that is shown: its hours and greyed days, not its slot length.
struct DemandeCreneau {
    QString PraticienCourant; ///< number as the book keeps it: "01"
    Configuration config;
    QDate depart;
    QTime duree;

    long numPraticien() const { return CLng(PraticienCourant); }
    long numFauteuil() const { return CLng(config.FauteuilCourant); }
    QDate dernierJour() const { return std::min(depart.addDays(joursCherches - 1), derniereDate); }
};

/// Whether the weekday of `jour` is greyed the whole day: no search begins there, and none looks there.
bool EstRepos(const Configuration &config, QDate jour);
/// The first day from `jour` to `dernier` that is no rest day.
std::optional<QDate> PremierJourTravaille(const Configuration &config, QDate jour, QDate dernier);

/// Where an appointment of `duree` fits on `jour`, every `pas` minutes (at least 1; else nowhere): the points
/// that it covers are free. A start in the lunch break, or whose end lies there, gives way to the afternoon's
/// first, which only the points have to allow.
QList<QTime> DebutsLibres(const Configuration &config, QDate jour, QTime duree, int pas,
                          const QList<RendezVous> &rendezVous);

/// The wanted length one arrow further, by the shown slot length: never below one slot or above 23:30, and
/// 00:30 is as low as it gets on the way down.
QTime DureePlusLongue(QTime duree, int intervalle);
QTime DureePlusCourte(QTime duree, int intervalle);

/// Where a start that was found books. An end at midnight or later is a minute before it: no appointment goes
/// on into the next day.
PlaceRDV PlaceLibre(const DemandeCreneau &demande, QDate jour, QTime debut);

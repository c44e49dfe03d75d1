#pragma once

#include "grid/RendezVous.h"
#include "schedule/Creneaux.h"

#include <QList>
#include <bitset>

/// Which ranges of a day are free: rules on the day's appointments of one practitioner and chair, in any
/// order. A range is half-open: its start belongs to it, its end does not. The range asked for counts in
/// whole minutes.

PlageHoraire EnMinutes(const PlageHoraire &plage);
/// Whether an appointment may have these times: its end is at a later minute than its start. Midnight ends
/// none.
bool EstReservable(const PlageHoraire &plage);

/// True when no appointment begins inside `voulu`, ends inside it, or covers its start.
bool HoraireLibre(const QList<RendezVous> &jour, const PlageHoraire &voulu);
/// The same for an appointment that is being changed: it never conflicts with itself.
bool HoraireLibreSauf(const QList<RendezVous> &jour, qint64 RefRDV, const PlageHoraire &voulu);
/// True when an appointment covers the start or the end of `voulu`; one that lies inside it is not seen.
bool RDVHere(const QList<RendezVous> &jour, const PlageHoraire &voulu);

/// How many steps of `pas` minutes a duration takes, the last one begun counting whole; 0 when `pas` is not
/// positive.
int NbIntervalles(QTime duree, int pas);
/// Which minutes of the day lie inside an appointment: what many ranges of one day are asked of.
using MinutesPrises = std::bitset<24UL * 60>;
MinutesPrises MinutesDe(const QList<RendezVous> &jour);
/// True when none of the `n` points `heure`, `heure` + `pas` minutes … is inside an appointment; past
/// midnight the points go on at 00:00 of the same day.
bool PlageLibre(const MinutesPrises &jour, QTime heure, int pas, int n);
bool PlageLibre(const QList<RendezVous> &jour, QTime heure, int pas, int n);

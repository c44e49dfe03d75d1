#pragma once

#include <QDate>
#include <QString>
#include <QTime>

/// Dates and times as the book spells them, in French whatever the machine's locale.
namespace DatesFr {

/// "dd/MM/yyyy"
QString courte(QDate date);
/// "dddd"
QString jourSemaine(QDate date);
/// "dddd dd MMM", e.g. mercredi 11 mars: a week column's header
QString enteteJour(QDate date);
/// "dddd dd MMMM": a day grid's header
QString enteteJourLong(QDate date);
/// "ddd d MMM yyyy", e.g. mer. 11 mars 2026: a list of what was written
QString breve(QDate date);
/// "ddd d", e.g. ven. 27: where there is little room
QString jourCourt(QDate date);
/// "dddd dd MMM yyyy"
QString jourComplet(QDate date);
/// "dddd dd MMMM yyyy": printed documents
QString jourImprime(QDate date);
/// "dd MMM yyyy": the status bar, a list of appointments
QString etat(QDate date);
/// "23–28 novembre 2026", "30 novembre – 5 décembre 2026"; one day: "mercredi 25 novembre 2026"
QString periode(QDate premier, QDate dernier);
/// "hh:mm", 24 hours; empty for an invalid time
QString heure(QTime time);

} // namespace DatesFr

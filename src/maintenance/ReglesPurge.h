#pragma once

#include <QDate>
#include <QString>
#include <chrono>

/// How many appointments the first lot of a purge has.
inline constexpr int premierLot = 200;
/// How long the book stays free between two lots at least: longer than a program that waits for it sleeps
/// between two looks, so that it is sure to come in.
inline constexpr std::chrono::milliseconds pauseEntreLots{35};

/// The size of the next lot when one of `lot` appointments kept the book's writers out for `duree`: as many
/// as leave a workstation that books meanwhile no time to wonder.
int LotSuivant(int lot, std::chrono::milliseconds duree);

/// Whether the day that an appointment itself names lets it go with a purge up to `jour`: a row of another
/// program may have no key yet, or a wrong one. A day that cannot be read (invalid) does.
bool EstAnterieur(QDate Date1, QDate jour);

/// The archive's file name as it is created: with its extension, which the user may leave out.
QString NomArchive(const QString &saisi);

/// What the user is told of a purge that did not end: how many appointments were moved, and where to, of how
/// many that is not known, and how many more the archive may hold copies of.
QString BilanPurge(int deplaces, int incertains, int enTrop, const QString &archive);

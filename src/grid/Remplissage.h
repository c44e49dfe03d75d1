#pragma once

#include "schedule/Creneaux.h"

#include <QList>

/// How full the days of a month are: rules on its appointments.

/// An appointment as far as it fills a day.
struct TempsPris {
    QDate jour;
    long fauteuil = 0;
    PlageHoraire plage;
};

/// For each day of the month of `jour`, how much of the working hours of `configs` is taken, 0 to 100; -1 for
/// a day that has none. Each configuration counts the appointments of its chair, or of all.
QList<int> Remplissage(QDate jour, const QList<Configuration> &configs, bool parFauteuil,
                       const QList<TempsPris> &pris);

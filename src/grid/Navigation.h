#pragma once

#include <QDate>

/// The days that the book goes through.
inline const QDate premierJourDuCarnet(1900, 1, 1);
inline const QDate dernierJourDuCarnet(2999, 12, 31);

/// `date` moved by `jours`; an invalid date when that leaves the book.
QDate DecaleDate(QDate date, int jours);

/// The slot length after a toggle of the zoom. `sansZoom` is the length to come back to: it is kept there on
/// the way in, and 0 when there is none. A book of 5-minute slots stays as it is.
int BasculeZoom(int intervalle, int &sansZoom);

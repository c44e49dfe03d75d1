#pragma once

#include <QDate>
#include <QString>

/// The sortable key of a date text "dd/mm/yyyy": its characters 7–10, 4–5 and 1–2 by position, unchecked
/// (25/03/2005 gives 20050325).
inline QString InverseDate(const QString &date) {
    return date.mid(6, 4) + date.mid(3, 2) + date.mid(0, 2);
}

/// The same key of a date.
inline QString InverseDate(QDate date) {
    return InverseDate(date.toString(QStringLiteral("dd/MM/yyyy")));
}

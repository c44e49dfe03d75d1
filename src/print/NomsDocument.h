#pragma once

#include <QDateTime>
#include <QStringList>

/// The names that a document may get, the first choice first: `debut` with day and time of `maintenant`
/// ("Absence07032005143005.doc"), then those of the seconds after it. Two documents of one second, or of two
/// workstations, each find a name of their own among them without waiting for it.
QStringList NomsDocument(const QString &debut, const QDateTime &maintenant);

#pragma once

#include <QDate>
#include <QString>

/// The date as a record keeps it, "dd/mm/yyyy"; empty when the masked field `saisie` holds its slashes alone.
QString DateNaissanceSaisie(const QString &saisie);

/// Why the date cannot be kept, as a French sentence; empty when it can, or when there is none.
QString DefautDateNaissance(const QString &date, QDate aujourdhui);

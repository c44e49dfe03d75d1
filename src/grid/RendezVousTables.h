#pragma once

#include "grid/RendezVous.h"
#include "platform/db/Database.h"

#include <QList>
#include <optional>

/// The appointments of a practitioner and chair from `premier` to `dernier`, by day then start.
QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien, long fauteuil);

/// The appointments of a practitioner on a day, all chairs, by start.
QList<RendezVous> RendezVousDuJour(Database &rdv, QDate jour, long praticien);

/// The appointments of a practitioner and chair on a day, by start, found by the date itself.
QList<RendezVous> RendezVousALaDate(Database &rdv, QDate jour, long praticien, long fauteuil);

/// What occupies a practitioner and chair on a day: found by the day's key or by the date, so that a row of
/// which an older program left one wrong counts too. In any order.
QList<RendezVous> RendezVousOccupant(Database &rdv, QDate jour, long praticien, long fauteuil);

/// The appointment of that key, nothing when it is gone.
std::optional<RendezVous> LitRDV(Database &rdv, qint64 ref);

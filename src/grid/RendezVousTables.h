#pragma once

#include "grid/RendezVous.h"
#include "platform/db/Database.h"

#include <QList>

/// The appointments of a practitioner and chair from `premier` to `dernier`, by day then start.
QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien, long fauteuil);

/// The appointments of a practitioner on a day, all chairs, by start.
QList<RendezVous> RendezVousDuJour(Database &rdv, QDate jour, long praticien);

/// The appointments of a practitioner and chair on a day, by start, found by the date itself.
QList<RendezVous> RendezVousALaDate(Database &rdv, QDate jour, long praticien, long fauteuil);

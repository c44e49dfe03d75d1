#pragma once

#include "grid/RendezVous.h"
#include "platform/db/Database.h"

#include <QList>

/// The appointments of a practitioner and chair from `premier` to `dernier`, by day then start.
QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien, long fauteuil);

#pragma once

#include "grid/RendezVous.h"
#include "platform/db/Database.h"

#include <QList>
#include <optional>

/// The appointments of a practitioner, at one chair or (none) at all, whose Date1 is one of the days
/// `premier` to `dernier`: by day, start and RefRDV.
QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien,
                                  std::optional<long> fauteuil);

/// The appointment of that key, nothing when it is gone.
std::optional<RendezVous> LitRDV(Database &rdv, qint64 ref);

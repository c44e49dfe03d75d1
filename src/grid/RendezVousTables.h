#pragma once

#include "grid/Remplissage.h"
#include "grid/RendezVous.h"
#include "platform/db/Database.h"

#include <QList>
#include <optional>

using Requete = std::pair<SqlText, RowVisitor>;

/// The rows of RDV that fulfil `condition`, as they come, behind what `liste` has.
Requete RequeteRDV(const SqlText &condition, QList<RendezVous> &liste);

/// The appointments of a practitioner, at one chair or (none) at all, whose Date1 is one of the days
/// `premier` to `dernier`: by day, start and RefRDV. `aussi` goes along: one way to a
/// server for all.
QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien,
                                  std::optional<long> fauteuil, const std::vector<Requete> &aussi = {});

/// Those of one day at every practitioner and chair.
QList<RendezVous> RendezVousDuJour(Database &rdv, QDate jour);

/// What the practitioner's appointments take of the month of `jour`, by the days that their keys name: a
/// hint, for which the few rows that lie elsewhere are not looked for.
QList<TempsPris> TempsDuMois(Database &rdv, QDate jour, long praticien);

/// The appointment of that key, nothing when it is gone.
std::optional<RendezVous> LitRDV(Database &rdv, qint64 ref);

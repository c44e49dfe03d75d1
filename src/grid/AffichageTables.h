#pragma once

#include "grid/Affichage.h"
#include "platform/db/Database.h"

/// Reads what `demande` asks for, at `maintenant`. Throws DbError, and nothing has changed. A configuration
/// that cannot be drawn or is missing is no failure: its grid says why.
Affichage LitAffichage(Database &carnet, const Demande &demande, const QDateTime &maintenant);

/// The appointments of one day of a grid, as LitAffichage reads them.
QList<RendezVous> RelitJour(Database &carnet, const Affichage &affichage, int grille, QDate jour);

#pragma once

#include "platform/db/Database.h"

/// The number that the latest appointment under these names has, whoever's it is; 0 when it has none or there
/// is no such appointment. The names are compared whole, letter case ignored.
qint64 DernierNumero(Database &rdv, const QString &nom, const QString &prenom);

/// Asks the suite to show that patient: its number goes into the first row of Carnet; without a row nothing
/// is written.
void DemandeHistorique(Database &historique, qint64 numero);

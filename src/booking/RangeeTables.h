#pragma once

#include "grid/RendezVous.h"
#include "journal/Ecriture.h"
#include "platform/db/Database.h"

/// The row of that key, as it is stored; empty when it is gone.
Rangee LitRangee(Database &rdv, qint64 ref);
/// Those fields of `voulue` that are others in `autre`, to be written; without an `autre`, all of them. A
/// field that `autre` does not have is left out: the table has lost it since.
Fields ChampsAutres(const Rangee &voulue, const Rangee &autre);
/// A row as the grids and the dialogs read it.
RendezVous RendezVousDe(const Rangee &rangee);

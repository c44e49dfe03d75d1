#pragma once

#include "platform/db/Database.h"
#include "print/Lettres.h"

/// What the frame of a letter says, from the letterheads, the patient file and the practitioners; rows that
/// are not there leave it empty.
CadreLettre LitCadre(Database &impression, Database &patients, Database &parametres, const Lettre &lettre);

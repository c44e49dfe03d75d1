#pragma once

#include "platform/db/Database.h"

/// The patient's latest act still to do, "Bilan (TO 15)"; empty when there is none.
QString DernierActeAFaire(Database &actes, qint64 numPatient);

#pragma once

#include "platform/db/Database.h"
#include "print/Absents.h"

#include <QDate>

/// The appointments of the key `jour` that are not marked as kept: those of a practitioner, by start, or of
/// all of them, by practitioner and start.
QList<Absent> Absents(Database &carnet, std::optional<long> praticien, QDate jour);

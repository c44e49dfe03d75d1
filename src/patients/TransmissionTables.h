#pragma once

#include "platform/db/Database.h"

/// What the suite hands over. A table without a row leaves its part empty.
struct Transmission {
    bool avecPatient = false;
    QString NomPatient;
    QString PrenomPatient;
    qint64 NumPatient = 0;
    QString NumPraticien;
};

Transmission LitTransmission(Database &transmission);

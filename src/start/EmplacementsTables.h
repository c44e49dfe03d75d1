#pragma once

#include "platform/db/Database.h"

#include <optional>

/// The row of Chemin: two folders, as stored.
struct Emplacements {
    QString LeChemin;
    QString CheminBase;
};

/// The first row of Chemin; nothing when there is none.
std::optional<Emplacements> LitChemin(Database &chemin);

/// What the suite hands over. A table without a row leaves its part empty.
struct Transmission {
    bool avecPatient = false;
    QString NomPatient;
    QString PrenomPatient;
    qint64 NumPatient = 0;
    QString NumPraticien;
};

Transmission LitTransmission(Database &transmission);

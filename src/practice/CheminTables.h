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

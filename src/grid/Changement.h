#pragma once

#include "grid/Affichage.h"

/// What somebody has written into the book: a practitioner's day, as the book's notices name it.
struct Changement {
    std::optional<long> NumPraticien = {}; ///< none: anybody's
    QDate jour = {};                       ///< invalid: any day

    friend bool operator==(const Changement &, const Changement &) = default;
};

/// "1|2026-03-11", or what is left of it where a row has no practitioner or no day.
Changement LitChangement(const QString &annonce);

/// Whether what is shown may have become another.
bool Concerne(const Affichage &affichage, const Changement &changement);

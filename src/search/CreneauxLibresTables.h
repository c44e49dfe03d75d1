#pragma once

#include "platform/db/Database.h"
#include "search/CreneauxLibres.h"

#include <functional>

/// Where a search has come to.
struct EtapeCreneau {
    enum class Etat {
        EnCours,           ///< `jour` is the next one to look at
        Trouve,            ///< `debuts` are the free starts of `jour`
        Epuise,            ///< no day is left
        SansConfiguration, ///< the book has none for this practitioner and chair
    };
    Etat etat = Etat::EnCours;
    QDate jour;
    QList<QTime> debuts = {};
};

/// Looks from `jour` on, day after day, for the first one that has room; on as long as `encore` says so,
/// which is asked every few days. The slot length is read at each day; appointments, by some days at once.
EtapeCreneau ChercheCreneau(Database &carnet, const DemandeCreneau &demande, QDate jour,
                            const std::function<bool()> &encore);

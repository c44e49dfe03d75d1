#pragma once

#include "config/PraticienTables.h"
#include "grid/Affichage.h"
#include "practice/Environnement.h"

#include <QStringList>

/// The first steps of the start-up, which read the data before anything is drawn.

/// Reads the path database `fichier` (a real file). Gives why the program has to end, nothing when it can go
/// on.
QString LitEmplacements(Environnement &env, const QString &fichier);

/// What the window opens on.
struct Depart {
    QStringList messages; ///< what the user has to be told, in order
    QList<Praticien> praticiens;
    std::optional<Affichage>
        premier; ///< today's week, or that of the next displayed day; none: it cannot open yet
};

/// Brings the appointment database up to date, reads whom the suite hands over, who the practitioners are,
/// and the first week. Without a hand-off the book opens on the first practitioner. It may be tried again
/// after a failure, and needs no window system.
Depart Demarre(const Environnement &monde);

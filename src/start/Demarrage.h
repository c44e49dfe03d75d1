#pragma once

#include "config/PraticienTables.h"
#include "practice/Environnement.h"

#include <QStringList>

/// The first steps of the start-up, which read the data before anything is drawn.

/// Reads the path database `fichier` (a real file). Gives why the program has to end, nothing when it can go
/// on.
QString LitEmplacements(Environnement &env, const QString &fichier);

/// What the window opens on.
struct Depart {
    bool complet = false; ///< false: there is nothing to open on yet
    QStringList messages; ///< what the user has to be told, in order
    QList<Praticien> praticiens;
    QString PraticienCourant; ///< number as text: "01"
};

/// Brings the appointment database up to date, reads whom the suite hands over and who the practitioners are.
/// Without a hand-off the book opens on the first practitioner. It may be tried again after a failure.
Depart Demarre(const Environnement &monde);

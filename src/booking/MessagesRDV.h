#pragma once

#include "booking/ReservationTables.h"
#include "grid/RendezVous.h"

/// What the user is told about an appointment that another workstation changed since it was shown: both
/// versions, and that nothing was written.
QString MessageModifie(const RendezVous &avant, const RendezVous &actuel);
/// Why what was done ("Déplacer DURAND") is not undone, or not done again.
QString MessageRefus(const QString &geste, bool annule, const BilanEcriture &bilan, const Rangee &attendue,
                     const Rangee &voulue);
inline const QString titreModifie = QStringLiteral("Rendez-vous modifié");

/// What the user is told where an appointment would lie on another one.
inline const QString messageOccupe =
    QStringLiteral("Vous ne pouvez ajouter de rendez-vous à cet endroit.\n"
                   "Un rendez-vous s'y trouve déjà. Veuillez rafraichir l'affichage.");
inline const QString titreOccupe = QStringLiteral("Horaire occupé");

/// The same, of one that is changed.
inline const QString messagePasLibre = QStringLiteral("Le créneau choisit n'est pas libre!");
inline const QString titrePasLibre = QStringLiteral("Message");

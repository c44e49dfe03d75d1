#pragma once

#include "grid/RendezVous.h"

#include <QDateTime>

/// What is said of a grid to those who hear it.

/// Whether the appointment has ended at `maintenant`.
bool EstPasse(const RendezVous &rdv, const QDateTime &maintenant);

/// "mercredi 25 novembre, 10 heures à 10 heures 30, DUPONT Solange, Couronne 14, présent"; else "en retard"
/// as it is drawn, "absent" on a day that is over, "à venir".
QString TexteLuRDV(const RendezVous &rdv, bool enRetard, QDate aujourdhui);

/// "jeudi 26 novembre, 14 heures 45, libre", or "grisé".
QString TexteLuCase(QDate jour, QTime heure, bool grise);

#pragma once

#include "grid/RendezVous.h"
#include "platform/word/Verbs.h"
#include "schedule/Configuration.h"

#include <QList>
#include <QStringList>

/// One line of the day sheet, and row of Impression: a slot of the left column and one of the right, which
/// has ended where HeurePM is empty.
struct LigneFeuille {
    QString Heure; ///< "hh:nn"
    QString NomPatient;
    QString PrenomPatient; ///< the appointment's description
    QString HeurePM;
    QString NomPatientPM;
    QString PrenomPatientPM;

    friend bool operator==(const LigneFeuille &, const LigneFeuille &) = default;
};

/// A practitioner's day on paper.
struct FeuilleJour {
    QList<LigneFeuille> lignes;
    QList<RendezVous> sansLigne; ///< those that the sheet does not show where they begin
    QString empechement;         ///< why there are no lines, a French sentence; empty when there are
};

/// The sheet that `config`, as it is stored, makes of a day's appointments: the lunch break is a slot like
/// any other, and an appointment stands on the lines that it reaches from its start in steps of a slot. Of
/// two on one line the later in `rdvs` has it.
FeuilleJour ComposeFeuille(const Configuration &config, const QList<RendezVous> &rdvs);

/// What the user is told about the appointments that the sheet lacks; empty when it lacks none.
QString TexteSansLigne(const QList<RendezVous> &sansLigne);

/// The sheet as a document after the practice's template, saved under the first of `noms` that is free.
word::Verbs DocumentFeuille(const QList<LigneFeuille> &lignes, const QString &modele, const QStringList &noms,
                            const QString &praticien, const QString &jour);

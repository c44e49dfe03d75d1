#pragma once

#include "Hasard.h"

#include <QDate>
#include <QString>
#include <vector>

class Database;

struct PatientDemo {
    qint64 numero = 0; ///< cptid, known once the patient is written
    QString nom;
    QString prenom;
    QString titre;
    QString adresse1;
    QString adresse2;
    QString codePostal;
    QString ville;
    QString telephone;
    QString portable;
    QDate naissance;
    QString numeroSS;
    bool femme = false;
    bool nonHonore = false;

    bool estEnfant() const { return titre == u"Enfant"; }
};

/// The two-digit key of a thirteen-character number; Corsican departments count as 19 (2A) and 18 (2B).
QString cleSecu(const QString &treize);

std::vector<PatientDemo> inventePatients(int combien, QDate aujourdhui, Hasard &hasard);
/// Writes the patients to TabPat and notes the number that each receives.
void ecritPatients(Database &base, std::vector<PatientDemo> &patients, QDate aujourdhui, Hasard &hasard);
/// Writes what was done and is still to do for the patients; the patient `aTraiter` has an act to do.
int ecritActes(Database &base, const std::vector<PatientDemo> &patients, const PatientDemo &aTraiter,
               Hasard &hasard);

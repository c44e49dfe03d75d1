#pragma once

#include "patients/AlerteNonHonore.h"
#include "patients/Critere.h"
#include "patients/Doublons.h"
#include "platform/db/Database.h"

#include <QStringList>

/// A patient as the lookup lists him.
struct PatientTrouve {
    QString nom;
    QString prenom;
    QString numero;
    QString dateNais; ///< "dd/mm/yyyy"
};

/// Names of the file, in alphabetical order; patients whose names differ by letter case alone are together.
using LotDeNoms = QStringList;

/// A part of the found, and the names of those that are still to be read.
struct PatientsTrouves {
    QList<PatientTrouve> patients;
    QList<LotDeNoms> suite;
};

/// The patients asked for: the one of that number, or those whose name begins with the text, by name, then
/// first name. Of many only the first are read; the other lots follow in their order.
PatientsTrouves CherchePatients(Database &patient, const Critere &critere);

/// The patients who bear one of the names, by name, then first name.
QList<PatientTrouve> PatientsDuLot(Database &patient, const LotDeNoms &lot);

/// Creates the index that a search by name uses, where the file can be written and lacks it. Searches find
/// the same patients without it, later.
void CreeIndexPatients(Database &patient);

/// Whether the patient is marked as one who does not keep his appointments.
NonHonore RDVNonHonoré(Database &patient, qint64 numPatient);

/// The titles that patients bear, none of them empty.
QStringList Titres(Database &patient);

/// A new patient, as the screen says.
struct FichePatient {
    QString nom;
    QString PreNom;
    QString Titre;
    QString adresse1;
    QString adresse2;
    QString CodePostal;
    QString ville;
    QString telephone;
    Identite identite;
};

/// Those who bear the name and first name of `fiche`.
QList<Identite> Homonymes(Database &patient, const FichePatient &fiche);

/// Adds the patient to `patient` and the row of `aujourdhui` to `listing`, both or neither; gives his number.
qint64 CreePatient(Database &patient, const Database &listing, const FichePatient &fiche, QDate aujourdhui);

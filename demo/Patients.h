#pragma once

#include "Cabinet.h"
#include "Hasard.h"

#include <vector>

class Database;

/// What the book needs to know of a patient.
struct PatientDemo {
    qint64 numero = 0; ///< cptid
    QString nom;
    QString prenom;
    QString telephone; ///< the portable one if there is one; empty without any
    bool enfant = false;
};

/// Writes the patients to TabPat.
std::vector<PatientDemo> ecritPatients(Database &base, const OptionsCabinet &options, Hasard &hasard);
/// Writes what was done and is still to do; the first patient has an act to do. Gives the number of acts.
int ecritActes(Database &base, const std::vector<PatientDemo> &patients, Hasard &hasard);

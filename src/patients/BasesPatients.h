#pragma once

#include "start/VariablesGlobales.h"

/// The suite's databases that the patients' windows open, each for one action. They throw DbError.

inline Database OuvrePatients(const VariablesGlobales &v) {
    return v.ouvre(v.CheminFichiers + QStringLiteral("\\Patient.mdb"));
}

inline Database OuvrePatientsCrees(const VariablesGlobales &v) {
    return v.ouvre(v.CheminFichiers + QStringLiteral("\\ListingPatientsCrees.mdb"));
}

inline Database OuvreActes(const VariablesGlobales &v) {
    return v.ouvre(v.CheminFichiers + QStringLiteral("\\Actes.mdb"));
}

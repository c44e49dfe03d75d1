#pragma once

#include <QString>
#include <optional>

/// What a patient's non-attendance flag asks for: nothing where there is no such patient.
using NonHonore = std::optional<bool>;

/// The text colour of the fields that name a patient.
enum class CouleurPatient { Inchangee, ParDefaut, Rouge };

inline const QString messageNonHonore =
    QStringLiteral("Le patient est inscrit comme n'honorant pas ses rendez-vous !!!");
inline const QString titreNonHonore = QStringLiteral("MESSAGE ALERTE");

inline CouleurPatient CouleurDuPatient(NonHonore drapeau) {
    if (!drapeau) {
        return CouleurPatient::Inchangee;
    }
    return *drapeau ? CouleurPatient::Rouge : CouleurPatient::ParDefaut;
}

#pragma once

#include <QString>
#include <variant>

/// What the search field asks for: nothing, the patient of a number, or the names that begin with a text.
using Critere = std::variant<std::monostate, qint64, QString>;

/// Digits alone are a number, whatever their count; one that no patient can have is -1. Blanks before the
/// text count for nothing, one behind it does: "LE " asks for "LE GALL" and not for "LEGALL".
Critere LitCritere(const QString &texte);

/// Whether a typed text may be kept as a patient's number: 0 to 2147483647, or nothing, which stands for 0.
bool EstNumeroPatient(const QString &texte);

/// The like pattern of the texts that begin with `debut`. What would be a wildcard stands for itself:
/// somebody who types "D*" or "n° #" means those characters, and never gets a list of other names.
QString MotifDebut(const QString &debut);

/// Bounds of every text that begins with `debut`, de <= text < jusqua, where the comparison ignores the case
/// of unaccented letters only. Texts between them need not begin with it.
struct Plage {
    QString de;
    QString jusqua;
};
Plage PlageDebut(const QString &debut);

#pragma once

#include <QStringView>
#include <span>

/// What the sample practice is told with. Telephone numbers are made from the two ranges that the French
/// numbering plan keeps for fiction, so that nobody's telephone rings.
namespace Noms {

using Liste = std::span<const QStringView>;

Liste familles();
/// First names in fashion before and after 1975, so that no child is called Raymond.
Liste prenomsFemmes(bool recents);
Liste prenomsHommes(bool recents);
Liste rues();
Liste complements();
Liste motifsAdulte();
Liste motifsEnfant();

struct Commune {
    QStringView codePostal;
    QStringView ville;
};
std::span<const Commune> communes();

struct Acte {
    QStringView libelle;
    QStringView codeSecu;
    double coefficient = 0;
};
std::span<const Acte> actes();

} // namespace Noms

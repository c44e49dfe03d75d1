#include "grid/Affichage.h"

#include <algorithm>

bool Affichage::AvecFauteuils() const {
    return std::ranges::any_of(
        configs, [](const LigneConfig &ligne) { return CLng(ligne.config.FauteuilCourant) != 0; });
}

bool Affichage::aFauteuil(int grille) const {
    return grille >= 0 && PlaceDuFauteuil(configs, CLng(grilles[grille].config.FauteuilCourant)) >= 0;
}

Demande Affichage::suite() const {
    Demande meme = demande;
    if (meme.VueSemaine && !grilles.isEmpty() && grilles.first().tracable()) {
        meme.config = grilles.first().config;
    }
    return meme;
}

const Configuration &Affichage::reglages(int grille) const {
    const Configuration &montree = grilles[std::max(grille, 0)].config;
    const bool gardee = demande.config && demande.config->FauteuilCourant == montree.FauteuilCourant;
    return gardee ? *demande.config : montree;
}

int PlaceDuFauteuil(const QList<LigneConfig> &configs, std::optional<long> fauteuil) {
    if (!fauteuil) {
        const auto parDefaut = std::find_if(configs.rbegin(), configs.rend(),
                                            [](const LigneConfig &ligne) { return ligne.DefaultConfig; });
        if (parDefaut == configs.rend()) {
            return -1;
        }
        fauteuil = CLng(parDefaut->config.FauteuilCourant);
    }
    const auto trouvee = std::ranges::find_if(
        configs, [&](const LigneConfig &ligne) { return CLng(ligne.config.FauteuilCourant) == *fauteuil; });
    return trouvee == configs.end() ? -1 : int(trouvee - configs.begin());
}

std::pair<int, int> FauteuilsDuJour(int nombre, int coche) {
    return nombre == 2 ? std::pair(0, 1) : std::pair(coche, (coche + 1) % nombre);
}

std::pair<QDate, QDate> JoursLus(const Demande &demande) {
    const QDate premier = demande.VueSemaine ? Lundi(demande.jour) : demande.jour;
    return {premier, demande.VueSemaine ? premier.addDays(6) : premier};
}

QList<RendezVous> DuJour(const Grille &grille, QDate jour) {
    QList<RendezVous> liste;
    std::ranges::copy_if(grille.rendezVous, std::back_inserter(liste),
                         [jour](const RendezVous &rdv) { return rdv.Date1 == jour; });
    return liste;
}

int SansHoraire(const Affichage &affichage) {
    QList<qint64> comptes; // without chairs both grids hold the same day
    for (const Grille &grille : affichage.grilles) {
        for (const RendezVous &rdv : grille.rendezVous) {
            if (!rdv.aUneDuree() && !comptes.contains(rdv.RefRDV)) {
                comptes << rdv.RefRDV;
            }
        }
    }
    return int(comptes.size());
}

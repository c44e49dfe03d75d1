#include "grid/Disposition.h"

#include "schedule/Creneaux.h"

#include <algorithm>

namespace {

constexpr int bandeSousGrille = 1200;
constexpr int barreEtat = 375;
constexpr int ascenseur = 300;
constexpr int ecartGrillesJour = 120;

} // namespace

std::optional<Disposition> DisposeFenetre(int largeur, int hauteur, bool avecBoutons) {
    if (hauteur <= bandeSousGrille) {
        return std::nullopt;
    }
    Disposition d;
    d.GrilleRDV = {0, 0, largeur, hauteur - (avecBoutons ? bandeSousGrille : barreEtat)};
    const int cadre = d.GrilleRDV.hauteur + 80;
    const int bouton = d.GrilleRDV.hauteur + 320;
    constexpr int hauteurCadre = 735;
    constexpr int hauteurBouton = 375;
    const int large135 = largeur * 135 / 1000;
    const int large17 = largeur * 17 / 100;

    d.Frame1 = {50, cadre, largeur * 41 / 100 + 350, hauteurCadre};
    d.BtnPrecedent = {150, bouton, large135, hauteurBouton};
    d.BtnAujourdhui = {d.BtnPrecedent.largeur + 250, bouton, large135, hauteurBouton};
    d.BtnSuivant = {d.BtnPrecedent.largeur + d.BtnAujourdhui.largeur + 350, bouton, large135, hauteurBouton};
    d.Frame2 = {d.Frame1.largeur + 100, cadre, largeur * 33 / 100 + 400, hauteurCadre};
    d.BtnRafraichir = {d.Frame1.largeur + 200, bouton, large17, hauteurBouton};
    d.BtnMois = {d.Frame1.largeur + d.BtnRafraichir.largeur + 300, bouton, large17, hauteurBouton};
    d.Frame3 = {d.Frame1.largeur + d.Frame2.largeur + 200, cadre, largeur * 155 / 1000, hauteurCadre};
    d.BtnQuitter = {d.Frame1.largeur + d.Frame2.largeur + 300, bouton, large135, hauteurBouton};

    d.GrilleRDV02 = {0, 0, (largeur - ecartGrillesJour) / 2, d.GrilleRDV.hauteur};
    d.GrilleRDV03 = {d.GrilleRDV02.largeur + ecartGrillesJour, 0, d.GrilleRDV02.largeur, d.GrilleRDV.hauteur};
    return d;
}

LargeursColonnes LargeursSemaine(int largeurGrille, int colonnes) {
    const int partagee = largeurGrille - ascenseur;
    if (colonnes < 2 || partagee < 0) {
        return {};
    }
    return {partagee / ((colonnes - 1) * 2), partagee / (colonnes - 1)};
}

LargeursColonnes LargeursJour(int largeurGrille) {
    const int partagee = largeurGrille - ascenseur;
    return partagee < 0 ? LargeursColonnes{} : LargeursColonnes{partagee / 6, partagee * 5 / 6};
}

std::array<EchelleGrille, 2> EchellesJour(const Creneaux &premier, const Creneaux &second) {
    const QTime debut = std::min(premier.debut, second.debut);
    const auto jusqua = [debut](const Creneaux &c) {
        return Minutes(debut, c.debut) + (c.lignes() - 1) * c.intervalle;
    };
    const int total = std::max(jusqua(premier), jusqua(second));
    const int pasMin = std::min(premier.intervalle, second.intervalle);
    const auto echelle = [&](const Creneaux &c) {
        return EchelleGrille{Minutes(debut, c.debut), c.intervalle, total, pasMin};
    };
    return {echelle(premier), echelle(second)};
}

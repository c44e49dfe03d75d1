#include "booking/Deplacement.h"

#include "grid/Fourchette.h"
#include "grid/Occupation.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int derniereMinute = 24 * 60 - 1;

int minuteDe(QTime t) {
    return Minutes(QTime(0, 0), t);
}

QTime heureDe(int minute) {
    return QTime(0, 0).addSecs(minute * 60);
}

double minuteSous(const Creneaux &creneaux, double ligne) {
    return minuteDe(creneaux.debut) + (ligne - 1) * creneaux.intervalle;
}

/// No appointment goes on into the next day.
int finDesCreneaux(const Creneaux &creneaux) {
    return std::min(minuteDe(creneaux.debut) + (creneaux.lignes() - 2) * creneaux.intervalle, derniereMinute);
}

/// The day under the pointer; invalid where no slot is.
QDate jourSous(const Affichage &affichage, const Pointeur &pointeur) {
    if (pointeur.grille < 0 || pointeur.grille >= affichage.grilles.size()) {
        return {};
    }
    const Grille &grille = affichage.grilles[pointeur.grille];
    const int ligne = int(std::floor(pointeur.ligne));
    if (!grille.tracable() || ligne < 1 || ligne > grille.creneaux.lignes() - 2) {
        return {};
    }
    return JourDesCoins(affichage, pointeur.grille, {ligne, pointeur.colonne, ligne, pointeur.colonne});
}

/// The beginning of the slot that is nearest to `minute`; `avant`, where that is less than half a slot away.
int accroche(const Creneaux &creneaux, double minute, int avant) {
    if (2 * std::abs(minute - avant) < creneaux.intervalle) {
        return avant;
    }
    const int debut = minuteDe(creneaux.debut);
    return debut + int(std::lround((minute - debut) / creneaux.intervalle)) * creneaux.intervalle;
}

PlageHoraire deplacee(const Creneaux &creneaux, const PlageHoraire &avant, double minute, bool memeGrille) {
    const int depart = minuteDe(avant.debut);
    const int duree = Minutes(avant.debut, avant.fin);
    const int premier = minuteDe(creneaux.debut);
    int debut = accroche(creneaux, minute, depart);
    if (debut != depart || !memeGrille) { // what lies partly beyond the slots may stay so
        const int reste = std::max(finDesCreneaux(creneaux) - premier - duree, 0);
        debut = std::clamp(debut, premier, premier + reste / creneaux.intervalle * creneaux.intervalle);
    }
    if (debut == depart) {
        return avant;
    }
    const int fin = debut + duree;
    return {heureDe(debut), fin <= derniereMinute ? heureDe(fin) : QTime()};
}

PlageHoraire allongee(const Creneaux &creneaux, const PlageHoraire &avant, double minute) {
    const int depart = minuteDe(avant.fin);
    const int fin = accroche(creneaux, minute, depart);
    if (fin == depart) {
        return avant;
    }
    const int voulue =
        std::max(std::min(fin, finDesCreneaux(creneaux)), minuteDe(avant.debut) + creneaux.intervalle);
    return {avant.debut, voulue <= derniereMinute ? heureDe(voulue) : QTime()};
}

Accueil accueil(const Affichage &affichage, const EnMain &main, const Cible &cible, bool copie) {
    const bool autreFauteuil = CLng(cible.place.FauteuilCourant) != CLng(main.FauteuilCourant);
    if (!EstReservable(cible.place.horaire) ||
        ((copie || autreFauteuil) && !affichage.aFauteuil(cible.grille))) {
        return Accueil::Refus;
    }
    if (cible.rdv == main.rdv) {
        return Accueil::Meme;
    }
    const QList<RendezVous> jour = DuJour(affichage.grilles[cible.grille], cible.place.jour);
    const bool libre = copie ? HoraireLibre(jour, cible.place.horaire) && !RDVHere(jour, cible.place.horaire)
                             : HoraireLibreSauf(jour, main.rdv.RefRDV, cible.place.horaire);
    return libre ? Accueil::Libre : Accueil::Occupe;
}

/// The appointment as the drop would leave it, or as it would be booked once more.
RendezVous apresDepot(const EnMain &main, const PlaceRDV &place, bool copie) {
    RendezVous rdv = main.rdv;
    rdv.Date1 = place.jour;
    rdv.HeureDebut = place.horaire.debut;
    rdv.HeureFin = place.horaire.fin;
    const long fauteuil = CLng(place.FauteuilCourant);
    if (copie || fauteuil != CLng(main.FauteuilCourant)) { // a day without chairs shows those of all
        rdv.Fauteuil = fauteuil;
    }
    if (copie) {
        rdv.RefRDV = 0;
        rdv.Present = false;
        rdv.NumPraticien = CLng(place.PraticienCourant);
    }
    return rdv;
}

} // namespace

EnMain PrendEnMain(const Affichage &affichage, const RendezVous &rdv, const Pointeur &prise, bool bord) {
    const Grille &grille = affichage.grilles[prise.grille];
    const QTime bouge = bord ? rdv.HeureFin : rdv.HeureDebut;
    return {rdv,          grille.config.FauteuilCourant,
            prise.grille, prise.colonne,
            bord,         minuteDe(bouge) - minuteSous(grille.creneaux, prise.ligne)};
}

EnMain PrendDeCote(const RendezVous &rdv) {
    EnMain main;
    main.rdv = rdv;
    main.FauteuilCourant = QString::number(rdv.Fauteuil);
    return main;
}

Cible CibleDe(const Affichage &affichage, const EnMain &main, const Pointeur &pointeur, bool ctrl) {
    const bool copie = ctrl && !main.bord;
    const QDate jour = jourSous(affichage, pointeur);
    if (!jour.isValid() || (main.bord && pointeur.grille != main.grille)) {
        return {};
    }
    const Grille &grille = affichage.grilles[pointeur.grille];
    const PlageHoraire avant{main.rdv.HeureDebut, main.rdv.HeureFin};
    const double minute = minuteSous(grille.creneaux, pointeur.ligne) + main.ecart;
    Cible cible;
    cible.grille = pointeur.grille;
    cible.place = {affichage.demande.PraticienCourant,
                   grille.config.FauteuilCourant,
                   main.bord ? main.rdv.Date1 : jour,
                   main.bord ? allongee(grille.creneaux, avant, minute)
                             : deplacee(grille.creneaux, avant, minute, pointeur.grille == main.grille),
                   grille.config.Intervalle,
                   0,
                   grille.config};
    const auto &[debut, fin] = cible.place.horaire;
    cible.place.ChoixHoraire = HoraireProf(grille.config, Jour(cible.place.jour), debut, fin);
    cible.rdv = apresDepot(main, cible.place, copie);
    cible.accueil = accueil(affichage, main, cible, copie);
    const Fourchette lignes =
        CoupeFourchette(grille.creneaux.premiereLigne(debut), grille.creneaux.derniereLigne(fin),
                        grille.creneaux.lignes() - 1);
    const int colonne = main.bord ? main.colonne : pointeur.colonne;
    cible.coins = {lignes.premiere, colonne, lignes.derniere, colonne};
    return cible;
}

#pragma once

#include "booking/Selection.h"
#include "grid/Pointeur.h"

/// An appointment that is moved by hand: what a place of the pointer means. Rules on values, no grid.

/// What the hand holds.
struct EnMain {
    RendezVous rdv;          ///< as it was shown when it was taken
    QString FauteuilCourant; ///< chair of the grid from which it was taken
    int grille = -1;
    int colonne = 0;
    bool bord = false; ///< by its lower edge: its end alone moves
    double ecart = 0;  ///< minutes from the pointer to what moves, its start or its end
};
EnMain PrendEnMain(const Affichage &affichage, const RendezVous &rdv, const Pointeur &prise, bool bord);
/// From the pinboard, where nothing says which part of it is held: its start.
EnMain PrendDeCote(const RendezVous &rdv);

/// How a place receives what is dropped there.
enum class Accueil {
    Refus,  ///< nothing can lie there: beside the slots, or a chair that the practitioner does not have
    Occupe, ///< another appointment does
    Meme,   ///< it does already
    Libre
};

/// What a drop would make of the appointment.
struct Cible {
    Accueil accueil = Accueil::Refus;
    int grille = -1;
    Coins coins = {}; ///< the rows that it would cover
    PlaceRDV place = {};
    RendezVous rdv = {}; ///< as it would be; without a RefRDV where the patient is booked once more
};

/// Where the hand lets go with the pointer there. What moves keeps its distance from the pointer and goes to
/// the nearest slot; within half a slot of its hour it keeps that. It stays between the first slot and the
/// end of the last, and an end one slot behind its start. `copie`: the patient is booked once more; an edge
/// is never.
Cible CibleDe(const Affichage &affichage, const EnMain &main, const Pointeur &pointeur, bool ctrl);

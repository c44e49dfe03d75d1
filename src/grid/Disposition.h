#pragma once

#include <array>
#include <optional>

struct Creneaux;

/// Where everything of the main window stands, in twips, from the window's top left inner corner.
struct Rectangle {
    int gauche = 0;
    int haut = 0;
    int largeur = 0;
    int hauteur = 0;

    friend bool operator==(const Rectangle &, const Rectangle &) = default;
};

struct Disposition {
    Rectangle GrilleRDV;
    Rectangle Frame1;       ///< week navigation; Frame4, day navigation, has the same place
    Rectangle BtnPrecedent; ///< also BtnPrecedent2
    Rectangle BtnAujourdhui;
    Rectangle BtnSuivant;
    Rectangle Frame2;
    Rectangle BtnRafraichir;
    Rectangle BtnMois;
    Rectangle Frame3;
    Rectangle BtnQuitter;
    Rectangle GrilleRDV02;
    Rectangle GrilleRDV03;
};

/// The layout for an inner size in twips; nothing at a height of 1200 or less, where the previous one stays.
/// Where a toolbar takes the place of the buttons, the grids go down to the status bar.
std::optional<Disposition> DisposeFenetre(int largeur, int hauteur, bool avecBoutons = true);

/// Column widths of a grid, in twips.
struct LargeursColonnes {
    int heures = 0; ///< hour-label columns
    int jours = 0;  ///< each appointment column
};

/// The week grid: two hour columns, each half a day column.
LargeursColonnes LargeursSemaine(int largeurGrille, int colonnes);
/// A day grid: one hour column and one appointment column.
LargeursColonnes LargeursJour(int largeurGrille);

/// How two chairs share one scale of time, in minutes from the earlier start to the later end.
struct EchelleGrille {
    int avant = 0; ///< from the earlier start to this grid's
    int pas = 1;
    int total = 1; ///< closing rows included
    int pasMin = 1;

    friend bool operator==(const EchelleGrille &, const EchelleGrille &) = default;
};
std::array<EchelleGrille, 2> EchellesJour(const Creneaux &premier, const Creneaux &second);

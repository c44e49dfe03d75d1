#pragma once

/// Where the mouse points in a grid of an Affichage: the row, 1 being the top of row 1, and the column.
struct Pointeur {
    int grille = -1; ///< -1: beside the grids
    double ligne = 0;
    int colonne = 0;
};

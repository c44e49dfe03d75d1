#pragma once

#include <QtGlobal>
#include <array>

/// Widths of the four columns of the results, in twips, for a grid as wide as `largeurGrille`: what is kept
/// back is for its frame and its scroll bar.
inline std::array<int, 4> LargeursResultat(int largeurGrille) {
    constexpr int reserve = 300;
    const double largeur = largeurGrille - reserve;
    return {qRound(largeur * 2 / 9), qRound(largeur * 4 / 9), qRound(largeur / 6), qRound(largeur / 6)};
}

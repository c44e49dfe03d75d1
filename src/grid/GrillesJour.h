#pragma once

#include "grid/Affichage.h"
#include "grid/ImagesRDV.h"

#include <array>

class FlexGrid;

/// The two grids of the day view: two chairs side by side when the practitioner works with chairs, else the
/// morning and the afternoon.
class GrillesJour {
  public:
    GrillesJour(FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03, const Environnement &env);

    /// Draws the day. A grid that cannot be drawn has its header only and says why.
    void dessine(const Affichage &affichage);
    /// Column widths for the grids' current widths.
    void dimensionne();
    /// Brings the hour of `affichage.lu` into sight when that day is shown.
    void montreHeureCourante(const Affichage &affichage);

  private:
    /// One scale of time for two chairs, whatever their slots.
    void metAEchelle(const Affichage &affichage);
    void dessineGrille(FlexGrid &vue, const Grille &grille, const Affichage &affichage);

    std::array<FlexGrid *, 2> m_grilles;
    ImagesRDV m_images;
};

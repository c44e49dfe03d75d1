#pragma once

#include "grid/Affichage.h"
#include "grid/ImagesRDV.h"

class FlexGrid;
class FlexGridModel;

/// The week grid: one row a slot, one column a displayed day of the week that holds the current date.
class GrilleSemaine {
  public:
    GrilleSemaine(FlexGrid &GrilleRDV, const Environnement &env) : m_grille(GrilleRDV), m_images(env) {}

    /// Draws the week. A configuration that cannot be drawn gives a grid without rows that says why.
    void dessine(const Affichage &affichage);
    /// Column widths for the grid's current width.
    void dimensionne();
    /// Brings the hour of `affichage.lu` into sight when the shown week holds that day.
    void montreHeureCourante(const Affichage &affichage);

  private:
    FlexGrid &m_grille;
    ImagesRDV m_images;
};

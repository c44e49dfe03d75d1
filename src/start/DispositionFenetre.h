#pragma once

namespace Ui {
class FrmEntree;
}

/// Places the main window's controls for an inner size in pixels; false where it is too low, and all stay.
bool PlaceControles(const Ui::FrmEntree &ui, int largeur, int hauteur);

/// Shows the grids and navigation buttons of one view.
void MontreVue(const Ui::FrmEntree &ui, bool semaine);

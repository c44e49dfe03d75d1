#pragma once

#include <QFont>

class QPushButton;
class QString;
namespace Ui {
class FrmEntree;
}

/// French needs no shaping of its letters: a grid full of names is laid out in half the time without.
QFont PoliceSansMiseEnForme(QFont police);

/// One of the two views' buttons, at the right end of the menu bar: the bottom of the window has no room
/// left.
QPushButton *BoutonVue(const Ui::FrmEntree &ui, const QString &nom);

/// Places the main window's controls for an inner size in pixels; false where it is too low, and all stay.
bool PlaceControles(const Ui::FrmEntree &ui, int largeur, int hauteur, bool avecBoutons);

/// Shows the grids of one view and, unless a toolbar has their place, its buttons.
void MontreVue(const Ui::FrmEntree &ui, bool semaine, bool avecBoutons);

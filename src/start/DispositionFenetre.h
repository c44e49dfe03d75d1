#pragma once

#include <QFont>

class QPushButton;
class QSize;
class QString;
namespace Ui {
class FrmEntree;
}

/// French needs no shaping of its letters: a grid full of names is laid out in half the time without.
QFont PoliceSansMiseEnForme(QFont police);

/// One of the two views' buttons, at the right end of the menu bar: the bottom of the window has no room
/// left.
QPushButton *BoutonVue(const Ui::FrmEntree &ui, const QString &nom);

/// Places the main window's controls above a status bar, on `place` pixels; false where that is too low, and
/// all stay. A caption that is too large for its control is written smaller.
bool PlaceControles(const Ui::FrmEntree &ui, QSize place, bool avecBoutons);

/// Shows the grids of one view and, unless a toolbar has their place, its buttons.
void MontreVue(const Ui::FrmEntree &ui, bool semaine, bool avecBoutons);

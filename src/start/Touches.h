#pragma once

#include <QStringList>
#include <span>

/// Where a key works: wherever the main window has the keyboard, in its grids alone, or in the windows of an
/// appointment.
enum class PorteeTouche { Fenetre, Grille, RendezVous };

/// A key, or several that do the same.
struct Touche {
    const char *suites = ""; ///< as QKeySequence spells them on every machine, parted by blanks
    PorteeTouche portee = PorteeTouche::Fenetre;
    const char *texte = "";  ///< what it does, a French phrase
    const char *action = ""; ///< object name of what it triggers; none: the control's own key
    bool repetee = false;    ///< held down, it goes on: nothing that writes or opens a window does
};

/// Every key, in the order of the page that shows them. The shortcuts of menus and grids are made from it.
std::span<const Touche> Touches();
QStringList SuitesDe(const Touche &touche);
/// The keys of an action; of one that has several rows, those of the row `rang`.
QStringList SuitesDe(const char *action, int rang = 0);

/// The keys of a row as a French keyboard names them: "Maj+F10, Menu", "Alt+1 … Alt+9".
QString LibelleTouche(const Touche &touche);

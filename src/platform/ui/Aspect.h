#pragma once

#include <QColor>
#include <QPalette>

#include <array>

/// How the book looks. "Classique" keeps the stated colours and pictures; "Contemporaine" paints the same
/// cells in tints of the weekday's colour.
enum class Presentation { Classique, Contemporaine };

/// What a weekday's appointments are painted in.
struct CouleursDuJour {
    QColor bord; ///< solid edge
    QColor teinte;
    QColor passe; ///< tint of what is over
    QColor contour;
    QColor coche; ///< check mark on the edge

    friend bool operator==(const CouleursDuJour &, const CouleursDuJour &) = default;
};

/// One look in full: what the grids and their marks are drawn in.
struct Aspect {
    Presentation presentation = Presentation::Classique;
    QColor fond; ///< window and hour labels
    QColor feuille;
    QColor encre;
    QColor encre2; ///< second lines
    QColor encre3; ///< labels between the hours
    QColor trait;  ///< line of a full hour
    QColor trait2; ///< line of a slot
    QColor hachure;
    QColor hachure2; ///< strokes of hatched time
    QColor accent;
    QColor surAccent; ///< text on the accent
    QColor alerte;
    QColor fondAlerte;
    QColor bordAlerte;
    QColor survol;                       ///< free slot under the pointer
    QColor choix;                        ///< free range that is selected
    QColor jourDit;                      ///< today's column
    QColor fantome;                      ///< what is dragged, where it would go
    QColor refus;                        ///< the same where it cannot
    std::array<CouleursDuJour, 8> jours; ///< by weekday, 1 … 7

    bool contemporaine() const { return presentation == Presentation::Contemporaine; }
    friend bool operator==(const Aspect &, const Aspect &) = default;
};

/// The look for a desktop's palette: light or dark after its sheet. A palette of two pure colours, black
/// and white for one, gets its own colours only, without tints.
Aspect AspectDe(Presentation presentation, const QPalette &palette);

/// The desktop's palette in the colours of a look.
QPalette PaletteDe(const Aspect &aspect, QPalette palette);

/// What no desktop makes sure that one can read: the hint in an empty field, the line under a list, and a
/// field that takes nothing. These roles alone are set.
QPalette TextesPales(const QPalette &bureau);

/// A button's, which stands out while it is pressed in.
QPalette PaletteBouton(const Aspect &aspect, bool enfonce);

/// `part` of `a`, the rest of `b`.
QColor Melange(const QColor &a, const QColor &b, double part);

/// How far two colours stand apart for the eye, 1 … 21.
double Contraste(const QColor &a, const QColor &b);

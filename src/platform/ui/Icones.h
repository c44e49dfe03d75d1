#pragma once

#include <QColor>
#include <QIcon>

enum class Icone {
    Precedent,
    Aujourdhui,
    Suivant,
    Rechercher,
    Libre,
    Mois,
    Rafraichir,
    Quitter,
    Attention,
    Epingle
};

/// A toolbar's picture, drawn in strokes of `couleur`; paler when it is disabled.
QIcon icone(Icone quoi, const QColor &couleur);

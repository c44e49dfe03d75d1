#include "platform/ui/Icones.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int cote = 16;
constexpr int finesse = 3; // pixels drawn for one shown: sharp on every screen
constexpr double epaisseur = 1.6;
constexpr double pale = 0.45;

using Points = std::initializer_list<QPointF>;

void trait(QPainterPath &chemin, Points points) {
    chemin.moveTo(*points.begin());
    for (const QPointF &point : points) {
        chemin.lineTo(point);
    }
}

void calendrier(QPainterPath &chemin) {
    chemin.addRoundedRect(QRectF(2.5, 3.5, 11, 10), 1.5, 1.5);
    trait(chemin, {{2.5, 6.5}, {13.5, 6.5}});
    trait(chemin, {{5.5, 2}, {5.5, 4.5}});
    trait(chemin, {{10.5, 2}, {10.5, 4.5}});
}

void horloge(QPainterPath &chemin) {
    chemin.addEllipse(QPointF(8, 8), 5.5, 5.5);
    trait(chemin, {{8, 5}, {8, 8}, {10, 9.5}});
}

void epingle(QPainterPath &chemin) {
    trait(chemin, {{5, 2.5}, {11, 2.5}});
    trait(chemin, {{6.5, 2.5}, {6, 7.5}, {4, 9.5}, {12, 9.5}, {10, 7.5}, {9.5, 2.5}});
    trait(chemin, {{8, 9.5}, {8, 14}});
}

void mois(QPainterPath &chemin) {
    calendrier(chemin);
    trait(chemin, {{6, 6.5}, {6, 13.5}});
    trait(chemin, {{10, 6.5}, {10, 13.5}});
    trait(chemin, {{2.5, 10}, {13.5, 10}});
}

void rafraichir(QPainterPath &chemin) {
    chemin.arcMoveTo(QRectF(3, 3, 10, 10), 50);
    chemin.arcTo(QRectF(3, 3, 10, 10), 50, 310);
    trait(chemin, {{13, 2.5}, {13, 5.5}, {10, 5.5}});
}

void quitter(QPainterPath &chemin) {
    trait(chemin, {{6.5, 3}, {3.5, 3}, {3.5, 13}, {6.5, 13}});
    trait(chemin, {{7, 8}, {13.5, 8}});
    trait(chemin, {{11, 5.5}, {13.5, 8}, {11, 10.5}});
}

/// On 16 × 16.
QPainterPath dessin(Icone quoi) {
    QPainterPath chemin;
    switch (quoi) {
    case Icone::Precedent:
        trait(chemin, {{10, 3}, {5, 8}, {10, 13}});
        break;
    case Icone::Suivant:
        trait(chemin, {{6, 3}, {11, 8}, {6, 13}});
        break;
    case Icone::Aujourdhui:
        calendrier(chemin);
        chemin.addEllipse(QPointF(8, 10), 1, 1);
        break;
    case Icone::Mois:
        mois(chemin);
        break;
    case Icone::Rechercher:
        chemin.addEllipse(QPointF(7, 7), 4, 4);
        trait(chemin, {{10, 10}, {13.5, 13.5}});
        break;
    case Icone::Libre:
        horloge(chemin);
        break;
    case Icone::Rafraichir:
        rafraichir(chemin);
        break;
    case Icone::Quitter:
        quitter(chemin);
        break;
    case Icone::Attention:
        chemin.addEllipse(QPointF(8, 8), 6, 6);
        trait(chemin, {{8, 4.5}, {8, 8.8}});
        trait(chemin, {{8, 11.2}, {8, 11.4}});
        break;
    case Icone::Epingle:
        epingle(chemin);
        break;
    }
    return chemin;
}

QPixmap image(Icone quoi, QColor couleur, double force) {
    couleur.setAlphaF(float(force));
    QPixmap pixmap(cote * finesse, cote * finesse);
    pixmap.setDevicePixelRatio(finesse);
    pixmap.fill(Qt::transparent);
    QPainter peintre(&pixmap);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(QPen(couleur, epaisseur, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    peintre.drawPath(dessin(quoi));
    return pixmap;
}

} // namespace

QIcon icone(Icone quoi, const QColor &couleur) {
    QIcon montree;
    montree.addPixmap(image(quoi, couleur, 1), QIcon::Normal);
    montree.addPixmap(image(quoi, couleur, pale), QIcon::Disabled);
    return montree;
}

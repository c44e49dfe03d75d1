#include "Images.h"

#include "Cabinet.h"

#include <QDir>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr int largeur = 12;
constexpr int hauteur = 20;

struct Forme {
    QLatin1StringView nom;
    int haut = 0; ///< of the bar; an end that is not the picture's own lies outside it
    int bas = 0;
};
constexpr Forme formes[] = {{QLatin1StringView("Dbl"), 1, hauteur - 1},
                            {QLatin1StringView("Top"), 1, 2 * hauteur},
                            {QLatin1StringView("Mid"), -hauteur, 2 * hauteur},
                            {QLatin1StringView("Low"), -hauteur, hauteur - 1}};

struct Couleur {
    QLatin1StringView nom;
    QRgb teinte = 0;
};
constexpr Couleur couleurs[] = {
    {QLatin1StringView("Bleu"), qRgb(0, 128, 255)},   {QLatin1StringView("Violet"), qRgb(128, 0, 128)},
    {QLatin1StringView("Orange"), qRgb(255, 128, 0)}, {QLatin1StringView("Jaune"), qRgb(128, 128, 0)},
    {QLatin1StringView("Vert"), qRgb(0, 128, 128)},   {QLatin1StringView("Brown"), qRgb(128, 64, 0)},
    {QLatin1StringView("BleuF"), qRgb(0, 0, 128)}};

/// On white: the bitmap format that is read here keeps no transparency.
QImage image(const Forme &forme, const QColor &teinte) {
    const QRectF barre(2, forme.haut, largeur - 4, forme.bas - forme.haut);
    QLinearGradient eclairage(barre.left(), 0, barre.right(), 0);
    eclairage.setColorAt(0, teinte);
    eclairage.setColorAt(0.3, teinte.lighter(150));
    eclairage.setColorAt(0.6, teinte);
    eclairage.setColorAt(1, teinte.darker(130));
    QImage dessin(largeur, hauteur, QImage::Format_RGB32);
    dessin.fill(Qt::white);
    QPainter peintre(&dessin);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(eclairage);
    peintre.drawRoundedRect(barre, 4, 4);
    return dessin;
}

} // namespace

int ecritImages(const QString &dossier) {
    for (const Couleur &couleur : couleurs) {
        for (const Forme &forme : formes) {
            const QString fichier = dossier + u'/' + forme.nom + couleur.nom + QStringLiteral(".bmp");
            if (!image(forme, QColor(couleur.teinte)).save(fichier, "BMP")) {
                throw ErreurCabinet(
                    QStringLiteral("Impossible d'écrire « %1 ».").arg(QDir::toNativeSeparators(fichier)));
            }
        }
    }
    return int(std::size(couleurs) * std::size(formes));
}

#include "Images.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr int largeur = 12;
constexpr int hauteur = 20;
constexpr QRectF barre(2, 1, 8, hauteur - 2);
constexpr qreal rayon = 4;

constexpr QRgb teintes[] = {qRgb(0, 128, 255), qRgb(128, 0, 128), qRgb(255, 128, 0), qRgb(128, 128, 0),
                            qRgb(0, 128, 128), qRgb(128, 64, 0),  qRgb(0, 0, 128)};

/// Top, Mid and Low are windows on one long bar: an end that is not theirs lies outside the picture.
QRectF barreDe(QByteArrayView forme) {
    QRectF rect = barre;
    if (forme == "Top" || forme == "Mid") {
        rect.setBottom(2 * hauteur);
    }
    if (forme == "Low" || forme == "Mid") {
        rect.setTop(-hauteur);
    }
    return rect;
}

/// Lit from the left; every row of a straight part is the same, so that parts join without a seam.
QLinearGradient eclairage(const QColor &teinte) {
    QLinearGradient degrade(barre.left(), 0, barre.right(), 0);
    degrade.setColorAt(0, teinte);
    degrade.setColorAt(0.3, teinte.lighter(150));
    degrade.setColorAt(0.6, teinte);
    degrade.setColorAt(1, teinte.darker(130));
    return degrade;
}

/// On white: the bitmap format that is read here keeps no transparency.
QImage image(QByteArrayView forme, const QColor &teinte) {
    QImage picture(largeur, hauteur, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter peintre(&picture);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(eclairage(teinte));
    peintre.drawRoundedRect(barreDe(forme), rayon, rayon);
    return picture;
}

} // namespace

int ecritImages(const QString &dossier) {
    int ecrites = 0;
    for (size_t jour = 0; jour < std::size(teintes); ++jour) {
        for (const char *forme : formesImages) {
            const QString nom = QLatin1StringView(forme) + QLatin1StringView(couleursImages[jour]);
            const QString fichier = dossier + u'/' + nom + QStringLiteral(".bmp");
            ecrites += image(forme, QColor(teintes[jour])).save(fichier, "BMP") ? 1 : 0;
        }
    }
    return ecrites;
}

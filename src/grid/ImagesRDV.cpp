#include "grid/ImagesRDV.h"

#include "practice/Environnement.h"

#include <algorithm>

namespace {

constexpr int plusGrandCote = 128; // pixels; a cell is some 20 high

/// A bitmap has no transparency: its white lets the cell's own colour through, and lighter tones in
/// proportion. On a white cell nothing changes.
QImage sansFondBlanc(const QImage &bitmap) {
    QImage image = bitmap.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto *ligne = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb c = ligne[x];
            const int blanc = std::min({qRed(c), qGreen(c), qBlue(c)});
            ligne[x] = qRgba(qRed(c) - blanc, qGreen(c) - blanc, qBlue(c) - blanc, 255 - blanc);
        }
    }
    return image;
}

QImage lit(const QString &fichier) {
    QImage image(fichier);
    if (image.isNull()) {
        return {};
    }
    if (image.width() > plusGrandCote || image.height() > plusGrandCote) {
        image = image.scaled(plusGrandCote, plusGrandCote, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    return image.hasAlphaChannel() ? image : sansFondBlanc(image);
}

} // namespace

QImage ImagesRDV::image(FormeCellule forme, int jour) {
    std::optional<QImage> &lue = m_lues.at(size_t(forme)).at(size_t(jour));
    if (!lue) {
        const QString nom = NomImage(forme, jour);
        lue = nom.isEmpty()
                  ? QImage()
                  : lit(m_env.chemins.real(m_env.CheminRacine + QStringLiteral("\\Images\\") + nom));
    }
    return *lue;
}

// Painting the whole week grid of the main window at 1920x1080, as after a scroll or a redraw.
#include "Livres.h"
#include "Mesure.h"

#include <QImage>

namespace {

Cotes prepare() {
    const auto carnet = std::make_shared<CarnetOuvert>();
    constexpr QSize taille(1920, 1080);
    FlexGrid &grille = *carnet->GrilleRDV;
    carnet->fenetre->resize(carnet->fenetre->size() + taille - grille.size());
    if (grille.size() != taille) {
        throw MesureImpossible(QStringLiteral("la grille mesure %1x%2 et non 1920x1080")
                                   .arg(grille.width())
                                   .arg(grille.height()));
    }
    const auto image = std::make_shared<QImage>(taille, QImage::Format_RGB32); // what windows are made of
    return {[carnet, image] { return millisecondes([&] { carnet->GrilleRDV->render(image.get()); }); }, {}};
}

} // namespace

Mesure peintureSemaine() {
    return {QStringLiteral("peinture_semaine"), QStringLiteral("ms"), 101, 16, prepare};
}

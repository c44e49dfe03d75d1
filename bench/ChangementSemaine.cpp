// "Suivante >>" until the week is painted, against drawing and painting that same week from nothing.
#include "Livres.h"
#include "Mesure.h"
#include "grid/GrilleSemaine.h"

#include <QImage>
#include <QPushButton>

namespace {

Cotes prepare() {
    const auto carnet = std::make_shared<CarnetOuvert>();
    const auto grille = std::make_shared<GrilleSemaine>(*carnet->GrilleRDV, carnet->v);
    const auto image = std::make_shared<QImage>(carnet->GrilleRDV->size(), QImage::Format_RGB32);
    auto *precedent = carnet->fenetre->findChild<QPushButton *>(QStringLiteral("BtnPrecedent"));
    auto *suivant = carnet->fenetre->findChild<QPushButton *>(QStringLiteral("BtnSuivant"));
    return {[=] {
                precedent->click(); // back to the full week on the way out
                return millisecondes([&] {
                    suivant->click();
                    carnet->GrilleRDV->render(image.get());
                });
            },
            [=] {
                return millisecondes([&] {
                    grille->Trace();
                    carnet->GrilleRDV->render(image.get());
                });
            },
            [carnet] { return QStringLiteral("%1 rendez-vous").arg(carnet->rendezVousMontres()); }};
}

} // namespace

Mesure changementSemaine() {
    return {QStringLiteral("changement_semaine"), QStringLiteral("ms"), 101, 1.3, prepare};
}

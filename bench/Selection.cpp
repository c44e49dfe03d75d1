// One change of the selection in a full week: from one appointment to another.
#include "Livres.h"
#include "Mesure.h"

namespace {

Cotes prepare() {
    const auto carnet = std::make_shared<CarnetOuvert>();
    const auto bas = std::make_shared<bool>(false);
    return {[=] {
                *bas = !*bas;
                const int ligne = *bas ? 45 : 10;
                return millisecondes([&] { carnet->GrilleRDV->select(ligne, 3, ligne, 3); });
            },
            {},
            [carnet] {
                return carnet->v.SelectionLibre ? QStringLiteral("sélection libre")
                                                : QStringLiteral("sélection sur un rendez-vous");
            }};
}

} // namespace

Mesure selection() {
    return {QStringLiteral("selection"), QStringLiteral("ms"), 201, 2, prepare};
}

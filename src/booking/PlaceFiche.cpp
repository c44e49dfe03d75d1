#include "booking/PlaceFiche.h"

#include <algorithm>

std::optional<QRect> PlaceFiche(const QRect &bloc, const QRect &choisi, QSize taille, const QRect &ecran) {
    constexpr int ecart = 8;
    const auto dedans = [](int voulu, int longueur, int debut, int fin) {
        return std::max(std::min(voulu, fin - longueur + 1), debut);
    };
    const int haut = dedans(bloc.top(), taille.height(), ecran.top(), ecran.bottom());
    const int gauche = dedans(bloc.left(), taille.width(), ecran.left(), ecran.right());
    const QPoint coins[] = {{bloc.right() + 1 + ecart, haut},
                            {bloc.left() - ecart - taille.width(), haut},
                            {gauche, bloc.bottom() + 1 + ecart},
                            {gauche, bloc.top() - ecart - taille.height()}};
    for (const QPoint &coin : coins) {
        const QRect place(coin, taille);
        if (ecran.contains(place) && !place.intersects(bloc) && !place.intersects(choisi)) {
            return place;
        }
    }
    return std::nullopt;
}

#include "grid/Navigation.h"

#include <utility>

QDate DecaleDate(QDate date, int jours) {
    const QDate decalee = date.addDays(jours);
    return decalee >= premierJourDuCarnet && decalee <= dernierJourDuCarnet ? decalee : QDate();
}

int BasculeZoom(int intervalle, int &sansZoom) {
    constexpr int minutesZoom = 5;
    if (intervalle != minutesZoom) {
        sansZoom = intervalle;
        return minutesZoom;
    }
    const int retour = std::exchange(sansZoom, 0);
    return retour > 0 ? retour : intervalle;
}

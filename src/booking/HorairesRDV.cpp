#include "booking/HorairesRDV.h"

#include <algorithm>

HorairesRDV DeplaceHoraires(const HorairesRDV &horaires, Deplace quoi, Sens sens, int intervalle) {
    const auto &[debut, fin] = horaires;
    const int secondes = intervalle * 60;
    const QTime minuit(0, 0);
    const QTime dernier(23, 0);
    const bool versLeHaut = sens == Sens::PlusTard;
    bool arret = false;
    switch (quoi) {
    case Deplace::Debut:
        arret = versLeHaut ? debut == fin.addSecs(-secondes) : debut == minuit;
        break;
    case Deplace::Fin:
        arret = versLeHaut ? fin == dernier : fin == debut.addSecs(secondes);
        break;
    case Deplace::LesDeux:
        arret = versLeHaut ? fin == dernier : debut == minuit;
        break;
    }
    if (arret) {
        return horaires;
    }
    const int pas = versLeHaut ? secondes : -secondes;
    return {quoi == Deplace::Fin ? debut : debut.addSecs(pas),
            quoi == Deplace::Debut ? fin : fin.addSecs(pas)};
}

QTime FinChangee(const HorairesRDV &horaires, Sens sens, int intervalle) {
    const auto minutes = [](QTime heure) { return QTime(0, 0).secsTo(heure) / 60; };
    constexpr int derniereMinute = 24 * 60 - 1;
    const int debut = minutes(horaires.debut);
    const int fin = minutes(horaires.fin);
    const int voulue = sens == Sens::PlusTard ? std::min(fin + intervalle, derniereMinute)
                                              : std::max(fin - intervalle, debut + intervalle);
    const bool change = sens == Sens::PlusTard ? voulue > fin : voulue < fin;
    return change ? QTime(0, 0).addSecs(voulue * 60) : horaires.fin;
}

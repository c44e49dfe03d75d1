#include "grid/Remplissage.h"

#include <bitset>

namespace {

using Minutage = std::bitset<24UL * 60>;

void compte(Minutage &minutes, QTime debut, QTime fin) {
    const QTime minuit(0, 0);
    for (int minute = Minutes(minuit, debut); minute < Minutes(minuit, fin); ++minute) {
        minutes.set(size_t(minute));
    }
}

Minutage ouvertes(const Configuration &config, int jour) {
    Minutage minutes;
    constexpr int matinGrise = 1;
    constexpr int apresMidiGrise = 2;
    const int grise = config.JourGrise[size_t(jour - 1)];
    if (Dans(jour, config.JourAffich) && (grise == 0 || grise == apresMidiGrise)) {
        compte(minutes, config.HeureMatDebut, config.HeureMatFin);
    }
    if (Dans(jour, config.JourAffich) && (grise == 0 || grise == matinGrise)) {
        compte(minutes, config.HeurePMDebut, config.HeurePMFin);
    }
    return minutes;
}

} // namespace

QList<int> Remplissage(QDate jour, const QList<Configuration> &configs, bool parFauteuil,
                       const QList<TempsPris> &pris) {
    const int jours = jour.daysInMonth();
    QList<qint64> places(jours);
    QList<qint64> prises(jours);
    for (const Configuration &config : configs) {
        QList<Minutage> occupees(jours);
        for (const TempsPris &temps : pris) {
            if (!parFauteuil || temps.fauteuil == CLng(config.FauteuilCourant)) {
                compte(occupees[temps.jour.day() - 1], temps.plage.debut, temps.plage.fin);
            }
        }
        for (int i = 0; i < jours; ++i) {
            const Minutage travail = ouvertes(config, Jour(QDate(jour.year(), jour.month(), i + 1)));
            places[i] += qint64(travail.count());
            prises[i] += qint64((travail & occupees[i]).count());
        }
    }
    QList<int> taux;
    for (int i = 0; i < jours; ++i) {
        constexpr int tout = 100;
        taux << (places[i] == 0 ? -1 : int(prises[i] * tout / places[i]));
    }
    return taux;
}

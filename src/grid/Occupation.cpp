#include "grid/Occupation.h"

#include <algorithm>

namespace {

// A time that is not known is invalid, and Qt sorts it before every other: only what looks for an earlier
// start has to ask whether there is one.

bool gene(const RendezVous &rdv, const PlageHoraire &voulu) {
    const auto &[debut, fin] = voulu;
    const bool commenceDedans = debut <= rdv.HeureDebut && rdv.HeureDebut < fin;
    const bool finitDedans = debut < rdv.HeureFin && rdv.HeureFin <= fin;
    const bool couvreLeDebut = rdv.HeureDebut.isValid() && rdv.HeureDebut < debut && debut < rdv.HeureFin;
    return commenceDedans || finitDedans || couvreLeDebut;
}

size_t minute(QTime t) {
    return size_t(Minutes(QTime(0, 0), t));
}

} // namespace

PlageHoraire EnMinutes(const PlageHoraire &plage) {
    const auto tronque = [](QTime t) { return t.isValid() ? QTime(t.hour(), t.minute()) : t; };
    return {tronque(plage.debut), tronque(plage.fin)};
}

bool EstReservable(const PlageHoraire &plage) {
    const auto [debut, fin] = EnMinutes(plage);
    return debut.isValid() && debut < fin;
}

bool HoraireLibre(const QList<RendezVous> &jour, const PlageHoraire &voulu) {
    const PlageHoraire plage = EnMinutes(voulu);
    return std::ranges::none_of(jour, [&](const RendezVous &rdv) { return gene(rdv, plage); });
}

bool HoraireLibreSauf(const QList<RendezVous> &jour, qint64 RefRDV, const PlageHoraire &voulu) {
    const PlageHoraire plage = EnMinutes(voulu);
    return std::ranges::none_of(
        jour, [&](const RendezVous &rdv) { return rdv.RefRDV != RefRDV && gene(rdv, plage); });
}

bool RDVHere(const QList<RendezVous> &jour, const PlageHoraire &voulu) {
    const auto [debut, fin] = EnMinutes(voulu);
    return std::ranges::any_of(jour, [debut = debut, fin = fin](const RendezVous &rdv) {
        const bool couvreLeDebut = rdv.HeureDebut <= debut && debut < rdv.HeureFin;
        const bool couvreLaFin = rdv.HeureDebut < fin && fin <= rdv.HeureFin;
        return rdv.HeureDebut.isValid() && (couvreLeDebut || couvreLaFin);
    });
}

int NbIntervalles(QTime duree, int pas) {
    if (pas <= 0 || !duree.isValid()) {
        return 0;
    }
    return (Minutes(QTime(0, 0), duree) + pas - 1) / pas;
}

MinutesPrises MinutesDe(const QList<RendezVous> &jour) {
    MinutesPrises prises;
    for (const RendezVous &rdv : jour) {
        if (rdv.HeureDebut.isValid() && rdv.HeureFin.isValid()) {
            const size_t fin = minute(rdv.HeureFin);
            for (size_t m = minute(rdv.HeureDebut); m < fin; ++m) {
                prises.set(m);
            }
        }
    }
    return prises;
}

bool PlageLibre(const MinutesPrises &jour, QTime heure, int pas, int n) {
    for (int i = 0; i < n; ++i) {
        if (jour.test(minute(heure))) {
            return false;
        }
        heure = heure.addSecs(pas * 60);
    }
    return true;
}

bool PlageLibre(const QList<RendezVous> &jour, QTime heure, int pas, int n) {
    return PlageLibre(MinutesDe(jour), heure, pas, n);
}

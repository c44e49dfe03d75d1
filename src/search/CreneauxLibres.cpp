#include "search/CreneauxLibres.h"

#include "grid/Occupation.h"

namespace {

constexpr int matinGrise = 1;
constexpr int apresMidiGrise = 2;
constexpr int journeeGrisee = 3;
constexpr int minutesDuJour = 24 * 60;

int enMinutes(QTime t) {
    return Minutes(QTime(0, 0), t);
}

QTime enHeure(int minute) {
    return QTime(0, 0).addSecs(minute * 60);
}

int grise(const Configuration &config, QDate jour) {
    return config.JourGrise[size_t(Jour(jour) - 1)];
}

} // namespace

bool EstRepos(const Configuration &config, QDate jour) {
    return grise(config, jour) == journeeGrisee;
}

std::optional<QDate> PremierJourTravaille(const Configuration &config, QDate jour, QDate dernier) {
    while (jour <= dernier && EstRepos(config, jour)) {
        jour = jour.addDays(1);
    }
    return jour <= dernier ? std::optional(jour) : std::nullopt;
}

QList<QTime> DebutsLibres(const Configuration &config, QDate jour, QTime duree, int pas,
                          const QList<RendezVous> &rendezVous) {
    QList<QTime> debuts;
    if (pas < 1 || EstRepos(config, jour)) {
        return debuts;
    }
    const int finMatin = enMinutes(config.HeureMatFin);
    const int debutPM = enMinutes(config.HeurePMDebut);
    const bool sansMatin = grise(config, jour) == matinGrise;
    const bool sansApresMidi = grise(config, jour) == apresMidiGrise;
    const int fin = enMinutes(sansApresMidi ? config.HeureMatFin : config.HeurePMFin);
    const int longueur = enMinutes(duree);
    const int points = NbIntervalles(duree, pas);
    const MinutesPrises prises = MinutesDe(rendezVous);
    for (int t = enMinutes(sansMatin ? config.HeurePMDebut : config.HeureMatDebut);
         t < fin && t + longueur <= fin; t += pas) {
        const bool commenceAMidi = t >= finMatin && t < debutPM;
        const bool finitAMidi = t + longueur > finMatin && t + longueur <= debutPM;
        if (commenceAMidi || finitAMidi) {
            t = debutPM;
        }
        if (PlageLibre(prises, enHeure(t), pas, points)) {
            debuts << enHeure(t);
        }
    }
    return debuts;
}

QTime DureePlusLongue(QTime duree, int intervalle) {
    const QTime dernier(23, 30);
    const int longueur = enMinutes(duree) + intervalle;
    return longueur > enMinutes(dernier) ? duree : enHeure(longueur);
}

QTime DureePlusCourte(QTime duree, int intervalle) {
    const QTime arret(0, 30);
    const int longueur = enMinutes(duree) - intervalle;
    return duree == arret || longueur < intervalle ? duree : enHeure(longueur);
}

PlaceRDV PlaceLibre(const DemandeCreneau &demande, QDate jour, QTime debut) {
    const int fin = enMinutes(debut) + enMinutes(demande.duree);
    const PlageHoraire horaire{debut, fin < minutesDuJour ? enHeure(fin) : QTime(23, 59)};
    return {demande.PraticienCourant,
            demande.config.FauteuilCourant,
            jour,
            horaire,
            demande.config.Intervalle,
            HoraireProf(demande.config, Jour(jour), horaire.debut, horaire.fin),
            demande.config};
}

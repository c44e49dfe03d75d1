#include "schedule/Creneaux.h"

#include <cmath>

namespace {

int minuteDuJour(QTime t) {
    return t.hour() * 60 + t.minute();
}

} // namespace

double MaxInt(double x) {
    return x > 0 ? std::ceil(x) : std::floor(x);
}

int Minutes(QTime a, QTime b) {
    return minuteDuJour(b) - minuteDuJour(a);
}

int Creneaux::lignes() const {
    return int(MaxInt(double(Minutes(debut, fin)) / intervalle)) + 2;
}

QTime Creneaux::heure(int ligne) const {
    return debut.addSecs((ligne - 1) * intervalle * 60);
}

int Creneaux::premiereLigne(QTime t) const {
    return int(std::floor(double(Minutes(debut, t)) / intervalle)) + 1;
}

std::optional<double> Creneaux::place(QTime t) const {
    const double rangee = double(Minutes(debut, t)) / intervalle + 1;
    return rangee < 1 || rangee >= lignes() - 1 ? std::nullopt : std::optional(rangee);
}

int Creneaux::derniereLigne(QTime t) const {
    return int(MaxInt(double(Minutes(debut, t)) / intervalle));
}

Creneaux CreneauxSemaine(const Configuration &config) {
    return {config.HeureMatDebut, config.HeurePMFin, config.Intervalle};
}

int NbLignes(const Configuration &config) {
    return CreneauxSemaine(config).lignes();
}

int NbLignes02(const Configuration &config) {
    return NbLignes(config);
}

int NbLignes03(const Configuration &config) {
    return Creneaux{config.HeurePMDebut, config.HeurePMFin, config.Intervalle}.lignes();
}

int PremiereLigneMidi(const Configuration &config) {
    return CreneauxSemaine(config).derniereLigne(config.HeureMatFin) + 1;
}

int DerniereLigneMidi(const Configuration &config) {
    return CreneauxSemaine(config).derniereLigne(config.HeurePMDebut);
}

int Jour(QDate date) {
    return date.dayOfWeek();
}

QDate Lundi(QDate date) {
    return date.addDays(1 - Jour(date));
}

int ColonneDuJour(int jour, const std::array<int, 7> &jourAffich) {
    if (!Dans(jour, jourAffich)) {
        return 0;
    }
    int colonne = 1;
    for (int avant = 1; avant < jour; ++avant) {
        colonne += Dans(avant, jourAffich) ? 1 : 0;
    }
    return colonne;
}

QDate PremierJourAffiche(QDate date, const std::array<int, 7> &jourAffich) {
    for (int i = 0; i < 7; ++i) {
        if (Dans(Jour(date.addDays(i)), jourAffich)) {
            return date.addDays(i);
        }
    }
    return date;
}

unsigned CouleurJour(int jour) {
    constexpr std::array<unsigned, 8> couleurs{0,        0xFF8000, 0x800080, 0x0080FF,
                                               0x008080, 0x808000, 0x004080, 0x800000};
    return jour >= 1 && jour <= 7 ? couleurs[size_t(jour)] : 0;
}

int HoraireProf(const Configuration &config, int jour, QTime debut, QTime fin) {
    constexpr int dedans = 1;
    constexpr int dehors = 0;
    constexpr int aCheval = 2;
    const int grise = jour >= 1 && jour <= 7 ? config.JourGrise[size_t(jour - 1)] : 3;
    if (!Dans(jour, config.JourAffich) || grise == 3) {
        return dehors;
    }
    const int d = minuteDuJour(debut);
    const int f = minuteDuJour(fin);
    const int finMatin = minuteDuJour(config.HeureMatFin);
    const int debutPM = minuteDuJour(config.HeurePMDebut);
    switch (grise) {
    case 0:
        if (f <= finMatin || d >= debutPM) {
            return dedans;
        }
        return d >= finMatin && d < debutPM && f > finMatin && f <= debutPM ? dehors : aCheval;
    case 1:
        return f <= debutPM ? dehors : (d >= debutPM ? dedans : aCheval);
    case 2:
        return f <= finMatin ? dedans : (d >= finMatin ? dehors : aCheval);
    default:
        return aCheval;
    }
}

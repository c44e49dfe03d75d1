#include "HorairesDemo.h"

#include "platform/db/Database.h"

#include <algorithm>

namespace {

constexpr int mercredi = 2;
constexpr int samedi = 5;

constexpr int heure(int heures, int minutes = 0) {
    return heures * 60 + minutes;
}

HorairesDemo premierFauteuil() {
    HorairesDemo h{QStringLiteral("Cabinet1"), QStringLiteral("01"), 1, true, 15};
    h.matinDebut = heure(8);
    h.matinFin = heure(12);
    h.apresMidiDebut = heure(14);
    h.apresMidiFin = heure(18);
    h.affiche[samedi] = true;
    h.grise[mercredi] = 2;
    h.grise[samedi] = 2;
    return h;
}

HorairesDemo secondFauteuil() {
    HorairesDemo h{QStringLiteral("Cabinet2"), QStringLiteral("01"), 2, false, 30};
    h.matinDebut = heure(8, 30);
    h.matinFin = heure(12, 30);
    h.apresMidiDebut = heure(13, 30);
    h.apresMidiFin = heure(18, 30);
    return h;
}

/// 210, 90 and 300 minutes: the slot length divides every span.
HorairesDemo secondPraticien() {
    HorairesDemo h{QStringLiteral("Principal"), QStringLiteral("02"), 0, true, 15};
    h.matinDebut = heure(9);
    h.matinFin = heure(12, 30);
    h.apresMidiDebut = heure(14);
    h.apresMidiFin = heure(19);
    return h;
}

HorairesDemo secours() {
    HorairesDemo h{QStringLiteral("Défaut"), QStringLiteral("0"), 0, false, 30};
    h.matinDebut = heure(8);
    h.matinFin = heure(12);
    h.apresMidiDebut = heure(14);
    h.apresMidiFin = heure(19);
    return h;
}

} // namespace

std::vector<HorairesDemo> horairesDemo(Carnet carnet) {
    std::vector<HorairesDemo> horaires{premierFauteuil()};
    if (carnet == Carnet::SansFauteuil) {
        horaires.front().fauteuil = 0;
    } else {
        horaires.push_back(secondFauteuil());
    }
    horaires.push_back(secondPraticien());
    horaires.push_back(secours());
    if (carnet == Carnet::Plein) {
        for (HorairesDemo &h : horaires) {
            h.intervalle = 10;
            h.affiche.fill(true);
            h.grise.fill(0);
        }
    }
    return horaires;
}

void ecritConfig(Database &base, const std::vector<HorairesDemo> &horaires, Carnet carnet) {
    const char *const jours[] = {"Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim"};
    const auto minutes = [](int m) { return Value::time(QTime(m / 60, m % 60)); };
    for (const HorairesDemo &h : horaires) {
        Fields champs{{QStringLiteral("NomConfig"), h.nom},
                      {QStringLiteral("NumPraticien"), h.praticien},
                      {QStringLiteral("DefaultConfig"), Value::boolean(h.parDefaut)},
                      {QStringLiteral("NbJours"), int(std::ranges::count(h.affiche, true))},
                      {QStringLiteral("JourRepos"), h.repos},
                      {QStringLiteral("Intervalle"), h.intervalle},
                      {QStringLiteral("HeureMatDebut"), minutes(h.matinDebut)},
                      {QStringLiteral("HeureMatFin"), minutes(h.matinFin)},
                      {QStringLiteral("HeurePMDebut"), minutes(h.apresMidiDebut)},
                      {QStringLiteral("HeurePMFin"), minutes(h.apresMidiFin)}};
        for (size_t i = 0; i < h.affiche.size(); ++i) {
            const QString jour = QString::fromLatin1(jours[i]);
            champs.emplace_back(jour + QStringLiteral("Affich"), h.affiche[i] ? int(i) + 1 : 0);
            champs.emplace_back(jour + QStringLiteral("Grise"), h.grise[i]);
        }
        if (carnet != Carnet::SansFauteuil) {
            champs.emplace_back(QStringLiteral("Fauteuil"), h.fauteuil);
        }
        base.insert(QStringLiteral("Config"), champs);
    }
}

#include "Horaires.h"

#include "platform/db/Database.h"

std::vector<HorairesDemo> horairesDemo(const OptionsCabinet &options) {
    constexpr auto h = [](int heures, int minutes = 0) { return heures * 60 + minutes; };
    const std::array<int, 7> mercrediEtSamedi{0, 0, 2, 0, 0, 2, 0};
    const QString premier = QStringLiteral("01");
    std::vector<HorairesDemo> tous{
        {QStringLiteral("Cabinet1"), premier, 1, true, 15, {h(8), h(12), h(14), h(18)}, 6, mercrediEtSamedi},
        {QStringLiteral("Cabinet2"), premier, 2, false, 30, {h(8, 30), h(12, 30), h(13, 30), h(18, 30)}},
        {QStringLiteral("Principal"), QStringLiteral("02"), 0, true, 15, {h(9), h(12, 30), h(14), h(19)}},
        {QStringLiteral("Défaut"), QStringLiteral("0"), 0, false, 30, {h(8), h(12), h(14), h(19)}}};
    if (options.ancien) {
        tous.erase(tous.begin() + 1);
        tous.front().fauteuil = 0;
    }
    if (options.rdv >= 100'000) {
        for (HorairesDemo &horaires : tous) {
            horaires.plein = true;
            horaires.intervalle = 10;
            horaires.jours = 7;
            horaires.grise.fill(0);
        }
    }
    return tous;
}

void ecritConfig(Database &base, const std::vector<HorairesDemo> &horaires, bool avecFauteuil) {
    const char *const jours[] = {"Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim"};
    const char *const heures[] = {"HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin"};
    for (const HorairesDemo &h : horaires) {
        Fields champs{{QStringLiteral("NomConfig"), h.nom},
                      {QStringLiteral("NumPraticien"), h.praticien},
                      {QStringLiteral("DefaultConfig"), Value::boolean(h.parDefaut)},
                      {QStringLiteral("NbJours"), h.jours},
                      {QStringLiteral("JourRepos"), 7},
                      {QStringLiteral("Intervalle"), h.intervalle}};
        for (size_t i = 0; i < h.heures.size(); ++i) {
            champs.emplace_back(QString::fromLatin1(heures[i]),
                                Value::time(QTime(h.heures[i] / 60, h.heures[i] % 60)));
        }
        constexpr int dimanche = 6;
        constexpr int journee = 3; // a rest day is hidden and greyed
        for (int i = 0; i < 7; ++i) {
            const QString jour = QString::fromLatin1(jours[i]);
            champs.emplace_back(jour + QStringLiteral("Affich"), i < h.jours ? i + 1 : 0);
            champs.emplace_back(jour + QStringLiteral("Grise"),
                                i == dimanche && h.jours < 7 ? journee : h.grise[size_t(i)]);
        }
        if (avecFauteuil) {
            champs.emplace_back(QStringLiteral("Fauteuil"), h.fauteuil);
        }
        base.insert(QStringLiteral("Config"), champs);
    }
}

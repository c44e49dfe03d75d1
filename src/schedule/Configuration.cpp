#include "schedule/Configuration.h"

#include <algorithm>

QString DefautConfiguration(const Configuration &config) {
    const std::array heures{config.HeureMatDebut, config.HeureMatFin, config.HeurePMDebut, config.HeurePMFin};
    if (!std::ranges::all_of(heures, [](QTime heure) { return heure.isValid(); })) {
        return QStringLiteral("un horaire manque ou ne peut pas être lu");
    }
    if (!std::ranges::is_sorted(heures) || config.HeureMatDebut == config.HeurePMFin) {
        return QStringLiteral("les horaires ne se suivent pas");
    }
    if (config.Intervalle < 1) {
        return QStringLiteral("la durée d'un créneau doit être d'au moins une minute");
    }
    if (qint64{config.Intervalle} * 60 > config.HeureMatDebut.secsTo(config.HeurePMFin)) {
        return QStringLiteral("un créneau dure plus que la journée");
    }
    if (config.NbJours < 1) {
        return QStringLiteral("aucun jour n'est affiché");
    }
    return {};
}

bool Dans(int jour, const std::array<int, 7> &liste) {
    return std::ranges::find(liste, jour) != liste.end();
}

QString LibelleFauteuil(const QString &fauteuil) {
    return QStringLiteral("Fauteuil ") + fauteuil;
}

long CLng(const QString &texte) {
    return texte.trimmed().toLong();
}

#include "schedule/Configuration.h"

#include <algorithm>

QString DefautConfiguration(const Configuration &config) {
    if (config.Intervalle < 1) {
        return QStringLiteral("la durée d'un créneau doit être d'au moins une minute");
    }
    const std::array hours{config.HeureMatDebut, config.HeureMatFin, config.HeurePMDebut, config.HeurePMFin};
    if (!std::ranges::all_of(hours, [](QTime hour) { return hour.isValid(); })) {
        return QStringLiteral("un horaire manque");
    }
    if (!std::ranges::is_sorted(hours) || config.HeureMatDebut == config.HeurePMFin) {
        return QStringLiteral("les horaires ne se suivent pas");
    }
    const auto displayed = std::ranges::count_if(config.JourAffich, [](int jour) { return jour != 0; });
    if (displayed == 0 || config.NbJours < 1 || config.NbJours > 7) {
        return QStringLiteral("le nombre de jours affichés est faux");
    }
    return {};
}

bool Dans(int jour, const std::array<int, 7> &liste) {
    return std::ranges::find(liste, jour) != liste.end();
}

QString LibelleFauteuil(const QString &fauteuil) {
    return QStringLiteral("Fauteuil ") + fauteuil;
}

int NumeroFauteuil(const QString &libelle) {
    return libelle.isEmpty() ? 0 : int(CLng(libelle.last(1)));
}

QString NumeroPraticien(int place) {
    return u'0' + QString::number(place + 1);
}

long CLng(const QString &texte) {
    return texte.trimmed().toLong();
}

#pragma once

#include <QString>
#include <QTime>
#include <array>

/// The display schedule of one practitioner at one chair: the loaded row of Config.
/// Weekdays are indexed 0 = Monday … 6 = Sunday; weekday numbers run 1 = Monday … 7 = Sunday.
struct Configuration {
    QString NomConfig;
    QString FauteuilCourant;         ///< number of the chair as the book keeps it
    int NbJours = 0;                 ///< displayed days, counted from JourAffich
    std::array<int, 7> JourAffich{}; ///< i + 1 when day i is displayed, 0 otherwise
    int JourRepos = 0;               ///< weekday number of the rest day
    std::array<int, 7> JourGrise{};  ///< 0 nothing greyed, 1 morning, 2 afternoon, 3 both
    int Intervalle = 0;              ///< slot length in minutes
    QTime HeureMatDebut;
    QTime HeureMatFin;
    QTime HeurePMDebut;
    QTime HeurePMFin;

    friend bool operator==(const Configuration &, const Configuration &) = default;
};

/// Why a grid cannot be drawn from `config`, as the end of a French sentence; empty when it can: a displayed
/// day, four hours in order, an afternoon end after the morning start, and a slot of at least 1 minute that
/// is no longer than the day.
QString DefautConfiguration(const Configuration &config);

/// Whether the weekday number is one of the seven entries (of JourAffich: whether that day is displayed).
bool Dans(int jour, const std::array<int, 7> &liste);

/// One of a practitioner's configurations.
struct LigneConfig {
    Configuration config;
    bool DefaultConfig = false;

    friend bool operator==(const LigneConfig &, const LigneConfig &) = default;
};

/// "Fauteuil " and the number.
QString LibelleFauteuil(const QString &fauteuil);

/// Digits of a number kept as text ("01" is 1), as clng() reads it; 0 for a text that is no number.
long CLng(const QString &texte);

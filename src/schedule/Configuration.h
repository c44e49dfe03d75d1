#pragma once

#include <QString>
#include <QTime>
#include <array>

/// The display schedule of one practitioner at one chair: the loaded row of Config.
/// Weekdays are indexed 0 = Monday … 6 = Sunday; weekday numbers run 1 = Monday … 7 = Sunday.
struct Configuration {
    QString FauteuilCourant;
    int NbJours = 0;                 ///< displayed days
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

/// Why a grid cannot be drawn from `config`, as the end of a French sentence; empty when it can:
/// a slot of at least 1 minute, four hours in order, an afternoon end after the morning start,
/// a displayed day, and 1 to 7 columns.
QString DefautConfiguration(const Configuration &config);

/// Whether the weekday number is one of the seven entries (of JourAffich: whether that day is displayed).
bool Dans(int jour, const std::array<int, 7> &liste);

/// One configuration as the chair menu lists it.
struct LigneConfig {
    QString NomConfig;
    QString Fauteuil;
    bool DefaultConfig = false;
};

/// "Fauteuil " and the number.
QString LibelleFauteuil(const QString &fauteuil);
/// The chair number of a menu item: its last character as a number, 0 when it is no digit.
int NumeroFauteuil(const QString &libelle);
/// The number of the practitioner at a 0-based place of the practitioner menu, as the book keeps it: "01".
QString NumeroPraticien(int place);

/// Digits of a number kept as text ("01" is 1), as clng() reads it; 0 for a text that is no number.
long CLng(const QString &texte);

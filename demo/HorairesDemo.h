#pragma once

#include <QString>
#include <array>
#include <vector>

class Database;

/// One row of Config. Times are minutes after midnight, days Monday to Sunday.
struct HorairesDemo {
    QString nom;
    QString praticien; ///< as the book writes it, "01"
    int fauteuil = 0;
    bool parDefaut = false;
    int intervalle = 30;
    int matinDebut = 0;
    int matinFin = 0;
    int apresMidiDebut = 0;
    int apresMidiFin = 0;
    std::array<bool, 7> affiche{true, true, true, true, true, false, false};
    std::array<int, 7> grise{}; ///< 0 nothing, 1 morning, 2 afternoon, 3 both
    int repos = 7;
};

enum class Carnet {
    Ordinaire,
    SansFauteuil, ///< of the time before chairs: one configuration for each practitioner
    Plein         ///< ten-minute slots all week long, for books of several hundred thousand rows
};

/// The configurations, the fall-back one last.
std::vector<HorairesDemo> horairesDemo(Carnet carnet);
void ecritConfig(Database &base, const std::vector<HorairesDemo> &horaires, Carnet carnet);

#pragma once

#include "Cabinet.h"

#include <array>
#include <vector>

class Database;

/// One configuration, and with it one agenda. Times are minutes after midnight.
struct HorairesDemo {
    QString nom;
    QString praticien; ///< as the book writes it, "01"; "0" is everybody's, and the third one works on it
    int fauteuil = 0;
    bool parDefaut = false;
    int intervalle = 30;
    std::array<int, 4> heures{}; ///< start and end of the morning, then of the afternoon
    int jours = 5;               ///< days shown, from Monday on
    std::array<int, 7> grise{};  ///< Monday to Sunday: 0 nothing, 1 morning, 2 afternoon, 3 both
    bool plein = false; ///< one-slot appointments with hardly a hole, for books of 100,000 rows and more
};

/// The fall-back one last. A book of the time before chairs has one for each practitioner.
std::vector<HorairesDemo> horairesDemo(const OptionsCabinet &options);
void ecritConfig(Database &base, const std::vector<HorairesDemo> &horaires, bool avecFauteuil);

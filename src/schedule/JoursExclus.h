#pragma once

#include "schedule/Configuration.h"

/// What the 21 boxes of the day window say; index 0 = Monday … 6 = Sunday.
struct JoursExclus {
    std::array<bool, 7> matin{};       ///< morning greyed
    std::array<bool, 7> apresMidi{};   ///< afternoon greyed
    std::array<bool, 7> nonAffiches{}; ///< day not displayed

    friend bool operator==(const JoursExclus &, const JoursExclus &) = default;
};

inline constexpr int moinsDeJoursAffiches = 2;

/// The boxes of a configuration.
JoursExclus JoursExclusDe(const Configuration &config);
/// Number of days left to display.
int NbJoursAffiches(const JoursExclus &jours);
/// Writes the boxes into NbJours, JourAffich and JourGrise.
void AppliqueJours(const JoursExclus &jours, Configuration &config);

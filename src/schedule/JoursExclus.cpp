#include "schedule/JoursExclus.h"

#include <algorithm>

namespace {

constexpr int griseMatin = 1;
constexpr int griseApresMidi = 2;

} // namespace

JoursExclus JoursExclusDe(const Configuration &config) {
    JoursExclus jours;
    for (size_t i = 0; i < config.JourGrise.size(); ++i) {
        const int grise = config.JourGrise[i];
        const bool entier = grise == griseMatin + griseApresMidi;
        jours.matin[i] = grise == griseMatin || entier;
        jours.apresMidi[i] = grise == griseApresMidi || entier;
        jours.nonAffiches[i] = config.JourAffich[i] != int(i) + 1;
    }
    return jours;
}

int NbJoursAffiches(const JoursExclus &jours) {
    return int(std::ranges::count(jours.nonAffiches, false));
}

void AppliqueJours(const JoursExclus &jours, Configuration &config) {
    config.NbJours = NbJoursAffiches(jours);
    for (size_t i = 0; i < config.JourGrise.size(); ++i) {
        config.JourAffich[i] = jours.nonAffiches[i] ? 0 : int(i) + 1;
        config.JourGrise[i] = (jours.matin[i] ? griseMatin : 0) + (jours.apresMidi[i] ? griseApresMidi : 0);
    }
}

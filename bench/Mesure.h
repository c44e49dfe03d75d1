#pragma once

#include <QString>
#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>
#include <limits>
#include <stdexcept>

/// Takes one side once: milliseconds, or megabytes where memory is measured. It may note beside it what was
/// worked on.
using Prise = std::function<double(benchmark::UserCounters &)>;

/// The sides of a measure; what they need lives as long as they do.
struct Paire {
    Prise valeur;
    Prise reference{}; ///< taken right after each value; none: there is nothing to compare with
};

/// One hot path and what is asked of its medians.
struct Mesure {
    const char *nom;
    int repetitions;
    std::function<Paire()> prepare; ///< makes what both sides need; not timed
    double rapportMax = std::numeric_limits<double>::infinity();
    double valeurMax = std::numeric_limits<double>::infinity();
    const char *unite = "ms";
    double ecartMax = std::numeric_limits<double>::infinity(); ///< between value and reference
};

// One function a file; main.cpp lists them.
std::vector<Mesure> mesuresSemaine();
std::vector<Mesure> mesuresGlisse();
std::vector<Mesure> mesuresFrappe();
std::vector<Mesure> mesuresRecherche();
std::vector<Mesure> mesuresProcessus();
std::vector<Mesure> mesuresCreneau();
std::vector<Mesure> mesuresPurge();
std::vector<Mesure> mesuresFeuille();
std::vector<Mesure> mesuresLettre();
std::vector<Mesure> mesuresServeur();
std::vector<Mesure> mesuresVivant();

/// Why a measure would be worth nothing.
class MesureImpossible : public std::runtime_error {
  public:
    explicit MesureImpossible(const QString &pourquoi) : runtime_error(pourquoi.toStdString()) {}
};

/// How long `operation` takes, in milliseconds.
template <typename Operation>
double millisecondes(Operation &&operation) {
    const auto debut = std::chrono::steady_clock::now();
    operation();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - debut).count();
}

#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <stdexcept>

/// One taking of one side: milliseconds, or megabytes where memory is measured.
using Prise = std::function<double()>;

/// The sides of a measure; what they need lives as long as they do.
struct Cotes {
    Prise valeur;
    Prise reference;                     ///< taken right after each value; none: the target is absolute
    std::function<QString()> remarque{}; ///< what else is worth saying once all is taken
};

/// One hot path. Each has its own file, which defines one of the functions below; main.cpp lists them.
struct Mesure {
    QString nom;
    QString unite;
    int repetitions = 0;
    double cible = 0;               ///< largest ratio to the reference; without one, largest value
    std::function<Cotes()> prepare; ///< makes what both sides need; not timed
};

Mesure ajout();
Mesure changementSemaine();
Mesure demarrage();
Mesure frappe1();
Mesure frappe3();
Mesure listeNumero();
Mesure memoire();
Mesure miseANiveau();
Mesure peintureSemaine();
Mesure selection();
Mesure traceSemaine();

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

#pragma once

#include <QtGlobal>
#include <iterator>
#include <random>

/// Chance that repeats: the same seed draws the same numbers with every compiler and library, which the
/// standard promises for the generator but not for its distributions.
class Hasard {
  public:
    explicit Hasard(quint32 graine) : m_source(graine) {}

    /// 0 … n-1
    int entier(int n) { return int((quint64(m_source()) * quint64(n)) >> 32); }
    /// a … b
    int entre(int a, int b) { return a + entier(b - a + 1); }
    bool chance(int pourMille) { return entier(1000) < pourMille; }
    const auto &choix(const auto &valeurs) { return valeurs[entier(int(std::size(valeurs)))]; }

  private:
    std::mt19937 m_source;
};

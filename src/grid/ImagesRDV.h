#pragma once

#include "grid/Fourchette.h"

#include <QImage>

#include <array>
#include <optional>

struct Environnement;

/// The pictures of appointment cells, each read once from the data root's folder Images. A file that is
/// missing or damaged gives a null picture, which a cell shows as nothing.
class ImagesRDV {
  public:
    explicit ImagesRDV(const Environnement &env) : m_env(env) {}

    /// Of a weekday (1 … 7).
    QImage image(FormeCellule forme, int jour);

  private:
    const Environnement &m_env;
    std::array<std::array<std::optional<QImage>, 8>, 5> m_lues; ///< by form and weekday
};

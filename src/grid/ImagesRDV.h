#pragma once

#include <QHash>
#include <QImage>
#include <QString>

struct Environnement;

/// The pictures of appointment cells, each read once from the data root's folder Images. A file that is
/// missing or damaged gives a null picture, which a cell shows as nothing.
class ImagesRDV {
  public:
    explicit ImagesRDV(const Environnement &env) : m_env(env) {}

    QImage image(const QString &nom);

  private:
    const Environnement &m_env;
    QHash<QString, QImage> m_lues;
};

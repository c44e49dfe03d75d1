#pragma once

#include <QHash>
#include <QImage>
#include <QString>

class StoredPaths;

/// The pictures of appointment cells, each read once from the data root's folder Images. A file that is
/// missing or damaged gives a null picture, which a cell shows as nothing.
class ImagesRDV {
  public:
    ImagesRDV(const StoredPaths &chemins, QString racine) : m_chemins(chemins), m_racine(std::move(racine)) {}

    QImage image(const QString &nom);

  private:
    const StoredPaths &m_chemins;
    QString m_racine;
    QHash<QString, QImage> m_lues;
};

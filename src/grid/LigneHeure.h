#pragma once

#include "grid/Affichage.h"

#include <QObject>
#include <QTimer>

class FlexGrid;
struct Environnement;

/// The line of the hour on the grids that show today, moved at each full minute; no grid is redrawn for it.
class LigneHeure : public QObject {
    Q_OBJECT
  public:
    LigneHeure(const Environnement &env, QObject *parent);

    /// Views in the order of the Affichage's grids.
    void montre(const Affichage &affichage, const QList<FlexGrid *> &vues);

  private:
    void place();

    struct Vue {
        FlexGrid *grille = nullptr;
        Creneaux creneaux;
    };
    const Environnement &m_env;
    QList<Vue> m_vues;
    QDate m_aujourdhui; ///< of the grids, on which its column is marked
    QTimer m_minute;
};

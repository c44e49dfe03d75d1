#pragma once

#include "search/CreneauxLibresTables.h"

#include <QObject>
#include <QTimer>

struct Environnement;

/// One search for free slots at a time, in short stretches between which the windows live. Each stretch opens
/// the book and closes it, so that one that goes away meanwhile is noticed; the first one runs at once.
class RechercheCreneau : public QObject {
    Q_OBJECT
  public:
    RechercheCreneau(const Environnement &env, QObject *parent);

    /// Nothing happens while a search runs.
    void lance(const DemandeCreneau &demande);
    /// Neither `finie` nor `manquee` follows.
    void arrete();
    bool enCours() const { return m_enCours; }
    const DemandeCreneau &demande() const { return m_demande; }

  signals:
    /// It goes on, after this day.
    void avance(QDate jour);
    void finie(const EtapeCreneau &etape);
    /// The book could not be read; nothing was told.
    void manquee(const QString &pourquoi);

  private:
    void poursuit();

    const Environnement &m_env;
    DemandeCreneau m_demande;
    QDate m_jour; ///< the next one
    bool m_enCours = false;
    QTimer m_suite;
};

#pragma once

#include "booking/Deplacement.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <functional>

class ActionsRDV;
class CarnetMontre;
class QWidget;
class Vues;

/// An appointment in hand: shows where a drop would put it, turns the week or the day at the edges of the
/// window, and has written what is dropped. It is written as it was when it was taken, or not at all.
class GlisseRDV : public QObject {
    Q_OBJECT
  public:
    GlisseRDV(CarnetMontre &carnet, ActionsRDV &actions, Vues &vues, QObject *parent);

    /// From beside the grids; `position` and what follows are the screen's.
    void prendDeCote(const RendezVous &rdv, const QPoint &position);
    void bouge(const QPoint &position, bool avecCtrl);
    void depose(const QPoint &position, bool avecCtrl);
    void lache();
    /// A window beside the grids that takes what is dropped on it, instead of the book.
    using Recoit = std::function<void(const RendezVous &rdv)>;
    void accueille(QWidget &voisine, const Recoit &recoit);

  private:
    struct Voisine {
        QWidget *fenetre = nullptr;
        Recoit recoit;
    };

    void prend(int grille, qint64 RefRDV, bool bord, const QPoint &position);
    void ecrit(const RendezVous &rdv, const Cible &cible, bool encore);
    /// The next week or day; the hand goes on holding.
    void tourne();

    const Voisine *voisineSous(const QPoint &position) const;
    void montre(bool ailleurs);
    void annonceBord(int bord);

    CarnetMontre &m_carnet;
    ActionsRDV &m_actions;
    Vues &m_vues;
    QList<Voisine> m_voisines;
    std::optional<EnMain> m_main;
    Cible m_cible;
    QPoint m_position;
    bool m_encore = false;
    int m_bord = 0;
    QTimer m_tourne;
    QTimer m_suite;
};

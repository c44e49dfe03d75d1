#pragma once

#include <QObject>

class Annulation;
class CarnetMontre;
class QWidget;
struct Environnement;
namespace Ui {
class FrmEntree;
}

/// Takes back what this program has written, does it again, and shows what was written by all of them.
class ActionsAnnulation : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent.
    ActionsAnnulation(const Ui::FrmEntree &ui, const Environnement &env, CarnetMontre &carnet,
                      Annulation &annulation, QWidget &fenetre);

  private:
    void mnuAnnuler_Click() { remet(true); }
    void mnuRetablir_Click() { remet(false); }
    /// Of what is selected; of the current day where that is free.
    void mnuHistorique_Click();
    /// What cannot be done any more, because the appointment is another than it was left, is told and given
    /// up; what has lost its place is told, and waits for it.
    void remet(bool annule);

    const Environnement &m_env;
    CarnetMontre &m_carnet;
    Annulation &m_annulation;
    QWidget &m_fenetre;
};

#pragma once

#include <QObject>

class CarnetMontre;
class QWidget;
struct Environnement;

/// What the patient menu does beyond the selected appointment.
class ActionsPatient : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent.
    ActionsPatient(const Environnement &env, CarnetMontre &carnet, QWidget &fenetre);

    void mnurechercher_Click();

  private:
    const Environnement &m_env;
    CarnetMontre &m_carnet;
    QWidget &m_fenetre;
};

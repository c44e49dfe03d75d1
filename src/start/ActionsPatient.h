#pragma once

#include "practice/Environnement.h"

#include <QObject>

class CarnetMontre;
class QWidget;

/// What the patient menu does beyond the selected appointment itself.
class ActionsPatient : public QObject {
    Q_OBJECT
  public:
    ActionsPatient(const Environnement &env, CarnetMontre &carnet, QWidget &fenetre);

    /// Has the suite show the history of the selected patient, and gets out of its way.
    void menuAllerHisto_Click();

  private:
    const Environnement &m_env;
    CarnetMontre &m_carnet;
    QWidget &m_fenetre;
};

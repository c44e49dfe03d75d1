#pragma once

#include "grid/PlaceRDV.h"

#include <QObject>

class CarnetMontre;
class FrmRDVlibre;
class QWidget;
struct Environnement;
struct RendezVous;

/// What the menus do for a patient, whatever is selected.
class ActionsPatient : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent.
    ActionsPatient(const Environnement &env, CarnetMontre &carnet, QWidget &fenetre);

    void mnuRDVlibre_Click();

  private:
    /// Shows the free slot behind, and books there or not. A place that is taken leaves the search open, its
    /// list made anew.
    void reserve(FrmRDVlibre &recherche, const PlaceRDV &place);
    /// In the day view where the week leaves its weekday out.
    void montreEcrit(const RendezVous &rdv);

    const Environnement &m_env;
    CarnetMontre &m_carnet;
    QWidget &m_fenetre;
};

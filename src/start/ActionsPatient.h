#pragma once

#include <QObject>

class Annulation;
class CarnetMontre;
class FrmRDVlibre;
class MenusPraticien;
class QWidget;
struct Environnement;
struct PlaceRDV;

/// What the patient menu does beyond the selected appointment.
class ActionsPatient : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent; `annulation` is told what was booked.
    ActionsPatient(const Environnement &env, CarnetMontre &carnet, Annulation &annulation,
                   const MenusPraticien &menus, QWidget &fenetre);

    void mnurechercher_Click();
    void mnuRDVlibre_Click();
    void mnuListAbs_Click();
    /// The cancellation letter to the selected appointment's patient, about that day.
    void mnuLettre_Click();
    /// Has the suite show the history of the selected patient, and gets out of its way.
    void menuAllerHisto_Click();
    void mnuImprimer_Click();

  private:
    /// Shows the free slot behind, and books there or not. A place that is taken leaves the search open, its
    /// list made anew.
    void reserve(FrmRDVlibre &recherche, const PlaceRDV &place);

    const Environnement &m_env;
    CarnetMontre &m_carnet;
    Annulation &m_annulation;
    const MenusPraticien &m_menus;
    QWidget &m_fenetre;
};

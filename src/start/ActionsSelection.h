#pragma once

#include "booking/ActionsRDV.h"
#include "booking/Annulation.h"
#include "start/CarnetMontre.h"

/// What the menus do with the selection. The book is read again first: nothing opens, and nothing is written,
/// on a picture that is not the book's.
class ActionsSelection : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent; `annulation` is told what was written.
    ActionsSelection(const Environnement &env, CarnetMontre &carnet, Annulation &annulation,
                     QWidget &fenetre);

    /// What writes: what it has written is shown and can be undone.
    ActionsRDV &actions() { return *m_actions; }

    void mnuAjouter_Click();
    void mnuEditer_Click();
    void mnuSupprimer_Click();
    void mnuPresent_Click();
    void mnuMettreDeCote_Click();
    /// Moves an appointment that is set aside to what is selected: `voulu`, or (0) the first that waits.
    void pose(qint64 voulu);
    void mnuAllonger_Click() { changeDuree(Sens::PlusTard); }
    void mnuRaccourcir_Click() { changeDuree(Sens::PlusTot); }

  private:
    /// Reads the book again. True when something may be booked at what is selected; else why not is told.
    bool relitPlace();
    /// False when the selected appointment is not there any more, which is told.
    bool relitRDV(const QString &disparu, const QString &titre);
    /// The end of the selected appointment, or of what is selected free, one slot on.
    void changeDuree(Sens sens);
    PlaceRDV place() const { return PlaceDe(m_carnet.affichage(), m_carnet.selection()); }
    void rdvEcrit(const RendezVous &rdv, const EcritureRDV &ecriture);

    const Environnement &m_env;
    CarnetMontre &m_carnet;
    Annulation &m_annulation;
    QWidget &m_fenetre;
    ActionsRDV *m_actions;
};

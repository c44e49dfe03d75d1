#include "start/ActionsPatient.h"

#include "search/FrmRecherche.h"
#include "start/CarnetMontre.h"

#include <QWidget>

ActionsPatient::ActionsPatient(const Environnement &env, CarnetMontre &carnet, QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_fenetre(fenetre) {}

void ActionsPatient::mnurechercher_Click() {
    const RendezVous rdv = m_carnet.selection().rdv.value_or(RendezVous());
    FrmRecherche fenetre(m_env, rdv.Nom, rdv.Prenom, &m_fenetre);
    fenetre.exec();
    if (fenetre.choisi()) {
        m_fenetre.activateWindow(); // two windows have closed together
        m_carnet.montreRDV(*fenetre.choisi());
    }
}

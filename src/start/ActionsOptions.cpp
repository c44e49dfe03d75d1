#include "start/ActionsOptions.h"

#include "config/FrmJourExclure.h"
#include "config/FrmSauvegarde.h"
#include "config/FrmTrancheHoraire.h"
#include "config/SuppConfig.h"
#include "maintenance/FrmPurger.h"
#include "start/CarnetMontre.h"
#include "start/FrmQuit.h"
#include "start/MenusPraticien.h"
#include "start/MiseANiveauTables.h"
#include "transfer/FrmDeplacer.h"

ActionsOptions::ActionsOptions(const Environnement &env, CarnetMontre &carnet, const MenusPraticien &menus,
                               QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_menus(menus), m_fenetre(fenetre) {}

void ActionsOptions::mnutranche_Click() {
    FrmTrancheHoraire fenetre(m_env, m_carnet.reglages(), &m_fenetre);
    if (fenetre.exec() == QDialog::Accepted) {
        m_carnet.prendReglages(fenetre.configuration());
    }
}

void ActionsOptions::mnuexclure_Click() {
    const Configuration avant = m_carnet.reglages();
    FrmJourExclure fenetre(m_env, avant, &m_fenetre);
    fenetre.exec();
    if (fenetre.configuration() != avant) { // also a rest day that was chosen before cancelling
        m_carnet.prendReglages(fenetre.configuration());
    }
}

void ActionsOptions::quitte() {
    FrmQuit(&m_fenetre).exec();
    m_fenetre.close();
}

void ActionsOptions::mnuSauver_Click() {
    FrmSauvegarde fenetre(m_env, m_carnet.affichage().demande.PraticienCourant, m_carnet.reglages(),
                          &m_fenetre);
    if (fenetre.exec() == QDialog::Accepted) {
        quitte();
    }
}

void ActionsOptions::menuSuppConfig_Click() {
    if (SuppConfig(m_env, m_carnet.affichage().demande.numPraticien(), &m_fenetre).exec() ==
        QDialog::Accepted) {
        m_fenetre.close();
    }
}

void ActionsOptions::mnuPurger_Click() {
    const Demande &montree = m_carnet.affichage().demande;
    FrmPurger fenetre(m_env, montree.numPraticien(), m_menus.libelle(montree.PraticienCourant), &m_fenetre);
    if (fenetre.exec() == QDialog::Accepted) {
        quitte();
        return;
    }
    m_fenetre.activateWindow(); // a message and its window have closed together
    if (fenetre.deplaces() > 0) {
        m_carnet.relit();
    }
}

void ActionsOptions::mnuDeplacer_Click() {
    if (FrmDeplacer(m_env, MetANiveauDeplace, &m_fenetre).exec() == QDialog::Accepted) {
        quitte();
    }
}

#include "start/ActionsAnnulation.h"

#include "ui_FrmEntree.h"

#include "booking/Annulation.h"
#include "booking/FrmHistorique.h"
#include "booking/MessagesRDV.h"
#include "booking/ReservationTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "start/CarnetMontre.h"

ActionsAnnulation::ActionsAnnulation(const Ui::FrmEntree &ui, const Environnement &env, CarnetMontre &carnet,
                                     Annulation &annulation, QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_annulation(annulation), m_fenetre(fenetre) {
    connect(ui.mnuAnnuler, &QAction::triggered, this, &ActionsAnnulation::mnuAnnuler_Click);
    connect(ui.mnuRetablir, &QAction::triggered, this, &ActionsAnnulation::mnuRetablir_Click);
    connect(ui.mnuHistorique, &QAction::triggered, this, &ActionsAnnulation::mnuHistorique_Click);
}

void ActionsAnnulation::remet(bool annule) {
    const std::optional<EcritureRDV> pas = annule ? m_annulation.aAnnuler() : m_annulation.aRefaire();
    if (!pas) {
        return;
    }
    const Rangee &attendue = annule ? pas->apres : pas->avant;
    const Rangee &voulue = annule ? pas->avant : pas->apres;
    BilanEcriture bilan;
    if (!essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnetPourEcrire();
            bilan = RemetRDV(carnet, m_env.auteur(), annule ? Operation::Annulation : Operation::Refait,
                             attendue, voulue);
        })) {
        return;
    }
    if (bilan.resultat != Ecriture::Fait) {
        if (bilan.resultat != Ecriture::Occupe) {
            annule ? m_annulation.oublieAnnulation() : m_annulation.oublieRefait();
        }
        m_carnet.relit();
        m_env.messages->show(MessageRefus(NomDuGeste(*pas), annule, bilan, attendue, voulue),
                             annule ? QStringLiteral("Annuler") : QStringLiteral("Rétablir"));
        return;
    }
    const qint64 ref = bilan.ecriture.RefRDV();
    annule ? m_annulation.annule(ref) : m_annulation.refait(ref);
    bilan.ecriture.apres.isEmpty() ? m_carnet.montreEcrit({}) : m_carnet.montreRDV(ref);
}

void ActionsAnnulation::mnuHistorique_Click() {
    FrmHistorique fenetre(
        m_env,
        {m_carnet.selection().rdv, m_carnet.jourCourant(), m_carnet.affichage().demande.numPraticien()},
        &m_fenetre);
    connect(&fenetre, &FrmHistorique::ecrit, this, [this](const EcritureRDV &ecriture) {
        m_annulation.note(ecriture);
        m_carnet.montreRDV(ecriture.RefRDV());
    });
    fenetre.exec();
    m_fenetre.activateWindow(); // a message and its window may have closed together
}

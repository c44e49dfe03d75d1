#include "start/ActionsSelection.h"

#include "booking/MessagesRDV.h"
#include "grid/RendezVousTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

#include <QWidget>

ActionsSelection::ActionsSelection(const Environnement &env, CarnetMontre &carnet, Annulation &annulation,
                                   QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_annulation(annulation), m_fenetre(fenetre),
      m_actions(new ActionsRDV(env, fenetre)) {
    m_actions->setParent(this);
    connect(m_actions, &ActionsRDV::rdvEcrit, this, &ActionsSelection::rdvEcrit);
}

bool ActionsSelection::relitRDV(const QString &disparu, const QString &titre) {
    const RendezVous voulu = *m_carnet.selection().rdv;
    if (!m_carnet.relit()) {
        return false;
    }
    const std::optional<RendezVous> &montre = m_carnet.selection().rdv;
    if (montre == voulu) {
        return true;
    }
    if (montre && montre->RefRDV == voulu.RefRDV) { // moved, or another patient's by now
        m_env.messages->show(MessageModifie(voulu, *montre), titreModifie);
        return false;
    }
    std::optional<RendezVous> ailleurs;
    if (essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnet();
            ailleurs = LitRDV(carnet, voulu.RefRDV);
        })) {
        m_env.messages->show(ailleurs ? MessageModifie(voulu, *ailleurs) : disparu,
                             ailleurs ? titreModifie : titre);
    }
    return false;
}

bool ActionsSelection::relitPlace() {
    if (!m_carnet.relit()) {
        return false;
    }
    const Selection &selection = m_carnet.selection();
    if (selection.vide() || selection.rdv) {
        m_env.messages->show(messageOccupe, titreOccupe);
        return false;
    }
    if (!m_carnet.affichage().aFauteuil(selection.grille)) {
        m_env.messages->show(QStringLiteral("Ce praticien n'a plus de configuration pour ce fauteuil."));
        return false;
    }
    return true;
}

void ActionsSelection::mnuAjouter_Click() {
    if (relitPlace()) {
        m_actions->ajoute(place());
    }
}

void ActionsSelection::mnuMettreDeCote_Click() {
    if (relitRDV(QStringLiteral("Ce rendez-vous n'existe plus !"), {})) {
        m_actions->metDeCote(*m_carnet.selection().rdv);
    }
}

void ActionsSelection::pose(qint64 voulu) {
    if (!relitPlace()) {
        return;
    }
    const std::optional<AReplacer> un = APoser(m_carnet.affichage().aReplacer, voulu);
    if (!un || EtatDe(*un) != EtatReplacer::EnAttente) {
        m_env.messages->show(un ? QStringLiteral("%1 : %2.").arg(NomReplacer(*un), AttenteReplacer(*un, {}))
                                : QStringLiteral("Aucun rendez-vous n'est à replacer."),
                             QStringLiteral("À replacer"));
        return;
    }
    m_actions->deplace(*un->actuel, Place(*un->actuel, place()), place());
}

void ActionsSelection::mnuEditer_Click() {
    if (relitRDV(QStringLiteral("Ce rendez-vous n'existe pas !!!!!"), QStringLiteral("Erreur !"))) {
        m_actions->edite(*m_carnet.selection().rdv, place());
    }
}

void ActionsSelection::mnuSupprimer_Click() {
    if (relitRDV(QStringLiteral("Ce rendez-vous n'existe plus !"),
                 QStringLiteral("Rendez-vous déjà supprimé"))) {
        m_actions->supprime(*m_carnet.selection().rdv, place());
    }
}

/// Sets what the user saw himself choose; the row is looked at where it is written.
void ActionsSelection::mnuPresent_Click() {
    const RendezVous rdv = *m_carnet.selection().rdv;
    m_actions->marquePresent(rdv, !rdv.Present);
}

void ActionsSelection::changeDuree(Sens sens) {
    if (const std::optional<RendezVous> rdv = m_carnet.selection().rdv) {
        m_actions->changeDuree(*rdv, place(), sens);
    } else {
        m_carnet.etend(sens);
    }
}

void ActionsSelection::rdvEcrit(const RendezVous &rdv, const EcritureRDV &ecriture) {
    m_annulation.note(ecriture);
    m_fenetre.activateWindow(); // two windows that close together leave some window managers with none active
    m_carnet.montreEcrit(rdv);
}

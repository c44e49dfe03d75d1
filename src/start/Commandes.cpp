#include "start/Commandes.h"

#include "ui_FrmEntree.h"

#include "booking/Annulation.h"
#include "start/CarnetMontre.h"

namespace {

/// "Annuler « Déplacer DURAND »"
void nomme(QAction &action, const QString &verbe, const std::optional<EcritureRDV> &pas, bool possible) {
    QString geste = pas ? NomDuGeste(*pas) : QString();
    geste.replace(u'&', QStringLiteral("&&"));
    action.setText(pas ? QStringLiteral("%1 « %2 »").arg(verbe, geste) : verbe);
    action.setEnabled(possible && pas);
}

} // namespace

void Commandes::dessine(const CarnetMontre &carnet) {
    const Selection &selection = carnet.selection();
    const bool charge = !carnet.estVide();
    const bool avecConfig = carnet.affichage().ConfigExiste();
    const bool surRDV = selection.rdv.has_value();
    const bool ecrit = charge && m_env.lectureSeule->isEmpty() && carnet.enContact();
    for (const QMenu *menu : {m_ui.mnupatient, m_ui.menuAffichage, m_ui.menuOptions, m_ui.menuAide}) {
        for (QAction *action : menu->actions()) {
            action->setEnabled(charge);
        }
    }
    for (QAction *action : {m_ui.mnuquitter, m_ui.mnuAPropos, m_ui.mnuRubrique, m_ui.mnuTouches,
                            m_ui.mnuRafraichir, m_ui.mnuClassique, m_ui.mnuContemporaine}) {
        action->setEnabled(true);
    }
    m_ui.mnuReporter->setEnabled(false);
    m_ui.mnuPurger->setEnabled(ecrit && avecConfig);
    m_ui.mnuDeplacer->setEnabled(ecrit);
    m_ui.mnuSauver->setEnabled(ecrit);
    m_ui.menuSuppConfig->setEnabled(ecrit);
    m_ui.mnuAjouter->setEnabled(ecrit && !surRDV && carnet.affichage().aFauteuil(selection.grille));
    for (QAction *action : {m_ui.mnuEditer, m_ui.mnuSupprimer, m_ui.mnuPresent}) {
        action->setEnabled(ecrit && surRDV);
    }
    for (QAction *action : {m_ui.mnuAllonger, m_ui.mnuRaccourcir}) {
        action->setEnabled(!selection.vide() && (ecrit || !surRDV));
    }
    const QList<AReplacer> &aReplacer = carnet.affichage().aReplacer;
    m_ui.mnuMettreDeCote->setEnabled(ecrit && surRDV && !EstEpingle(aReplacer, selection.rdv->RefRDV));
    m_ui.mnuPoser->setEnabled(m_ui.mnuAjouter->isEnabled() && !selection.vide() &&
                              !Listes(aReplacer).isEmpty());
    nomme(*m_ui.mnuAnnuler, QStringLiteral("A&nnuler"), m_annulation.aAnnuler(), ecrit);
    nomme(*m_ui.mnuRetablir, QStringLiteral("Réta&blir"), m_annulation.aRefaire(), ecrit);
    m_ui.mnuLettre->setEnabled(surRDV);
    m_ui.mnuPresent->setChecked(surRDV && selection.rdv->Present);
}

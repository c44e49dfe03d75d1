#include "start/Commandes.h"

#include "ui_FrmEntree.h"

#include "start/CarnetMontre.h"

void Commandes::dessine(const CarnetMontre &carnet) {
    const Selection &selection = carnet.selection();
    const bool charge = !carnet.estVide();
    const bool avecConfig = carnet.affichage().ConfigExiste();
    const bool surRDV = selection.rdv.has_value();
    const bool ecrit = charge && m_env.lectureSeule->isEmpty();
    for (const QMenu *menu : {m_ui.mnupatient, m_ui.menuAffichage, m_ui.menuOptions, m_ui.menuAide}) {
        for (QAction *action : menu->actions()) {
            action->setEnabled(charge);
        }
    }
    for (QAction *action :
         {m_ui.mnuquitter, m_ui.mnuAPropos, m_ui.mnuRubrique, m_ui.mnuTouches, m_ui.mnuRafraichir}) {
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
    m_ui.mnuLettre->setEnabled(surRDV);
    m_ui.mnuPresent->setChecked(surRDV && selection.rdv->Present);
}

#include "start/Commandes.h"

#include "ui_FrmEntree.h"

#include "start/CarnetMontre.h"

void Commandes::relie(QAction *action, const std::function<void()> &gestionnaire) {
    QObject::connect(action, &QAction::triggered, action, [gestionnaire] { gestionnaire(); });
    m_reliees.insert(action);
}

void Commandes::active(QAction *action, bool active) {
    action->setEnabled(active && m_reliees.contains(action));
}

void Commandes::dessine(const CarnetMontre &carnet) {
    const Selection &selection = carnet.selection();
    const bool charge = !carnet.estVide();
    const bool avecConfig = carnet.affichage().ConfigExiste();
    const bool surRDV = selection.rdv.has_value();
    const bool ecrit = charge && m_env.lectureSeule->isEmpty();
    for (const QMenu *menu : {m_ui.mnupatient, m_ui.menuAffichage, m_ui.menuOptions, m_ui.menuAide}) {
        for (QAction *action : menu->actions()) {
            active(action, charge);
        }
    }
    for (QAction *action :
         {m_ui.mnuquitter, m_ui.mnuAPropos, m_ui.mnuRafraichir, m_ui.mnuClassique, m_ui.mnuContemporaine}) {
        active(action, true);
    }
    active(m_ui.mnuPurger, ecrit && avecConfig);
    active(m_ui.mnuSauver, ecrit);
    active(m_ui.menuSuppConfig, ecrit);
    active(m_ui.mnuAjouter, ecrit && !surRDV && carnet.affichage().aFauteuil(selection.grille));
    for (QAction *action : {m_ui.mnuEditer, m_ui.mnuSupprimer, m_ui.mnuPresent}) {
        active(action, ecrit && surRDV);
    }
    active(m_ui.mnuLettre, surRDV);
    m_ui.mnuPresent->setChecked(surRDV && selection.rdv->Present);
}

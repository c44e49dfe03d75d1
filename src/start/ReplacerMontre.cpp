#include "start/ReplacerMontre.h"

#include "ui_FrmEntree.h"

#include "booking/VoletReplacer.h"
#include "grid/ReplacerTables.h"
#include "grid/Vues.h"
#include "practice/Essai.h"
#include "start/ActionsSelection.h"
#include "start/CarnetMontre.h"

#include <QEvent>

ReplacerMontre::ReplacerMontre(const Ui::FrmEntree &ui, const Environnement &env, CarnetMontre &carnet,
                               ActionsSelection &actions, const Vues &vues, QMainWindow &fenetre)
    : QObject(&fenetre), m_ui(ui), m_env(env), m_carnet(carnet), m_actions(actions), m_vues(vues),
      m_volet(new VoletReplacer(&fenetre)) {
    fenetre.addDockWidget(Qt::RightDockWidgetArea, m_volet);
    m_volet->hide();
    ui.centralwidget->installEventFilter(this);
    connect(&carnet, &CarnetMontre::affichageChange, this, &ReplacerMontre::dessine);
    connect(m_volet, &VoletReplacer::voirDemande, &carnet, &CarnetMontre::montreRDV);
    connect(m_volet, &VoletReplacer::retraitDemande, this, &ReplacerMontre::retire);
    connect(m_volet, &VoletReplacer::ferme, this, [this] {
        m_voulu = false;
        dessine();
    });
}

void ReplacerMontre::dessine() {
    const Affichage &affichage = m_carnet.affichage();
    m_volet->montre(affichage.aReplacer, affichage.lu, m_vues.aspect());
    m_volet->setVisible(m_voulu.value_or(!Listes(affichage.aReplacer).isEmpty()));
    m_ui.mnuReplacer->setChecked(!m_volet->isHidden());
}

void ReplacerMontre::mnuReplacer_Click() {
    m_voulu = m_volet->isHidden();
    dessine();
}

void ReplacerMontre::mnuPoser_Click() {
    m_actions.pose(m_volet->choisi());
}

void ReplacerMontre::retire(qint64 RefRDV) {
    if (essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnetPourEcrire();
            RetireReplacer(carnet, RefRDV);
        })) {
        m_carnet.relit();
    }
}

bool ReplacerMontre::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::Resize) {
        emit placeChange();
    }
    return QObject::eventFilter(objet, evenement);
}

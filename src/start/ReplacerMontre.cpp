#include "start/ReplacerMontre.h"

#include "ui_FrmEntree.h"

#include "booking/ActionsRDV.h"
#include "booking/VoletReplacer.h"
#include "grid/Vues.h"
#include "start/ActionsSelection.h"
#include "start/CarnetMontre.h"
#include "start/GlisseRDV.h"
#include "start/Habillage.h"

#include <QEvent>
#include <QLayout>

ReplacerMontre::ReplacerMontre(const Ui::FrmEntree &ui, CarnetMontre &carnet, ActionsSelection &actions,
                               const Vues &vues, const Habillage &habillage, GlisseRDV &glisse,
                               QMainWindow &fenetre)
    : QObject(&fenetre), m_ui(ui), m_carnet(carnet), m_actions(actions), m_vues(vues),
      m_volet(new VoletReplacer(&fenetre)) {
    fenetre.addDockWidget(Qt::RightDockWidgetArea, m_volet);
    m_volet->hide();
    ui.centralwidget->installEventFilter(this);
    connect(ui.mnuMettreDeCote, &QAction::triggered, &actions, &ActionsSelection::mnuMettreDeCote_Click);
    connect(ui.mnuPoser, &QAction::triggered, this, &ReplacerMontre::mnuPoser_Click);
    connect(ui.mnuReplacer, &QAction::triggered, this, &ReplacerMontre::mnuReplacer_Click);
    connect(&carnet, &CarnetMontre::affichageChange, this, &ReplacerMontre::dessine);
    connect(&habillage, &Habillage::change, this, &ReplacerMontre::dessine);
    connect(m_volet, &VoletReplacer::voirDemande, &carnet, &CarnetMontre::montreRDV);
    connect(m_volet, &VoletReplacer::retraitDemande, &actions.actions(), &ActionsRDV::retireDeCote);
    connect(m_volet, &VoletReplacer::ferme, this, [this] {
        m_voulu = false;
        dessine();
    });
    relieGlisse(glisse);
}

void ReplacerMontre::relieGlisse(GlisseRDV &glisse) {
    glisse.accueille(*m_volet, [this](const RendezVous &rdv) { m_actions.actions().metDeCote(rdv); });
    connect(m_volet, &VoletReplacer::pris, this, [this, &glisse](qint64 RefRDV, const QPoint &position) {
        const std::optional<AReplacer> un = APoser(m_carnet.affichage().aReplacer, RefRDV);
        if (un && un->note.RefRDV == RefRDV && EtatDe(*un) == EtatReplacer::EnAttente) {
            glisse.prendDeCote(*un->actuel, position);
        }
    });
    connect(m_volet, &VoletReplacer::bouge, &glisse,
            [&glisse](const QPoint &position) { glisse.bouge(position, false); });
    connect(m_volet, &VoletReplacer::depose, &glisse,
            [&glisse](const QPoint &position) { glisse.depose(position, false); });
    connect(m_volet, &VoletReplacer::lache, &glisse, &GlisseRDV::lache);
}

void ReplacerMontre::dessine() {
    const Affichage &affichage = m_carnet.affichage();
    m_volet->montre(affichage.aReplacer, affichage.lu, m_vues.aspect());
    const bool montre = m_voulu.value_or(!Listes(affichage.aReplacer).isEmpty());
    if (montre == m_volet->isHidden()) { // a click that follows finds the grid where it is to be
        m_volet->setVisible(montre);
        m_volet->parentWidget()->layout()->activate();
    }
    m_ui.mnuReplacer->setChecked(!m_volet->isHidden());
}

void ReplacerMontre::mnuReplacer_Click() {
    m_voulu = m_volet->isHidden();
    dessine();
}

void ReplacerMontre::mnuPoser_Click() {
    m_actions.pose(m_volet->choisi());
}

bool ReplacerMontre::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::Resize) {
        emit placeChange();
    }
    return QObject::eventFilter(objet, evenement);
}

#include "start/FrmEntree.h"

#include "ui_FrmEntree.h"

#include "grid/Vues.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Environnement.h"
#include "start/ActionsAnnulation.h"
#include "start/ActionsOptions.h"
#include "start/ActionsPatient.h"
#include "start/ActionsSelection.h"
#include "start/BarreEtat.h"
#include "start/Clavier.h"
#include "start/Demarrage.h"
#include "start/DispositionFenetre.h"
#include "start/FicheMontree.h"
#include "start/FrmAPropos.h"
#include "start/FrmTouches.h"
#include "start/GlisseRDV.h"
#include "start/Habillage.h"
#include "start/MenusPraticien.h"
#include "start/ReplacerMontre.h"
#include "start/Surveillance.h"
#include "start/Veille.h"

#include <QApplication>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QShowEvent>
#include <functional>

namespace {

constexpr int periodeTimer1 = 65535; // ms
constexpr int periodeReprise = 5000; // ms, as long as the book could not be read
constexpr int attenteTimer1 = 500;   // ms, while the user is in the middle of something
constexpr int attenteNouvelle = 50;  // ms, the same while another workstation's writing is to be shown

std::unique_ptr<Ui::FrmEntree> controles(FrmEntree &fenetre) {
    fenetre.setFont(PoliceSansMiseEnForme(fenetre.font()));
    auto ui = std::make_unique<Ui::FrmEntree>();
    ui->setupUi(&fenetre);
    return ui;
}

Geste gesteDe(FlexGrid::Gesture geste) {
    const bool clic = geste == FlexGrid::Gesture::Press || geste == FlexGrid::Gesture::RightPress;
    return clic ? Geste::Clic : Geste::Glisse;
}

} // namespace

FrmEntree::FrmEntree(const Environnement &env, QWidget *parent)
    : QMainWindow(parent), ui(controles(*this)), m_env(env), m_carnet(env, this),
      m_commandes(*ui, env, m_annulation), m_etat(std::make_unique<BarreEtat>(*ui->StatusBar1)),
      m_vues(new Vues(*ui->GrilleRDV, *ui->GrilleRDV02, *ui->GrilleRDV03, env, this)),
      m_habillage(new Habillage(*ui, env, *m_vues, *this)),
      m_actions(new ActionsSelection(env, m_carnet, m_annulation, *this)),
      m_menus(new MenusPraticien(*ui->mnuPraticien, *ui->menuFaut, this)),
      m_patient(new ActionsPatient(env, m_carnet, m_annulation, *m_menus, *this)),
      m_options(new ActionsOptions(env, m_carnet, *m_menus, *this)), m_clavier(new Clavier(*ui, *this)),
      m_surveillance(new Surveillance(env, this)), m_veille(new Veille(env, m_carnet, this)),
      BtnSemaine(BoutonVue(*ui, QStringLiteral("Semaine"))), BtnJour(BoutonVue(*ui, QStringLiteral("Jour"))) {
    Timer1.setObjectName(QStringLiteral("Timer1"));

    relieCarnet();
    relieMenus();
    relieBoutons();
    new ActionsAnnulation(*ui, env, m_carnet, m_annulation, *this);
    new FicheMontree(env, m_carnet, *m_vues, *this);
    auto *glisse = new GlisseRDV(m_carnet, m_actions->actions(), *m_vues, this);
    connect(new ReplacerMontre(*ui, m_carnet, *m_actions, *m_vues, *m_habillage, *glisse, *this),
            &ReplacerMontre::placeChange, this, &FrmEntree::dispose);
    MontreVue(*ui, true, m_habillage->avecBoutons());
    dessineMenus();
}

FrmEntree::~FrmEntree() = default;

// ---- Construction

/// From the grids to the values, and from the values to all that shows them.
void FrmEntree::relieCarnet() {
    connect(m_vues, &Vues::selectionDemandee, this, &FrmEntree::selectionne);
    connect(m_vues, &Vues::ouvertureDemandee, this, &FrmEntree::ouvre);
    connect(m_vues, &Vues::menuDemande, this, [this](const QPoint &ou) { ui->mnupatient->popup(ou); });
    connect(&m_carnet, &CarnetMontre::affichageChange, this, &FrmEntree::dessine);
    connect(&m_carnet, &CarnetMontre::selectionChange, this, &FrmEntree::dessineSelection);
    connect(&m_carnet, &CarnetMontre::selectionAMontrer, m_vues, &Vues::montreContour);
    connect(&m_carnet, &CarnetMontre::lectureChange, this, &FrmEntree::dessineLecture);
    connect(m_surveillance, &Surveillance::lectureSeule, this, &FrmEntree::dessineLecture);
    connect(m_surveillance, &Surveillance::commencee, m_veille, &Veille::commence);
    connect(m_veille, &Veille::aRelire, this, [this] { Timer1.start(int(m_apresClic.remainingTime())); });
}

void FrmEntree::relieMenus() {
    const auto relieA = [this](auto *objet, QAction *action, auto gestionnaire) {
        connect(action, &QAction::triggered, this, [this, objet, gestionnaire] {
            std::invoke(gestionnaire, objet);
            dessineMenus(); // Qt may have turned over a tick
        });
    };
    const auto relie = [this, relieA](QAction *action, auto gestionnaire) {
        relieA(this, action, gestionnaire);
    };
    relieA(m_actions, ui->mnuAjouter, &ActionsSelection::mnuAjouter_Click);
    relieA(m_actions, ui->mnuEditer, &ActionsSelection::mnuEditer_Click);
    relieA(m_actions, ui->mnuSupprimer, &ActionsSelection::mnuSupprimer_Click);
    relieA(m_actions, ui->mnuPresent, &ActionsSelection::mnuPresent_Click);
    relieA(m_actions, ui->mnuAllonger, &ActionsSelection::mnuAllonger_Click);
    relieA(m_actions, ui->mnuRaccourcir, &ActionsSelection::mnuRaccourcir_Click);
    relieA(m_patient, ui->mnurechercher, &ActionsPatient::mnurechercher_Click);
    relieA(m_patient, ui->mnuRDVlibre, &ActionsPatient::mnuRDVlibre_Click);
    relieA(m_patient, ui->menuAllerHisto, &ActionsPatient::menuAllerHisto_Click);
    relieA(m_patient, ui->mnuImprimer, &ActionsPatient::mnuImprimer_Click);
    relieA(m_patient, ui->mnuListAbs, &ActionsPatient::mnuListAbs_Click);
    relieA(m_patient, ui->mnuLettre, &ActionsPatient::mnuLettre_Click);
    relie(ui->mnuquitter, &FrmEntree::close);
    connect(m_menus, &MenusPraticien::praticienChoisi, &m_carnet, &CarnetMontre::montrePraticien);
    connect(m_menus, &MenusPraticien::fauteuilChoisi, &m_carnet, &CarnetMontre::montreFauteuil);
    connect(ui->mnusemaine, &QAction::triggered, &m_carnet, &CarnetMontre::montreSemaine);
    relie(ui->mnuJour, &FrmEntree::BtnJour_Click);
    relie(ui->mnuAllerDate, [](FrmEntree *carnet) { carnet->vaAuJour(FrmMois::Foyer::Date); });
    relie(ui->mnuRafraichir, &FrmEntree::BtnRafraichir_Click);
    relie(ui->mnuZoom, &FrmEntree::mnuZoom_Click);
    connect(m_habillage, &Habillage::change, this, &FrmEntree::montreVue);
    relieA(m_options, ui->mnutranche, &ActionsOptions::mnutranche_Click);
    relieA(m_options, ui->mnuexclure, &ActionsOptions::mnuexclure_Click);
    relieA(m_options, ui->mnuSauver, &ActionsOptions::mnuSauver_Click);
    relieA(m_options, ui->menuSuppConfig, &ActionsOptions::menuSuppConfig_Click);
    relieA(m_options, ui->mnuPurger, &ActionsOptions::mnuPurger_Click);
    relieA(m_options, ui->mnuDeplacer, &ActionsOptions::mnuDeplacer_Click);
    relie(ui->mnuTouches, &FrmEntree::mnuTouches_Click);
    relie(ui->mnuRubrique, &FrmEntree::mnuTouches_Click);
    relie(ui->mnuAPropos, &FrmEntree::mnuAPropos_Click);
}

void FrmEntree::relieBoutons() {
    connect(BtnSemaine, &QPushButton::clicked, &m_carnet, &CarnetMontre::montreSemaine);
    connect(BtnJour, &QPushButton::clicked, this, &FrmEntree::BtnJour_Click);
    const auto relie = [this](QAction *touche, const QList<QPushButton *> &boutons, auto operation) {
        connect(touche, &QAction::triggered, this, operation);
        for (const QPushButton *bouton : boutons) {
            connect(bouton, &QPushButton::clicked, this, operation);
        }
    };
    relie(ui->touchePrecedent, {ui->BtnPrecedent, ui->BtnPrecedent2}, [this] { m_carnet.tourne(-1); });
    relie(ui->toucheSuivant, {ui->BtnSuivant, ui->BtnSuivant2}, [this] { m_carnet.tourne(1); });
    relie(ui->toucheAujourdhui, {ui->BtnAujourdhui, ui->BtnAujourdhui2},
          [this] { m_carnet.vaAu(m_env.maintenant().date()); });
    connect(ui->BtnRafraichir, &QPushButton::clicked, this, &FrmEntree::BtnRafraichir_Click);
    connect(ui->BandeauMois1, &BandeauMois::jourChoisi, &m_carnet, &CarnetMontre::vaAu);
    connect(ui->BtnMois, &QPushButton::clicked, this, [this] { vaAuJour(FrmMois::Foyer::Calendrier); });
    connect(ui->BtnQuitter, &QPushButton::clicked, this, &QWidget::close);
    connect(&Timer1, &QTimer::timeout, this, &FrmEntree::Timer1_Timer);
}

// ---- Start-up

void FrmEntree::Form_Load() {
    Form_Load(Demarre(m_env));
}

void FrmEntree::Form_Load(const Depart &depart) {
    Timer1.start(periodeReprise);
    for (const QString &message : depart.messages) {
        if (!m_dits.contains(message)) { // a start that is tried again tells its trouble once
            m_dits << message;
            m_env.messages->error(message);
        }
    }
    if (depart.premier) {
        m_menus->construitPraticiens(depart.praticiens);
        m_carnet.prend(*depart.premier);
        Timer1.start(periodeTimer1);
        m_surveillance->commenceApresImage(*this);
    }
}

// ---- Drawing

void FrmEntree::dessine() {
    const Sablier sablier;
    const Affichage &affichage = m_carnet.affichage();
    const QString libelle = m_menus->libelle(affichage.demande.PraticienCourant);
    setWindowTitle(QStringLiteral("Carnet de rendez-vous du ") + libelle);
    m_etat->montrePraticien(libelle);
    m_vues->dessine(affichage);
    ui->BandeauMois1->dessine(affichage);
    MontreVue(*ui, affichage.demande.VueSemaine, m_habillage->avecBoutons());
    dessineLecture();
    dessineSelection();
}

void FrmEntree::dessineSelection() {
    const Selection &selection = m_carnet.selection();
    const Coins &c = selection.coins;
    m_vues->contourne(
        selection.grille, {c.ligne, c.colonne, c.ligneFin, c.colonneFin},
        {HeuresSelection(selection), DureeSelection(selection), selection.rdv.value_or(RendezVous()).RefRDV},
        m_carnet.affichage().demande.VueSemaine ? InfoBulleRDV(selection) : QString());
    m_etat->montreSelection(m_carnet.affichage(), selection);
    m_commandes.dessine(m_carnet);
}

/// Qt has ticked what was chosen: what is shown decides.
void FrmEntree::dessineMenus() {
    const bool semaine = m_carnet.affichage().demande.VueSemaine;
    m_menus->dessine(m_carnet.affichage());
    m_commandes.dessine(m_carnet);
    for (QPushButton *bouton : centralWidget()->findChildren<QPushButton *>() + QList{BtnSemaine, BtnJour}) {
        bouton->setEnabled(!m_carnet.estVide() || bouton == ui->BtnQuitter || bouton == ui->BtnRafraichir);
    }
    BtnSemaine->setChecked(semaine);
    BtnJour->setChecked(!semaine);
    m_clavier->dessine(m_carnet.affichage().demande.intervalleSansZoom > 0);
    m_habillage->dessine(m_carnet.affichage());
}

void FrmEntree::dessineLecture() {
    m_etat->montreLecture(m_carnet.affichage(), m_veille->etat());
    m_vues->permetPrise(m_env.lectureSeule->isEmpty() && m_carnet.enContact());
    dessineMenus();
}

// ---- What is done with the selection

void FrmEntree::selectionne(int grille, const FlexGrid::Corners &c, FlexGrid::Gesture geste, qint64 RefRDV) {
    const Coins coins{c.row, c.col, c.rowSel, c.colSel};
    m_apresClic.setRemainingTime(attenteTimer1);
    if (Timer1.remainingTime() < attenteTimer1) { // a redraw would part the two presses of a double click
        Timer1.start(attenteTimer1);
    }
    m_carnet.selectionne(grille, coins, gesteDe(geste), RefRDV);
    if (geste == FlexGrid::Gesture::Key && m_carnet.selection().rdv) {
        m_vues->montreContour(); // taken whole, the appointment begins above what the key has scrolled to
    }
    if (PlusieursColonnes(m_carnet.affichage(), coins)) {
        m_vues->finGlisse();
        m_env.messages->show(QStringLiteral("Vous ne pouvez pas sélectionner plusieurs colonnes !"),
                             QStringLiteral("Erreur de sélection !"));
    }
}

void FrmEntree::ouvre(bool parSouris) {
    if (parSouris) {
        m_carnet.annuleSuivant();
    }
    QAction *action = m_carnet.selection().rdv ? ui->mnuEditer : ui->mnuAjouter;
    if (action->isEnabled()) {
        action->trigger();
    }
}

// ---- What is asked for

void FrmEntree::BtnJour_Click() {
    if (m_carnet.montreJour()) {
        m_vues->montreHeureCourante(m_carnet.affichage());
    }
}

void FrmEntree::BtnRafraichir_Click() {
    if (m_carnet.estVide()) {
        m_dits.clear();
        Form_Load();
    } else {
        m_carnet.rafraichit();
    }
}

void FrmEntree::mnuZoom_Click() {
    if (m_carnet.basculeZoom() && m_carnet.affichage().demande.VueSemaine) {
        m_vues->montreHeureCourante(m_carnet.affichage());
        m_vues->montreContour(); // what the keys act on stays in sight
    }
}

void FrmEntree::mnuAPropos_Click() {
    FrmAPropos(m_menus->libelles(), this).exec();
}

void FrmEntree::mnuTouches_Click() {
    FrmTouches(this).exec();
}

void FrmEntree::vaAuJour(FrmMois::Foyer foyer) {
    FrmMois fenetre(m_env, m_carnet.jourCourant(), foyer, this);
    if (fenetre.exec() == QDialog::Accepted) {
        m_carnet.vaAu(fenetre.jour());
    }
}

bool FrmEntree::estOccupe() const {
    return *m_env.actions > 0 || m_vues->glisse() || QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr;
}

void FrmEntree::Timer1_Timer() {
    if (estOccupe()) {
        Timer1.start(m_veille->enRetard() ? attenteNouvelle : attenteTimer1);
    } else if (m_carnet.estVide()) {
        Form_Load();
    } else {
        Timer1.start(periodeTimer1);
        m_carnet.relit(CarnetMontre::Annonce::UneFois);
    }
}

// ---- Window

/// The view that is shown, in the presentation that is chosen.
void FrmEntree::montreVue() {
    MontreVue(*ui, m_carnet.affichage().demande.VueSemaine, m_habillage->avecBoutons());
    dessineMenus();
    layout()->activate(); // a toolbar has come or gone
    dispose();
}

void FrmEntree::dispose() {
    if (PlaceControles(*ui, centralWidget()->size(), m_habillage->avecBoutons())) {
        m_vues->dimensionne();
    }
}

void FrmEntree::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    dispose();
}

void FrmEntree::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    dispose();
    if (!event->spontaneous() && !m_carnet.estVide() && m_carnet.affichage().demande.VueSemaine) {
        m_vues->montreHeureCourante(m_carnet.affichage());
    }
}

void FrmEntree::wheelEvent(QWheelEvent *event) {
    const bool zoome = m_carnet.affichage().demande.intervalleSansZoom > 0;
    const int sens = event->angleDelta().y();
    const bool bascule = event->modifiers().testFlag(Qt::ControlModifier) && (zoome ? sens < 0 : sens > 0);
    if (!m_carnet.estVide() && bascule && !m_vues->glisse()) {
        mnuZoom_Click();
    }
    event->accept();
}

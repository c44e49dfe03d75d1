#include "start/FrmEntree.h"

#include "ui_FrmEntree.h"

#include "booking/ActionsRDV.h"
#include "booking/SelectionRendezVous.h"
#include "config/FrmJourExclure.h"
#include "config/FrmSauvegarde.h"
#include "config/FrmTrancheHoraire.h"
#include "config/SuppConfig.h"
#include "schedule/Creneaux.h"
#include "grid/Disposition.h"
#include "grid/FrmMois.h"
#include "grid/GrilleSemaine.h"
#include "grid/GrillesJour.h"
#include "grid/Navigation.h"
#include "platform/db/DbError.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "platform/ui/Twips.h"
#include "start/Demarrage.h"
#include "start/FrmAPropos.h"
#include "start/FrmQuit.h"
#include "start/MenusPraticien.h"
#include "start/VariablesGlobales.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QShowEvent>

namespace {

constexpr int periodeTimer1 = 65535; // ms
constexpr int attenteTimer1 = 500;   // ms, while a dialog is open or the mouse drags

/// French needs no shaping of its letters: a grid full of names is laid out in half the time without.
QFont sansMiseEnForme(QFont police) {
    police.setStyleStrategy(QFont::PreferNoShaping);
    police.setKerning(false);
    return police;
}

} // namespace

FrmEntree::FrmEntree(VariablesGlobales &etat, QWidget *parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::FrmEntree>()), v(etat) {
    setFont(sansMiseEnForme(font()));
    ui->setupUi(this);
    construitBarreEtat();
    construitBoutonsVue();
    m_semaine = std::make_unique<GrilleSemaine>(*ui->GrilleRDV, v);
    m_jour = std::make_unique<GrillesJour>(*ui->GrilleRDV02, *ui->GrilleRDV03, v);
    m_selection =
        std::make_unique<SelectionRendezVous>(*ui->GrilleRDV, *ui->GrilleRDV02, *ui->GrilleRDV03, v);
    m_actions = std::make_unique<ActionsRDV>(v, *this);
    m_menus = std::make_unique<MenusPraticien>(*ui->mnuPraticien, *ui->menuFaut, v);
    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setParent(this);

    relieMenus();
    relieRendezVous();
    relieBoutons();
    relieClavier();
    montreVue();
}

FrmEntree::~FrmEntree() = default;

// ---- Construction

void FrmEntree::construitBarreEtat() {
    const QList<int> parts{40, 30, 15, 15};
    for (int i = 0; i < parts.size(); ++i) {
        auto *panneau = new QLabel(ui->StatusBar1);
        panneau->setObjectName(QStringLiteral("StatusBar1_%1").arg(i + 1));
        panneau->setTextFormat(Qt::PlainText);
        panneau->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        panneau->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        ui->StatusBar1->addWidget(panneau, parts[i]);
        m_panneaux << panneau;
    }
    ui->StatusBar1->setFixedHeight(pixelsFromTwips(375));
}

/// The two views, at the right end of the menu bar: the bottom of the window has no room left for them.
void FrmEntree::construitBoutonsVue() {
    auto *coin = new QWidget(this);
    auto *rangee = new QHBoxLayout(coin);
    rangee->setContentsMargins(0, 0, 2, 0);
    rangee->setSpacing(2);
    const auto bouton = [&](const QString &nom) {
        auto *b = new QPushButton(nom, coin);
        b->setObjectName(QStringLiteral("Btn") + nom);
        b->setCheckable(true);
        b->setFocusPolicy(Qt::NoFocus);
        b->setMaximumHeight(fontMetrics().height() + 4);
        rangee->addWidget(b);
        return b;
    };
    BtnSemaine = bouton(QStringLiteral("Semaine"));
    BtnJour = bouton(QStringLiteral("Jour"));
    ui->menubar->setCornerWidget(coin);
}

void FrmEntree::relieMenus() {
    for (QAction *action : findChildren<QAction *>()) {
        const bool menuOuListe =
            action->menu() != nullptr || action == ui->mnuDocteur || action == ui->mnuFauteuil;
        action->setEnabled(menuOuListe || action->isSeparator());
    }
    relie(ui->mnuquitter, [this] { close(); });
    connect(m_menus.get(), &MenusPraticien::praticienChoisi, this, &FrmEntree::mnuDocteur_Click);
    connect(m_menus.get(), &MenusPraticien::fauteuilChoisi, this, &FrmEntree::mnuFauteuil_Click);
    relie(ui->mnusemaine, [this] { BtnSemaine_Click(); });
    relie(ui->mnuJour, [this] { BtnJour_Click(); });
    relie(ui->mnuRafraichir, [this] { BtnRafraichir_Click(); });
    relie(ui->mnuZoom, [this] { mnuZoom_Click(); });
    relie(ui->mnutranche, [this] { mnutranche_Click(); });
    relie(ui->mnuexclure, [this] { mnuexclure_Click(); });
    relie(ui->mnuSauver, [this] { mnuSauver_Click(); });
    relie(ui->menuSuppConfig, [this] { menuSuppConfig_Click(); });
    relie(ui->mnuAPropos, [this] { mnuAPropos_Click(); });
    ui->mnuReporter->setVisible(false);
    active(ui->mnuquitter, true);
    active(ui->mnuAPropos, true);
}

/// The selection, and what is done with it.
void FrmEntree::relieRendezVous() {
    const auto relieAction = [this](QAction *action, void (ActionsRDV::*gestionnaire)()) {
        relie(action, [this, gestionnaire] { (m_actions.get()->*gestionnaire)(); });
    };
    relieAction(ui->mnuAjouter, &ActionsRDV::mnuAjouter_Click);
    relieAction(ui->mnuEditer, &ActionsRDV::mnuEditer_Click);
    relieAction(ui->mnuReporter, &ActionsRDV::mnuReporter_Click);
    relieAction(ui->mnuSupprimer, &ActionsRDV::mnuSupprimer_Click);
    relieAction(ui->mnuPresent, &ActionsRDV::mnuPresent_Click);
    ui->mnuSupprimer->setShortcut(Qt::Key_Delete);
    connect(m_selection.get(), &SelectionRendezVous::contexteChange, this, [this] {
        metMenusSelection();
        AfficheSelection();
    });
    connect(m_selection.get(), &SelectionRendezVous::menuDemande, this,
            [this](const QPoint &position) { ui->mnupatient->popup(position); });
    connect(m_selection.get(), &SelectionRendezVous::ouvertureDemandee, this, [this] {
        QAction *action = v.SelectionLibre ? ui->mnuAjouter : ui->mnuEditer;
        if (action->isEnabled()) {
            action->trigger();
        }
    });
    connect(m_actions.get(), &ActionsRDV::rdvEcrit, this, [this] { essaie([this] { redessine(); }); });
}

void FrmEntree::relieBoutons() {
    connect(BtnSemaine, &QPushButton::clicked, this, &FrmEntree::BtnSemaine_Click);
    connect(BtnJour, &QPushButton::clicked, this, &FrmEntree::BtnJour_Click);
    connect(ui->BtnPrecedent, &QPushButton::clicked, this, [this] { decale(-7); });
    connect(ui->BtnAujourdhui, &QPushButton::clicked, this, [this] { vaAu(v.maintenant().date()); });
    connect(ui->BtnSuivant, &QPushButton::clicked, this, [this] { decale(7); });
    connect(ui->BtnPrecedent2, &QPushButton::clicked, this, [this] { decale(-1); });
    connect(ui->BtnAujourdhui2, &QPushButton::clicked, this, [this] { vaAu(v.maintenant().date()); });
    connect(ui->BtnSuivant2, &QPushButton::clicked, this, [this] { decale(1); });
    connect(ui->BtnRafraichir, &QPushButton::clicked, this, &FrmEntree::BtnRafraichir_Click);
    connect(ui->BtnMois, &QPushButton::clicked, this, &FrmEntree::BtnMois_Click);
    connect(ui->BtnQuitter, &QPushButton::clicked, this, &QWidget::close);
    const auto montreDate = [this](QDate date) { m_panneaux[3]->setText(DatesFr::etat(date)); };
    connect(m_semaine.get(), &GrilleSemaine::dateAffichee, this, montreDate);
    connect(m_jour.get(), &GrillesJour::dateAffichee, this, montreDate);
    connect(&Timer1, &QTimer::timeout, this, &FrmEntree::Timer1_Timer);
}

void FrmEntree::relieClavier() {
    const auto touche = [this](const QKeySequence &suite, auto operation) {
        connect(new QShortcut(suite, this), &QShortcut::activated, this, [this, operation] {
            if (m_charge) {
                operation();
            }
        });
    };
    touche(Qt::Key_PageUp, [this] { decale(v.VueSemaine ? -7 : -1); });
    touche(Qt::Key_PageDown, [this] { decale(v.VueSemaine ? 7 : 1); });
    touche(Qt::Key_Home, [this] { vaAu(v.maintenant().date()); });
    touche(Qt::Key_F5, [this] { BtnRafraichir_Click(); });
}

// ---- Start-up

void FrmEntree::Form_Load() {
    for (QPushButton *bouton : findChildren<QPushButton *>()) {
        bouton->setEnabled(bouton == ui->BtnQuitter);
    }
    if (!MetBaseANiveau(v)) {
        return;
    }
    LitTransmissionSuite(v);
    const QList<Praticien> praticiens = LitPraticiens(v);
    if (praticiens.isEmpty()) {
        return;
    }
    v.txtNumJourEnCours = v.maintenant().date();
    m_menus->construitPraticiens(praticiens);
    m_charge = true;
    for (QPushButton *bouton : findChildren<QPushButton *>()) {
        bouton->setEnabled(true);
    }
    for (QAction *action :
         {ui->mnusemaine, ui->mnuJour, ui->mnuRafraichir, ui->mnuZoom, ui->menuSuppConfig}) {
        active(action, true);
    }
    essaie([this] {
        m_menus->construitFauteuils();
        changePraticien();
        m_menus->choisitConfiguration(-2);
        metMenusConfiguration();
        v.VueSemaine = true;
        v.txtNumJourEnCours = PremierJourAffiche(v.txtNumJourEnCours, v.config.JourAffich);
        m_panneaux[3]->setText(DatesFr::etat(v.txtNumJourEnCours));
        redessine();
    });
    Form_Resize();
    Timer1.start(periodeTimer1);
}

/// Title and status bar.
void FrmEntree::changePraticien() {
    const QString libelle = m_menus->libelleCoche();
    if (!libelle.isEmpty()) {
        setWindowTitle(QStringLiteral("Carnet de rendez-vous du ") + libelle);
        m_panneaux[1]->setText(libelle);
    }
}

void FrmEntree::metMenusConfiguration() {
    for (QAction *action : {ui->mnuSauver, ui->mnutranche, ui->mnuexclure}) {
        active(action, true);
    }
    for (QAction *action : {ui->mnuPurger, ui->mnuAjouter}) {
        active(action, v.ConfigExiste);
    }
}

// ---- Handlers

void FrmEntree::mnuDocteur_Click(int index) {
    m_menus->prendPraticien(index);
    changePraticien();
    essaie([this] {
        m_menus->construitFauteuils();
        if (v.VueSemaine) {
            m_menus->choisitConfiguration(-1);
            metMenusConfiguration();
        } else {
            v.ConfigGrilleJour = -1;
        }
        redessine();
    });
}

void FrmEntree::mnuFauteuil_Click(int index) {
    m_menus->cocheFauteuil(index);
    essaie([this, index] {
        if (v.VueSemaine) {
            m_menus->chargeFauteuil(m_menus->fauteuil(index));
        } else {
            v.ConfigGrilleJour = -1;
        }
        redessine();
    });
}

void FrmEntree::BtnSemaine_Click() {
    v.VueSemaine = true;
    montreVue();
    const int praticien = m_menus->praticienCoche();
    if (praticien >= 0) {
        mnuDocteur_Click(praticien); // loads the configuration again and draws
    }
}

void FrmEntree::BtnJour_Click() {
    v.VueSemaine = false;
    v.txtNumJourEnCours = v.maintenant().date();
    v.ConfigGrilleJour = -1;
    montreVue();
    essaie([this] { redessine(); });
    m_jour->MontreHeureCourante();
}

void FrmEntree::BtnRafraichir_Click() {
    if (v.VueSemaine) {
        BtnSemaine_Click();
    } else {
        essaie([this] { redessine(); });
    }
}

void FrmEntree::mnuZoom_Click() {
    v.config.Intervalle = BasculeZoom(v.config.Intervalle, v.intervalleSansZoom);
    v.ConfigGrilleJour = -1; // the day grids keep their own slots
    essaie([this] { redessine(); });
    m_semaine->MontreHeureCourante();
}

void FrmEntree::mnutranche_Click() {
    FrmTrancheHoraire fenetre(v, this);
    connect(&fenetre, &FrmTrancheHoraire::configurationModifiee, this, [this] {
        v.intervalleSansZoom = 0;
        v.ConfigGrilleJour = -1;
        essaie([this] { redessine(); });
    });
    fenetre.exec();
}

void FrmEntree::mnuexclure_Click() {
    FrmJourExclure fenetre(v, this);
    connect(&fenetre, &FrmJourExclure::configurationModifiee, this,
            [this] { essaie([this] { redessine(); }); });
    fenetre.exec();
}

void FrmEntree::mnuSauver_Click() {
    if (FrmSauvegarde(v, this).exec() == QDialog::Accepted) {
        FrmQuit(this).exec();
    }
}

void FrmEntree::menuSuppConfig_Click() {
    if (SuppConfig(v, this).exec() == QDialog::Accepted) {
        close();
    }
}

void FrmEntree::mnuAPropos_Click() {
    FrmAPropos(m_menus->libelles(), this).exec();
}

void FrmEntree::BtnMois_Click() {
    FrmMois fenetre(v.txtNumJourEnCours, v.maintenant().date(), this);
    if (fenetre.exec() == QDialog::Accepted) {
        v.txtNumJourEnCours = fenetre.jour();
        essaie([this] { redessine(); });
    }
}

void FrmEntree::decale(int jours) {
    const QDate jour = DecaleDate(v.txtNumJourEnCours, jours);
    if (!jour.isValid()) {
        v.messages->show(
            QStringLiteral("Le carnet va du %1 au %2.")
                .arg(DatesFr::courte(premierJourDuCarnet), DatesFr::courte(dernierJourDuCarnet)));
        return;
    }
    vaAu(jour);
}

void FrmEntree::vaAu(QDate jour) {
    v.txtNumJourEnCours = jour;
    essaie([this] {
        if (!v.VueSemaine) {
            redessine();
            return;
        }
        m_semaine->ChangeSemaine();
        m_selection->rafraichit();
    });
}

void FrmEntree::Timer1_Timer() {
    const bool glisse =
        ui->GrilleRDV->isDragging() || ui->GrilleRDV02->isDragging() || ui->GrilleRDV03->isDragging();
    if (glisse || QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr) {
        Timer1.start(attenteTimer1); // a redraw would rewrite what the user is working on
        return;
    }
    Timer1.start(periodeTimer1);
    essaie([this] { redessine(); });
}

// ---- Selection

void FrmEntree::metMenusSelection() {
    const bool surRDV = !v.SelectionLibre;
    for (QAction *action : {ui->mnuEditer, ui->mnuSupprimer, ui->mnuLettre, ui->mnuPresent}) {
        active(action, surRDV);
    }
    ui->mnuPresent->setChecked(surRDV && v.PresentRDV);
    active(ui->mnuAjouter, !surRDV && v.ConfigExiste);
}

void FrmEntree::AfficheSelection() {
    const QString debut = DatesFr::heure(v.HeureDebutCourante);
    m_panneaux[2]->setText(
        debut.isEmpty() ? QString() : debut + QStringLiteral("  /  ") + DatesFr::heure(v.HeureFinCourante));
    m_panneaux[3]->setText(DatesFr::etat(v.txtNumJourEnCours));
    m_panneaux[0]->setText(TexteEtatRDV(v.NomRDV, v.PrenomRDV, v.DescriptionRDV));
}

// ---- Window

/// Grids and navigation buttons of the current view.
void FrmEntree::montreVue() {
    const bool semaine = v.VueSemaine;
    for (QWidget *w :
         QList<QWidget *>{ui->GrilleRDV, ui->Frame1, ui->BtnPrecedent, ui->BtnAujourdhui, ui->BtnSuivant}) {
        w->setVisible(semaine);
    }
    for (QWidget *w : QList<QWidget *>{ui->GrilleRDV02, ui->GrilleRDV03, ui->Frame4, ui->BtnPrecedent2,
                                       ui->BtnAujourdhui2, ui->BtnSuivant2}) {
        w->setVisible(!semaine);
    }
    BtnSemaine->setChecked(semaine);
    BtnJour->setChecked(!semaine);
    (semaine ? ui->GrilleRDV : ui->GrilleRDV02)->setFocus();
}

void FrmEntree::redessine() {
    if (v.VueSemaine) {
        m_semaine->Trace();
        m_semaine->ResizingGrille();
    } else {
        m_jour->AffichageJournée(m_menus->fauteuilCoche());
        m_jour->Dimensionne();
    }
    m_selection->rafraichit();
}

void FrmEntree::Form_Resize() {
    const int hauteur = centralWidget()->height() + ui->StatusBar1->height();
    const auto d = DisposeFenetre(twipsFromPixels(centralWidget()->width()), twipsFromPixels(hauteur));
    if (!d) {
        return;
    }
    const std::initializer_list<std::pair<QWidget *, const Rectangle *>> places{
        {ui->GrilleRDV, &d->GrilleRDV},
        {ui->Frame1, &d->Frame1},
        {ui->BtnPrecedent, &d->BtnPrecedent},
        {ui->BtnAujourdhui, &d->BtnAujourdhui},
        {ui->BtnSuivant, &d->BtnSuivant},
        {ui->Frame2, &d->Frame2},
        {ui->BtnRafraichir, &d->BtnRafraichir},
        {ui->BtnMois, &d->BtnMois},
        {ui->Frame3, &d->Frame3},
        {ui->BtnQuitter, &d->BtnQuitter},
        {ui->Frame4, &d->Frame1},
        {ui->BtnPrecedent2, &d->BtnPrecedent},
        {ui->BtnAujourdhui2, &d->BtnAujourdhui},
        {ui->BtnSuivant2, &d->BtnSuivant},
        {ui->GrilleRDV02, &d->GrilleRDV02},
        {ui->GrilleRDV03, &d->GrilleRDV03}};
    for (const auto &[controle, place] : places) {
        controle->setGeometry(pixelsFromTwips(place->gauche, place->haut, place->largeur, place->hauteur));
    }
    m_semaine->ResizingGrille();
    m_jour->Dimensionne();
}

void FrmEntree::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void FrmEntree::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    Form_Resize();
    if (!event->spontaneous()) {
        m_semaine->MontreHeureCourante();
    }
}

void FrmEntree::wheelEvent(QWheelEvent *event) {
    const bool zoome = v.intervalleSansZoom > 0;
    const int sens = event->angleDelta().y();
    const bool bascule = event->modifiers().testFlag(Qt::ControlModifier) && (zoome ? sens < 0 : sens > 0);
    if (m_charge && bascule) {
        mnuZoom_Click();
    }
    event->accept();
}

void FrmEntree::relie(QAction *action, const std::function<void()> &gestionnaire) {
    connect(action, &QAction::triggered, this, [gestionnaire] { gestionnaire(); });
    m_reliees.insert(action);
}

void FrmEntree::active(QAction *action, bool active) {
    action->setEnabled(active && m_reliees.contains(action));
}

void FrmEntree::essaie(const std::function<void()> &operation) {
    try {
        operation();
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
    }
}

#include "start/FrmEntree.h"

#include "ui_FrmEntree.h"

#include "booking/ActionsRDV.h"
#include "config/FrmJourExclure.h"
#include "config/FrmSauvegarde.h"
#include "config/FrmTrancheHoraire.h"
#include "config/SuppConfig.h"
#include "grid/AffichageTables.h"
#include "grid/FrmMois.h"
#include "grid/GrilleSemaine.h"
#include "grid/GrillesJour.h"
#include "grid/Navigation.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Essai.h"
#include "start/BarreEtat.h"
#include "start/Demarrage.h"
#include "start/DispositionFenetre.h"
#include "start/FrmAPropos.h"
#include "start/FrmQuit.h"
#include "start/MenusPraticien.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>

#include <algorithm>

namespace {

constexpr int periodeTimer1 = 65535; // ms
constexpr int periodeReprise = 5000; // ms, as long as the book could not be read
constexpr int attenteTimer1 = 500;   // ms, while the user is in the middle of something

/// French needs no shaping of its letters: a grid full of names is laid out in half the time without.
QFont sansMiseEnForme(QFont police) {
    police.setStyleStrategy(QFont::PreferNoShaping);
    police.setKerning(false);
    return police;
}

Geste gesteDe(FlexGrid::Gesture geste) {
    switch (geste) {
    case FlexGrid::Gesture::Press:
        return Geste::Clic;
    case FlexGrid::Gesture::Drag:
        return Geste::Glisse;
    default:
        return Geste::Touche;
    }
}

} // namespace

FrmEntree::FrmEntree(const Environnement &env, QWidget *parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::FrmEntree>()), m_env(env) {
    setFont(sansMiseEnForme(font()));
    ui->setupUi(this);
    construitBoutonsVue();
    m_semaine = std::make_unique<GrilleSemaine>(*ui->GrilleRDV, env);
    m_jour = std::make_unique<GrillesJour>(*ui->GrilleRDV02, *ui->GrilleRDV03, env);
    m_etat = std::make_unique<BarreEtat>(*ui->StatusBar1);
    m_actions = new ActionsRDV(env, *this);
    m_menus = new MenusPraticien(*ui->mnuPraticien, *ui->menuFaut, this);
    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setParent(this);

    relieGrilles();
    relieMenus();
    relieRendezVous();
    relieBoutons();
    relieClavier();
    dessineMenus();
    dessineBoutons();
    MontreVue(*ui, true);
}

FrmEntree::~FrmEntree() = default;

// ---- Construction

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

void FrmEntree::relieGrilles() {
    const QList<std::pair<FlexGrid *, int>> places{{ui->GrilleRDV, 0}, {ui->GrilleRDV02, 0}, {ui->GrilleRDV03, 1}};
    for (const auto &[vue, grille] : places) {
        connect(vue, &FlexGrid::selectionAsked, this,
                [this, grille = grille](const FlexGrid::Corners &coins, FlexGrid::Gesture geste) {
                    selectionne(grille, coins, geste);
                });
        connect(vue, &FlexGrid::opened, this, &FrmEntree::ouvre);
        connect(vue, &FlexGrid::contextMenuAsked, this,
                [this](const QPoint &position) { ui->mnupatient->popup(position); });
    }
}

void FrmEntree::relieMenus() {
    relie(ui->mnuquitter, [this] { close(); });
    connect(m_menus, &MenusPraticien::praticienChoisi, this, &FrmEntree::mnuDocteur_Click);
    connect(m_menus, &MenusPraticien::fauteuilChoisi, this, &FrmEntree::mnuFauteuil_Click);
    relie(ui->mnusemaine, [this] { BtnSemaine_Click(); });
    relie(ui->mnuJour, [this] { BtnJour_Click(); });
    relie(ui->mnuRafraichir, [this] { BtnRafraichir_Click(); });
    relie(ui->mnuZoom, [this] { mnuZoom_Click(); });
    relie(ui->mnutranche, [this] { mnutranche_Click(); });
    relie(ui->mnuexclure, [this] { mnuexclure_Click(); });
    relie(ui->mnuSauver, [this] { mnuSauver_Click(); });
    relie(ui->menuSuppConfig, [this] { menuSuppConfig_Click(); });
    relie(ui->mnuAPropos, [this] { FrmAPropos(m_menus->libelles(), this).exec(); });
}

/// What is done with the selection.
void FrmEntree::relieRendezVous() {
    relie(ui->mnuAjouter, [this] { mnuAjouter_Click(); });
    relie(ui->mnuEditer, [this] { mnuEditer_Click(); });
    relie(ui->mnuReporter, [this] { m_actions->reporte(); });
    relie(ui->mnuSupprimer, [this] { mnuSupprimer_Click(); });
    relie(ui->mnuPresent, [this] { mnuPresent_Click(); });
    ui->mnuReporter->setVisible(false);
    ui->mnuSupprimer->setShortcut(Qt::Key_Delete);
    connect(m_actions, &ActionsRDV::rdvEcrit, this, &FrmEntree::rdvEcrit);
}

void FrmEntree::relieBoutons() {
    const auto aujourdhui = [this] { vaAu(m_env.maintenant().date()); };
    connect(BtnSemaine, &QPushButton::clicked, this, &FrmEntree::BtnSemaine_Click);
    connect(BtnJour, &QPushButton::clicked, this, &FrmEntree::BtnJour_Click);
    connect(ui->BtnPrecedent, &QPushButton::clicked, this, [this] { decale(-7); });
    connect(ui->BtnAujourdhui, &QPushButton::clicked, this, aujourdhui);
    connect(ui->BtnSuivant, &QPushButton::clicked, this, [this] { decale(7); });
    connect(ui->BtnPrecedent2, &QPushButton::clicked, this, [this] { decale(-1); });
    connect(ui->BtnAujourdhui2, &QPushButton::clicked, this, aujourdhui);
    connect(ui->BtnSuivant2, &QPushButton::clicked, this, [this] { decale(1); });
    connect(ui->BtnRafraichir, &QPushButton::clicked, this, &FrmEntree::BtnRafraichir_Click);
    connect(ui->BtnMois, &QPushButton::clicked, this, &FrmEntree::BtnMois_Click);
    connect(ui->BtnQuitter, &QPushButton::clicked, this, &QWidget::close);
    connect(&Timer1, &QTimer::timeout, this, &FrmEntree::Timer1_Timer);
}

void FrmEntree::relieClavier() {
    const auto touche = [this](const QKeySequence &suite, auto operation) {
        connect(new QShortcut(suite, this), &QShortcut::activated, this, operation);
    };
    touche(Qt::Key_PageUp, [this] { decale(m_affichage.demande.VueSemaine ? -7 : -1); });
    touche(Qt::Key_PageDown, [this] { decale(m_affichage.demande.VueSemaine ? 7 : 1); });
    touche(Qt::Key_Home, [this] { vaAu(m_env.maintenant().date()); });
    touche(Qt::Key_F5, [this] { BtnRafraichir_Click(); });
}

// ---- Start-up

void FrmEntree::Form_Load() {
    Timer1.start(periodeReprise);
    const Depart depart = Demarre(m_env);
    for (const QString &message : depart.messages) {
        if (!m_dits.contains(message)) { // a start that is tried again tells its trouble once
            m_dits << message;
            m_env.messages->error(message);
        }
    }
    if (!depart.complet) {
        return;
    }
    m_menus->construitPraticiens(depart.praticiens);
    const QDate aujourdhui = m_env.maintenant().date();
    if (!montre({.PraticienCourant = depart.PraticienCourant, .jour = aujourdhui}, Annonce::UneFois)) {
        return;
    }
    vaAu(PremierJourAffiche(aujourdhui, m_affichage.grilles.first().config.JourAffich));
    Timer1.start(periodeTimer1);
}

// ---- What is shown

bool FrmEntree::montre(const Demande &demande, Annonce annonce) {
    Affichage lu;
    if (!lit([&](Database &carnet) { lu = LitAffichage(carnet, demande, m_env.maintenant()); }, annonce)) {
        dessineMenus(); // Qt has ticked what was chosen
        dessineBoutons();
        return false;
    }
    m_selection = Reprend(lu, m_affichage, m_selection);
    m_affichage = lu;
    dessine();
    return true;
}

bool FrmEntree::lit(const std::function<void(Database &)> &lecture, Annonce annonce) {
    const bool dejaManquee = !m_lectureManquee.isEmpty();
    m_enLecture = true;
    const std::optional<DbError> echec = tente(m_env, [&] {
        Database carnet = m_env.ouvreCarnet();
        lecture(carnet);
    });
    m_enLecture = false;
    m_lectureManquee = echec ? echec->message() : QString();
    dessineLecture();
    if (echec && (annonce == Annonce::Toujours || !dejaManquee)) {
        m_env.messages->error(m_lectureManquee);
    }
    return !echec;
}

void FrmEntree::selectionne(int grille, const FlexGrid::Corners &c, FlexGrid::Gesture geste) {
    if (!estCharge() || grille >= m_affichage.grilles.size()) {
        return;
    }
    const Coins coins{c.row, c.col, c.rowSel, c.colSel};
    if (geste == FlexGrid::Gesture::Press || geste == FlexGrid::Gesture::RightPress) {
        m_avantClic = m_selection;
        if (!relitJourDe(grille, coins)) {
            dessineSelection(); // the outline stays where it was
            return;
        }
    }
    m_selection = Selectionne(m_affichage, grille, coins, gesteDe(geste), m_selection);
    dessineSelection();
    if (PlusieursColonnes(m_affichage, coins)) {
        for (FlexGrid *vue : grilles()) {
            vue->endDrag(); // the message takes the release away
        }
        m_env.messages->show(QStringLiteral("Vous ne pouvez pas sélectionner plusieurs colonnes !"),
                             QStringLiteral("Erreur de sélection !"));
    }
}

/// A click looks at the book: a day that is not what is drawn any more is drawn first.
bool FrmEntree::relitJourDe(int grille, const Coins &coins) {
    const QDate jour = JourDesCoins(m_affichage, grille, coins);
    if (!jour.isValid()) {
        return true;
    }
    QList<RendezVous> relus;
    if (!lit([&](Database &carnet) { relus = RelitJour(carnet, m_affichage, grille, jour); })) {
        return false;
    }
    return relus == DuJour(m_affichage.grilles[grille], jour) || montre(m_affichage.suite());
}

void FrmEntree::dessine() {
    const Sablier sablier;
    const QString libelle = m_menus->libelle(m_affichage.demande.PraticienCourant);
    setWindowTitle(QStringLiteral("Carnet de rendez-vous du ") + libelle);
    m_etat->montrePraticien(libelle);
    const bool semaine = m_affichage.demande.VueSemaine;
    if (semaine) {
        m_semaine->dessine(m_affichage);
        m_semaine->dimensionne();
    } else {
        m_jour->dessine(m_affichage);
        m_jour->dimensionne();
    }
    MontreVue(*ui, semaine);
    dessineBoutons();
    dessineSelection();
    dessineLecture();
}

void FrmEntree::dessineSelection() {
    const bool semaine = m_affichage.demande.VueSemaine;
    const QList<FlexGrid *> vues = grilles();
    for (int i = 0; i < vues.size(); ++i) {
        const bool ici = i == m_selection.grille;
        const Coins &c = m_selection.coins;
        vues[i]->showOutline(ici ? std::optional(FlexGrid::Corners{c.ligne, c.colonne, c.ligneFin, c.colonneFin})
                                 : std::nullopt);
        vues[i]->setOutlineToolTip(ici && semaine ? InfoBulleRDV(m_selection) : QString());
    }
    m_etat->montreSelection(m_affichage, m_selection);
    dessineMenus();
}

void FrmEntree::dessineMenus() {
    const bool charge = estCharge();
    const bool surRDV = m_selection.rdv.has_value();
    const bool ecrit = charge && m_env.lectureSeule->isEmpty();
    for (const QMenu *menu : {ui->mnupatient, ui->menuAffichage, ui->menuOptions, ui->menuAide}) {
        for (QAction *action : menu->actions()) {
            active(action, charge);
        }
    }
    m_menus->dessine(m_affichage);
    active(ui->mnuquitter, true);
    active(ui->mnuAPropos, true);
    active(ui->mnuRafraichir, true);
    active(ui->mnuPurger, m_affichage.ConfigExiste());
    active(ui->mnuSauver, ecrit);
    active(ui->menuSuppConfig, ecrit);
    active(ui->mnuAjouter, ecrit && !m_selection.vide() && !surRDV && m_affichage.ConfigExiste());
    for (QAction *action : {ui->mnuEditer, ui->mnuSupprimer, ui->mnuPresent}) {
        active(action, ecrit && surRDV);
    }
    active(ui->mnuLettre, surRDV);
    ui->mnuPresent->setChecked(surRDV && m_selection.rdv->Present);
}

void FrmEntree::dessineBoutons() {
    for (QPushButton *bouton : findChildren<QPushButton *>(Qt::FindChildrenRecursively)) {
        bouton->setEnabled(estCharge() || bouton == ui->BtnQuitter || bouton == ui->BtnRafraichir);
    }
    BtnSemaine->setChecked(m_affichage.demande.VueSemaine);
    BtnJour->setChecked(!m_affichage.demande.VueSemaine);
}

void FrmEntree::dessineLecture() {
    m_etat->montreLecture(m_affichage, m_lectureManquee, *m_env.lectureSeule);
}

// ---- What is done with the selection

std::optional<RendezVous> FrmEntree::rdvRelu(const QString &disparu, const QString &titre) {
    const qint64 voulu = m_selection.rdv->RefRDV;
    if (!montre(m_affichage.suite())) {
        return std::nullopt;
    }
    if (!m_selection.rdv || m_selection.rdv->RefRDV != voulu) {
        m_env.messages->show(disparu, titre);
        return std::nullopt;
    }
    return m_selection.rdv;
}

void FrmEntree::mnuAjouter_Click() {
    if (!montre(m_affichage.suite())) {
        return;
    }
    if (m_selection.vide() || m_selection.rdv) {
        m_env.messages->show(QStringLiteral("Vous ne pouvez ajouter de rendez-vous à cet endroit.\n"
                                            "Un rendez-vous s'y trouve déjà. Veuillez rafraichir l'affichage."),
                             QStringLiteral("Horaire occupé"));
        return;
    }
    m_actions->ajoute(PlaceDe(m_affichage, m_selection));
}

void FrmEntree::mnuEditer_Click() {
    if (const auto rdv =
            rdvRelu(QStringLiteral("Ce rendez-vous n'existe pas !!!!!"), QStringLiteral("Erreur !"))) {
        m_actions->edite(*rdv, PlaceDe(m_affichage, m_selection));
    }
}

void FrmEntree::mnuSupprimer_Click() {
    if (const auto rdv = rdvRelu(QStringLiteral("Ce rendez-vous n'existe plus !"),
                                 QStringLiteral("Rendez-vous déjà supprimé"))) {
        m_actions->supprime(*rdv, PlaceDe(m_affichage, m_selection));
    }
}

/// Sets what the user saw himself choose; the book is looked at where it is written.
void FrmEntree::mnuPresent_Click() {
    const RendezVous rdv = *m_selection.rdv;
    m_actions->marquePresent(rdv, !rdv.Present);
    dessineMenus();
}

void FrmEntree::ouvre(bool parSouris) {
    if (parSouris && m_selection.suivant) { // the double click's first press was no wish for the next one
        m_selection = m_avantClic;
        dessineSelection();
    }
    QAction *action = m_selection.rdv ? ui->mnuEditer : ui->mnuAjouter;
    if (action->isEnabled()) {
        action->trigger();
    }
}

void FrmEntree::rdvEcrit(const RendezVous &rdv) {
    if (!montre(m_affichage.suite())) {
        return;
    }
    const Selection ecrit = SelectionneRDV(m_affichage, rdv.RefRDV);
    if (!ecrit.vide()) {
        m_selection = ecrit;
        dessineSelection();
    } else if (rdv.RefRDV != 0 && m_affichage.demande.VueSemaine &&
               !Dans(Jour(rdv.Date1), m_affichage.grilles.first().config.JourAffich)) {
        m_env.messages->show(QStringLiteral("Le rendez-vous est placé au %1, un jour qui n'est pas affiché.")
                                 .arg(DatesFr::jourComplet(rdv.Date1)));
    }
}

// ---- What is asked for

Demande FrmEntree::courante() const {
    return {.PraticienCourant = m_affichage.demande.PraticienCourant,
            .VueSemaine = m_affichage.demande.VueSemaine,
            .jour = JourCourant(m_affichage, m_selection)};
}

void FrmEntree::mnuDocteur_Click(const QString &numero) {
    Demande demande = courante();
    demande.PraticienCourant = numero;
    montre(demande);
}

void FrmEntree::mnuFauteuil_Click(long fauteuil) {
    Demande demande = courante();
    demande.fauteuil = fauteuil;
    montre(demande);
}

void FrmEntree::BtnSemaine_Click() {
    Demande demande = courante();
    demande.VueSemaine = true;
    montre(demande);
}

void FrmEntree::BtnJour_Click() {
    Demande demande = courante();
    demande.VueSemaine = false;
    demande.jour = m_env.maintenant().date();
    if (m_affichage.fauteuilCoche >= 0) {
        demande.fauteuil = CLng(m_affichage.configs[m_affichage.fauteuilCoche].config.FauteuilCourant);
    }
    if (montre(demande)) {
        m_jour->montreHeureCourante(m_affichage);
    }
}

void FrmEntree::BtnRafraichir_Click() {
    if (!estCharge()) {
        m_dits.clear();
        Form_Load();
        return;
    }
    montre(m_affichage.demande.VueSemaine ? courante() : m_affichage.demande);
}

void FrmEntree::mnuZoom_Click() {
    Demande demande = m_affichage.suite();
    if (demande.VueSemaine && demande.config) { // the day grids keep their own slots
        demande.config->Intervalle = BasculeZoom(demande.config->Intervalle, demande.intervalleSansZoom);
    }
    if (montre(demande) && demande.VueSemaine) {
        m_semaine->montreHeureCourante(m_affichage);
    }
}

void FrmEntree::prendReglages(const Configuration &config) {
    Demande demande = m_affichage.suite();
    demande.config = config;
    demande.intervalleSansZoom = 0;
    montre(demande);
}

void FrmEntree::mnutranche_Click() {
    FrmTrancheHoraire fenetre(m_env, m_affichage.reglages(m_selection.grille), this);
    if (fenetre.exec() == QDialog::Accepted) {
        prendReglages(fenetre.configuration());
    }
}

void FrmEntree::mnuexclure_Click() {
    const Configuration avant = m_affichage.reglages(m_selection.grille);
    FrmJourExclure fenetre(m_env, avant, this);
    fenetre.exec();
    if (fenetre.configuration() != avant) { // also a rest day that was chosen before cancelling
        prendReglages(fenetre.configuration());
    }
}

void FrmEntree::mnuSauver_Click() {
    FrmSauvegarde fenetre(m_env, m_affichage.demande.PraticienCourant, m_affichage.reglages(m_selection.grille), this);
    if (fenetre.exec() == QDialog::Accepted) {
        FrmQuit(this).exec();
        close();
    }
}

void FrmEntree::menuSuppConfig_Click() {
    if (SuppConfig(m_env, m_affichage.demande.numPraticien(), this).exec() == QDialog::Accepted) {
        close();
    }
}

void FrmEntree::BtnMois_Click() {
    FrmMois fenetre(JourCourant(m_affichage, m_selection), m_env.maintenant().date(), this);
    if (fenetre.exec() == QDialog::Accepted) {
        vaAu(fenetre.jour());
    }
}

void FrmEntree::decale(int jours) {
    if (!estCharge()) {
        return;
    }
    const QDate jour = DecaleDate(JourCourant(m_affichage, m_selection), jours);
    if (!jour.isValid()) {
        m_env.messages->show(
            QStringLiteral("Le carnet va du %1 au %2.")
                .arg(DatesFr::courte(premierJourDuCarnet), DatesFr::courte(dernierJourDuCarnet)));
        return;
    }
    vaAu(jour);
}

void FrmEntree::vaAu(QDate jour) {
    if (estCharge() && jour != m_affichage.demande.jour) {
        Demande demande = m_affichage.suite();
        demande.jour = jour;
        montre(demande);
    }
}

bool FrmEntree::estOccupe() const {
    return m_enLecture || QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr ||
           std::ranges::any_of(grilles(), [](const FlexGrid *vue) { return vue->isDragging(); });
}

void FrmEntree::Timer1_Timer() {
    if (estOccupe()) {
        Timer1.start(attenteTimer1);
    } else if (!estCharge()) {
        Form_Load();
    } else {
        Timer1.start(periodeTimer1);
        montre(m_affichage.suite(), Annonce::UneFois);
    }
}

// ---- Window

QList<FlexGrid *> FrmEntree::grilles() const {
    return m_affichage.demande.VueSemaine ? QList<FlexGrid *>{ui->GrilleRDV}
                                          : QList<FlexGrid *>{ui->GrilleRDV02, ui->GrilleRDV03};
}

void FrmEntree::dispose() {
    const int hauteur = centralWidget()->height() + ui->StatusBar1->height();
    if (PlaceControles(*ui, centralWidget()->width(), hauteur)) {
        m_semaine->dimensionne();
        m_jour->dimensionne();
    }
}

void FrmEntree::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    dispose();
}

void FrmEntree::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    dispose();
    if (!event->spontaneous() && estCharge() && m_affichage.demande.VueSemaine) {
        m_semaine->montreHeureCourante(m_affichage);
    }
}

void FrmEntree::wheelEvent(QWheelEvent *event) {
    const bool zoome = m_affichage.demande.intervalleSansZoom > 0;
    const int sens = event->angleDelta().y();
    const bool bascule = event->modifiers().testFlag(Qt::ControlModifier) && (zoome ? sens < 0 : sens > 0);
    if (estCharge() && bascule) {
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

#include "start/FrmEntree.h"

#include "ui_FrmEntree.h"

#include "grid/Creneaux.h"
#include "grid/Disposition.h"
#include "grid/GrilleSemaine.h"
#include "platform/db/DbError.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "platform/ui/Twips.h"
#include "start/Demarrage.h"
#include "start/FrmAPropos.h"
#include "start/VariablesGlobales.h"

#include <QShowEvent>
#include <QToolButton>

namespace {

QRect enPixels(const Rectangle &twips) {
    const int gauche = pixelsFromTwips(twips.gauche);
    const int haut = pixelsFromTwips(twips.haut);
    return {QPoint(gauche, haut), QSize(pixelsFromTwips(twips.gauche + twips.largeur) - gauche,
                                        pixelsFromTwips(twips.haut + twips.hauteur) - haut)};
}

} // namespace

FrmEntree::FrmEntree(VariablesGlobales &etat, QWidget *parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::FrmEntree>()), v(etat) {
    ui->setupUi(this);
    construitBarreEtat();
    m_semaine = std::make_unique<GrilleSemaine>(*ui->GrilleRDV, v);
    m_docteurs = {ui->mnuDocteur};
    m_fauteuils = {ui->mnuFauteuil};
    for (QAction *action : findChildren<QAction *>()) {
        action->setEnabled(action->menu() != nullptr || action->isSeparator());
    }

    relie(ui->mnuquitter, [this] { close(); });
    relie(ui->mnuDocteur, [this] { mnuDocteur_Click(0); });
    relie(ui->mnuFauteuil, [this] { mnuFauteuil_Click(0); });
    relie(ui->mnuAPropos, [this] { mnuAPropos_Click(); });
    connect(ui->BtnQuitter, &QPushButton::clicked, this, &QWidget::close);
    connect(m_semaine.get(), &GrilleSemaine::dateAffichee, this,
            [this](QDate date) { m_panneaux[3]->setText(DatesFr::etat(date)); });

    for (QAction *action : {ui->mnuquitter, ui->mnuAPropos}) {
        active(action, true);
    }
    for (QPushButton *bouton :
         {ui->BtnPrecedent, ui->BtnAujourdhui, ui->BtnSuivant, ui->BtnRafraichir, ui->BtnMois}) {
        bouton->setEnabled(false);
    }
    ui->mnuDocteur->setVisible(false);
    ui->menuFaut->menuAction()->setVisible(false);
    ui->mnuReporter->setVisible(false);
}

FrmEntree::~FrmEntree() = default;

// ---- Start-up

void FrmEntree::Form_Load() {
    if (!MetBaseANiveau(v)) {
        return;
    }
    LitTransmissionSuite(v);
    const QList<Praticien> praticiens = LitPraticiens(v);
    if (praticiens.isEmpty()) {
        return;
    }
    v.txtNumJourEnCours = v.maintenant().date();
    construitMenuPraticiens(praticiens);
    essaie([this] {
        construitMenuFauteuils();
        metTitre();
        choisitConfiguration(-2);
        montreVueSemaine();
        v.txtNumJourEnCours = PremierJourAffiche(v.txtNumJourEnCours, v.config.JourAffich);
        m_panneaux[3]->setText(DatesFr::etat(v.txtNumJourEnCours));
        ui->mnuPresent->setChecked(false);
        for (QAction *action : {ui->mnuPresent, ui->mnuEditer, ui->mnuSupprimer, ui->mnuReporter}) {
            active(action, false);
        }
        m_semaine->Trace();
    });
    Form_Resize();
}

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

void FrmEntree::construitMenuPraticiens(const QList<Praticien> &praticiens) {
    for (int i = 0; i < praticiens.size(); ++i) {
        if (i > 0) {
            auto *item = new QAction(this);
            item->setCheckable(true);
            relie(item, [this, i] { mnuDocteur_Click(i); });
            ui->mnuPraticien->addAction(item);
            m_docteurs << item;
        }
        m_docteurs[i]->setVisible(true);
        m_docteurs[i]->setText(praticiens[i].libelle());
        m_docteurs[i]->setChecked(praticiens[i].codeprat == v.numPraticien());
        active(m_docteurs[i], true);
    }
}

void FrmEntree::construitMenuFauteuils() {
    v.AvecFauteuils = false;
    while (m_fauteuils.size() > 1) {
        delete m_fauteuils.takeLast();
    }
    Database base = v.ouvre(v.CheminBaseRDV);
    const QList<LigneConfig> configs = ConfigsDuPraticien(base, v.numPraticien());
    for (int i = 0; i < configs.size(); ++i) {
        if (i > 0) {
            auto *item = new QAction(this);
            item->setCheckable(true);
            relie(item, [this, i] { mnuFauteuil_Click(i); });
            ui->menuFaut->addAction(item);
            m_fauteuils << item;
        }
        m_fauteuils[i]->setText(LibelleFauteuil(configs[i].Fauteuil));
        m_fauteuils[i]->setChecked(configs[i].DefaultConfig);
        active(m_fauteuils[i], true);
        if (CLng(configs[i].Fauteuil) != 0) {
            v.AvecFauteuils = true;
        }
        if (configs[i].DefaultConfig) {
            m_fauteuilParDefaut = NumeroFauteuil(m_fauteuils[i]->text());
        }
    }
    ui->menuFaut->menuAction()->setVisible(v.AvecFauteuils);
}

void FrmEntree::choisitConfiguration(int fauteuilDeRepli) {
    Database base = v.ouvre(v.CheminBaseRDV);
    if (const auto parDefaut = NomConfigParDefaut(base, v.numPraticien())) {
        chargeConfig(base, *parDefaut, m_fauteuilParDefaut);
    } else if (const auto repli = NomConfigDeRepli(base)) {
        chargeConfig(base, *repli, fauteuilDeRepli);
    } else {
        v.config = {};
        v.messages->error(
            QStringLiteral("Ce praticien n'a pas de configuration et la configuration « Défaut » "
                           "n'existe pas : le carnet ne peut pas être affiché."));
    }
    v.ConfigExiste = !ConfigsDuPraticien(base, v.numPraticien()).isEmpty();
    for (QAction *action : {ui->mnuSauver, ui->mnutranche, ui->mnuexclure}) {
        active(action, true);
    }
    for (QAction *action : {ui->mnuPurger, ui->mnuAjouter}) {
        active(action, v.ConfigExiste);
    }
}

void FrmEntree::chargeConfig(Database &base, const QString &nomConfig, int fauteuil) {
    const auto lue = LitConfig(base, nomConfig, v.numPraticien(), fauteuil);
    if (!lue) {
        return; // the loaded one stays
    }
    v.config = *lue;
    const QString defaut = DefautConfiguration(v.config);
    if (!defaut.isEmpty()) {
        v.messages->error(QStringLiteral("La configuration « %1 » ne peut pas être affichée : %2.")
                              .arg(nomConfig.left(100), defaut));
    }
}

void FrmEntree::montreVueSemaine() {
    v.VueSemaine = true;
    for (QWidget *w :
         QList<QWidget *>{ui->GrilleRDV, ui->Frame1, ui->BtnPrecedent, ui->BtnAujourdhui, ui->BtnSuivant}) {
        w->setVisible(true);
    }
    for (QWidget *w : QList<QWidget *>{ui->GrilleRDV02, ui->GrilleRDV03, ui->Frame4, ui->BtnPrecedent2,
                                       ui->BtnSuivant2, ui->BtnAujourdhui2}) {
        w->setVisible(false);
    }
}

void FrmEntree::metTitre() {
    for (const QAction *docteur : std::as_const(m_docteurs)) {
        if (docteur->isChecked()) {
            setWindowTitle(QStringLiteral("Carnet de rendez-vous du ") + docteur->text());
            m_panneaux[1]->setText(docteur->text());
        }
    }
}

// ---- Handlers

void FrmEntree::mnuDocteur_Click(int index) {
    v.PraticienCourant = NumeroPraticien(index);
    for (int i = 0; i < m_docteurs.size(); ++i) {
        m_docteurs[i]->setChecked(i == index);
    }
    metTitre();
    essaie([this] {
        construitMenuFauteuils();
        choisitConfiguration(-1);
        redessineSemaine();
    });
}

void FrmEntree::mnuFauteuil_Click(int index) {
    for (int i = 0; i < m_fauteuils.size(); ++i) {
        m_fauteuils[i]->setChecked(i == index);
    }
    essaie([this, index] {
        const int fauteuil = NumeroFauteuil(m_fauteuils[index]->text());
        Database base = v.ouvre(v.CheminBaseRDV);
        if (const auto nom = NomConfigDuFauteuil(base, v.numPraticien(), fauteuil)) {
            chargeConfig(base, *nom, fauteuil);
        } else if (const auto repli = NomConfigDeRepli(base)) {
            chargeConfig(base, *repli, -1);
        }
        redessineSemaine();
    });
}

void FrmEntree::mnuAPropos_Click() {
    QStringList praticiens;
    for (const QAction *docteur : std::as_const(m_docteurs)) {
        praticiens << docteur->text();
    }
    FrmAPropos(praticiens, this).exec();
}

void FrmEntree::redessineSemaine() {
    m_semaine->Trace();
    m_semaine->ResizingGrille();
}

// ---- Window

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
        controle->setGeometry(enPixels(*place));
    }
    m_semaine->ResizingGrille();
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

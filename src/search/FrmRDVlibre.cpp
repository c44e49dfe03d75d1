#include "search/FrmRDVlibre.h"

#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "practice/Environnement.h"
#include "practice/JourSaisi.h"
#include "schedule/TrancheHoraire.h"
#include "ui_FrmRDVlibre.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>

namespace {

QString ligne(QDate jour, QTime debut) {
    return QStringLiteral("Horaire Libre le %1 à %2")
        .arg(DatesFr::courte(jour), debut.toString(QStringLiteral("HH:mm:ss")));
}

} // namespace

FrmRDVlibre::FrmRDVlibre(const Environnement &env, const QString &PraticienCourant,
                         const Configuration &config, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmRDVlibre>()), m_env(env),
      m_recherche(new RechercheCreneau(env, this)) {
    ui->setupUi(this);
    ui->DTPicker1->setReader(LitDate, premiereDate, derniereDate);
    connect(ui->DTPicker1, &ChampDate::datePicked, this, &FrmRDVlibre::prendJour);
    connect(ui->UpDown1, &UpDown::upClicked, this,
            [this] { UpDown1_Click(DureePlusLongue(m_demande.duree, m_demande.config.Intervalle)); });
    connect(ui->UpDown1, &UpDown::downClicked, this,
            [this] { UpDown1_Click(DureePlusCourte(m_demande.duree, m_demande.config.Intervalle)); });
    connect(ui->List1, &QListWidget::itemClicked, this, &FrmRDVlibre::List1_Click);
    connect(ui->cmdJourSuivant, &QPushButton::clicked, this, &FrmRDVlibre::cmdJourSuivant_Click);
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmRDVlibre::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &FrmRDVlibre::reject);
    connect(m_recherche, &RechercheCreneau::avance, this, &FrmRDVlibre::montreEnCours);
    connect(m_recherche, &RechercheCreneau::finie, this, &FrmRDVlibre::montre);
    connect(m_recherche, &RechercheCreneau::manquee, this, &FrmRDVlibre::montreManquee);
    relieClavier();
    m_demande = {PraticienCourant, config, env.maintenant().date(),
                 DureePlusLongue(QTime(0, 0), config.Intervalle)};
    ui->DTPicker1->setDate(m_demande.depart);
    UpDown1_Click(m_demande.duree);
    ui->BtnOK->setFocus();
}

FrmRDVlibre::~FrmRDVlibre() = default;

/// A list gives Enter on to the default button, and a duration is not typed.
void FrmRDVlibre::relieClavier() {
    const auto touche = [](Qt::Key suite, QWidget *ou, auto operation) {
        auto *raccourci = new QShortcut(suite, ou);
        raccourci->setContext(Qt::WidgetShortcut);
        connect(raccourci, &QShortcut::activated, ou, operation);
    };
    touche(Qt::Key_Return, ui->List1, [this] { List1_Click(); });
    touche(Qt::Key_Enter, ui->List1, [this] { List1_Click(); });
    touche(Qt::Key_Up, ui->TextDuree, [this] { emit ui->UpDown1->upClicked(); });
    touche(Qt::Key_Down, ui->TextDuree, [this] { emit ui->UpDown1->downClicked(); });
}

// ---- What is wanted

/// A message while a mouse button is down would take its release, and with it the click that left the field.
void FrmRDVlibre::prendJour() {
    constexpr std::chrono::milliseconds unMoment{20};
    const auto jour = ui->DTPicker1->date();
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        QTimer::singleShot(unMoment, this, &FrmRDVlibre::prendJour);
    } else if (isVisible() && !m_recherche->enCours() && jour) {
        DTPicker1_Change(*jour);
    }
}

bool FrmRDVlibre::DTPicker1_Change(QDate jour) {
    if (jour == m_demande.depart) {
        return true;
    }
    const auto travaille =
        PremierJourTravaille(m_demande.config, jour, std::min(jour.addDays(joursCherches), derniereDate));
    m_demande.depart = travaille.value_or(jour);
    ui->DTPicker1->setDate(m_demande.depart);
    if (!travaille) {
        m_env.messages->show(QStringLiteral("Tous les jours sont des jours de repos : il n'y a pas de jour "
                                            "où commencer la recherche."));
    } else if (*travaille != jour) {
        m_env.messages->show(
            QStringLiteral("Vous ne pouvez pas commencer la recherche sur votre jour de repos"));
    }
    return travaille.has_value();
}

void FrmRDVlibre::UpDown1_Click(QTime duree) {
    m_demande.duree = duree;
    ui->TextDuree->setText(DatesFr::heure(duree));
}

void FrmRDVlibre::cmdJourSuivant_Click() {
    const auto jour = JourSaisi(m_env, *ui->DTPicker1);
    if (jour && DTPicker1_Change(std::min(jour->addDays(1), derniereDate))) {
        cherche();
    }
}

// ---- The search

void FrmRDVlibre::BtnOK_Click() {
    const auto jour = JourSaisi(m_env, *ui->DTPicker1);
    if (jour && DTPicker1_Change(*jour)) {
        cherche();
    }
}

void FrmRDVlibre::cherche() {
    ui->List1->clear();
    m_trouve = {};
    const QString defaut = DefautConfiguration(m_demande.config);
    if (!defaut.isEmpty()) {
        termine({});
        m_env.messages->show(
            QStringLiteral("La recherche n'est pas possible avec la configuration « %1 » : %2.")
                .arg(m_demande.config.NomConfig.left(100), defaut));
        return;
    }
    m_recherche->lance(m_demande);
}

void FrmRDVlibre::montreEnCours(QDate jour) {
    for (QWidget *controle : QList<QWidget *>{ui->saisie, ui->List1, ui->cmdJourSuivant, ui->BtnOK}) {
        controle->setEnabled(false);
    }
    ui->Label3->setText(QStringLiteral("Recherche en cours : %1…").arg(DatesFr::jourComplet(jour)));
}

void FrmRDVlibre::montre(const EtapeCreneau &etape) {
    m_trouve = etape;
    for (const QTime debut : etape.debuts) {
        ui->List1->addItem(ligne(etape.jour, debut));
    }
    ui->List1->setCurrentRow(0);
    termine(ligneDe(etape));
    if (etape.etat == EtapeCreneau::Etat::Epuise) {
        const DemandeCreneau &cherchee = m_recherche->demande();
        m_env.messages->show(QStringLiteral("Aucun horaire libre de %1 du %2 au %3.")
                                 .arg(DatesFr::heure(cherchee.duree), DatesFr::courte(cherchee.depart),
                                      DatesFr::courte(cherchee.dernierJour())));
    }
}

QString FrmRDVlibre::ligneDe(const EtapeCreneau &etape) const {
    if (etape.etat == EtapeCreneau::Etat::SansConfiguration) {
        return QStringLiteral("Ce praticien n'a pas de configuration pour ce fauteuil.");
    }
    if (etape.debuts.isEmpty() || Dans(Jour(etape.jour), m_recherche->demande().config.JourAffich)) {
        return {};
    }
    return QStringLiteral("La semaine n'affiche pas le %1 : après l'ajout, le carnet montrera ce jour.")
        .arg(DatesFr::jourComplet(etape.jour));
}

void FrmRDVlibre::montreManquee(const QString &pourquoi) {
    termine({});
    m_env.messages->error(pourquoi);
}

void FrmRDVlibre::termine(const QString &ligne) {
    const bool parJourSuivant = ui->cmdJourSuivant->hasFocus();
    for (QWidget *controle : QList<QWidget *>{ui->saisie, ui->List1, ui->cmdJourSuivant, ui->BtnOK}) {
        controle->setEnabled(true);
    }
    ui->Label3->setText(ligne);
    if (ui->List1->count() > 0 && !parJourSuivant) {
        ui->List1->setFocus();
    } else if (!parJourSuivant) {
        ui->BtnOK->setFocus();
    }
}

void FrmRDVlibre::List1_Click() {
    const int rang = ui->List1->currentRow();
    if (rang >= 0 && rang < m_trouve.debuts.size()) {
        emit creneauChoisi(PlaceLibre(m_demande, m_trouve.jour, m_trouve.debuts[rang]));
    }
}

// ---- The end

void FrmRDVlibre::reject() {
    if (m_recherche->enCours()) {
        m_recherche->arrete();
        termine(QStringLiteral("Recherche arrêtée."));
    } else {
        QDialog::reject();
    }
}

void FrmRDVlibre::closeEvent(QCloseEvent *event) {
    if (m_recherche->enCours()) {
        reject(); // stops it; the next one closes
    }
    QDialog::closeEvent(event);
}

#include "search/FrmResultatRech.h"

#include "ui_FrmResultatRech.h"

#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Twips.h"
#include "practice/Environnement.h"
#include "practice/Impression.h"
#include "search/LargeursResultat.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace {

LigneResultat ligneDe(const RDVTrouve &rdv) {
    return {DatesFr::jourSemaine(rdv.Date1), DatesFr::etat(rdv.Date1), DatesFr::heure(rdv.HeureDebut),
            DatesFr::heure(rdv.HeureFin)};
}

/// A weekday that the week leaves out has no working hours either.
QString phraseHorsHoraires(int combien) {
    const QString ou = QStringLiteral("hors des heures de travail ou d'un jour non affiché");
    return combien == 1 ? QStringLiteral("1 rendez-vous %1 n'est pas listé.").arg(ou)
                        : QStringLiteral("%1 rendez-vous %2 ne sont pas listés.").arg(combien).arg(ou);
}

} // namespace

FrmResultatRech::FrmResultatRech(const Environnement &env, CritereRDV critere, RDVsTrouves trouves,
                                 QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmResultatRech>()), m_env(env), m_critere(std::move(critere)),
      m_trouves(std::move(trouves)) {
    ui->setupUi(this);
    connect(ui->Grille, &QTableWidget::cellDoubleClicked, this, [this](int ligne) { choisit(ligne); });
    connect(ui->BtnImprimer, &QPushButton::clicked, this, &FrmResultatRech::BtnImprimer_Click);
    connect(ui->BtnOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->Grille->installEventFilter(this);
    for (QLabel *avis : {ui->LblAucun, ui->LblHorsHoraires}) {
        avis->setForegroundRole(QPalette::PlaceholderText);
    }
    remplit();
}

FrmResultatRech::~FrmResultatRech() = default;

// ---- Filling

void FrmResultatRech::remplit() {
    ui->Label3->setText(m_critere.nom);
    ui->Label4->setText(m_critere.prenom);
    ui->Grille->verticalHeader()->setDefaultSectionSize(ui->Grille->fontMetrics().height() + 4);
    ui->Grille->setRowCount(int(m_trouves.liste.size()));
    for (const RDVTrouve &rdv : m_trouves.liste) {
        const LigneResultat ligne = ligneDe(rdv);
        const QStringList textes{ligne.jour, ligne.date, ligne.debut, ligne.fin};
        for (int colonne = 0; colonne < textes.size(); ++colonne) {
            ui->Grille->setItem(int(m_lignes.size()), colonne, new QTableWidgetItem(textes[colonne]));
        }
        ui->Grille->item(int(m_lignes.size()), 1)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        m_lignes << ligne;
    }
    ui->LblAucun->setVisible(m_lignes.isEmpty());
    ui->LblAucun->setText(QStringLiteral("Aucun rendez-vous à ce nom à partir du %1.")
                              .arg(DatesFr::jourComplet(m_critere.depuis)));
    ui->LblHorsHoraires->setVisible(m_trouves.horsHoraires > 0);
    ui->LblHorsHoraires->setText(phraseHorsHoraires(m_trouves.horsHoraires));
    if (m_lignes.isEmpty()) {
        ui->BtnAnnuler->setFocus(); // Enter goes back to the search
    } else {
        ui->Grille->setCurrentCell(0, 0);
        ui->Grille->setFocus();
    }
}

/// The two buttons are the headings of two columns each.
void FrmResultatRech::dispose() {
    const std::array<int, 4> largeurs = LargeursResultat(twipsFromPixels(ui->Grille->width()));
    for (int colonne = 0; colonne < int(largeurs.size()); ++colonne) {
        ui->Grille->setColumnWidth(colonne, pixelsFromTwips(largeurs[size_t(colonne)]));
    }
    const int bord = ui->Grille->frameWidth();
    ui->Command1->setFixedWidth(bord + ui->Grille->columnWidth(0) + ui->Grille->columnWidth(1));
    ui->Command2->setFixedWidth(ui->Grille->columnWidth(2) + ui->Grille->columnWidth(3));
}

void FrmResultatRech::resizeEvent(QResizeEvent *event) {
    QDialog::resizeEvent(event);
    dispose();
}

void FrmResultatRech::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    dispose();
}

// ---- Handlers

/// Enter on a row opens it; elsewhere it presses the button that has the focus.
bool FrmResultatRech::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        if (touche == Qt::Key_Return || touche == Qt::Key_Enter) {
            choisit(ui->Grille->currentRow());
            return true;
        }
    }
    return QDialog::eventFilter(objet, evenement);
}

void FrmResultatRech::choisit(int ligne) {
    if (ligne >= 0) {
        m_choisi = m_trouves.liste[ligne].RefRDV;
        accept();
    }
}

void FrmResultatRech::BtnImprimer_Click() {
    if (m_lignes.size() > lignesDeLaCarte) {
        m_env.messages->show(
            QStringLiteral("Attention, seulement les huit premiers rendez-vous seront imprimés."));
    }
    imprime(m_env, {CarteRDV(m_critere.nom, m_critere.prenom, m_lignes)}, QStringLiteral("CarteRDV"),
            QStringLiteral("Carte de rendez-vous"));
}

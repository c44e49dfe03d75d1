#include "patients/RecherchePatient.h"

#include "ui_RecherchePatient.h"

#include "start/VariablesGlobales.h"
#include "patients/TexteSaisi.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "platform/ui/Twips.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <utility>

RecherchePatient::RecherchePatient(QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::RecherchePatient>()) {
    ui->setupUi(this);
    setFocusProxy(ui->TxtPatient);
    ui->Grille1->setModel(&m_liste);
    ui->Grille1->verticalHeader()->setDefaultSectionSize(ui->Grille1->fontMetrics().height() + 4);
    int largeur = ui->Grille1->verticalScrollBar()->sizeHint().width() + 2 * ui->Grille1->frameWidth();
    for (const int twips : ListePatients::largeurs) {
        largeur += pixelsFromTwips(twips);
    }
    ui->Grille1->setMinimumWidth(largeur);
    montre({});

    connect(ui->TxtPatient, &QLineEdit::textChanged, this, &RecherchePatient::TxtPatient_Change);
    connect(ui->TxtPatient1, &QLineEdit::textChanged, this, &RecherchePatient::TxtPatient1_Change);
    connect(ui->Grille1, &QTableView::clicked, this, &RecherchePatient::choisit);
    for (QWidget *controle : {static_cast<QWidget *>(ui->TxtPatient), static_cast<QWidget *>(ui->TxtPatient1),
                              static_cast<QWidget *>(ui->Grille1)}) {
        controle->installEventFilter(this);
    }
}

RecherchePatient::~RecherchePatient() = default;

void RecherchePatient::utilise(VariablesGlobales &etat) {
    v = &etat;
    try {
        Database patients = etat.ouvrePatients();
        CreeIndexPatients(patients);
    } catch (const DbError &) { // what is wrong with the file is told by the first search
        return;
    }
}

// ---- Filling

void RecherchePatient::montre(const QList<PatientTrouve> &patients) {
    m_liste.montre(patients);
    for (int colonne = 0; colonne < ListePatients::NbColonnes; ++colonne) {
        ui->Grille1->setColumnWidth(colonne, pixelsFromTwips(ListePatients::largeurs[colonne]));
    }
    ui->Grille1->scrollToTop();
}

// ---- Handlers

void RecherchePatient::TxtPatient_Change() {
    const Critere critere = LitCritere(ui->TxtPatient->text());
    if (v == nullptr || std::holds_alternative<std::monostate>(critere)) {
        montre({});
        return;
    }
    QString erreurLue;
    QList<PatientTrouve> patients;
    try {
        const Sablier sablier;
        Database base = v->ouvrePatients();
        patients = CherchePatients(base, critere);
    } catch (const DbError &erreur) {
        erreurLue = erreur.message();
    }
    montre(patients);
    const QString dejaDite = std::exchange(m_erreurDite, erreurLue);
    if (!erreurLue.isEmpty() && erreurLue != dejaDite) {
        v->messages->error(erreurLue);
    }
}

void RecherchePatient::TxtPatient1_Change() {
    if (ui->TxtPatient1->text().endsWith(u'\n')) { // a pasted line brings its Enter along
        transmetSaisie();
    }
}

void RecherchePatient::transmetSaisie() {
    const QString saisie = ui->TxtPatient1->text();
    ui->TxtPatient1->clear();
    ui->TxtPatient->setText(saisie.endsWith(u'\n') ? TexteSaisi(saisie) : saisie);
}

void RecherchePatient::choisit(const QModelIndex &index) {
    if (!index.isValid()) {
        return;
    }
    const PatientTrouve &trouve = m_liste.patient(index.row());
    emit patientChoisi(
        {trouve.nom.trimmed(), trouve.prenom.trimmed(), trouve.numero.trimmed(), trouve.dateNais.trimmed()});
}

// ---- Keyboard: the arrows walk the list from the fields too, and Enter never reaches the dialog's default
// button, which would write an appointment in the middle of a search.

bool RecherchePatient::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(objet, evenement);
    }
    auto &touche = static_cast<QKeyEvent &>(*evenement);
    if (touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter) {
        toucheEntree(objet);
        return true;
    }
    const bool parcourt = touche.key() == Qt::Key_Up || touche.key() == Qt::Key_Down ||
                          touche.key() == Qt::Key_PageUp || touche.key() == Qt::Key_PageDown;
    if (parcourt && objet != ui->Grille1) {
        QCoreApplication::sendEvent(ui->Grille1, &touche);
        return true;
    }
    return QWidget::eventFilter(objet, evenement);
}

void RecherchePatient::toucheEntree(QObject *controle) {
    if (controle == ui->TxtPatient1 && !ui->TxtPatient1->text().isEmpty()) {
        transmetSaisie();
    } else {
        choisit(ui->Grille1->currentIndex());
    }
}

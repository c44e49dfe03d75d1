#include "patients/FrmNouveauPatient.h"

#include "ui_FrmNouveauPatient.h"

#include "patients/DateNaissance.h"
#include "patients/NumeroSecu.h"
#include "patients/TexteSaisi.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Essai.h"

namespace {

constexpr int longueurTitre = 20;

} // namespace

FrmNouveauPatient::FrmNouveauPatient(const Environnement &env, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmNouveauPatient>()), m_env(env) {
    ui->setupUi(this);
    ui->Titre->lineEdit()->setMaxLength(longueurTitre);
    ui->Titre->lineEdit()->setAccessibleName(ui->Titre->accessibleName());

    connect(ui->txtNomPatient, &QLineEdit::editingFinished, this,
            &FrmNouveauPatient::txtNomPatient_LostFocus);
    connect(ui->txtPrenomPatient, &QLineEdit::editingFinished, this,
            &FrmNouveauPatient::txtPrenomPatient_LostFocus);
    connect(ui->txtNumSecu, &QLineEdit::editingFinished, this, &FrmNouveauPatient::txtNumSecu_LostFocus);
    // A click into the middle of an empty mask would leave the first digits blank.
    connect(ui->txtDateNaissance, &QLineEdit::cursorPositionChanged, this, [this](int, int place) {
        if (place > 0 && DateNaissanceSaisie(ui->txtDateNaissance->text()).isEmpty()) {
            ui->txtDateNaissance->setCursorPosition(0);
        }
    });
    connect(ui->cmdValiderActe, &QPushButton::clicked, this, &FrmNouveauPatient::cmdValiderActe_Click);
    connect(ui->cmdAnnuler, &QPushButton::clicked, this, &QDialog::reject);

    remplit();
}

FrmNouveauPatient::~FrmNouveauPatient() {
    // A field that goes while it has the focus says once more that it was left, when this window is half
    // gone.
    for (QLineEdit *champ : findChildren<QLineEdit *>()) {
        champ->disconnect(this);
    }
}

// ---- Filling

void FrmNouveauPatient::remplit() {
    QStringList titres;
    essaie(m_env, [&] {
        const Sablier sablier;
        Database base = m_env.ouvrePatients();
        titres = Titres(base);
    });
    ui->Titre->addItems(titres);
    ui->Titre->setCurrentIndex(-1);
}

// ---- Handlers

void FrmNouveauPatient::txtNomPatient_LostFocus() {
    ui->txtNomPatient->setText(TexteSaisi(ui->txtNomPatient->text()).toUpper());
}

void FrmNouveauPatient::txtPrenomPatient_LostFocus() {
    const QString prenom = TexteSaisi(ui->txtPrenomPatient->text());
    ui->txtPrenomPatient->setText(prenom.left(1).toUpper() + prenom.mid(1));
}

void FrmNouveauPatient::txtNumSecu_LostFocus() {
    const QString numero = TexteSaisi(ui->txtNumSecu->text());
    ui->txtNumSecu->setText(numero);
    if (!NumeroSecuValide(numero)) {
        m_env.messages->show(QStringLiteral("Le numéro de Sécurité Sociale n'est pas valide !"),
                             QStringLiteral("ATTENTION"), Messages::Icon::Critical);
    }
}

void FrmNouveauPatient::cmdValiderActe_Click() {
    // However the fields were filled and the button pressed, names are kept in their form.
    txtNomPatient_LostFocus();
    txtPrenomPatient_LostFocus();
    if (!saisieAcceptee()) {
        return;
    }
    const FichePatient nouveau = fiche();
    const std::optional<QString> libelle = doublon(nouveau);
    if (!libelle) {
        return;
    }
    if (!libelle->isEmpty() && !m_env.messages->ask(QuestionDoublon(*libelle), QStringLiteral("Message"))) {
        reject();
    } else if (cree(nouveau)) {
        accept();
    }
}

bool FrmNouveauPatient::saisieAcceptee() {
    for (QLineEdit *champ : {ui->txtNomPatient, ui->txtPrenomPatient}) {
        if (champ->text().isEmpty()) {
            refuse(QStringLiteral("Vous devez saisir le Nom, le Prénom !"), *champ);
            return false;
        }
    }
    const QString date = DateNaissanceSaisie(ui->txtDateNaissance->text());
    const QString defaut = DefautDateNaissance(date, m_env.maintenant().date());
    if (!defaut.isEmpty()) {
        refuse(defaut, *ui->txtDateNaissance);
        return false;
    }
    return true;
}

void FrmNouveauPatient::refuse(const QString &texte, QLineEdit &champ) {
    m_env.messages->show(texte, QStringLiteral("Action Impossible"), Messages::Icon::Critical);
    champ.setFocus();
}

FichePatient FrmNouveauPatient::fiche() const {
    return {TexteSaisi(ui->txtNomPatient->text()),
            TexteSaisi(ui->txtPrenomPatient->text()),
            TexteSaisi(ui->Titre->currentText()),
            TexteSaisi(ui->txtAdresse1->text()),
            TexteSaisi(ui->txtAdresse2->text()),
            TexteSaisi(ui->txtCodePostal->text()),
            TexteSaisi(ui->txtVille->text()),
            TexteSaisi(ui->txtNumTel->text()),
            {DateNaissanceSaisie(ui->txtDateNaissance->text()), TexteSaisi(ui->txtNumSecu->text())}};
}

std::optional<QString> FrmNouveauPatient::doublon(const FichePatient &nouveau) {
    QList<Identite> homonymes;
    const bool lus = essaie(m_env, [&] {
        const Sablier sablier;
        Database base = m_env.ouvrePatients(); // closed again while the user thinks
        homonymes = Homonymes(base, nouveau);
    });
    return lus ? std::optional(LibelleDoublon(homonymes, nouveau.identite)) : std::nullopt;
}

bool FrmNouveauPatient::cree(const FichePatient &nouveau) {
    return essaie(m_env, [&] {
        const Sablier sablier;
        Database patient = m_env.ouvrePatients();
        const Database listing = m_env.ouvrePatientsCrees();
        CreePatient(patient, listing, nouveau, m_env.maintenant().date());
    });
}

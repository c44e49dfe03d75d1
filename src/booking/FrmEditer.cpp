#include "booking/FrmEditer.h"

#include "booking/ReservationTables.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"
#include "ui_FrmEditer.h"

FrmEditer::FrmEditer(VariablesGlobales &etat, qint64 refRDV, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmEditer>()), v(etat), RefRDVEdite(refRDV) {
    ui->setupUi(this);
    ui->champs->utilise(v);
    ui->champs->setFocus();
    connect(ui->champs, &ChampsRDV::remiseAZero, this, &FrmEditer::BtnInit_Click);
    connect(ui->champs, &ChampsRDV::patientChoisi, this, &FrmEditer::choisit);
    connect(ui->BtnMettreAJour, &QPushButton::clicked, this, &FrmEditer::BtnMettreAJour_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->champs->montreHoraire(v.txtNumJourEnCours, {v.HeureDebutCourante, v.HeureFinCourante});
    ui->champs->montrePatient(v.NomRDV, v.PrenomRDV, v.TelephoneRDV, v.DescriptionRDV);
    ui->txtNumPatient->setText(v.NumPatientCourant);
}

FrmEditer::~FrmEditer() = default;

void FrmEditer::BtnInit_Click() {
    ui->champs->montrePatient(QString(), QString(), QString(), QString());
    v.NumPatientCourant = QStringLiteral("0");
    ui->txtNumPatient->setText(v.NumPatientCourant);
}

void FrmEditer::choisit(const PatientTrouve &patient) {
    ui->champs->montreNom(patient.nom, patient.prenom);
    ui->txtNumPatient->setText(patient.numero);
    v.NumPatientCourant = patient.numero;
    v.NumPatientTransmis = 0;
    ValideSaisie();
}

void FrmEditer::ValideSaisie() {
    v.txtUnPatientBelmor.clear();
    if (const auto saisie = ui->champs->saisie()) {
        ui->champs->garde(*saisie);
    }
}

void FrmEditer::BtnMettreAJour_Click() {
    auto saisie = ui->champs->saisie();
    if (!saisie) {
        return;
    }
    saisie->NumPatient = ui->txtNumPatient->text();
    try {
        Database base = v.ouvreCarnet();
        switch (ModifieRDV(base, RefRDVEdite, *saisie, v.numPraticien(), CLng(v.config.FauteuilCourant))) {
        case ResultatEdition::Occupe:
            v.messages->show(QStringLiteral("Le créneau choisit n'est pas libre!"),
                             QStringLiteral("Message"));
            return;
        case ResultatEdition::Disparu:
            v.messages->show(QStringLiteral("Ce rendez-vous n'existe pas !!!!!"), QStringLiteral("Erreur !"));
            break;
        case ResultatEdition::Fait:
            ui->champs->garde(*saisie);
            v.NumPatientCourant = saisie->NumPatient;
            break;
        }
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    emit rdvEcrit();
    accept();
}

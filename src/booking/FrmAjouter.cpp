#include "booking/FrmAjouter.h"

#include "booking/CodesRapidesDescription.h"
#include "booking/ReservationTables.h"
#include "patients/ActesTables.h"
#include "start/VariablesGlobales.h"
#include "patients/FrmNouveauPatient.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "patients/TransmissionTables.h"
#include "start/VariablesGlobales.h"
#include "ui_FrmAjouter.h"

#include <QEvent>

FrmAjouter::FrmAjouter(VariablesGlobales &etat, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmAjouter>()), v(etat) {
    ui->setupUi(this);
    ui->champs->utilise(v);
    ui->champs->setFocus();
    connect(ui->champs, &ChampsRDV::nomTape, this, [this] { v.NumPatientTransmis = 0; });
    connect(ui->champs, &ChampsRDV::remiseAZero, this, &FrmAjouter::BtnInit_Click);
    connect(ui->champs, &ChampsRDV::patientChoisi, this, &FrmAjouter::choisit);
    connect(ui->Check1, &QCheckBox::toggled, this, &FrmAjouter::Check1_Click);
    connect(ui->NouveauPatient, &QPushButton::clicked, this, &FrmAjouter::NouveauPatient_Click);
    connect(ui->PlusDeDesciption, &QPushButton::clicked, this, &FrmAjouter::PlusDeDesciption_Click);
    connect(ui->BtnAjouter, &QPushButton::clicked, this, &FrmAjouter::BtnAjouter_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    Check1_Click();
    ui->champs->montreHoraire(v.txtNumJourEnCours, {v.HeureDebutCourante, v.HeureFinCourante});
    litTransmission();
}

FrmAjouter::~FrmAjouter() = default;

bool FrmAjouter::event(QEvent *event) {
    if (event->type() == QEvent::WindowActivate) {
        litTransmission();
    }
    return QDialog::event(event);
}

void FrmAjouter::litTransmission() {
    Transmission lue;
    try {
        Database transmission = v.ouvreTransmission();
        lue = LitTransmission(transmission);
    } catch (const DbError &erreur) {
        if (!m_numLu) { // told once, not each time the window comes back
            m_numLu = 0;
            v.messages->error(erreur.message());
        }
        return;
    }
    const bool autrePatient = m_numLu != lue.NumPatient;
    m_numLu = lue.NumPatient;
    if (!lue.avecPatient || !autrePatient) {
        return;
    }
    v.NomPatientTransmis = lue.NomPatient;
    v.PrenomPatientTransmis = lue.PrenomPatient;
    v.NumPatientTransmis = int(lue.NumPatient);
    v.NumPatientCourant = QString::number(lue.NumPatient);
    ui->champs->montrePatient(lue.NomPatient, lue.PrenomPatient, QString(), QString());
    try {
        Database patients = v.ouvrePatients();
        ui->champs->colore(CouleurALActivation(RDVNonHonoré(patients, v.NumPatientTransmis)));
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
    }
}

void FrmAjouter::Check1_Click() {
    ui->BtnPatient->setEnabled(ui->Check1->isChecked());
    ui->champs->activeSaisie(!ui->Check1->isChecked());
}

void FrmAjouter::NouveauPatient_Click() {
    FrmNouveauPatient(v, this).exec();
}

void FrmAjouter::PlusDeDesciption_Click() {
    CodesRapidesDescription fenetre(this);
    const bool acceptee = fenetre.exec() == QDialog::Accepted;
    ui->champs->metDescription(acceptee ? fenetre.texte() : QString());
}

void FrmAjouter::BtnInit_Click() {
    ui->champs->montreNom(QString(), QString());
    v.NumPatientCourant = QStringLiteral("0");
    v.NumPatientTransmis = 0; // an emptied field is nobody's any more
}

void FrmAjouter::choisit(const PatientTrouve &patient) {
    ui->champs->montreNom(patient.nom, patient.prenom);
    v.NumPatientCourant = patient.numero;
    v.NumPatientTransmis = 0;
    try {
        NonHonore drapeau;
        {
            const Sablier sablier;
            Database patients = v.ouvrePatients();
            drapeau = RDVNonHonoré(patients, CLng(patient.numero));
        }
        ui->champs->coloreNom(CouleurAuChoix(drapeau));
        if (AlerteAuChoix(drapeau)) {
            v.messages->show(messageNonHonore, titreNonHonore, Messages::Icon::Critical);
        }
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    BtnAjouter_Click();
}

void FrmAjouter::BtnAjouter_Click() {
    v.txtUnPatientBelmor.clear();
    const std::optional<SaisieRDV> saisie = ui->champs->saisie();
    if (!saisie) {
        return;
    }
    try {
        if (estLibre(*saisie)) {
            ajoute(*saisie);
        } else {
            refuseOccupe();
        }
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
    }
}

bool FrmAjouter::estLibre(const SaisieRDV &saisie) {
    const CreneauRDV voulu{
        saisie.Date1, {saisie.HeureDebut, saisie.HeureFin}, v.numPraticien(), CLng(v.config.FauteuilCourant)};
    Database base = v.ouvreCarnet();
    return HoraireLibre(base, voulu) && !RDVHere(base, voulu);
}

void FrmAjouter::refuseOccupe() {
    v.messages->show(QStringLiteral("Vous ne pouvez ajouter de rendez-vous à cet endroit.\n"
                                    "Un rendez-vous s'y trouve déjà. Veuillez rafraichir l'affichage."),
                     QStringLiteral("Horaire occupé"));
}

void FrmAjouter::ajoute(SaisieRDV saisie) {
    if (v.NumPatientTransmis != 0) {
        v.NumPatientCourant = QString::number(v.NumPatientTransmis);
    }
    if (saisie.Description.trimmed().isEmpty()) {
        saisie.Description = v.DescriptionRDV;
        if (v.NumPatientTransmis != 0) {
            Database actes = v.ouvreActes();
            saisie.Description = DernierActeAFaire(actes, v.NumPatientTransmis);
        }
    }
    saisie.NumPatient = v.NumPatientCourant;
    Database base = v.ouvreCarnet();
    if (!AjouteRDV(base, {saisie, v.PraticienCourant, v.config.FauteuilCourant, v.ChoixHoraire != 0})) {
        refuseOccupe(); // somebody took it in between
        return;
    }
    ui->champs->garde(saisie);
    emit rdvEcrit();
    accept();
}

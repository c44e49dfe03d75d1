#include "booking/FrmAjouter.h"

#include "booking/CodesRapidesDescription.h"
#include "booking/FrmInsolite.h"
#include "booking/MessagesRDV.h"
#include "booking/ReservationTables.h"
#include "patients/ActesTables.h"
#include "patients/FrmNouveauPatient.h"
#include "patients/TransmissionTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "ui_FrmAjouter.h"

#include <QEvent>

FrmAjouter::FrmAjouter(const Environnement &env, const PlaceRDV &place, QWidget *parent,
                       const QList<Insolite> &dits)
    : QDialog(parent), ui(std::make_unique<Ui::FrmAjouter>()), m_env(env), m_place(place), m_dits(dits) {
    ui->setupUi(this);
    ui->champs->utilise(env, place.Intervalle, ChampsRDV::Usage::Ajout);
    ui->champs->setFocus();
    connect(ui->champs, &ChampsRDV::patientChange, this, [this] { m_numTransmis = 0; });
    connect(ui->champs, &ChampsRDV::patientRendu, this, [this](const PatientTrouve &patient) {
        const Transmis rendu{CLng(patient.numero), patient.nom, patient.prenom};
        m_numTransmis = m_transmis == rendu ? CLng(patient.numero) : 0;
    });
    connect(ui->champs, &ChampsRDV::patientChoisi, this, &FrmAjouter::choisit);
    connect(ui->Check1, &QCheckBox::toggled, this, &FrmAjouter::Check1_Click);
    connect(ui->NouveauPatient, &QPushButton::clicked, this, &FrmAjouter::NouveauPatient_Click);
    connect(ui->PlusDeDesciption, &QPushButton::clicked, this, &FrmAjouter::PlusDeDesciption_Click);
    connect(ui->BtnAjouter, &QPushButton::clicked, this, &FrmAjouter::BtnAjouter_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    Check1_Click();
    SaisieRDV vide;
    vide.Date1 = place.jour;
    vide.HeureDebut = place.horaire.debut;
    vide.HeureFin = place.horaire.fin;
    ui->champs->montre(vide);
    litTransmission();
}

FrmAjouter::~FrmAjouter() = default;

bool FrmAjouter::event(QEvent *event) {
    if (event->type() == QEvent::WindowActivate) {
        desQueLibre(m_env, *this, [this] { litTransmission(); });
    }
    return QDialog::event(event);
}

void FrmAjouter::litTransmission() {
    Transmission lue;
    const std::optional<DbError> echec = tente(m_env, [&] {
        Database transmission = m_env.ouvreTransmission();
        lue = LitTransmission(transmission);
    });
    if (echec) {
        if (!m_transmis) { // told once, not each time the window comes back
            m_transmis = Transmis();
            m_env.messages->error(echec->message());
        }
        return;
    }
    const Transmis transmis{lue.NumPatient, lue.NomPatient, lue.PrenomPatient};
    const bool autrePatient = m_transmis != transmis;
    m_transmis = transmis;
    if (lue.avecPatient && autrePatient) {
        ui->champs->videDetails();
        ui->champs->montrePatient(lue.NomPatient, lue.PrenomPatient, QString::number(lue.NumPatient));
        m_numTransmis = lue.NumPatient;
    }
}

void FrmAjouter::Check1_Click() {
    ui->BtnPatient->setEnabled(ui->Check1->isChecked());
    ui->champs->activeSaisie(!ui->Check1->isChecked());
}

void FrmAjouter::NouveauPatient_Click() {
    FrmNouveauPatient(m_env, this).exec();
}

void FrmAjouter::PlusDeDesciption_Click() {
    CodesRapidesDescription fenetre(this);
    const bool acceptee = fenetre.exec() == QDialog::Accepted;
    ui->champs->metDescription(acceptee ? fenetre.texte() : QString());
}

void FrmAjouter::choisit(NonHonore drapeau) {
    if (drapeau == true) {
        m_env.messages->show(messageNonHonore, titreNonHonore, Messages::Icon::Critical);
    }
    BtnAjouter_Click();
}

void FrmAjouter::BtnAjouter_Click() {
    std::optional<SaisieRDV> saisie = ui->champs->saisie();
    if (!saisie || !completeDescription(*saisie)) {
        return;
    }
    const NouveauRDV nouveau{*saisie, m_place.PraticienCourant, m_place.FauteuilCourant,
                             m_place.ChoixHoraire != 0};
    RendezVous voulu;
    voulu.NumPraticien = CLng(nouveau.NumPraticien);
    voulu.Fauteuil = CLng(nouveau.Fauteuil);
    voulu = Rempli(voulu, *saisie);
    if (!confirme(voulu)) {
        return;
    }
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        bilan = AjouteRDV(base, m_env.auteur(), nouveau);
    });
    if (!ecrit) {
        return;
    }
    if (bilan.resultat != Ecriture::Fait) {
        m_refuse = true;
        m_env.messages->show(messageOccupe, titreOccupe);
        return;
    }
    m_ecriture = bilan.ecriture;
    m_ecrit = voulu;
    m_ecrit.RefRDV = m_ecriture.RefRDV();
    accept();
}

bool FrmAjouter::confirme(const RendezVous &rdv) {
    const bool laPlace = rdv.Date1 == m_place.jour && rdv.HeureDebut == m_place.horaire.debut &&
                         rdv.HeureFin == m_place.horaire.fin;
    return Confirme(m_env, {.rdv = rdv, .place = m_place}, this, laPlace ? m_dits : QList<Insolite>());
}

bool FrmAjouter::completeDescription(SaisieRDV &saisie) {
    if (!saisie.Description.trimmed().isEmpty()) {
        return true;
    }
    saisie.Description.clear();
    return m_numTransmis == 0 || essaie(m_env, [&] {
               Database actes = m_env.ouvreActes();
               saisie.Description = DernierActeAFaire(actes, m_numTransmis);
           });
}

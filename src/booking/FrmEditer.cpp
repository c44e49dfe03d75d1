#include "booking/FrmEditer.h"

#include "booking/FrmInsolite.h"
#include "booking/MessagesRDV.h"
#include "booking/ReservationTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "ui_FrmEditer.h"

FrmEditer::FrmEditer(const Environnement &env, const RendezVous &rdv, const PlaceRDV &place, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmEditer>()), m_env(env), m_place(place), m_rdv(rdv) {
    ui->setupUi(this);
    ui->champs->utilise(env, place.Intervalle, ChampsRDV::Usage::Edition);
    ui->champs->setFocus();
    connect(ui->champs, &ChampsRDV::patientChoisi, ui->champs, &ChampsRDV::exigeNom);
    connect(ui->BtnMettreAJour, &QPushButton::clicked, this, &FrmEditer::BtnMettreAJour_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->champs->montre({rdv.Nom, rdv.Prenom, rdv.Telephone, rdv.Description, rdv.NumPatient, rdv.Date1,
                        rdv.HeureDebut, rdv.HeureFin});
}

FrmEditer::~FrmEditer() = default;

void FrmEditer::BtnMettreAJour_Click() {
    const std::optional<SaisieRDV> saisie = ui->champs->saisie();
    if (!saisie) {
        return;
    }
    const RendezVous voulu = Rempli(m_rdv, *saisie);
    const bool bouge = voulu.Date1 != m_rdv.Date1 || EnMinutes({m_rdv.HeureDebut, m_rdv.HeureFin}) !=
                                                         PlageHoraire{voulu.HeureDebut, voulu.HeureFin};
    if (bouge && !Confirme(m_env, {voulu, m_rdv, m_place}, this)) {
        return;
    }
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        bilan = ModifieRDV(base, m_env.auteur(), m_rdv, *saisie, CLng(m_place.PraticienCourant),
                           CLng(m_place.FauteuilCourant));
    });
    if (!ecrit) {
        return;
    }
    switch (bilan.resultat) {
    case Ecriture::Occupe:
        m_env.messages->show(messagePasLibre, titrePasLibre);
        return;
    case Ecriture::Change: // what was typed stays, for the appointment as it is now
        m_env.messages->show(MessageModifie(m_rdv, bilan.actuel), titreModifie);
        m_rdv = bilan.actuel;
        return;
    case Ecriture::Disparu:
        m_env.messages->show(QStringLiteral("Ce rendez-vous n'existe pas !!!!!"), QStringLiteral("Erreur !"));
        m_rdv = {};
        break;
    case Ecriture::Fait:
        m_rdv = voulu;
        m_ecriture = bilan.ecriture;
        break;
    }
    accept();
}

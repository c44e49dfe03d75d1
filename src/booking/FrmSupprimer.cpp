#include "booking/FrmSupprimer.h"

#include "booking/MessagesRDV.h"
#include "booking/ReservationTables.h"
#include "patients/TexteSaisi.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "ui_FrmSupprimer.h"

namespace {

/// On one line, which is never wider than a name's column needs.
void montre(QLabel &label, const QString &texte) {
    constexpr int largeur = 400; // pixels
    label.setText(label.fontMetrics().elidedText(UneLigne(texte), Qt::ElideRight, largeur));
}

} // namespace

FrmSupprimer::FrmSupprimer(const Environnement &env, const RendezVous &rdv, const PlaceRDV &, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmSupprimer>()), m_env(env), m_rdv(rdv) {
    ui->setupUi(this);
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmSupprimer::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->BtnAnnuler->setFocus(); // a key too many must not delete
    montre(*ui->Label3, rdv.Nom);
    montre(*ui->Label4, rdv.Prenom);
    ui->Label17->setText(DatesFr::jourComplet(rdv.Date1));
    ui->Label13->setText(DatesFr::heure(rdv.HeureDebut));
    ui->Label15->setText(DatesFr::heure(rdv.HeureFin));
}

FrmSupprimer::~FrmSupprimer() = default;

void FrmSupprimer::BtnOK_Click() {
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        bilan = SupprimeRDV(base, m_env.auteur(), m_rdv);
    });
    if (!ecrit) {
        return;
    }
    if (bilan.resultat == Ecriture::Disparu) {
        m_env.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"),
                             QStringLiteral("Rendez-vous déjà supprimé"));
    } else if (bilan.resultat == Ecriture::Change) {
        m_env.messages->show(MessageModifie(m_rdv, bilan.actuel), titreModifie);
    }
    m_ecriture = bilan.ecriture;
    accept();
}

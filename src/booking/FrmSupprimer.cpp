#include "booking/FrmSupprimer.h"

#include "booking/ReservationTables.h"
#include "platform/db/DbError.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"
#include "ui_FrmSupprimer.h"

FrmSupprimer::FrmSupprimer(VariablesGlobales &etat, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmSupprimer>()), v(etat) {
    ui->setupUi(this);
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmSupprimer::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->Label3->setText(v.NomRDV);
    ui->Label4->setText(v.PrenomRDV);
    ui->Label17->setText(DatesFr::jourComplet(v.txtNumJourEnCours));
    ui->Label13->setText(DatesFr::heure(v.HeureDebutCourante));
    ui->Label15->setText(DatesFr::heure(v.HeureFinCourante));
}

FrmSupprimer::~FrmSupprimer() = default;

void FrmSupprimer::BtnOK_Click() {
    bool supprime = false;
    try {
        Database base = v.ouvreCarnet();
        const auto ref = RetrouveRDV(base, v.rdvSelectionne(), v.numPraticien());
        supprime = ref && SupprimeRDV(base, *ref);
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    if (!supprime) {
        v.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"),
                         QStringLiteral("Rendez-vous déjà supprimé"));
    }
    emit rdvEcrit();
    accept();
}

#include "booking/FrmQuelHoraire.h"

#include "ui_FrmQuelHoraire.h"

FrmQuelHoraire::FrmQuelHoraire(const QList<Insolite> &insolites, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmQuelHoraire>()) {
    ui->setupUi(this);
    ui->Insolites->montre(insolites);
    setAccessibleDescription(ui->Insolites->accessibleDescription());
    connect(ui->BtnOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

FrmQuelHoraire::~FrmQuelHoraire() = default;

int FrmQuelHoraire::ChoixHoraire() const {
    return ui->Option1->isChecked() ? 1 : 0;
}

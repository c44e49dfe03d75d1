#include "booking/CodesRapidesDescription.h"

#include "ui_CodesRapidesDescription.h"

CodesRapidesDescription::CodesRapidesDescription(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::CodesRapidesDescription>()) {
    ui->setupUi(this);
    connect(ui->BtnOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

CodesRapidesDescription::~CodesRapidesDescription() = default;

QString CodesRapidesDescription::texte() const {
    return ui->LaDescription->text();
}

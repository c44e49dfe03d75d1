#include "start/FrmAPropos.h"

#include "ui_FrmAPropos.h"

FrmAPropos::FrmAPropos(const QStringList &praticiens, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmAPropos>()) {
    ui->setupUi(this);
    connect(ui->BtnOK, &QPushButton::clicked, this, &QDialog::accept);
    ui->ListePraticiens->addItems(praticiens);
}

FrmAPropos::~FrmAPropos() = default;

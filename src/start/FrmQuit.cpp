#include "start/FrmQuit.h"

#include "ui_FrmQuit.h"

FrmQuit::FrmQuit(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::FrmQuit>()) {
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, qApp, &QCoreApplication::quit);
}

FrmQuit::~FrmQuit() = default;

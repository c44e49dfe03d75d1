#include "booking/FrmJourMois.h"

#include "ui_FrmJourMois.h"

FrmJourMois::FrmJourMois(QDate aujourdhui, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmJourMois>()) {
    ui->setupUi(this);
    connect(ui->BtnNow, &QPushButton::clicked, this,
            [this, aujourdhui] { ui->MonthView1->setSelectedDate(aujourdhui); });
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->MonthView1->setLocale(QLocale(QLocale::French, QLocale::France));
    ui->MonthView1->setSelectedDate(aujourdhui);
}

FrmJourMois::~FrmJourMois() = default;

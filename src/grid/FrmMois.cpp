#include "grid/FrmMois.h"

#include "grid/Navigation.h"
#include "ui_FrmMois.h"

FrmMois::FrmMois(QDate courant, QDate aujourdhui, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmMois>()) {
    ui->setupUi(this);
    connect(ui->MonthView1, &QCalendarWidget::activated, this, &QDialog::accept);
    connect(ui->BtnNow, &QPushButton::clicked, this,
            [this, aujourdhui] { ui->MonthView1->setSelectedDate(aujourdhui); });
    connect(ui->BtnOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->MonthView1->setLocale(QLocale(QLocale::French, QLocale::France));
    ui->MonthView1->setDateRange(premierJourDuCarnet, dernierJourDuCarnet);
    ui->MonthView1->setSelectedDate(courant);
}

FrmMois::~FrmMois() = default;

QDate FrmMois::jour() const {
    return ui->MonthView1->selectedDate();
}

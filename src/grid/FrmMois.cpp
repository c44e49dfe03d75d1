#include "grid/FrmMois.h"

#include "grid/Navigation.h"
#include "practice/Environnement.h"
#include "practice/JourSaisi.h"
#include "schedule/TrancheHoraire.h"
#include "ui_FrmMois.h"

FrmMois::FrmMois(const Environnement &env, QDate courant, Foyer foyer, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmMois>()), m_env(env) {
    ui->setupUi(this);
    ui->DTPicker1->setReader(LitDate, premierJourDuCarnet, dernierJourDuCarnet);
    connect(ui->DTPicker1, &ChampDate::datePicked, ui->MonthView1, &QCalendarWidget::setSelectedDate);
    connect(ui->MonthView1, &QCalendarWidget::selectionChanged, this,
            [this] { ui->DTPicker1->setDate(jour()); });
    connect(ui->MonthView1, &QCalendarWidget::activated, this, &QDialog::accept);
    connect(ui->BtnNow, &QPushButton::clicked, this,
            [this] { ui->MonthView1->setSelectedDate(m_env.maintenant().date()); });
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmMois::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->MonthView1->setLocale(QLocale(QLocale::French, QLocale::France));
    ui->MonthView1->setDateRange(premierJourDuCarnet, dernierJourDuCarnet);
    ui->MonthView1->setSelectedDate(courant);
    ui->DTPicker1->setDate(courant);
    if (foyer == Foyer::Date) {
        ui->DTPicker1->setFocus();
        ui->DTPicker1->selectAll();
    } else {
        ui->MonthView1->setFocus();
    }
}

FrmMois::~FrmMois() = default;

QDate FrmMois::jour() const {
    return ui->MonthView1->selectedDate();
}

void FrmMois::BtnOK_Click() {
    if (const std::optional<QDate> lue = JourSaisi(m_env, *ui->DTPicker1)) {
        ui->MonthView1->setSelectedDate(*lue);
        accept();
    }
}

#include "start/FrmTouches.h"

#include "ui_FrmTouches.h"

#include "start/Touches.h"

FrmTouches::FrmTouches(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::FrmTouches>()) {
    ui->setupUi(this);
    connect(ui->BtnOK, &QPushButton::clicked, this, &QDialog::accept);
    QTableWidget &table = *ui->ListeTouches;
    table.setRowCount(int(Touches().size()));
    int ligne = 0;
    for (const Touche &touche : Touches()) {
        table.setItem(ligne, 0, new QTableWidgetItem(LibelleTouche(touche)));
        table.setItem(ligne++, 1, new QTableWidgetItem(QString::fromUtf8(touche.texte)));
    }
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 4);
    table.resizeColumnsToContents();
    table.horizontalHeader()->setStretchLastSection(true);
    ui->BtnOK->setFocus();
}

FrmTouches::~FrmTouches() = default;

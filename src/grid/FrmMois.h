#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

namespace Ui {
class FrmMois;
}

/// Picks a day in a month calendar; accepted, jour() is the day to go to.
class FrmMois : public QDialog {
    Q_OBJECT
  public:
    FrmMois(QDate courant, QDate aujourdhui, QWidget *parent = nullptr);
    ~FrmMois() override;
    QDate jour() const;

  private:
    std::unique_ptr<Ui::FrmMois> ui;
};

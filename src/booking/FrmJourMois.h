#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

namespace Ui {
class FrmJourMois;
}

/// A month calendar for postponing. It completes nothing: "OK" has no action.
class FrmJourMois : public QDialog {
    Q_OBJECT
  public:
    explicit FrmJourMois(QDate aujourdhui, QWidget *parent = nullptr);
    ~FrmJourMois() override;

  private:
    std::unique_ptr<Ui::FrmJourMois> ui;
};

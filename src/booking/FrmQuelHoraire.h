#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmQuelHoraire;
}

/// Asks whether an appointment that straddles the working hours is professional.
class FrmQuelHoraire : public QDialog {
    Q_OBJECT
  public:
    explicit FrmQuelHoraire(QWidget *parent = nullptr);
    ~FrmQuelHoraire() override;
    /// 1 professional, 0 not.
    int ChoixHoraire() const;

  private:
    std::unique_ptr<Ui::FrmQuelHoraire> ui;
};

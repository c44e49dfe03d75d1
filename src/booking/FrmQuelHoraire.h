#pragma once

#include "booking/Insolite.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmQuelHoraire;
}

/// Asks whether an appointment that straddles the working hours is professional.
class FrmQuelHoraire : public QDialog {
    Q_OBJECT
  public:
    /// `insolites`: what else is to be known of the place, whose patient nobody has named yet.
    explicit FrmQuelHoraire(const QList<Insolite> &insolites, QWidget *parent = nullptr);
    ~FrmQuelHoraire() override;
    /// 1 professional, 0 not.
    int ChoixHoraire() const;

  private:
    std::unique_ptr<Ui::FrmQuelHoraire> ui;
};

#pragma once

#include "patients/TabPatTables.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmEditer;
}
struct VariablesGlobales;

/// Changes the selected appointment.
class FrmEditer : public QDialog {
    Q_OBJECT
  public:
    /// `refRDV` is the appointment's key, found again in the book before the window opens.
    FrmEditer(VariablesGlobales &etat, qint64 refRDV, QWidget *parent = nullptr);
    ~FrmEditer() override;

  signals:
    /// The book was changed, or is not what the grid shows: it is to be drawn again.
    void rdvEcrit();

  private:
    void BtnInit_Click();
    void BtnMettreAJour_Click();
    void choisit(const PatientTrouve &patient);
    /// Copies the dialog into the selection context without writing.
    void ValideSaisie();

    std::unique_ptr<Ui::FrmEditer> ui;
    VariablesGlobales &v;
    qint64 RefRDVEdite;
};

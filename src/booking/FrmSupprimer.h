#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmSupprimer;
}
struct VariablesGlobales;

/// Confirms and deletes the selected appointment.
class FrmSupprimer : public QDialog {
    Q_OBJECT
  public:
    explicit FrmSupprimer(VariablesGlobales &etat, QWidget *parent = nullptr);
    ~FrmSupprimer() override;

  signals:
    /// The book was changed, or is not what the grid shows: it is to be drawn again.
    void rdvEcrit();

  private:
    void BtnOK_Click();

    std::unique_ptr<Ui::FrmSupprimer> ui;
    VariablesGlobales &v;
};

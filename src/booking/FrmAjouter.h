#pragma once

#include "patients/TabPatTables.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class FrmAjouter;
}
struct SaisieRDV;
struct VariablesGlobales;

/// Books an appointment at the selected times.
class FrmAjouter : public QDialog {
    Q_OBJECT
  public:
    explicit FrmAjouter(VariablesGlobales &etat, QWidget *parent = nullptr);
    ~FrmAjouter() override;

  signals:
    /// The book has a new appointment: the grid is to be drawn again.
    void rdvEcrit();

  protected:
    bool event(QEvent *event) override;

  private:
    /// The patient whom the suite hands over, read again at each activation: the fields are filled again only
    /// when it is another one, so that nothing typed is lost.
    void litTransmission();
    void Check1_Click();
    void NouveauPatient_Click();
    void PlusDeDesciption_Click();
    void BtnInit_Click();
    void BtnAjouter_Click();
    void choisit(const PatientTrouve &patient);

    bool estLibre(const SaisieRDV &saisie);
    void refuseOccupe();
    void ajoute(SaisieRDV saisie);

    std::unique_ptr<Ui::FrmAjouter> ui;
    VariablesGlobales &v;
    std::optional<qint64> m_numLu; ///< patient number of the hand-off read last
};

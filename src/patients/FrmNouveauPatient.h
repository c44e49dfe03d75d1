#pragma once

#include "patients/TabPatTables.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class FrmNouveauPatient;
}
class QLineEdit;
struct Environnement;

/// Adds a patient to the suite's patient file and to the listing of those created here. It is accepted when
/// the patient is added; rejected, nothing was written.
class FrmNouveauPatient : public QDialog {
    Q_OBJECT
  public:
    explicit FrmNouveauPatient(const Environnement &env, QWidget *parent = nullptr);
    ~FrmNouveauPatient() override;

  private:
    void remplit();
    void txtNomPatient_LostFocus();
    void txtPrenomPatient_LostFocus();
    void txtNumSecu_LostFocus();
    void cmdValiderActe_Click();
    /// Whether the fields may be kept; what may not is told, and gets the focus.
    bool saisieAcceptee();
    void refuse(const QString &texte, QLineEdit &champ);
    FichePatient fiche() const;
    /// The words of LibelleDoublon for those who bear that name; nothing when they cannot be read, which is
    /// told.
    std::optional<QString> doublon(const FichePatient &nouveau);
    bool cree(const FichePatient &nouveau);

    std::unique_ptr<Ui::FrmNouveauPatient> ui;
    const Environnement &m_env;
};

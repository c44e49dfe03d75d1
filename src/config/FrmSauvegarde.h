#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmSauvegarde;
}
class QLineEdit;
struct VariablesGlobales;

/// Saves the loaded configuration as a new row of the current practitioner. It is accepted when the row is
/// written, which takes effect at the next start.
class FrmSauvegarde : public QDialog {
    Q_OBJECT
  public:
    explicit FrmSauvegarde(VariablesGlobales &etat, QWidget *parent = nullptr);
    ~FrmSauvegarde() override;

  private:
    void remplit();
    void remplitGrilleJours();
    void BtnSauver_Click();
    /// Tells that the field's text does not do, and empties it.
    void refuse(const QString &texte, QLineEdit &champ);
    /// Writes the row; what the book refuses is told.
    void enregistre(const QString &nom);

    std::unique_ptr<Ui::FrmSauvegarde> ui;
    VariablesGlobales &v;
};

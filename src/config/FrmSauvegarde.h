#pragma once

#include "schedule/Configuration.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmSauvegarde;
}
class QLineEdit;
struct Environnement;

/// Saves a configuration as a new row of a practitioner. It is accepted when the row is written, which takes
/// effect at the next start.
class FrmSauvegarde : public QDialog {
    Q_OBJECT
  public:
    /// `praticien` is his number as the book keeps it.
    FrmSauvegarde(const Environnement &env, QString praticien, Configuration config,
                  QWidget *parent = nullptr);
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
    const Environnement &m_env;
    const QString m_praticien;
    const Configuration m_config;
};

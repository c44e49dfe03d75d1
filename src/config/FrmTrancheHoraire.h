#pragma once

#include "schedule/TrancheHoraire.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmTrancheHoraire;
}
class QButtonGroup;
class QLineEdit;
class UpDown;
struct Environnement;

/// Slot length and hours of a configuration. Nothing is stored: accepted, configuration() has them. It opens
/// on any configuration, since a faulty one is repaired here.
class FrmTrancheHoraire : public QDialog {
    Q_OBJECT
  public:
    FrmTrancheHoraire(const Environnement &env, Configuration config, QWidget *parent = nullptr);
    ~FrmTrancheHoraire() override;
    const Configuration &configuration() const { return m_config; }

  private:
    void remplit();
    void selectionneIntervalle(int minutes);
    void majInfoBulles();
    void deplace(size_t champ, Fleche fleche);
    void BtnOK_Click();
    /// What the screen says, when it says four hours in order and a slot length; else it tells what is wrong.
    std::optional<Configuration> configurationSaisie();
    Horaires horairesSaisis() const;
    void refuse(const QString &texte, QWidget *fautif);

    std::unique_ptr<Ui::FrmTrancheHoraire> ui;
    const Environnement &m_env;
    Configuration m_config;
    QButtonGroup *m_intervalles; ///< each option's id is its length in minutes
    std::array<QLineEdit *, 4> m_textes{};
};

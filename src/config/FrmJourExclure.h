#pragma once

#include "schedule/JoursExclus.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmJourExclure;
}
class QButtonGroup;
class QCheckBox;
struct Environnement;

/// Displayed days, greyed half-days and the rest day of a configuration. Nothing is stored: accepted,
/// configuration() has them all; cancelled, it has the rest day that was chosen and no other change.
class FrmJourExclure : public QDialog {
    Q_OBJECT
  public:
    FrmJourExclure(const Environnement &env, Configuration config, QWidget *parent = nullptr);
    ~FrmJourExclure() override;
    const Configuration &configuration() const { return m_config; }

  private:
    void remplit();
    void effaceCases();
    void Option_Click(int jourRepos);
    void BtnOK_Click();
    JoursExclus joursSaisis() const;

    std::unique_ptr<Ui::FrmJourExclure> ui;
    const Environnement &m_env;
    Configuration m_config;
    QButtonGroup *m_repos;                      ///< each option's id is its weekday number
    std::array<QCheckBox *, 7> m_matin{};       ///< Check1
    std::array<QCheckBox *, 7> m_apresMidi{};   ///< Check2
    std::array<QCheckBox *, 7> m_nonAffiches{}; ///< Check3
};

#pragma once

#include "schedule/JoursExclus.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmJourExclure;
}
class QButtonGroup;
class QCheckBox;
struct VariablesGlobales;

/// Displayed days, greyed half-days and the rest day of the loaded configuration, in memory only.
class FrmJourExclure : public QDialog {
    Q_OBJECT
  public:
    explicit FrmJourExclure(VariablesGlobales &etat, QWidget *parent = nullptr);
    ~FrmJourExclure() override;

  signals:
    /// The loaded configuration has new values: the grid is to be drawn again.
    void configurationModifiee();

  private:
    void remplit();
    void effaceCases();
    void Option_Click(int jourRepos);
    void BtnOK_Click();
    JoursExclus joursSaisis() const;

    std::unique_ptr<Ui::FrmJourExclure> ui;
    VariablesGlobales &v;
    QButtonGroup *m_repos;                      ///< each option's id is its weekday number
    std::array<QCheckBox *, 7> m_matin{};       ///< Check1
    std::array<QCheckBox *, 7> m_apresMidi{};   ///< Check2
    std::array<QCheckBox *, 7> m_nonAffiches{}; ///< Check3
};

#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class SuppConfig;
}
struct Environnement;

/// Deletes a configuration of a practitioner. Accepted means that the program has to end.
class SuppConfig : public QDialog {
    Q_OBJECT
  public:
    SuppConfig(const Environnement &env, long praticien, QWidget *parent = nullptr);
    ~SuppConfig() override;

  private:
    void remplit();
    void cmdSupprimer_Click();

    std::unique_ptr<Ui::SuppConfig> ui;
    const Environnement &m_env;
    long m_praticien;
};

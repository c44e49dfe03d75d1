#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class SuppConfig;
}
struct VariablesGlobales;

/// Deletes a configuration of the current practitioner. Accepted means that the program has to end.
class SuppConfig : public QDialog {
    Q_OBJECT
  public:
    explicit SuppConfig(VariablesGlobales &etat, QWidget *parent = nullptr);
    ~SuppConfig() override;

  private:
    void remplit();
    void cmdSupprimer_Click();

    std::unique_ptr<Ui::SuppConfig> ui;
    VariablesGlobales &v;
};

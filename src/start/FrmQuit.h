#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmQuit;
}

/// Asks for a restart after a change of parameters; its button ends the program.
class FrmQuit : public QDialog {
    Q_OBJECT
  public:
    explicit FrmQuit(QWidget *parent = nullptr);
    ~FrmQuit() override;

  private:
    std::unique_ptr<Ui::FrmQuit> ui;
};

#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmTouches;
}

/// The page of all keys.
class FrmTouches : public QDialog {
    Q_OBJECT
  public:
    explicit FrmTouches(QWidget *parent = nullptr);
    ~FrmTouches() override;

  private:
    std::unique_ptr<Ui::FrmTouches> ui;
};

#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmAPropos;
}

/// Lists the practitioners' menu captions.
class FrmAPropos : public QDialog {
    Q_OBJECT
  public:
    explicit FrmAPropos(const QStringList &praticiens, QWidget *parent = nullptr);
    ~FrmAPropos() override;

  private:
    std::unique_ptr<Ui::FrmAPropos> ui;
};

#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class CodesRapidesDescription;
}

/// Types the description of an appointment; accepted, texte() is what was typed.
class CodesRapidesDescription : public QDialog {
    Q_OBJECT
  public:
    explicit CodesRapidesDescription(QWidget *parent = nullptr);
    ~CodesRapidesDescription() override;
    QString texte() const;

  private:
    std::unique_ptr<Ui::CodesRapidesDescription> ui;
};

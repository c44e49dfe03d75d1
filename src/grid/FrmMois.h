#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

namespace Ui {
class FrmMois;
}

struct Environnement;

/// Picks a day, in a month calendar or typed; accepted, jour() is the day to go to.
class FrmMois : public QDialog {
    Q_OBJECT
  public:
    /// What has the keyboard at first.
    enum class Foyer { Calendrier, Date };

    FrmMois(const Environnement &env, QDate courant, Foyer foyer, QWidget *parent = nullptr);
    ~FrmMois() override;
    QDate jour() const;

  private:
    void BtnOK_Click();

    std::unique_ptr<Ui::FrmMois> ui;
    const Environnement &m_env;
};

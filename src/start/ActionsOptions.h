#pragma once

#include "practice/Environnement.h"

#include <QObject>

class CarnetMontre;
class MenusPraticien;
class QWidget;

/// The options menu: the schedule's settings, and keeping the book small.
class ActionsOptions : public QObject {
    Q_OBJECT
  public:
    /// `menus` names the practitioners, `fenetre` is the windows' parent.
    ActionsOptions(const Environnement &env, CarnetMontre &carnet, const MenusPraticien &menus,
                   QWidget &fenetre);

    void mnutranche_Click();
    void mnuexclure_Click();
    // What these write takes effect at the next start
    void mnuSauver_Click();
    void menuSuppConfig_Click();
    void mnuPurger_Click();
    void mnuDeplacer_Click();

  private:
    void quitte();

    const Environnement &m_env;
    CarnetMontre &m_carnet;
    const MenusPraticien &m_menus;
    QWidget &m_fenetre;
};

#pragma once

class CarnetMontre;
struct Environnement;
namespace Ui {
class FrmEntree;
}

/// Which menu entries can be chosen: drawn from what is shown and selected.
class Commandes {
  public:
    Commandes(const Ui::FrmEntree &ui, const Environnement &env) : m_ui(ui), m_env(env) {}

    void dessine(const CarnetMontre &carnet);

  private:
    const Ui::FrmEntree &m_ui;
    const Environnement &m_env;
};

#pragma once

class Annulation;
class CarnetMontre;
struct Environnement;
namespace Ui {
class FrmEntree;
}

/// Which menu entries can be chosen: drawn from what is shown, selected and undone.
class Commandes {
  public:
    Commandes(const Ui::FrmEntree &ui, const Environnement &env, const Annulation &annulation)
        : m_ui(ui), m_env(env), m_annulation(annulation) {}

    void dessine(const CarnetMontre &carnet);

  private:
    const Ui::FrmEntree &m_ui;
    const Environnement &m_env;
    const Annulation &m_annulation;
};

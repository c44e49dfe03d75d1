#pragma once

#include <QSet>
#include <functional>

class CarnetMontre;
class QAction;
struct Environnement;
namespace Ui {
class FrmEntree;
}

/// Which menu entries do something, and when: drawn from what is shown and selected.
class Commandes {
  public:
    Commandes(const Ui::FrmEntree &ui, const Environnement &env) : m_ui(ui), m_env(env) {}

    /// Connects an action to its handler, which makes it one that may be enabled.
    void relie(QAction *action, const std::function<void()> &gestionnaire);
    void dessine(const CarnetMontre &carnet);

  private:
    /// One without a handler stays disabled.
    void active(QAction *action, bool active);

    const Ui::FrmEntree &m_ui;
    const Environnement &m_env;
    QSet<QAction *> m_reliees;
};

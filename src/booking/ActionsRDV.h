#pragma once

#include <QObject>

class QWidget;
struct VariablesGlobales;

/// What the menus do with the selection: each opens its window, or acts at once.
class ActionsRDV : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent.
    ActionsRDV(VariablesGlobales &etat, QWidget &fenetre);

    void mnuAjouter_Click();
    void mnuEditer_Click();
    void mnuReporter_Click();
    void mnuSupprimer_Click();
    void mnuPresent_Click();

  signals:
    /// The book was changed, or is not what the grid shows: it is to be drawn again.
    void rdvEcrit();

  private:
    VariablesGlobales &v;
    QWidget &m_fenetre;
};

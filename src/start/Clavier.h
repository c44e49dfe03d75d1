#pragma once

#include <QObject>

class QMainWindow;
namespace Ui {
class FrmEntree;
}

/// Gives the main window's actions their keys, as Touches() lists them.
class Clavier : public QObject {
    Q_OBJECT
  public:
    Clavier(const Ui::FrmEntree &ui, QMainWindow &fenetre);

    /// The zoom's menu entry shows the key that acts now.
    void dessine(bool zoome);
    /// The keyboard goes to the next pane that is shown: the grids, then the buttons.
    void voletSuivant(int pas);

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    const Ui::FrmEntree &m_ui;
    QMainWindow &m_fenetre;
};

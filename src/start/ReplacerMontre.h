#pragma once

#include <QObject>
#include <optional>

class ActionsSelection;
class CarnetMontre;
class GlisseRDV;
class Habillage;
class QMainWindow;
class VoletReplacer;
class Vues;
namespace Ui {
class FrmEntree;
}

/// Shows the pinboard as long as it holds something, or as the user has chosen, and does what is asked there.
class ReplacerMontre : public QObject {
    Q_OBJECT
  public:
    ReplacerMontre(const Ui::FrmEntree &ui, CarnetMontre &carnet, ActionsSelection &actions, const Vues &vues,
                   const Habillage &habillage, GlisseRDV &glisse, QMainWindow &fenetre);

  signals:
    /// There is more room for the book, or less.
    void placeChange();

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    /// From the list to the grids, and from the grids to the list.
    void relieGlisse(GlisseRDV &glisse);
    /// Places the chosen entry, or the first that waits, at the selection.
    void mnuPoser_Click();
    void mnuReplacer_Click();
    /// In the look of the book.
    void dessine();

    const Ui::FrmEntree &m_ui;
    CarnetMontre &m_carnet;
    ActionsSelection &m_actions;
    const Vues &m_vues;
    VoletReplacer *m_volet;
    std::optional<bool> m_voulu; ///< chosen by hand
};

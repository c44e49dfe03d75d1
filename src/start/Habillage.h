#pragma once

#include "platform/ui/Aspect.h"
#include "platform/ui/Icones.h"

#include <QMap>
#include <QObject>
#include <QPalette>
#include <QThreadPool>

#include <functional>

class QAction;
class QLabel;
class QMainWindow;
class QToolBar;
class Vues;
struct Affichage;
struct Environnement;
namespace Ui {
class FrmEntree;
}

/// The presentation that this workstation has chosen: the looks of the grids, the window's colours, and a
/// toolbar or the bar of buttons. The toolbar's actions press those buttons, so that there is one way to do
/// each thing.
class Habillage : public QObject {
    Q_OBJECT
  public:
    Habillage(const Ui::FrmEntree &ui, const Environnement &env, Vues &vues, QMainWindow &fenetre);

    bool avecBoutons() const { return m_presentation == Presentation::Classique; }
    /// Chosen in the menu, and remembered.
    void choisit(Presentation presentation);
    /// Ticks and toolbar, as the buttons are.
    void dessine(const Affichage &affichage);

  signals:
    /// Other controls have to be shown.
    void change();

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    void applique();
    void retient();
    void construitBarre();
    void retireBarre();
    void ajoute(Icone quoi, const QString &texte, const std::function<void()> &operation);

    const Ui::FrmEntree &m_ui;
    const Environnement &m_env;
    Vues &m_vues;
    QMainWindow &m_fenetre;
    Presentation m_presentation;
    QPalette m_bureau;           ///< that the looks were made for
    QToolBar *m_barre = nullptr; ///< made when it is first shown
    QLabel *m_periode = nullptr;
    QMap<Icone, QAction *> m_actions;
    bool m_semaine = true;
    QThreadPool m_ecriture; ///< of the settings; waited for at the end
};

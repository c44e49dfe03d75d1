#pragma once

#include "config/PraticienTables.h"

#include <QLabel>
#include <QMainWindow>
#include <QSet>
#include <QTimer>
#include <functional>
#include <memory>

namespace Ui {
class FrmEntree;
}
class ActionsRDV;
class GrilleSemaine;
class GrillesJour;
class MenusPraticien;
class QPushButton;
class SelectionRendezVous;
struct VariablesGlobales;

/// The main window: wires menus and buttons to the subsystems and owns no rule.
class FrmEntree : public QMainWindow {
    Q_OBJECT
  public:
    /// The data locations of `v` are read already; `v` outlives the window.
    explicit FrmEntree(VariablesGlobales &etat, QWidget *parent = nullptr);
    ~FrmEntree() override;

    /// The start-up, from the upgrade to the drawn week. What fails is told and leaves the window usable.
    void Form_Load();

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

  private:
    // Construction
    void construitBarreEtat();
    void construitBoutonsVue();
    void relieMenus();
    void relieRendezVous();
    void relieBoutons();
    void relieClavier();

    // Handlers, in screen order
    void mnuDocteur_Click(int index);
    void mnuFauteuil_Click(int index);
    void BtnSemaine_Click();
    void BtnJour_Click();
    void BtnRafraichir_Click();
    void mnuZoom_Click();
    void mnutranche_Click();
    void mnuexclure_Click();
    void mnuSauver_Click();
    void menuSuppConfig_Click();
    void mnuAPropos_Click();
    void BtnMois_Click();
    /// Week and day buttons: to `jour`, in the view that is shown.
    void vaAu(QDate jour);
    void Timer1_Timer();

    void decale(int jours);
    void changePraticien();
    void metMenusConfiguration();
    void metMenusSelection();
    void AfficheSelection();
    void montreVue();
    void redessine();
    void Form_Resize();

    /// Connects an action to its handler, which makes it an action that may be enabled.
    void relie(QAction *action, const std::function<void()> &gestionnaire);
    /// Enables or disables an action; one without a handler stays disabled.
    void active(QAction *action, bool active);
    /// Runs one user action; what the book refuses is told, once.
    void essaie(const std::function<void()> &operation);

    std::unique_ptr<Ui::FrmEntree> ui;
    VariablesGlobales &v;
    std::unique_ptr<GrilleSemaine> m_semaine;
    std::unique_ptr<GrillesJour> m_jour;
    std::unique_ptr<SelectionRendezVous> m_selection;
    std::unique_ptr<ActionsRDV> m_actions;
    std::unique_ptr<MenusPraticien> m_menus;
    QPushButton *BtnSemaine = nullptr;
    QPushButton *BtnJour = nullptr;
    QList<QLabel *> m_panneaux; ///< StatusBar1's panels 1 to 4
    QSet<QAction *> m_reliees;
    QTimer Timer1;
    bool m_charge = false; ///< the start-up went through
};

#pragma once

#include "booking/Annulation.h"
#include "grid/FrmMois.h"
#include "platform/ui/FlexGrid.h"
#include "start/CarnetMontre.h"
#include "start/Commandes.h"

#include <QDeadlineTimer>
#include <QMainWindow>
#include <QTimer>
#include <memory>

namespace Ui {
class FrmEntree;
}
class ActionsOptions;
class ActionsPatient;
class ActionsSelection;
class BarreEtat;
class Clavier;
class Habillage;
class MenusPraticien;
class QPushButton;
struct Depart;
class Surveillance;
class Veille;
class Vues;

/// The main window: wires menus, buttons and grids to the subsystems and owns no rule. Everything on it is
/// drawn from the two values that its CarnetMontre holds.
class FrmEntree : public QMainWindow {
    Q_OBJECT
  public:
    /// The data locations of `env` are read already; `env` outlives the window.
    explicit FrmEntree(const Environnement &env, QWidget *parent = nullptr);
    ~FrmEntree() override;

    /// Shows what the start-up has read. What failed is told, and tried again from time to time.
    void Form_Load(const Depart &depart);
    /// Reads it first.
    void Form_Load();

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

  private:
    // Construction
    void relieCarnet();
    void relieMenus();
    void relieBoutons();

    // Drawing, which cannot fail
    void dessine();
    void dessineSelection();
    void dessineMenus();
    void dessineLecture();
    void montreVue();
    void dispose();

    // The selection
    void selectionne(int grille, const FlexGrid::Corners &coins, FlexGrid::Gesture geste, qint64 RefRDV);
    void ouvre(bool parSouris);

    // What is asked for, in screen order
    void BtnJour_Click();
    void BtnRafraichir_Click();
    void mnuZoom_Click();
    void mnuAPropos_Click();
    void mnuTouches_Click();
    void vaAuJour(FrmMois::Foyer foyer);
    void Timer1_Timer();

    /// A dialog, a menu, a drag or an action under way would lose what it works on.
    bool estOccupe() const;

    std::unique_ptr<Ui::FrmEntree> ui;
    const Environnement &m_env;
    CarnetMontre m_carnet;
    Annulation m_annulation;
    Commandes m_commandes;
    std::unique_ptr<BarreEtat> m_etat;
    Vues *m_vues;
    Habillage *m_habillage;
    ActionsSelection *m_actions;
    MenusPraticien *m_menus;
    ActionsPatient *m_patient;
    ActionsOptions *m_options;
    Clavier *m_clavier;
    Surveillance *m_surveillance;
    Veille *m_veille;
    QPushButton *BtnSemaine;
    QPushButton *BtnJour;
    QStringList m_dits; ///< what a start-up that goes on failing has told already
    QTimer Timer1{this};
    QDeadlineTimer m_apresClic; ///< until then another press may make it a double click
};

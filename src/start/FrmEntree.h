#pragma once

#include "booking/Selection.h"
#include "platform/ui/FlexGrid.h"

#include <QMainWindow>
#include <QSet>
#include <QTimer>
#include <functional>
#include <memory>

namespace Ui {
class FrmEntree;
}
class ActionsRDV;
class BarreEtat;
class GrilleSemaine;
class GrillesJour;
class MenusPraticien;
class QPushButton;
class Database;
struct Environnement;

/// The main window: wires menus, buttons and grids to the subsystems and owns no rule. It holds one value that is
/// shown and one that is selected; everything on it is drawn from these two.
class FrmEntree : public QMainWindow {
    Q_OBJECT
  public:
    /// The data locations of `env` are read already; `env` outlives the window.
    explicit FrmEntree(const Environnement &env, QWidget *parent = nullptr);
    ~FrmEntree() override;

    /// The start-up, from the upgrade to the drawn week. What fails is told and tried again from time to time.
    void Form_Load();

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

  private:
    enum class Annonce { Toujours, UneFois };

    // Construction
    void construitBoutonsVue();
    void relieGrilles();
    void relieMenus();
    void relieRendezVous();
    void relieBoutons();
    void relieClavier();

    // From what is asked for to what is shown: the only place that assigns it. False: the reading failed, which is
    // told, and everything stays.
    bool montre(const Demande &demande, Annonce annonce = Annonce::Toujours);
    void selectionne(int grille, const FlexGrid::Corners &coins, FlexGrid::Gesture geste);
    /// Runs one reading of the book; what fails is told, and the status bar says how old the picture is.
    bool lit(const std::function<void(Database &)> &lecture, Annonce annonce = Annonce::Toujours);
    bool relitJourDe(int grille, const Coins &coins);

    // Drawing, which cannot fail
    void dessine();
    void dessineSelection();
    void dessineMenus();
    void dessineBoutons();
    void dessineLecture();
    void dispose();

    // Handlers, in screen order
    void mnuAjouter_Click();
    void mnuEditer_Click();
    void mnuSupprimer_Click();
    void mnuPresent_Click();
    void ouvre(bool parSouris);
    void rdvEcrit(const RendezVous &rdv);
    void mnuDocteur_Click(const QString &numero);
    void mnuFauteuil_Click(long fauteuil);
    void BtnSemaine_Click();
    void BtnJour_Click();
    void BtnRafraichir_Click();
    void mnuZoom_Click();
    void mnutranche_Click();
    void mnuexclure_Click();
    void mnuSauver_Click();
    void menuSuppConfig_Click();
    void BtnMois_Click();
    void decale(int jours);
    /// To `jour`, in the view that is shown.
    void vaAu(QDate jour);
    void Timer1_Timer();

    bool estCharge() const { return !m_affichage.grilles.isEmpty(); }
    /// What is shown, its day the current date.
    Demande courante() const;
    /// The settings' window gave `config`.
    void prendReglages(const Configuration &config);
    /// The book is read again before anything is done with the selection; nothing when it does not hold what was
    /// selected any more, which is told with `disparu`.
    std::optional<RendezVous> rdvRelu(const QString &disparu, const QString &titre);
    /// The program does not wait for anybody: a dialog, a menu, a drag or a reading would lose what it works on.
    bool estOccupe() const;
    /// Connects an action to its handler, which makes it an action that may be enabled.
    void relie(QAction *action, const std::function<void()> &gestionnaire);
    /// Enables or disables an action; one without a handler stays disabled.
    void active(QAction *action, bool active);
    QList<FlexGrid *> grilles() const;

    std::unique_ptr<Ui::FrmEntree> ui;
    const Environnement &m_env;
    Affichage m_affichage; ///< what is shown; without grids as long as nothing was read
    Selection m_selection;
    Selection m_avantClic;     ///< what a double click's first press left
    QString m_lectureManquee;  ///< why the last reading failed; empty when it did not
    QStringList m_dits;        ///< what a start-up that goes on failing has told already
    bool m_enLecture = false;
    std::unique_ptr<GrilleSemaine> m_semaine;
    std::unique_ptr<GrillesJour> m_jour;
    std::unique_ptr<BarreEtat> m_etat;
    ActionsRDV *m_actions;
    MenusPraticien *m_menus;
    QPushButton *BtnSemaine = nullptr;
    QPushButton *BtnJour = nullptr;
    QSet<QAction *> m_reliees;
    QTimer Timer1;
};

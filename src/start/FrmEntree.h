#pragma once

#include "config/ConfigTables.h"
#include "config/PraticienTables.h"

#include <QLabel>
#include <QMainWindow>
#include <QSet>
#include <functional>
#include <memory>

namespace Ui {
class FrmEntree;
}
class GrilleSemaine;
struct VariablesGlobales;

/// The main window: wires menus and buttons to the subsystems and owns no rule.
class FrmEntree : public QMainWindow {
    Q_OBJECT
  public:
    /// The data locations of `v` are read already; `v` outlives the window.
    explicit FrmEntree(VariablesGlobales &v, QWidget *parent = nullptr);
    ~FrmEntree() override;

    /// The start-up, from the upgrade to the drawn week. What fails is told and leaves the window usable.
    void Form_Load();

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

  private:
    // Start-up, in its order
    void construitBarreEtat();
    void construitMenuPraticiens(const QList<Praticien> &praticiens);
    void construitMenuFauteuils();
    void choisitConfiguration(int fauteuilDeRepli);
    void montreVueSemaine();

    // Handlers, in screen order
    void mnuDocteur_Click(int index);
    void mnuFauteuil_Click(int index);
    void mnuAPropos_Click();

    void redessineSemaine();
    void metTitre();
    void Form_Resize();
    void chargeConfig(Database &base, const QString &nomConfig, int fauteuil);

    /// Connects an action to its handler, which makes it an action that may be enabled.
    void relie(QAction *action, const std::function<void()> &gestionnaire);
    /// Enables or disables an action; one without a handler stays disabled.
    void active(QAction *action, bool active);
    /// Runs one user action; what the book refuses is told, once.
    void essaie(const std::function<void()> &operation);

    std::unique_ptr<Ui::FrmEntree> ui;
    VariablesGlobales &v;
    std::unique_ptr<GrilleSemaine> m_semaine;
    QList<QAction *> m_docteurs;
    QList<QAction *> m_fauteuils;
    QSet<QAction *> m_reliees;
    int m_fauteuilParDefaut = 0;
    QList<QLabel *> m_panneaux; ///< StatusBar1's panels 1 to 4
};

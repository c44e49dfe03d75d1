#pragma once

#include "transfer/Deplacements.h"

#include <QDialog>
#include <memory>
#include <thread>

namespace Ui {
class FrmDeplacer;
}

/// Moves the practice to a server, or from there into a folder, and shows how far it has come and what came
/// of it. Accepted, it was moved, which takes effect at the next start.
class FrmDeplacer : public QDialog {
    Q_OBJECT
  public:
    FrmDeplacer(const Environnement &env, const std::function<QString(Database &)> &metANiveau,
                QWidget *parent = nullptr);
    ~FrmDeplacer() override;

    void reject() override;

  private:
    void Command1_Click();
    void BtnParcourir_Click();
    void montreAvance(const QString &etape, qint64 fait, qint64 total);
    void finit(const FinDeplacement &fin);

    std::unique_ptr<Ui::FrmDeplacer> ui;
    const Environnement &m_env;
    const Deplacements m_deplacements;
    const bool m_versServeur;
    bool m_fait = false;
    std::jthread m_travail; ///< the move, while it runs
};

#pragma once

#include "search/CarteRDV.h"
#include "search/RechercheTables.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class FrmResultatRech;
}
struct Environnement;

/// Shows the appointments that were found, and prints the patient's card. Accepted, the search is over.
class FrmResultatRech : public QDialog {
    Q_OBJECT
  public:
    FrmResultatRech(const Environnement &env, CritereRDV critere, RDVsTrouves trouves,
                    QWidget *parent = nullptr);
    ~FrmResultatRech() override;
    /// The RefRDV of the appointment that the user wants to see in the book, if there is one.
    std::optional<qint64> choisi() const { return m_choisi; }

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

  private:
    void remplit();
    void dispose();
    void choisit(int ligne);
    void BtnImprimer_Click();

    std::unique_ptr<Ui::FrmResultatRech> ui;
    const Environnement &m_env;
    const CritereRDV m_critere;
    const RDVsTrouves m_trouves;
    QList<LigneResultat> m_lignes; ///< what the grid shows of them
    std::optional<qint64> m_choisi;
};

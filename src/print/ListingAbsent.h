#pragma once

#include "print/Absents.h"

#include <QDialog>
#include <memory>

namespace Ui {
class ListingAbsent;
}
struct Environnement;

/// The appointments of a day to which nobody came: letters to those who are marked, and the list as a
/// document. What is listed is shown only as long as it is what the fields ask for.
class ListingAbsent : public QDialog {
    Q_OBJECT
  public:
    ListingAbsent(const Environnement &env, const QString &PraticienCourant, QWidget *parent = nullptr);
    ~ListingAbsent() override;

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

  private:
    void remplitChoix(const QString &PraticienCourant);
    void relieGrille();
    void cmdOK_Click();
    void cmdImprimLettre_Click();
    void cmdImprimerListing_Click();

    DemandeAbsents demande() const;
    std::optional<QList<Absent>> litAbsents(const DemandeAbsents &voulue) const;
    /// The list is what the fields ask for.
    bool estAJour() const { return m_lue && demande() == m_liste.demande; }
    /// The row that the keys act on; 0: none.
    int courante() const;
    void prendLigne(int ligne);
    void marque(int ligne);

    void dessine();
    void dessineBilan();
    void dispose();

    std::unique_ptr<Ui::ListingAbsent> ui;
    const Environnement &m_env;
    ListeAbsents m_liste;
    bool m_lue = false; ///< it could be
};

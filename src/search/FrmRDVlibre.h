#pragma once

#include "search/RechercheCreneau.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmRDVlibre;
}
struct Environnement;

/// The first day that has room for an appointment of a wanted length, and every free start of that day. A
/// pick is signalled: what comes of it is not this window's.
class FrmRDVlibre : public QDialog {
    Q_OBJECT
  public:
    /// Searches the book of `PraticienCourant` at the chair of `config`, by the hours and greyed days of
    /// `config`.
    FrmRDVlibre(const Environnement &env, const QString &PraticienCourant, const Configuration &config,
                QWidget *parent = nullptr);
    ~FrmRDVlibre() override;

    /// Makes the list anew.
    void BtnOK_Click();
    /// "Annuler" and Escape: a search that runs is stopped, and the window stays.
    void reject() override;

  signals:
    void creneauChoisi(const PlaceRDV &place);

  protected:
    void closeEvent(QCloseEvent *event) override;

  private:
    void relieClavier();
    void prendJour();
    /// A rest day gives way to the next day that is none, which is told; false when there is no other.
    bool DTPicker1_Change(QDate jour);
    void UpDown1_Click(QTime duree);
    void List1_Click();
    void cmdJourSuivant_Click();
    void cherche();

    void montreEnCours(QDate jour);
    void montre(const EtapeCreneau &etape);
    void montreManquee(const QString &pourquoi);
    /// What the search was stopped or ended by, and the controls free again.
    void termine(const QString &ligne);
    QString ligneDe(const EtapeCreneau &etape) const;

    std::unique_ptr<Ui::FrmRDVlibre> ui;
    const Environnement &m_env;
    DemandeCreneau m_demande; ///< as the fields show it
    EtapeCreneau m_trouve;    ///< what the list shows
    RechercheCreneau *m_recherche;
};

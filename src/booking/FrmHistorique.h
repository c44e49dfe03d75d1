#pragma once

#include "grid/RendezVous.h"
#include "journal/Ecriture.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class FrmHistorique;
}
class QTableWidget;
struct Environnement;

/// Whose history is shown.
struct CibleHistorique {
    std::optional<RendezVous> rdv; ///< none: only the day is
    QDate jour;
    long praticien = 0;
};

/// What was written about an appointment, about a patient, on a day; and puts an appointment back to what it
/// was before one of these writings.
class FrmHistorique : public QDialog {
    Q_OBJECT
  public:
    FrmHistorique(const Environnement &env, const CibleHistorique &cible, QWidget *parent = nullptr);
    ~FrmHistorique() override;

  signals:
    /// An appointment was put back.
    void ecrit(const EcritureRDV &ecriture);

  private:
    void relieVues();
    void lit();
    QList<LigneJournal> litVue(bool &tenu) const;
    void montreListe();
    void montreEcriture(int ligne);
    void montreRetour(const LigneJournal &choisie);
    void BtnRetablir_Click();

    std::unique_ptr<Ui::FrmHistorique> ui;
    const Environnement &m_env;
    const CibleHistorique m_cible;
    QList<LigneJournal> m_lignes;
    Rangee m_actuelle; ///< of the chosen writing's appointment, as it was when the writing was chosen
};

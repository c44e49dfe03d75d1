#pragma once

#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"
#include "journal/Ecriture.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmSupprimer;
}
struct Environnement;

/// Confirms and deletes an appointment. Accepted, the book was changed, here or elsewhere.
class FrmSupprimer : public QDialog {
    Q_OBJECT
  public:
    /// `rdv` is the appointment as the grid shows it.
    FrmSupprimer(const Environnement &env, const RendezVous &rdv, const PlaceRDV &place,
                 QWidget *parent = nullptr);
    ~FrmSupprimer() override;
    /// Empty when nothing was deleted here.
    const EcritureRDV &ecriture() const { return m_ecriture; }

  private:
    void BtnOK_Click();

    std::unique_ptr<Ui::FrmSupprimer> ui;
    const Environnement &m_env;
    const RendezVous m_rdv;
    EcritureRDV m_ecriture;
};

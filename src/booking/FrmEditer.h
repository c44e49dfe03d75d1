#pragma once

#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"
#include "journal/Ecriture.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmEditer;
}
struct Environnement;

/// Changes an appointment. Accepted, it was written, or is gone.
class FrmEditer : public QDialog {
    Q_OBJECT
  public:
    /// `rdv` is the appointment as the book has it; `place` tells the current practitioner and chair, and the
    /// arrows' step.
    FrmEditer(const Environnement &env, const RendezVous &rdv, const PlaceRDV &place,
              QWidget *parent = nullptr);
    ~FrmEditer() override;
    /// The appointment as the book was last seen to have it: as written, once accepted. RefRDV 0 when gone.
    RendezVous rdvEcrit() const { return m_rdv; }
    const EcritureRDV &ecriture() const { return m_ecriture; }

  private:
    void BtnMettreAJour_Click();

    std::unique_ptr<Ui::FrmEditer> ui;
    const Environnement &m_env;
    const PlaceRDV m_place;
    RendezVous m_rdv;
    EcritureRDV m_ecriture;
};

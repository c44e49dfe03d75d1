#pragma once

#include "booking/Insolite.h"
#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"
#include "journal/Ecriture.h"
#include "patients/AlerteNonHonore.h"

#include <QDialog>
#include <memory>
#include <optional>
#include <tuple>

namespace Ui {
class FrmAjouter;
}
struct Environnement;
struct SaisieRDV;

/// Books an appointment at a place. Accepted, it is booked.
class FrmAjouter : public QDialog {
    Q_OBJECT
  public:
    /// `dits`: what the user was told to be odd about the place.
    FrmAjouter(const Environnement &env, const PlaceRDV &place, QWidget *parent = nullptr,
               const QList<Insolite> &dits = {});
    ~FrmAjouter() override;
    /// The appointment as it was booked.
    RendezVous rdvEcrit() const { return m_ecrit; }
    const EcritureRDV &ecriture() const { return m_ecriture; }
    /// The user was told that the place is taken.
    bool refuse() const { return m_refuse; }

  protected:
    bool event(QEvent *event) override;

  private:
    /// The patient whom the suite hands over, read again at each activation: the fields are filled again only
    /// when it is another one, so that nothing typed is lost.
    void litTransmission();
    void Check1_Click();
    void NouveauPatient_Click();
    void PlusDeDesciption_Click();
    void BtnAjouter_Click();
    void choisit(NonHonore drapeau);
    /// Asks where the place is odd; what was told of it is not asked again while it is the same.
    bool confirme(const RendezVous &rdv);
    /// False when the handed-over patient's act cannot be read, which is told.
    bool completeDescription(SaisieRDV &saisie);

    std::unique_ptr<Ui::FrmAjouter> ui;
    const Environnement &m_env;
    const PlaceRDV m_place;
    const QList<Insolite> m_dits;
    RendezVous m_ecrit;
    EcritureRDV m_ecriture;
    bool m_refuse = false;
    using Transmis = std::tuple<qint64, QString, QString>;
    std::optional<Transmis> m_transmis; ///< number, name and first name of the hand-off read last
    qint64 m_numTransmis = 0;           ///< the same as long as the fields name that patient
};

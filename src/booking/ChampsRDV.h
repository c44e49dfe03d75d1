#pragma once

#include "booking/HorairesRDV.h"
#include "booking/ReservationTables.h"
#include "patients/AlerteNonHonore.h"
#include "patients/TabPatTables.h"

#include <QWidget>
#include <memory>

namespace Ui {
class ChampsRDV;
}
struct VariablesGlobales;

/// What the add and the edit dialogs have in common: date and hours with their arrows, the patient's fields,
/// the patient lookup.
class ChampsRDV : public QWidget {
    Q_OBJECT
  public:
    explicit ChampsRDV(QWidget *parent = nullptr);
    ~ChampsRDV() override;

    /// Nothing works before this call; `etat` outlives the widget.
    void utilise(VariablesGlobales &etat);
    void montreHoraire(QDate jour, const HorairesRDV &horaires);
    void montrePatient(const QString &nom, const QString &prenom, const QString &telephone,
                       const QString &description);
    void montreNom(const QString &nom, const QString &prenom);
    /// Whether the patient's name, first name and telephone may be typed.
    void activeSaisie(bool active);
    void metDescription(const QString &description);
    void colore(CouleurPatient couleur);
    void coloreNom(CouleurPatient couleur);

    /// What the screen says. What it must not say is told, gets the focus, and gives nothing.
    std::optional<SaisieRDV> saisie();
    /// Copies what was said into the selection context.
    void garde(const SaisieRDV &saisie);

  signals:
    void nomTape();
    void patientChoisi(const PatientTrouve &patient);
    /// BtnInit
    void remiseAZero();

  private:
    void deplace(Deplace quoi, Sens sens);

    std::unique_ptr<Ui::ChampsRDV> ui;
    VariablesGlobales *v = nullptr;
};

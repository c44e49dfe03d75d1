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
class QLineEdit;
struct Environnement;

/// What the add and the edit dialogs have in common: date and hours with their arrows, the patient's fields,
/// the patient lookup. What the fields say is what is booked: a highlighted patient fills them, and his
/// number goes with the name it came with.
class ChampsRDV : public QWidget {
    Q_OBJECT
  public:
    /// An edit may type a patient's number, and its reset empties telephone and description too.
    enum class Usage { Ajout, Edition };

    explicit ChampsRDV(QWidget *parent = nullptr);
    ~ChampsRDV() override;

    /// Nothing works before this call; `env` outlives the widget. `intervalle` is the arrows' step, minutes.
    void utilise(const Environnement &env, int intervalle, Usage usage);
    /// Fills every field.
    void montre(const SaisieRDV &saisie);
    /// Names a patient, in the colour that his flag asks for.
    void montrePatient(const QString &nom, const QString &prenom, const QString &numero);
    void metDescription(const QString &description);
    /// Empties telephone and description.
    void videDetails();
    /// Whether the patient's name, first name and telephone may be typed.
    void activeSaisie(bool active);

    /// Tells a missing name, which gets the focus.
    bool exigeNom();
    /// What the screen says. What it must not say is told, gets the focus, and gives nothing.
    std::optional<SaisieRDV> saisie();

  signals:
    /// The user names another patient: typed, highlighted or emptied.
    void patientChange();
    /// The search finds nobody: the fields name again whom they named before it.
    void patientRendu(const PatientTrouve &patient);
    /// The highlighted patient was chosen; the fields name him.
    void patientChoisi(NonHonore drapeau);

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    void relieHoraires();
    void relieListe();
    void montreHoraires(const HorairesRDV &horaires);
    void deplace(Deplace quoi, Sens sens);
    void nomme(const QString &nom, const QString &prenom, const QString &numero);
    void parcourt(const PatientTrouve &patient);
    void rendPatient();
    void colore(CouleurPatient couleur);
    void retireNumero();
    void metNumero(const QString &numero);
    void BtnInit_Click();
    std::nullopt_t refuse(const QString &texte, const QString &titre, QWidget &champ);

    std::unique_ptr<Ui::ChampsRDV> ui;
    const Environnement *m_env = nullptr;
    int m_intervalle = 0;
    Usage m_usage = Usage::Ajout;
    SaisieRDV m_montree; ///< texts as they were shown: what nobody touches is written back as it was
    NonHonore m_drapeau;
    std::optional<PatientTrouve> m_avantRecherche; ///< whom the fields named before a search filled them
};

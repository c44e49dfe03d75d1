#pragma once

#include "patients/ListePatients.h"

#include <QWidget>
#include <memory>

namespace Ui {
class RecherchePatient;
}
struct VariablesGlobales;

/// The patient lookup of a dialog: a search field that lists at every keystroke, an entry field that waits
/// for Enter, and the list. Promoted in the dialog's .ui; the dialog hands it the state, and goes on from the
/// pick.
class RecherchePatient : public QWidget {
    Q_OBJECT
  public:
    explicit RecherchePatient(QWidget *parent = nullptr);
    ~RecherchePatient() override;

    /// Nothing is searched before this call; `etat` outlives the widget. The patient file gets its index here
    /// if it can: without it three letters cost four times as much.
    void utilise(VariablesGlobales &etat);

  signals:
    /// A row was clicked, or Enter pressed on it. Its texts are trimmed.
    void patientChoisi(const PatientTrouve &patient);

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    void TxtPatient_Change();
    void TxtPatient1_Change();
    void choisit(const QModelIndex &index);
    void transmetSaisie();
    void montre(const QList<PatientTrouve> &patients);
    void toucheEntree(QObject *controle);

    std::unique_ptr<Ui::RecherchePatient> ui;
    ListePatients m_liste;
    VariablesGlobales *v = nullptr;
    QString m_erreurDite; ///< so that a missing file is told once, not at every keystroke
};

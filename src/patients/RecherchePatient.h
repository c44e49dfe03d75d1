#pragma once

#include "patients/ListePatients.h"

#include <QWidget>
#include <memory>

namespace Ui {
class RecherchePatient;
}
struct Environnement;

/// The patient lookup of a dialog: a search field that lists at every keystroke, an entry field that waits
/// for Enter, and the list, whose first row is highlighted as soon as it is shown. Promoted in the dialog's
/// .ui; the dialog hands it the environment, and goes on from the pick.
class RecherchePatient : public QWidget {
    Q_OBJECT
  public:
    explicit RecherchePatient(QWidget *parent = nullptr);
    ~RecherchePatient() override;

    /// Nothing is searched before this call; `env` outlives the widget. Where the patient file lacks its
    /// index it gets it meanwhile, if it can.
    void utilise(const Environnement &env);
    /// No row is highlighted any more: the fields have come to name somebody else.
    void oublieChoix();

  signals:
    // The patients' texts are trimmed.
    /// A row was walked to, or is the first of a new list: it is the one that the list highlights.
    void patientParcouru(const PatientTrouve &patient);
    /// A new list holds nobody.
    void patientPerdu();
    /// A row was clicked, or Enter pressed on the highlighted one.
    void patientChoisi(const PatientTrouve &patient);

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    void TxtPatient_Change();
    void TxtPatient1_Change();
    /// The highlighted row; invalid without one. The row that has the focus alone was chosen by nobody.
    QModelIndex ligneChoisie() const;
    void choisit(const QModelIndex &index);
    void transmetSaisie();
    void montre(const PatientsTrouves &trouves);
    /// Reads the patient file. What fails is told once, not again at every keystroke.
    void lit(const std::function<void(Database &)> &lecture);
    bool toucheFleche(QKeyEvent &touche, const QObject *controle);
    /// In the list: a letter goes to the next first name with it, Backspace back to the search.
    bool toucheListe(const QKeyEvent &touche, QChar avant);
    void vaAuPrenom(QChar initiale, int depuis);
    void toucheEntree(const QObject *controle);

    std::unique_ptr<Ui::RecherchePatient> ui;
    ListePatients m_liste;
    const Environnement *m_env = nullptr;
    QString m_erreurDite;
    QChar m_initiale; ///< the letter pressed last, as long as no other key comes: again, it goes on
};

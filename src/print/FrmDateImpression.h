#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FrmDateImpression;
}
struct Environnement;
struct FeuilleJour;

/// Prints the sheet of a practitioner's day: by the word processor if he works with it, else as a report that
/// is shown first.
class FrmDateImpression : public QDialog {
    Q_OBJECT
  public:
    /// The chair's stored configuration gives the hours; `libelle` is what the screen calls the practitioner.
    FrmDateImpression(const Environnement &env, long praticien, long fauteuil, QString libelle,
                      QWidget *parent = nullptr);
    ~FrmDateImpression() override;

  private:
    void decale(int jours);
    void CmdImprimer_Click();
    /// False when that failed or was given up, which was told.
    bool imprimeDocument(const FeuilleJour &feuille, const QString &jour);
    void montreRapport(const FeuilleJour &feuille, const QString &jour);

    std::unique_ptr<Ui::FrmDateImpression> ui;
    const Environnement &m_env;
    const long m_praticien;
    const long m_fauteuil;
    QString m_libelle;
};

#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>
#include <optional>

namespace Ui {
class FrmRecherche;
}
struct Environnement;
struct PatientTrouve;

/// Looks for a patient's appointments and shows them. It writes nothing.
class FrmRecherche : public QDialog {
    Q_OBJECT
  public:
    /// Opens on that patient, from today on.
    FrmRecherche(const Environnement &env, const QString &nom, const QString &prenom,
                 QWidget *parent = nullptr);
    ~FrmRecherche() override;
    /// The RefRDV of the appointment that the user wants to see in the book, if there is one.
    std::optional<qint64> choisi() const { return m_choisi; }

  private:
    void montrePatient(const PatientTrouve &patient);
    void rendPatient();
    void BtnOK_Click();

    std::unique_ptr<Ui::FrmRecherche> ui;
    const Environnement &m_env;
    std::optional<qint64> m_choisi;
    QStringList
        m_avantRecherche; ///< name and first name before a search filled them, empty as long as none did
};

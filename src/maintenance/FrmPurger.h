#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class FrmPurger;
}
class Database;
class DbError;
class Purge;
struct Environnement;

/// Moves a practitioner's appointments of before a day into an archive that the user names. Accepted, all of
/// them were moved, which takes effect at the next start.
class FrmPurger : public QDialog {
    Q_OBJECT
  public:
    /// `praticien` is his number, `libelle` what the screen calls him.
    FrmPurger(const Environnement &env, long praticien, const QString &libelle, QWidget *parent = nullptr);
    ~FrmPurger() override;

    /// How many appointments have left the book.
    int deplaces() const;

    /// Asks for the archive's file in that folder: nothing when that is cancelled, empty without a name. A
    /// file dialog; a test replaces it.
    std::function<std::optional<QString>(const QString &dossier)> demandeNom;

    void reject() override;

  private:
    void Command1_Click();
    /// The archive's file; nothing when there is to be none.
    std::optional<QString> choisitArchive();
    bool existe(const QString &archive) const;
    void commence(QDate jour);
    void deplaceLot();
    void echoue(const DbError &echec);
    /// Closes before all were moved.
    void abandonne();
    bool enleveArchive();
    QString bilan() const;
    Database ouvreArchive() const;

    std::unique_ptr<Ui::FrmPurger> ui;
    const Environnement &m_env;
    const long m_praticien;
    QString m_modele;
    QString m_archive;
    std::unique_ptr<Purge> m_purge; ///< while and after it runs
    bool m_archiveCreee = false;
    bool m_arretDemande = false;
};

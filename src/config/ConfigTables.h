#pragma once

#include "schedule/Configuration.h"
#include "platform/db/Database.h"

#include <QList>
#include <optional>

/// The name of practitioner 0's configuration, which serves those who have none.
inline const QString nomConfigParDefaut = QStringLiteral("Défaut");

/// ChargeConfig's row: by its name when that is "Défaut", else by practitioner and chair. Nothing when there
/// is no such row.
std::optional<Configuration> LitConfig(Database &rdv, const QString &nomConfig, long praticien, int fauteuil);

/// The practitioner's configurations, in table order.
QList<LigneConfig> ConfigsDuPraticien(Database &rdv, long praticien);

/// NomConfig of the practitioner's default configuration.
std::optional<QString> NomConfigParDefaut(Database &rdv, long praticien);

/// NomConfig of the first configuration of practitioner 0, who owns the fall-back.
std::optional<QString> NomConfigDeRepli(Database &rdv);

/// The displayed days of the first configuration of a chair, whoever owns it.
std::optional<std::array<int, 7>> JourAffichDuFauteuil(Database &rdv, int fauteuil);

/// NomConfig of the practitioner's first configuration for that chair.
std::optional<QString> NomConfigDuFauteuil(Database &rdv, long praticien, int fauteuil);

/// What the user says about a configuration to save.
struct NouvelleConfig {
    QString NomConfig;
    QString NumPraticien;        ///< as the book keeps it: "01"
    std::optional<int> Fauteuil; ///< nothing stands for 0, which any number of configurations may have
    bool DefaultConfig = false;  ///< becomes the practitioner's only default
};

enum class Enregistrement { Fait, NomPris, FauteuilPris };

/// Adds a row with the values of `config`, unless the name is taken by any practitioner or the chair by this
/// one. Looking, clearing the other defaults and adding are one transaction.
Enregistrement EnregistreConfig(Database &rdv, const NouvelleConfig &nouvelle, const Configuration &config);

/// Deletes the first row of that name, whoever owns it; false when another workstation has removed it
/// already.
bool SupprimeConfig(Database &rdv, const QString &nomConfig);

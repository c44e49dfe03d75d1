#pragma once

#include "platform/db/Database.h"
#include "schedule/Configuration.h"

#include <QList>
#include <optional>

/// A practitioner's configurations, in the order in which they were saved; and the configuration "Défaut",
/// which serves those who have none: practitioner 0's first row has to bear that name, exactly. A day counts
/// as displayed when one of the seven values names it, and NbJours counts these days, whatever the row says.
struct ConfigsLues {
    QList<LigneConfig> duPraticien;
    std::optional<Configuration> repli;
};
ConfigsLues LitConfigs(Database &rdv, long praticien);

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

/// Deletes the practitioner's first row of that name; false when another workstation has removed it already.
bool SupprimeConfig(Database &rdv, long praticien, const QString &nomConfig);

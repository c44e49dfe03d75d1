#pragma once

#include "config/Configuration.h"
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

/// NomConfig of the practitioner's first configuration for that chair.
std::optional<QString> NomConfigDuFauteuil(Database &rdv, long praticien, int fauteuil);

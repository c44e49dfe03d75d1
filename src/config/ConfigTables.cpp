#include "config/ConfigTables.h"

namespace {

const std::array<QString, 7> jours{QStringLiteral("Lun"), QStringLiteral("Mar"), QStringLiteral("Mer"),
                                   QStringLiteral("Jeu"), QStringLiteral("Ven"), QStringLiteral("Sam"),
                                   QStringLiteral("Dim")};

Configuration configurationDe(const Record &row) {
    Configuration config;
    config.FauteuilCourant = row[u"Fauteuil"].toText();
    config.NbJours = int(row[u"NbJours"].toInteger());
    for (size_t i = 0; i < jours.size(); ++i) {
        config.JourAffich[i] = int(row[jours[i] + QStringLiteral("Affich")].toInteger());
        config.JourGrise[i] = int(row[jours[i] + QStringLiteral("Grise")].toInteger());
    }
    config.JourRepos = int(row[u"JourRepos"].toInteger());
    config.Intervalle = int(row[u"Intervalle"].toInteger());
    config.HeureMatDebut = row[u"HeureMatDebut"].toTime();
    config.HeureMatFin = row[u"HeureMatFin"].toTime();
    config.HeurePMDebut = row[u"HeurePMDebut"].toTime();
    config.HeurePMFin = row[u"HeurePMFin"].toTime();
    return config;
}

std::optional<QString> premierNom(Database &rdv, const SqlText &sql) {
    const Records rows = rdv.query(sql);
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return rows.first()[u"NomConfig"].toText();
}

} // namespace

std::optional<Configuration> LitConfig(Database &rdv, const QString &nomConfig, long praticien, int fauteuil) {
    SqlText sql("Select * from Config Where ");
    if (nomConfig == nomConfigParDefaut) {
        sql << "NomConfig =" << texte(nomConfig);
    } else {
        sql << "clng(NumPraticien) =" << nombre(praticien) << "and clng(Fauteuil)=" << nombre(fauteuil);
    }
    const Records rows = rdv.query(sql);
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return configurationDe(rows.first());
}

QList<LigneConfig> ConfigsDuPraticien(Database &rdv, long praticien) {
    const Records rows =
        rdv.query(SqlText("Select * from Config Where clng(NumPraticien) = ") << nombre(praticien));
    QList<LigneConfig> configs;
    for (const Record row : rows) {
        configs << LigneConfig{row[u"NomConfig"].toText(), row[u"Fauteuil"].toText(),
                               row[u"DefaultConfig"].toBoolean()};
    }
    return configs;
}

std::optional<QString> NomConfigParDefaut(Database &rdv, long praticien) {
    return premierNom(rdv, SqlText("Select * from Config Where DefaultConfig = True And clng(NumPraticien) = ")
                               << nombre(praticien));
}

std::optional<QString> NomConfigDeRepli(Database &rdv) {
    return premierNom(rdv, SqlText("Select * from Config Where clng(NumPraticien) = 0"));
}

std::optional<QString> NomConfigDuFauteuil(Database &rdv, long praticien, int fauteuil) {
    return premierNom(rdv, SqlText("Select * from Config Where clng(NumPraticien) = ")
                               << nombre(praticien) << "and clng(Fauteuil)=" << nombre(fauteuil));
}

#include "config/ConfigTables.h"

#include <utility>

namespace {

const std::array<QString, 7> jours{QStringLiteral("Lun"), QStringLiteral("Mar"), QStringLiteral("Mer"),
                                   QStringLiteral("Jeu"), QStringLiteral("Ven"), QStringLiteral("Sam"),
                                   QStringLiteral("Dim")};

Configuration configurationDe(const Record &row) {
    Configuration config;
    config.NomConfig = row[u"NomConfig"].toText();
    config.FauteuilCourant = row[u"Fauteuil"].toText();
    std::array<int, 7> affiches{};
    for (size_t i = 0; i < jours.size(); ++i) {
        affiches[i] = int(row[jours[i] + QStringLiteral("Affich")].toInteger());
        config.JourGrise[i] = int(row[jours[i] + QStringLiteral("Grise")].toInteger());
    }
    for (int i = 0; i < 7; ++i) {
        config.JourAffich[size_t(i)] = Dans(i + 1, affiches) ? i + 1 : 0;
        config.NbJours += Dans(i + 1, affiches) ? 1 : 0;
    }
    config.JourRepos = int(row[u"JourRepos"].toInteger());
    config.Intervalle = int(row[u"Intervalle"].toInteger());
    config.HeureMatDebut = row[u"HeureMatDebut"].toTime();
    config.HeureMatFin = row[u"HeureMatFin"].toTime();
    config.HeurePMDebut = row[u"HeurePMDebut"].toTime();
    config.HeurePMFin = row[u"HeurePMFin"].toTime();
    return config;
}

Fields champsDe(const NouvelleConfig &nouvelle, const Configuration &config) {
    Fields champs{{QStringLiteral("NomConfig"), nouvelle.NomConfig},
                  {QStringLiteral("NumPraticien"), nouvelle.NumPraticien},
                  {QStringLiteral("Intervalle"), config.Intervalle},
                  {QStringLiteral("HeureMatDebut"), Value::time(config.HeureMatDebut)},
                  {QStringLiteral("HeureMatFin"), Value::time(config.HeureMatFin)},
                  {QStringLiteral("HeurePMDebut"), Value::time(config.HeurePMDebut)},
                  {QStringLiteral("HeurePMFin"), Value::time(config.HeurePMFin)},
                  {QStringLiteral("NbJours"), config.NbJours},
                  {QStringLiteral("JourRepos"), config.JourRepos},
                  {QStringLiteral("DefaultConfig"), Value::boolean(nouvelle.DefaultConfig)},
                  {QStringLiteral("Fauteuil"), nouvelle.Fauteuil.value_or(0)}};
    for (size_t i = 0; i < jours.size(); ++i) {
        champs.emplace_back(jours[i] + QStringLiteral("Affich"), config.JourAffich[i]);
        champs.emplace_back(jours[i] + QStringLiteral("Grise"), config.JourGrise[i]);
    }
    return champs;
}

} // namespace

ConfigsLues LitConfigs(Database &rdv, long praticien) {
    const QString defaut = QStringLiteral("Défaut");
    const Records rows =
        rdv.query(SqlText("Select clng(NumPraticien) as Numero, (NomConfig = ")
                  << texte(defaut) << ") as EstDefaut, Config.* from Config Where clng(NumPraticien) in (0, "
                  << nombre(praticien) << ") or NomConfig = " << texte(defaut) << " order by CleLigne");
    ConfigsLues lues;
    std::optional<Configuration> nommee;
    bool zeroVu = false;
    bool zeroNomme = false;
    for (const Record row : rows) {
        const Configuration config = configurationDe(row);
        if (row[u"Numero"].toInteger() == praticien) {
            lues.duPraticien << LigneConfig{config, row[u"DefaultConfig"].toBoolean()};
        }
        if (row[u"Numero"] == Value(0) && !std::exchange(zeroVu, true)) {
            zeroNomme = config.NomConfig == defaut;
        }
        if (!nommee && row[u"EstDefaut"].toBoolean()) {
            nommee = config;
        }
    }
    lues.repli = zeroNomme ? nommee : std::nullopt;
    return lues;
}

Enregistrement EnregistreConfig(Database &rdv, const NouvelleConfig &nouvelle, const Configuration &config) {
    const long praticien = CLng(nouvelle.NumPraticien);
    // The writer's lock comes before the questions: of two workstations that save the same name, one is
    // refused.
    Transaction transaction(rdv);
    if (!rdv.query(SqlText("Select * from Config Where NomConfig = ") << texte(nouvelle.NomConfig))
             .isEmpty()) {
        return Enregistrement::NomPris;
    }
    if (nouvelle.Fauteuil &&
        !rdv.query(SqlText("Select * from Config Where clng(NumPraticien) =")
                   << nombre(praticien) << "and clng(Fauteuil) = " << nombre(*nouvelle.Fauteuil))
             .isEmpty()) {
        return Enregistrement::FauteuilPris;
    }
    if (nouvelle.DefaultConfig) {
        rdv.execute(SqlText("Update Config Set DefaultConfig = False Where clng(NumPraticien) = ")
                    << nombre(praticien));
    }
    rdv.insert(QStringLiteral("Config"), champsDe(nouvelle, config));
    transaction.commit();
    return Enregistrement::Fait;
}

bool SupprimeConfig(Database &rdv, long praticien, const QString &nomConfig) {
    // Saving keeps names unique, but an older book may hold one twice, another practitioner's too: one row
    // goes and never two.
    Transaction transaction(rdv);
    const Records rows = rdv.query(SqlText("Select CleLigne from Config where NomConfig=")
                                   << texte(nomConfig) << " and clng(NumPraticien) = " << nombre(praticien)
                                   << " order by CleLigne");
    if (rows.isEmpty()) {
        return false;
    }
    rdv.execute(SqlText("Delete from Config where CleLigne=") << nombre(rows.first().at(0).toInteger()));
    transaction.commit();
    return true;
}

#include "print/FeuilleTables.h"

#include "config/ConfigTables.h"
#include "grid/Affichage.h"
#include "grid/RendezVousTables.h"

namespace {

const QString tableImpression = QStringLiteral("Impression");

/// The appointments come by start, then in the order of their booking: of two on one line that order decides.
FeuilleJour lit(Database &rdv, long praticien, long fauteuil, QDate jour) {
    const QList<LigneConfig> configs = LitConfigs(rdv, praticien).duPraticien;
    const int place = PlaceDuFauteuil(configs, fauteuil);
    if (place < 0) {
        FeuilleJour feuille;
        feuille.empechement = QStringLiteral("Ce praticien n'a pas de configuration pour ce fauteuil : rien "
                                             "n'est imprimé.");
        return feuille;
    }
    return ComposeFeuille(configs[place].config, RendezVousEntre(rdv, jour, jour, praticien, std::nullopt));
}

} // namespace

FeuilleJour RemplitImpression(Database &rdv, long praticien, long fauteuil, QDate jour) {
    Transaction transaction(rdv, {tableImpression}); // no appointment waits for a sheet
    rdv.execute(SqlText("Delete from Impression"));
    FeuilleJour feuille = lit(rdv, praticien, fauteuil, jour);
    for (const LigneFeuille &ligne : feuille.lignes) {
        rdv.append(tableImpression, {{QStringLiteral("Heure"), ligne.Heure},
                                     {QStringLiteral("NomPatient"), ligne.NomPatient},
                                     {QStringLiteral("PrenomPatient"), ligne.PrenomPatient},
                                     {QStringLiteral("HeurePM"), ligne.HeurePM},
                                     {QStringLiteral("NomPatientPM"), ligne.NomPatientPM},
                                     {QStringLiteral("PrenomPatientPM"), ligne.PrenomPatientPM}});
    }
    transaction.commit();
    return feuille;
}

bool AvecWord(Database &param, long praticien) {
    const Records rows = param.query(SqlText("select Word from Praticien where clng(codeprat)=")
                                     << nombre(praticien) << " order by CleLigne");
    return !rows.isEmpty() && rows.first()[u"Word"].toBoolean();
}

#include "patients/HistoriqueTables.h"

qint64 DernierNumero(Database &rdv, const QString &nom, const QString &prenom) {
    const Records rows = rdv.query(SqlText("Select NumPatient from RDV Where ucase(Nom) = ")
                                   << texte(nom.toUpper()) << " AND ucase(Prenom) = "
                                   << texte(prenom.toUpper()) << " order by DateInv Desc, RefRDV");
    return rows.isEmpty() ? 0 : rows.first().at(0).toInteger();
}

void DemandeHistorique(Database &historique, qint64 numero) {
    Transaction transaction(historique);
    const Records rows = historique.query(SqlText("Select CleLigne from Carnet order by CleLigne"));
    if (rows.isEmpty()) {
        return;
    }
    historique.update(QStringLiteral("Carnet"), QStringLiteral("CleLigne"), rows.first().at(0).toInteger(),
                      {{QStringLiteral("NumPatient"), numero}});
    transaction.commit();
}

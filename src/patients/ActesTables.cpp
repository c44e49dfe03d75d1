#include "patients/ActesTables.h"

QString DernierActeAFaire(Database &actes, qint64 numPatient) {
    const Records rows = actes.query(SqlText("SELECT Libellé, CodeSecu, Coefficient FROM Actes as A1 "
                                             "WHERE A1.NumActe IN ( SELECT max(NumActe) FROM Actes as A2 "
                                             "WHERE A2.NumPatient = ")
                                     << nombre(numPatient) << " AND A2.AFaire <> 0) order by CleLigne");
    if (rows.isEmpty()) {
        return {};
    }
    const Record acte = rows.first();
    // On screen a coefficient has the French decimal comma.
    const QString coefficient = acte[u"Coefficient"].toText().replace(u'.', u',');
    return QStringLiteral("%1 (%2 %3)")
        .arg(acte[u"Libellé"].toText(), acte[u"CodeSecu"].toText(), coefficient);
}

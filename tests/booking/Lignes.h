#pragma once

#include "support/Livre.h"

/// The appointments of a book, one a line, by start: every field but the key.
inline QString lignes(Database base) {
    const Records rows = base.query(
        SqlText("select Nom, Prenom, Telephone, Description, NumPatient, Date1, HeureDebut, HeureFin, "
                "DateInv, NumPraticien, Fauteuil, Professionnel, Present from RDV "
                "order by HeureDebut, Date1"));
    QStringList lues;
    for (const Record row : rows) {
        QStringList champs;
        for (int i = 0; i < rows.fields().size(); ++i) {
            champs << row.at(i).toText();
        }
        lues << champs.join(u'|');
    }
    return lues.join(u'\n');
}

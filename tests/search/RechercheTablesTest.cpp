#include "search/RechercheTables.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

TEST(RendezVousDuPatient, FindsTheSameWithAndWithoutItsIndex) {
    const Livre livre;
    livre.rdvs(R"(
        Nom      | Prenom | Date1      | HeureDebut          | Professionnel | NumPraticien
        DUPONT   | Jean   | 2005-03-08 | 09:00:00            | 1  | 01
        Dupont   | JEAN   | 2005-03-07 | 09:00:00            | -1 | 02
        DUPONT   | Jean   | 2005-03-07 | 1899-12-30 08:00:00 | 1  | 01
        DUPONT   | Jean   | 2005-03-06 | 09:00:00            | 1  | 01
        DUPONT   | Jean   | 2005-03-07 | 12:00:00            | 0  | 01
        DUPONT   | Jean   | 2005-03-07 | 12:00:00            | -  | 01
        DUPONTEL | Jean   | 2005-03-08 | 09:00:00            | 1
        DUPONT·  | Jean   | 2005-03-08 | 09:00:00            | 1
        DUPONT   | -      | 2005-03-08 | 09:00:00            | 1
        DUPONT   |        | 2005-03-08 | 09:00:00            | 1
        Étienne  | Éloïse | 2005-03-08 | 09:00:00            | 1
        ÉTIENNE  | éloÏse | 2005-03-08 | 09:00:00            | 1
        ETIENNE  | Eloise | 2005-03-08 | 09:00:00            | 1
        D'ANGÉLO | A_B    | 2005-03-08 | 09:00:00            | 1
        D'ANGÉLO | AxB    | 2005-03-08 | 09:00:00            | 1
        ESSAI*   | 100%   | 2005-03-08 | 09:00:00            | 1
        ESSAIS   | 1000   | 2005-03-08 | 09:00:00            | 1
        Groß     | Simon  | 2005-03-08 | 09:00:00            | 1
        GROSS    | SIMON  | 2005-03-08 | 09:00:00            | 1
                 |        | 2005-03-08 | 09:00:00            | 1
        -        | -      | 2005-03-08 | 09:00:00            | 1)");
    const QString longNom(10'000, QChar(u'é')); // more spellings than an index can be asked for
    livre.execute(SqlText("update RDV set Nom = ") << texte(longNom.toUpper()) << " where RefRDV = 7");
    Database base = livre.ouvre();
    for (const bool avecIndex : {false, true}) {
        for (const QStringList &cas : tableau(R"(
            dupont    | jean   | 2005-03-07 | 3 2 1 +2
            DUPONT    | Jean   | 2005-03-06 | 4 3 2 1 +2
            DUPONT    | Jean   | 2005-07-03 | +0
            DUPONT·   | Jean   | 2005-03-07 | 8 +0
            DUPONT    | Jean·  | 2005-03-07 | +0
            ·DUPONT   | Jean   | 2005-03-07 | +0
            DUPONT    |        | 2005-03-07 | 10 +0
            étienne   | ÉLOÏSE | 2005-03-07 | 11 12 +0
            etienne   | eloise | 2005-03-07 | 13 +0
            d'angélo  | a_b    | 2005-03-07 | 14 +0
            essai*    | 100%   | 2005-03-07 | 16 +0
            ESSAI?    | 100%   | 2005-03-07 | +0
            GROß      | simon  | 2005-03-07 | 18 +0
            gross     | SIMON  | 2005-03-07 | 19 +0
                      |        | 2005-03-07 | 20 +0
            ' Or ''=' |        | 2005-03-07 | +0
            long      | jean   | 2005-03-07 | 7 +0)")) {
            const QString nom = cas[0] == q("long") ? longNom : QString(cas[0]).replace(u'·', u' ');
            const RDVsTrouves lus = RendezVousDuPatient(
                base, {nom, QString(cas[1]).replace(u'·', u' '), QDate::fromString(cas[2], Qt::ISODate)});
            QString refs;
            for (const RDVTrouve &rdv : lus.liste) {
                refs += q("%1 ").arg(rdv.RefRDV);
            }
            EXPECT_EQ(refs + q("+%1").arg(lus.horsHoraires), cas[3]) << cas.join(u'|') << avecIndex;
        }
        if (!avecIndex) {
            base.tableDef(q("RDV")).createIndex(IndexRecherche());
        }
    }
}

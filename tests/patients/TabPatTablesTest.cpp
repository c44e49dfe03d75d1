#include "PatientsDEssai.h"
#include "patients/ActesTables.h"

#include <gtest/gtest.h>

namespace {

class TabPatTest : public testing::Test, public PatientsDEssai {
  protected:
    /// "name first-name" of the found, all lots read.
    QString cherche(const QString &texte) {
        PatientsTrouves trouves = CherchePatients(base, LitCritere(texte));
        for (const LotDeNoms &lot : trouves.suite) {
            trouves.patients += PatientsDuLot(base, lot);
        }
        QStringList noms;
        for (const PatientTrouve &p : trouves.patients) {
            noms << (p.nom + u' ' + p.prenom).trimmed();
        }
        return noms.join(u',');
    }

    Database base = ouvre(Base::Patients);
};

} // namespace

TEST_F(TabPatTest, FindsByNumberOrByTheBeginningOfTheName) {
    ajoute(q("DUPONT,Dupré,DURAND,D'ARC,éluard,ÉTÉ,ELUARD,1234,LE GALL,LEGALL,D*X [a]#?,zola,Œuvre,Dupond")
               .split(u','));
    const QList<QStringList> cas =
        tableau("DU|Dupond,DUPONT,Dupré,DURAND\nDUPRÉ|Dupré\nDUPRE|\nd'a|D'ARC\nÉ|éluard,ÉTÉ\n"
                "e|ELUARD\nœ|Œuvre\n1234|\n8|1234\nd*x [A]#?|D*X [a]#?\n*|\n"
                "D?|\n%|\n' or 1=1 --|");
    for (int index = 0; index < 3; ++index) {
        for (const QStringList &c : cas) {
            EXPECT_EQ(cherche(c[0]), c[1]) << c[0] << " index " << index;
        }
        EXPECT_EQ(cherche(q("LE ")), q("LE GALL"));
        CreeIndexPatients(base);
    }
}

TEST_F(TabPatTest, ListsInAlphabeticalOrderWhateverTheLots) {
    // É and é are the same letter, though the index tells them apart
    ajoute(q("dupont|Zoé,dupont|emma,dupont|Élodie,dupont|Edith,dupont|ELODIE,DUPOND|Zoé,DUPONT,dénès|Bo,")
               .append(q("DÉNÈS|An,").repeated(200))
               .append(q("dénès|Al"))
               .split(u','));
    EXPECT_EQ(cherche(q("d")), q("dénès Al,") + q("DÉNÈS An,").repeated(200) +
                                   q("dénès Bo,DUPOND Zoé,DUPONT,dupont Edith,dupont ELODIE,dupont Élodie,"
                                     "dupont emma,dupont Zoé"));
    EXPECT_EQ(CherchePatients(base, q("d")).suite.size(), 1) << "the rest is read when it is wanted";
}

TEST_F(TabPatTest, AReadOnlyFileIsSearchedWithoutIndex) {
    ajoute({q("DUPONT")});
    protege(Base::Patients);
    base = ouvre(Base::Patients);
    CreeIndexPatients(base);
    EXPECT_EQ(cherche(q("DUP")), q("DUPONT"));
}

TEST_F(TabPatTest, ReadsTheFlagOfOnePatient) {
    ajoute({q("A"), q("B"), q("C")});
    base.execute(SqlText("update TabPat set RDVNonHonoré = 'O' where nom = 'A'"));
    base.execute(SqlText("update TabPat set RDVNonHonoré = 'N' where nom = 'B'"));
    const NonHonore attendus[] = {std::nullopt, true, false, false};
    for (int numero = 0; numero < 4; ++numero) {
        EXPECT_EQ(RDVNonHonoré(base, numero), attendus[numero]) << numero;
    }
}

TEST_F(TabPatTest, TheLatestActStillToDo) {
    Database actes = ouvre(Base::Actes);
    actes.execute(SqlText("insert into Actes (NumActe, NumPatient, AFaire, Libellé, CodeSecu, Coefficient) "
                          "values (7, 1, -1, 'Bilan', 'TO', 15), (3, 1, 1, 'Plus ancien', 'TO', 5), "
                          "(9, 1, 0, 'Fait', 'TO', 15), (12, 2, 1, 'Semestre', 'TO', 22.5), "
                          "(13, 3, 1, 'Contrôle', Null, Null), (14, 4, 0, 'Fait', 'TO', 15)"));
    const char *const attendus[] = {"", "Bilan (TO 15)", "Semestre (TO 22,5)", "Contrôle ( )", ""};
    for (int patient = 0; patient < 5; ++patient) {
        EXPECT_EQ(DernierActeAFaire(actes, patient), q(attendus[patient])) << patient;
    }
}

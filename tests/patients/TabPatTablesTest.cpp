#include "PatientsDEssai.h"
#include "patients/ActesTables.h"

#include <gtest/gtest.h>

namespace {

class TabPatTest : public testing::Test, public PatientsDEssai {
  protected:
    /// "name first-name" of the found, all lots read.
    QString cherche(const char *texte) const {
        Database base = ouvre(Base::Patients);
        PatientsTrouves trouves = CherchePatients(base, LitCritere(q(texte)));
        for (const LotDeNoms &lot : trouves.suite) {
            trouves.patients += PatientsDuLot(base, lot);
        }
        QStringList noms;
        for (const PatientTrouve &p : trouves.patients) {
            noms << (p.nom + u' ' + p.prenom).trimmed();
        }
        return noms.join(u',');
    }
};

} // namespace

TEST_F(TabPatTest, FindsByNumberOrByTheBeginningOfTheName) {
    ajouteTous(
        q("DUPONT,Dupré,DURAND,D'ARC,éluard,ÉTÉ,ELUARD,1234,LE GALL,LEGALL,D*X [a]#?,zola,Œuvre,Dupond")
            .split(u','));
    const std::pair<const char *, const char *> cas[] = {{"DU", "Dupond,DUPONT,Dupré,DURAND"},
                                                         {"DUPRÉ", "Dupré"},
                                                         {"DUPRE", ""},
                                                         {"d'a", "D'ARC"},
                                                         {"É", "éluard,ÉTÉ"},
                                                         {"e", "ELUARD"},
                                                         {"z", "zola"},
                                                         {"œ", "Œuvre"},
                                                         {"LE ", "LE GALL"},
                                                         {"1234", ""},
                                                         {"8", "1234"},
                                                         {"99999999999999999999", ""},
                                                         {"D*", "D*X [a]#?"},
                                                         {"d*x [A]#?", "D*X [a]#?"},
                                                         {"*", ""},
                                                         {"D?", ""},
                                                         {"%", ""},
                                                         {"' or 1=1 --", ""},
                                                         {"😀", ""},
                                                         {"", ""}};
    for (const bool avecIndex : {false, true}) {
        if (avecIndex) {
            Database base = ouvre(Base::Patients);
            CreeIndexPatients(base);
            CreeIndexPatients(base); // there already
        }
        for (const auto &[texte, trouves] : cas) {
            EXPECT_EQ(cherche(texte), q(trouves)) << texte << " index " << avecIndex;
        }
    }
}

TEST_F(TabPatTest, ListsInAlphabeticalOrderWhateverTheLots) {
    // É and é are the same letter, though the index tells them apart
    ajouteTous(q("dupont|Zoé,dupont|emma,dupont|Élodie,dupont|Edith,dupont|ELODIE,dupont|Émile,DUPONT|Fanny,"
                 "DUPOND|Zoé,"
                 "DUPONT,dénès|Bo,")
                   .append(q("DÉNÈS|An,").repeated(200))
                   .append(q("dénès|Al"))
                   .split(u','));
    EXPECT_EQ(cherche("d"), q("dénès Al,") + q("DÉNÈS An,").repeated(200) +
                                q("dénès Bo,DUPOND Zoé,DUPONT,dupont Edith,dupont ELODIE,dupont Élodie,"
                                  "dupont Émile,dupont emma,DUPONT Fanny,dupont Zoé"));
    Database base = ouvre(Base::Patients);
    EXPECT_EQ(CherchePatients(base, q("d")).suite.size(), 1) << "the rest is read when it is wanted";
    ajoute("B", "b", "01/02/1980");
    const PatientTrouve b = CherchePatients(base, Critere(qint64{212})).patients.value(0);
    EXPECT_EQ(b.nom + b.prenom + b.numero + b.dateNais, q("Bb21201/02/1980"));
}

TEST_F(TabPatTest, AReadOnlyFileIsSearchedWithoutIndex) {
    ajoute("DUPONT", "Jean");
    protege(Base::Patients);
    Database base = ouvre(Base::Patients);
    CreeIndexPatients(base);
    EXPECT_EQ(cherche("DUP"), q("DUPONT Jean"));
}

TEST_F(TabPatTest, ReadsTheFlagOfOnePatient) {
    const qint64 marque = ajoute("A", "a", "", "", q("O"));
    const qint64 autre = ajoute("B", "b", "", "", q("N"));
    const qint64 sans = ajoute("C", "c");
    Database base = ouvre(Base::Patients);
    EXPECT_EQ(RDVNonHonoré(base, marque), NonHonore(true));
    EXPECT_EQ(RDVNonHonoré(base, autre), NonHonore(false));
    EXPECT_EQ(RDVNonHonoré(base, sans), NonHonore(false));
    EXPECT_EQ(RDVNonHonoré(base, 0), std::nullopt);
    EXPECT_EQ(CouleurDuPatient(true), CouleurPatient::Rouge);
    EXPECT_EQ(CouleurDuPatient(false), CouleurPatient::ParDefaut);
    EXPECT_EQ(CouleurDuPatient(std::nullopt), CouleurPatient::Inchangee);
}

TEST_F(TabPatTest, TheLatestActStillToDo) {
    Database base = ouvre(Base::Actes);
    const auto acte = [&](int numero, int patient, int aFaire, const char *libelle, const Value &code,
                          const Value &coef) {
        base.insert(q("Actes"), {{q("NumActe"), numero},
                                 {q("NumPatient"), patient},
                                 {q("AFaire"), aFaire},
                                 {q("Libellé"), q(libelle)},
                                 {q("CodeSecu"), code},
                                 {q("Coefficient"), coef}});
    };
    acte(7, 1, -1, "Bilan", q("TO"), 15);
    acte(3, 1, 1, "Plus ancien", q("TO"), 5);
    acte(9, 1, 0, "Fait", q("TO"), 15);
    acte(11, 2, 0, "Fait", q("TO"), 15);
    acte(12, 3, 1, "Semestre", q("TO"), 22.5);
    acte(13, 4, 1, "Contrôle", {}, {});
    const char *const attendus[] = {"", "Bilan (TO 15)", "", "Semestre (TO 22,5)", "Contrôle ( )", ""};
    for (int patient = 0; patient < 6; ++patient) {
        EXPECT_EQ(DernierActeAFaire(base, patient), q(attendus[patient])) << patient;
    }
}

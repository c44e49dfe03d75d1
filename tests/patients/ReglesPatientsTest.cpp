#include "PatientsDEssai.h"
#include "patients/DateNaissance.h"
#include "patients/NumeroSecu.h"

#include <gtest/gtest.h>

TEST(Critere, TellsNumbersFromNames) {
    EXPECT_EQ(LitCritere(q(" \t\n")), Critere());
    EXPECT_EQ(LitCritere(q(" 0012 ")), Critere(12));
    EXPECT_EQ(LitCritere(q("99999999999999999999")), Critere(-1));
    EXPECT_EQ(LitCritere(q("\t DU\tPONT\r\n")), Critere(q("DU PONT")));
    for (const char *nom : {"12 34", "-5", "١٢", "LE "}) {
        EXPECT_EQ(LitCritere(q(nom)), Critere(q(nom)));
    }
    for (const char *bon : {"", " ", "0", " 12 ", "2147483647"}) {
        EXPECT_TRUE(EstNumeroPatient(q(bon))) << bon;
    }
    for (const char *faux : {"12a", "1 2", "-1", "2147483648", "١٢"}) {
        EXPECT_FALSE(EstNumeroPatient(q(faux))) << faux;
    }
}

TEST(NumeroSecu, ChecksTheKey) {
    for (const char *bon : {"185057800608491", " 185057800608491 ", "185057800607897", "185057800617005", "",
                            "  ", "700000000000000", "8", "ABC97", "1 85 05 78 00608461", "١97"}) {
        EXPECT_TRUE(NumeroSecuValide(q(bon))) << bon;
    }
    for (const char *faux : {"185057800608442", "185057800607800", "1"}) {
        EXPECT_FALSE(NumeroSecuValide(q(faux))) << faux;
    }
    EXPECT_EQ(CleNumeroSecu(q("185052A006084")), CleNumeroSecu(q("185052")));
}

TEST(DateNaissance, IsEmptyOrAPastDay) {
    for (const char *bonne : {"//", "11/03/2026", "29/02/2000"}) {
        EXPECT_EQ(DefautDateNaissance(DateNaissanceSaisie(q(bonne)), QDate(2026, 3, 11)), QString());
    }
    for (const QStringList &cas :
         tableau("12/03/2026|futur\n10/03/1876|trop ancienne\n29/02/1999|n'existe pas\n"
                 "25/03/198|incomplète\n٢٥/03/1980|incomplète")) {
        EXPECT_TRUE(DefautDateNaissance(cas[0], QDate(2026, 3, 11)).contains(cas[1])) << cas[0];
    }
}

TEST(Doublons, TheLastOneExaminedWordsIt) {
    const Identite autre{q("02/02/1980"), q("1")};
    const Identite memeDate{q("01/01/1980"), q("2")};
    const Identite nouveau{q("01/01/1980"), q("1")};
    EXPECT_EQ(LibelleDoublon({}, nouveau), QString());
    EXPECT_FALSE(LibelleDoublon({memeDate, autre}, nouveau).contains(q("date")));
    EXPECT_TRUE(LibelleDoublon({autre, memeDate}, nouveau).endsWith(q("date de naissance")));
    EXPECT_TRUE(LibelleDoublon({memeDate, nouveau, autre}, nouveau).endsWith(q("numero de sécu")));
}

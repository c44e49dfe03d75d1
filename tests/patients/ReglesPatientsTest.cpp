#include "PatientsDEssai.h"
#include "patients/DateNaissance.h"
#include "patients/NumeroSecu.h"

#include <gtest/gtest.h>

TEST(Critere, TellsNumbersFromNames) {
    struct {
        const char *texte;
        Critere critere;
    } const cas[] = {{" \t\n", {}},
                     {"1234", qint64{1234}},
                     {" 0012 ", qint64{12}},
                     {"12 34", q("12 34")},
                     {"1e3", q("1e3")},
                     {"-5", q("-5")},
                     {"١٢", q("١٢")},
                     {"LE ", q("LE ")},
                     {"\t DU\tPONT\r\n", q("DU PONT")},
                     {"99999999999999999999", qint64{-1}}};
    for (const auto &c : cas) {
        EXPECT_EQ(LitCritere(q(c.texte)), c.critere) << c.texte;
    }
    for (const char *bon : {"", " ", "0", " 12 ", "2147483647"}) {
        EXPECT_TRUE(EstNumeroPatient(q(bon))) << bon;
    }
    for (const char *faux : {"abc", "12a", "1 2", "-1", "2147483648", "١٢", "1,5"}) {
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
    EXPECT_EQ(CleNumeroSecu(q("92")), q("05"));
    EXPECT_EQ(CleNumeroSecu(q("185052A006084")), CleNumeroSecu(q("185052")));
}

TEST(DateNaissance, IsEmptyOrAPastDay) {
    const std::pair<const char *, const char *> cas[] = {{"//", ""},
                                                         {"11/03/2026", ""},
                                                         {"29/02/2000", ""},
                                                         {"12/03/2026", "futur"},
                                                         {"10/03/1876", "trop ancienne"},
                                                         {"29/02/1999", "n'existe pas"},
                                                         {"00/00/0000", "n'existe pas"},
                                                         {"12//", "incomplète"},
                                                         {"1/2/1980", "incomplète"},
                                                         {"25/03/198", "incomplète"},
                                                         {"٢٥/03/1980", "incomplète"}};
    for (const auto &[saisie, attendu] : cas) {
        const QString defaut = DefautDateNaissance(DateNaissanceSaisie(q(saisie)), QDate(2026, 3, 11));
        EXPECT_EQ(defaut.isEmpty(), *attendu == '\0') << saisie;
        EXPECT_TRUE(defaut.contains(q(attendu))) << saisie << ": " << qPrintable(defaut);
    }
}

TEST(Doublons, TheLastOneExaminedWordsIt) {
    const Identite autre{q("02/02/1980"), q("1")};
    const Identite memeDate{q("01/01/1980"), q("2")};
    const Identite nouveau{q("01/01/1980"), q("1")};
    EXPECT_EQ(LibelleDoublon({}, nouveau), QString());
    EXPECT_EQ(LibelleDoublon({memeDate, autre}, nouveau), q("nom et le même prénom"));
    EXPECT_EQ(LibelleDoublon({autre, memeDate}, nouveau),
              q("nom,le même prénom et la même date de naissance"));
    EXPECT_EQ(LibelleDoublon({memeDate, nouveau, autre}, nouveau),
              q("nom,le même prénom,la même date de naissance et le même numero de sécu"));
}

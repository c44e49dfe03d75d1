#include "PatientsDEssai.h"
#include "patients/DateNaissance.h"
#include "patients/NumeroSecu.h"

#include <gtest/gtest.h>

TEST(Critere, TellsNumbersFromNames) {
    struct {
        const char *texte;
        Critere critere;
    } const cas[] = {{"", {}},
                     {" \t\n", {}},
                     {"1234", qint64{1234}},
                     {" 0012 ", qint64{12}},
                     {"99999999999999999999", qint64{-1}},
                     {"12 34", QStringLiteral("12 34")},
                     {"1e3", QStringLiteral("1e3")},
                     {"-5", QStringLiteral("-5")},
                     {"١٢", QStringLiteral("١٢")},
                     {"\t DU\tPONT\r\n", QStringLiteral("DU PONT")},
                     {"LE ", QStringLiteral("LE ")}};
    for (const auto &c : cas) {
        EXPECT_EQ(LitCritere(QString::fromUtf8(c.texte)), c.critere) << c.texte;
    }
}

TEST(NumeroSecu, ChecksTheKey) {
    struct {
        const char *nom, *numero;
        bool valide;
    } const cas[] = {{"right key", "185057800608491", true},
                     {"wrong key", "185057800608442", false},
                     {"blanks around", " 185057800608491 ", true},
                     {"remainder 0 needs 97", "185057800607897", true},
                     {"remainder 0 and 00", "185057800607800", false},
                     {"key below ten has its zero", "185057800617005", true},
                     {"starts with 7", "700000000000000", true},
                     {"starts with 8", "8", true},
                     {"one character", "1", false},
                     {"nothing", "", true},
                     {"blanks only", "  ", true},
                     {"letters only: the rest is 0", "ABC97", true},
                     {"blanks are skipped, and count among the 13", "1 85 05 78 00608461", true},
                     {"digits of another script end the number", "١97", true}};
    for (const auto &c : cas) {
        EXPECT_EQ(NumeroSecuValide(QString::fromUtf8(c.numero)), c.valide) << c.nom;
    }
    EXPECT_EQ(CleNumeroSecu(QStringLiteral("92")), QStringLiteral("05"));
    EXPECT_EQ(CleNumeroSecu(QStringLiteral("185052A006084")), CleNumeroSecu(QStringLiteral("185052")));
}

TEST(DateNaissance, IsEmptyOrAPastDay) {
    const QDate aujourdhui(2026, 3, 11);
    const QString incomplete = QStringLiteral("incomplète");
    const QString inexistante = QStringLiteral("n'existe pas");
    struct {
        const char *saisie;
        QString defaut;
    } const cas[] = {{"//", {}},
                     {"11/03/2026", {}},
                     {"29/02/2000", {}},
                     {"12/03/2026", QStringLiteral("futur")},
                     {"10/03/1876", QStringLiteral("trop ancienne")},
                     {"29/02/1999", inexistante},
                     {"31/04/1980", inexistante},
                     {"00/00/0000", inexistante},
                     {"12//", incomplete},
                     {"1/2/1980", incomplete},
                     {"25/03/198", incomplete},
                     {"٢٥/03/1980", incomplete}};
    for (const auto &c : cas) {
        const QString defaut =
            DefautDateNaissance(DateNaissanceSaisie(QString::fromUtf8(c.saisie)), aujourdhui);
        EXPECT_TRUE(c.defaut.isEmpty() ? defaut.isEmpty() : defaut.contains(c.defaut))
            << c.saisie << ": " << qPrintable(defaut);
    }
}

TEST(Doublons, TheLastOneExaminedWordsIt) {
    const QString nom = QStringLiteral("nom et le même prénom");
    const QString date = QStringLiteral("nom,le même prénom et la même date de naissance");
    const QString tout =
        QStringLiteral("nom,le même prénom,la même date de naissance et le même numero de sécu");
    const Identite autre{QStringLiteral("02/02/1980"), QStringLiteral("1")};
    const Identite memeDate{QStringLiteral("01/01/1980"), QStringLiteral("2")};
    const Identite nouveau{QStringLiteral("01/01/1980"), QStringLiteral("1")};
    EXPECT_EQ(LibelleDoublon({}, nouveau), QString());
    EXPECT_EQ(LibelleDoublon({autre}, nouveau), nom);
    EXPECT_EQ(LibelleDoublon({autre, memeDate}, nouveau), date);
    EXPECT_EQ(LibelleDoublon({memeDate, autre}, nouveau), nom);
    EXPECT_EQ(LibelleDoublon({memeDate, nouveau, autre}, nouveau), tout);
}

TEST(AlerteNonHonore, MessageOnAPickAndColourOnActivation) {
    using enum CouleurPatient;
    struct {
        NonHonore drapeau;
        bool alerte = false;
        CouleurPatient auChoix = Inchangee;
        CouleurPatient alActivation = Inchangee;
    } const cas[] = {{std::nullopt, false, Inchangee, Inchangee},
                     {false, false, ParDefaut, ParDefaut},
                     {true, true, Inchangee, Rouge}};
    for (const auto &c : cas) {
        EXPECT_EQ(AlerteAuChoix(c.drapeau), c.alerte);
        EXPECT_EQ(CouleurAuChoix(c.drapeau), c.auChoix);
        EXPECT_EQ(CouleurALActivation(c.drapeau), c.alActivation);
    }
}

#include "schedule/NomConfiguration.h"
#include "schedule/TrancheHoraire.h"
#include "support/Livre.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

/// Four hours, any of which may be missing ("-").
Configuration config(int intervalle, const QString &horaires) {
    const QList<QByteArray> mots = horaires.toLatin1().split(' ');
    return configDe({.intervalle = intervalle, .heures = {mots[0], mots[1], mots[2], mots[3]}});
}

Horaires heures(const QString &texte) {
    return HorairesDe(config(0, texte));
}

} // namespace

TEST(TrancheHoraire, ReadsTypedHours) {
    EXPECT_EQ(LitHeure(QStringLiteral("9H")), QTime(9, 0));
    EXPECT_EQ(LitHeure(QStringLiteral("23:59")), QTime(23, 59));
    for (const char *texte : {"09:30", " 9:30 ", "9h30", "09h30", "930", "0930"}) {
        EXPECT_EQ(LitHeure(q(texte)), QTime(9, 30)) << texte;
    }
    for (const char *texte : {"24:00", "24h", "9", "93", "00930", "9h3", "", ":", "h", "8:5", "-8:00",
                              "08:00:00", "12:60", "1260", "١٢:٠٠"}) {
        EXPECT_EQ(LitHeure(q(texte)), std::nullopt) << texte;
    }
}

TEST(TrancheHoraire, ReadsTypedDates) {
    for (const char *texte : {"02/12/2026", " 2/12/26 ", "2-12-2026", "2.12.26", "02122026",
                              "mercredi 02 déc. 2026", "Lundi 2 Décembre 2026", "2 déc. 2026"}) {
        EXPECT_EQ(LitDate(q(texte)), QDate(2026, 12, 2)) << texte;
    }
    for (const char *texte :
         {"", "2/12", "2/12-26", "2/12/026", "2122026", "31/02/2026", "12/31/2026", "demain 02 déc. 2026",
          "02 dec 2026", "31/12/1899", "01/01/3000", "2026-12-02", "٠٢/١٢/٢٠٢٦"}) {
        EXPECT_EQ(LitDate(q(texte)), std::nullopt) << texte;
    }
}

TEST(TrancheHoraire, ArrowsStopAtTheirBounds) {
    for (const QStringList &c : tableau(R"(
        a step down over the hour                | 08:00 12:00 14:00 18:00 | 2 - | 13:55
        morning start meets its end              | 12:00 12:00 14:00 18:00 | 0 + |
        morning start at midnight                | 00:00 12:00 14:00 18:00 | 0 - |
        an empty day stays                       | 08:00 08:00 08:00 08:00 | 0 - |
        morning end meets the afternoon          | 08:00 14:00 14:00 18:00 | 1 + |
        morning end comes down to its start      | 08:00 08:05 14:00 18:00 | 1 - | 08:00
        and not below                            | 08:00 08:00 14:00 18:00 | 1 - |
        afternoon end up to 23:00                | 08:00 12:00 14:00 22:55 | 3 + | 23:00
        and not beyond                           | 08:00 12:00 14:00 23:00 | 3 + |
        a typed hour does not jump its neighbour | 08:03 08:06 14:00 18:00 | 0 + |
        nor midnight                             | 00:03 12:00 14:00 18:00 | 0 - |
        nor 23:00 above a missing hour           | 08:00 12:00 23:00 -     | 2 + |
        a missing hour stays missing             | - 12:00 14:00 18:00     | 0 + |)")) {
        const Fleche fleche = c[2].endsWith(u'+') ? Fleche::Augmenter : Fleche::Diminuer;
        const auto apres = HeureApresFleche(heures(c[1]), size_t(c[2].left(1).toInt()), fleche);
        EXPECT_EQ(apres.value_or(QTime()).toString(q("HH:mm")), c[3]) << c[0];
    }
}

TEST(TrancheHoraire, TipsShowTheNextSlotBoundaryThatBoundsMustMeet) {
    for (const QStringList &c : tableau(R"(
        15         | 08:00 12:00 14:00 18:00 | 12:00 14:00 18:00 |
        25         | 08:00 12:00 14:00 18:00 | 12:10 14:15 18:00 | fin du matin
        20         | 08:00 12:00 13:50 18:00 | 12:00 14:00 18:00 | début de l'après-midi
        45         | 08:00 23:45 23:50 23:55 | 23:45 00:30 00:30 | début de l'après-midi
        20         | 08:00 12:00 14:00 18:10 | 12:00 14:00 18:20 | fin de l'après-midi
        60         | 08:30 12:00 12:00 23:50 | 12:30 12:30 00:30 | fin du matin
        15         | 08:00 - 14:05 07:00     | - 14:15 14:15     | ?
        2147483647 | 08:00 08:00 14:00 18:00 | 08:00 10:07 10:07 | début de l'après-midi
        0          | 08:00 12:00 14:00 18:00 | - - -             | fin du matin
        15         | - 12:00 14:00 18:00     | - - -             | ?)")) {
        const auto bulles = MajInfoBulles(heures(c[1]), c[0].toInt());
        QStringList textes{bulles[0], bulles[1], bulles[2]};
        EXPECT_EQ(textes.replaceInStrings(QRegularExpression(q("^$")), q("-")).join(u' '), c[2]);
        const QString dit = c[3] == u"?" ? c[3] : VerifieCoherence(config(c[0].toInt(), c[1]));
        EXPECT_TRUE(dit.contains(c[3]) && dit.isEmpty() == c[3].isEmpty()) << c[1] << dit;
    }
}

TEST(TrancheHoraire, NeedsTwoSlotsAndOrder) {
    EXPECT_TRUE(TropRapproches(config(60, q("08:00 12:00 14:00 15:00"))));
    EXPECT_FALSE(TropRapproches(config(60, q("08:00 12:00 14:00 16:00"))));
    EXPECT_EQ(PremierDesordre(heures(q("08:00 08:00 08:00 08:00"))), 0U);
    EXPECT_EQ(PremierDesordre(heures(q("08:00 15:00 14:00 18:00"))), 2U);
    EXPECT_EQ(PremierDesordre(heures(q("08:00 12:00 14:00 13:59"))), 3U);
}

TEST(NomConfiguration, AcceptsLettersDigitsAndBlanks) {
    for (const char *nom : {"Cabinet 2", "été", "ÿ", "÷", " ", "09AZaz"}) {
        EXPECT_TRUE(IsAlphaNum(q(nom))) << nom;
    }
    for (const char *nom : {"", "Été", "ß", "l'autre", "a_b", "a@", "a[", "a{", "a/", "a:", "œuf", "€", "Ω",
                            "😀", "tab\t", "a\u00A0b", "Ā"}) {
        EXPECT_FALSE(IsAlphaNum(q(nom))) << nom;
    }
    EXPECT_TRUE(NomValide(QString(255, u'x')));
    EXPECT_FALSE(NomValide(QString(256, u'x')));
}

TEST(NomConfiguration, AChairIsUpToFourDigits) {
    for (const char *fauteuil : {"0", "12", "9999"}) {
        EXPECT_TRUE(FauteuilValide(q(fauteuil))) << fauteuil;
    }
    for (const char *fauteuil : {"", "12345", "-1", "1,5", "1a", " 1", "٣", "²"}) {
        EXPECT_FALSE(FauteuilValide(q(fauteuil))) << fauteuil;
    }
}

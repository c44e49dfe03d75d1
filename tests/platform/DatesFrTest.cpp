#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGridModel.h"
#include "platform/ui/Twips.h"

#include "support/Texte.h"
#include <gtest/gtest.h>

TEST(DatesFr, SpellsInFrenchWhateverTheLocale) {
    const QDate date(2026, 2, 4);
    EXPECT_EQ(DatesFr::enteteJourLong(QDate(2026, 8, 1)), q("samedi 01 août"));
    EXPECT_EQ(DatesFr::jourComplet(date), q("mercredi 04 févr. 2026"));
    EXPECT_EQ(DatesFr::jourImprime(QDate(2005, 2, 7)), q("lundi 07 février 2005"));
    EXPECT_EQ(DatesFr::etat(QDate(2026, 12, 25)), q("25 déc. 2026"));
    EXPECT_EQ(DatesFr::heure(QTime(9, 5, 59)), q("09:05"));
    EXPECT_EQ(DatesFr::heure(QTime()), QString());
}

TEST(Units, AreTwipsAndWindowsColours) {
    EXPECT_EQ(pixelsFromTwips(1207), 80);
    EXPECT_EQ(pixelsFromTwips(-8), -1);
    EXPECT_EQ(QColor(couleurWindows(0xFF8000)), QColor(0, 128, 255));
}

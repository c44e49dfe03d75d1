#include "platform/db/TextOrder.h"

#include <QByteArray>
#include <gtest/gtest.h>
#include <vector>

TEST(TextOrder, PutsTextsInFrenchAlphabeticalOrder) {
    // Each comes before all that follow it.
    const std::vector<QByteArray> ordered = {
        "",    "D'ARC", "DE BOIS", "DEBOIS", "Edith",  "ELODIE", "élodie", "Élodiea", "émile", "Emma", "ete",
        "été", "ETEZ",  "oe",      "œ",      "Oeuvre", "œuvres", "zola",   "zolà",    "Ωmega", "😀"};
    for (size_t i = 0; i < ordered.size(); ++i) {
        for (size_t j = 0; j < ordered.size(); ++j) {
            const int expected = int(i > j) - int(i < j);
            const int order = compareTexts(ordered[i], ordered[j]);
            EXPECT_EQ((order > 0) - (order < 0), expected) << ordered[i].data() << " / " << ordered[j].data();
        }
    }
}

TEST(TextOrder, CaseAloneMakesTextsEqual) {
    EXPECT_EQ(compareTexts("ÉLODIE d'Arc", "élodie D'ARC"), 0);
    EXPECT_EQ(compareTexts("ŒUVRE", "œuvre"), 0);
    EXPECT_NE(compareTexts("ŒUVRE", "oeuvre"), 0);
    EXPECT_NE(compareTexts("e\u0301", "e"), 0);
    EXPECT_NE(compareTexts("\xE9", "e"), 0); // no UTF-8
}

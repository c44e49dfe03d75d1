#include "search/CarteRDV.h"

#include "support/Texte.h"

#include <gtest/gtest.h>

TEST(CarteRDV, HoldsEightAppointmentsInsideItsFrame) {
    const LigneResultat ligne{q("lundi"), q("07 mars 2005"), q("09:00"), q("09:45")};
    for (const auto &[trouves, imprimes] : {std::pair(0, 0), std::pair(8, 8), std::pair(9, 8)}) {
        const Page page = CarteRDV(q(" DUPONT "), q("Jean "), QList<LigneResultat>(trouves, ligne));
        ASSERT_EQ(page.texts.size(), imprimes + 1);
        EXPECT_EQ(page.texts[0].text, q("Rendez-vous de DUPONT Jean"));
        EXPECT_EQ(page.texts[0].topLeft, QPoint(50, 200));
        for (int i = 1; i <= imprimes; ++i) {
            EXPECT_EQ(page.texts[i].text, q("lundi  07 mars 2005\t\t\t09:00"));
            EXPECT_EQ(page.texts[i].topLeft, QPoint(50, 430 + i * 230)) << "an empty line first";
        }
        ASSERT_EQ(page.rectangles.size(), 2);
        EXPECT_EQ(page.rectangles[0].area, QRect(0, 100, 4500, 450));
        EXPECT_EQ(page.rectangles[0].fill, 0xFFFFFFAA) << "light yellow";
        EXPECT_EQ(page.rectangles[1].area, QRect(0, 600, 4500, 2100));
        EXPECT_EQ(page.rectangles[1].fill, 0U);
        ASSERT_EQ(page.lines.size(), 15 + 23);
        EXPECT_EQ(page.lines[14].between, QLine(4600, 2800, 4600, 2900));
        EXPECT_EQ(page.lines[15].between, QLine(0, 2900, 100, 2900));
        EXPECT_EQ(page.lines[37].between, QLine(4400, 2900, 4500, 2900));
    }
}

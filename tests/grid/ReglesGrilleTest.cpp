#include "grid/Disposition.h"
#include "grid/Fourchette.h"
#include "grid/Navigation.h"
#include "schedule/Creneaux.h"
#include "support/Livre.h"

#include <gtest/gtest.h>

TEST(Disposition, LaysOutToTheTwip) {
    const auto d = DisposeFenetre(15000, 10000);
    ASSERT_TRUE(d);
    EXPECT_EQ(d->GrilleRDV, (Rectangle{0, 0, 15000, 8800}));
    EXPECT_EQ(d->BtnMois, (Rectangle{9350, 9120, 2550, 375}));
    EXPECT_EQ(d->Frame3, (Rectangle{12050, 8880, 2325, 735}));
    EXPECT_EQ(d->GrilleRDV03, (Rectangle{7560, 0, 7440, 8800}));
    EXPECT_FALSE(DisposeFenetre(15000, 1200)) << "a small window keeps the previous one";
    EXPECT_EQ(std::pair(LargeursSemaine(8300, 9).jours, LargeursSemaine(8300, 9).heures),
              std::pair(1000, 500));
    EXPECT_EQ(std::pair(LargeursJour(6300).jours, LargeursJour(6300).heures), std::pair(5000, 1000));
    EXPECT_EQ(LargeursSemaine(8300, 0).jours, 0) << "no grid, no division by zero";
    EXPECT_EQ(LargeursSemaine(100, 9).jours, 0) << "narrower than a scroll bar";
}

TEST(Fourchette, IsCutToTheGrid) {
    for (const QStringList &cas : tableau(R"(
        above                           | -3 | 0  | .......
        on the closing row only         | 6  | 8  | .......
        cut at the top, one row left    | 0  | 1  | .L.....
        cut at the bottom, one row left | 5  | 20 | .....T.
        cut at both ends                | 0  | 6  | .MMMMM.
        end before start                | 4  | 3  | .......)")) {
        const Fourchette fourchette = CoupeFourchette(cas[1].toInt(), cas[2].toInt(), 6);
        std::string dessin;
        for (int ligne = 0; ligne <= 6; ++ligne) {
            dessin += ".DTML"[int(fourchette.forme(ligne))];
        }
        EXPECT_EQ(dessin, cas[3].toStdString()) << cas[0];
    }
    EXPECT_EQ(NomComplet(q(" D'ARC "), q("Jeanne ")), q("D'ARC Jeanne"));
}

TEST(Navigation, StaysInTheBookAndComesBackFromTheZoom) {
    EXPECT_EQ(DecaleDate(QDate(1900, 1, 8), -7), QDate(1900, 1, 1));
    EXPECT_FALSE(DecaleDate(QDate(1900, 1, 7), -7).isValid());
    EXPECT_FALSE(DecaleDate(QDate(2999, 12, 31), 1).isValid());
    int sansZoom = 0;
    EXPECT_EQ(BasculeZoom(15, sansZoom), 5);
    EXPECT_EQ(BasculeZoom(5, sansZoom), 15);
    EXPECT_EQ(BasculeZoom(5, sansZoom), 5) << "a book of 5 minutes has nothing to come back to";
}

TEST(Disposition, TwoChairsShareOneScale) {
    const Creneaux quarts{QTime(8, 0), QTime(12, 0), 15};
    const Creneaux tiers{QTime(9, 30), QTime(12, 10), 20};
    const auto [une, autre] = EchellesJour(quarts, tiers);
    EXPECT_EQ(une, (EchelleGrille{0, 15, 270, 15})) << "12:10 and a closing row of 20 minutes";
    EXPECT_EQ(autre, (EchelleGrille{90, 20, 270, 15}));
}

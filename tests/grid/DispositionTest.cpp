#include "grid/Disposition.h"

#include <gtest/gtest.h>

TEST(Disposition, LaysOutToTheTwip) {
    const auto d = DisposeFenetre(15000, 10000);
    ASSERT_TRUE(d);
    EXPECT_EQ(d->GrilleRDV, (Rectangle{0, 0, 15000, 8800}));
    EXPECT_EQ(d->Frame1, (Rectangle{50, 8880, 6500, 735}));
    EXPECT_EQ(d->BtnPrecedent, (Rectangle{150, 9120, 2025, 375}));
    EXPECT_EQ(d->BtnAujourdhui, (Rectangle{2275, 9120, 2025, 375}));
    EXPECT_EQ(d->BtnSuivant, (Rectangle{4400, 9120, 2025, 375}));
    EXPECT_EQ(d->Frame2, (Rectangle{6600, 8880, 5350, 735}));
    EXPECT_EQ(d->BtnRafraichir, (Rectangle{6700, 9120, 2550, 375}));
    EXPECT_EQ(d->BtnMois, (Rectangle{9350, 9120, 2550, 375}));
    EXPECT_EQ(d->Frame3, (Rectangle{12050, 8880, 2325, 735}));
    EXPECT_EQ(d->BtnQuitter, (Rectangle{12150, 9120, 2025, 375}));
    EXPECT_EQ(d->GrilleRDV02, (Rectangle{0, 0, 7440, 8800}));
    EXPECT_EQ(d->GrilleRDV03, (Rectangle{7560, 0, 7440, 8800}));
}

TEST(Disposition, KeepsThePreviousOneInASmallWindow) {
    EXPECT_FALSE(DisposeFenetre(15000, 1200));
    EXPECT_FALSE(DisposeFenetre(15000, 0));
    EXPECT_TRUE(DisposeFenetre(0, 1201));
}

TEST(Disposition, ColumnsShareTheWidthLessTheScrollBar) {
    const LargeursColonnes septJours = LargeursSemaine(8300, 9);
    EXPECT_EQ(septJours.jours, 1000);
    EXPECT_EQ(septJours.heures, 500);
    const LargeursColonnes jour = LargeursJour(6300);
    EXPECT_EQ(jour.heures, 1000);
    EXPECT_EQ(jour.jours, 5000);
    EXPECT_EQ(LargeursSemaine(8300, 0).jours, 0) << "no grid, no division by zero";
    EXPECT_EQ(LargeursSemaine(100, 9).jours, 0) << "narrower than a scroll bar";
}

#include "grid/Fourchette.h"

#include <gtest/gtest.h>

namespace {

/// The shapes of rows 0 … fermeture, one letter each: D, T, M, L or a dot.
std::string dessin(int premiere, int derniere, int fermeture) {
    const Fourchette f = CoupeFourchette(premiere, derniere, fermeture);
    std::string rows;
    for (int ligne = 0; ligne <= fermeture; ++ligne) {
        rows += ".DTML"[int(f.forme(ligne))];
    }
    return rows;
}

} // namespace

TEST(Fourchette, FiveCases) {
    struct Row {
        const char *name;
        int premiere;
        int derniere;
        const char *attendu;
    };
    for (const Row &row :
         {Row{"normal", 2, 4, "..TML.."}, Row{"two rows", 2, 3, "..TL..."}, Row{"one row", 5, 5, ".....D."},
          Row{"above", -3, 0, "......."}, Row{"below", 7, 9, "......."},
          Row{"on the closing row only", 6, 8, "......."}, Row{"cut at the top", -1, 3, ".MML..."},
          Row{"cut at the top, one row left", 0, 1, ".L....."}, Row{"cut at the bottom", 3, 6, "...TMM."},
          Row{"cut at the bottom, one row left", 5, 20, ".....T."}, Row{"cut at both ends", 0, 6, ".MMMMM."},
          Row{"end before start", 4, 3, "......."}}) {
        EXPECT_EQ(dessin(row.premiere, row.derniere, 6), row.attendu) << row.name;
    }
}

TEST(Fourchette, TextAndPictureNames) {
    EXPECT_EQ(TexteRDV(QStringLiteral(" D'ARC "), QStringLiteral("Jeanne"), QStringLiteral("  ")),
              QStringLiteral("  D'ARC Jeanne"));
    EXPECT_EQ(TexteRDV(QStringLiteral("%1"), QStringLiteral("%2"), QStringLiteral(" bilan ")),
              QStringLiteral("  %1 %2  [bilan]"));
    EXPECT_EQ(NomImage(FormeCellule::Top, 1), QStringLiteral("TopBleu.bmp"));
    EXPECT_EQ(NomImage(FormeCellule::Dbl, 7), QStringLiteral("DblBleuF.bmp"));
    EXPECT_EQ(NomImage(FormeCellule::Low, 6), QStringLiteral("LowBrown.bmp"));
    EXPECT_EQ(NomImage(FormeCellule::Mid, 8), QString());
}

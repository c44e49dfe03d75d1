#include "grid/BandeauMois.h"
#include "support/Fenetre.h"

#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// Chair 1 from 8:00 in quarters, chair 2 from 9:30 in slots of 20 minutes, both until 12:00 and from 14:00.
class BandeauTest : public testing::Test, public Fenetre {
  protected:
    BandeauTest() {
        livre.config({.intervalle = 15});
        livre.config({.nom = "Cabinet2",
                      .fauteuil = 2,
                      .intervalle = 20,
                      .heures{"09:30:00", "12:00:00", "14:00:00", "18:10:00"}});
        livre.rdv({.debut = "08:00:00", .fin = "12:00:00"});
        livre.rdv({.debut = "11:00:00", .fin = "15:00:00", .fauteuil = 2}); // two hours of it in the break
        livre.rdv({.jour = "2026-03-10", .praticien = "02"});
        livre.rdv({.debut = "midi", .jour = "2026-03-10"});
        ouvre();
        fait(q("BtnJour"));
    }
    QAbstractButton &jour(int numero) const {
        return *objet<BandeauMois>("BandeauMois1").findChildren<QAbstractButton *>()[numero - 1];
    }
};

} // namespace

TEST_F(BandeauTest, SaysHowFullTheDaysAreAndGoesThere) {
    EXPECT_GT(jour(11).height(), fenetre->fontMetrics().height());
    EXPECT_EQ(jour(11).accessibleName(),
              q("mercredi 11 mars, rempli à 40 pour cent")); // 360 of 880 minutes
    EXPECT_EQ(jour(10).accessibleName(), q("mardi 10 mars, rempli à 0 pour cent"));
    EXPECT_EQ(jour(14).accessibleName(), q("samedi 14 mars, repos"));
    fait(q("touche Home"));
    jour(31).click();
    EXPECT_EQ(etat().substr(etat().find("---- ")), "---- 31 mars 2026");
    fait(q("BtnSuivant2"));
    EXPECT_TRUE(jour(30).isVisible());
    EXPECT_FALSE(jour(31).isVisible()) << "April";
    fait(q("BtnSemaine"));
    EXPECT_FALSE(objet<BandeauMois>("BandeauMois1").isVisible());
}

TEST_F(BandeauTest, OneHourIsAtOneHeight) {
    for (const int hauteur : {500, 900, 1600}) { // scrolled, fitting, with room to spare
        fenetre->resize(1200, hauteur);
        QCoreApplication::processEvents();
        for (const int haut : {0, 60}) {
            grille(1).verticalScrollBar()->setValue(haut);
            EXPECT_EQ(grille(1).rowViewportPosition(15), grille(2).rowViewportPosition(7)) << "11:30";
            EXPECT_EQ(grille(1).rowViewportPosition(31), grille(2).rowViewportPosition(19)) << "15:30";
        }
    }
    QTest::mouseClick(grille(2).viewport(), Qt::LeftButton, {}, QPoint(200, 5)); // before the chair opens
    EXPECT_FALSE(grille(2).outline());
    fait(q("BtnSemaine"));
    fait(q("docteur 1"));
    EXPECT_EQ(grille(0).rowHeight(1), grille(0).rowHeight(2));
}

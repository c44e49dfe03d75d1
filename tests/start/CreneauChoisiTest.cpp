#include "support/Fenetre.h"
#include "support/Gestes.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QListWidget>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1 on Wednesday 2026-03-11, chairs 1 and 2, slots of 60 minutes; Saturday is neither greyed
/// nor displayed.
class CreneauChoisiTest : public testing::Test, public Fenetre {
  protected:
    CreneauChoisiTest() {
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        cabinet.ouvre(Base::Parametres)
            .execute(SqlText("update Praticien set PreNom = '', nom = 'UN' where codeprat = 1"));
        livre.config({.grise = {0, 0, 0, 0, 0, 0, 3}});
        livre.config({.nom = "Cabinet2", .fauteuil = 2, .defaut = false});
    }
    /// Opens the search, looks from `jour` on and picks an entry; `ajouter` happens in the add window. Gives
    /// how many entries the search is left with, -1 when it was closed.
    int choisit(const char *jour, int entree, const std::function<void(QWidget &)> &ajouter) {
        int reste = -1;
        pendant("mnuRDVlibre", [&](QWidget &recherche) {
            auto &liste = controle<QListWidget>(recherche, q("List1"));
            ::joue(recherche, q("DTPicker1=%1;>BtnOK").arg(q(jour)));
            EXPECT_TRUE(waitUntil([&] { return liste.count() > entree; }));
            bool vu = false;
            QTimer::singleShot(0, qApp, [&] {
                QWidget *dialogue = QApplication::activeModalWidget();
                if (dialogue != nullptr && dialogue->objectName() == q("FrmAjouter")) {
                    vu = true;
                    ajouter(*dialogue);
                    dialogue->close();
                }
            });
            const QRect place = liste.visualItemRect(liste.item(entree));
            QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, place.center());
            EXPECT_TRUE(vu) << "no add window";
            reste = recherche.isVisible() ? liste.count() : -1;
        });
        return reste;
    }
    static void reserve(const QWidget &ajouter) { ::joue(ajouter, q("Text1=MARTIN;>BtnAjouter")); }
};

} // namespace

TEST_F(CreneauChoisiTest, IsShownBehindAndBooked) {
    livre.rdv();
    livre.execute(SqlText("update RDV set NumPatient = 41, Description = 'Pose bague'"));
    ouvre();
    fait(q("clic 2,3"));
    EXPECT_EQ(choisit("18/03/2026", 3,
                      [&](QWidget &ajouter) {
                          EXPECT_EQ(etat(), "docteur UN 0 0 A--- 18 mars 2026 11:00 / 12:00");
                          EXPECT_EQ(grilles(), "12x7 lundi 16 mars: [4,3-4,3]");
                          reserve(ajouter);
                      }),
              -1);
    EXPECT_EQ(etat(), "docteur UN 0 0 -ESP 18 mars 2026 11:00 / 12:00 MARTIN");
    const Records ecrit = livre.ouvre().query(
        SqlText("select Date1, HeureDebut, HeureFin, Professionnel, NumPatient, Description from RDV where "
                "Nom = 'MARTIN'"));
    ASSERT_EQ(ecrit.count(), 1);
    QStringList champs;
    for (int i = 0; i < ecrit.fields().size(); ++i) {
        champs << ecrit.at(0, i).toText();
    }
    EXPECT_EQ(champs.join(u'|'), q("2026-03-18|11:00:00|12:00:00|1|0|")) << "nothing of the one before";
    EXPECT_EQ(choisit("19/03/2026", 0, [](QWidget &) {}), -1) << "closed, though nothing was booked";
    EXPECT_EQ(etat(), "docteur UN 0 0 A--- 19 mars 2026 08:00 / 09:00");
    EXPECT_EQ(dits(), "");
}

TEST_F(CreneauChoisiTest, TakenMeanwhile) {
    ouvre();
    const auto prise = [&](QWidget &ajouter) {
        livre.rdv({.debut = "08:00:00", .fin = "10:00:00"});
        reserve(ajouter);
        EXPECT_TRUE(ajouter.isVisible());
        EXPECT_EQ(dits().find("Vous ne pouvez ajouter de rendez-vous à cet endroit."), 0U);
    };
    EXPECT_EQ(choisit("11/03/2026", 1, prise), 6) << "the list made anew: 10:00, 11:00 and the afternoon";
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 1,3 ROUX");

    pendant("mnuRDVlibre", [&](QWidget &recherche) {
        auto &liste = controle<QListWidget>(recherche, q("List1"));
        ::joue(recherche, q("DTPicker1=12/03/2026;>BtnOK"));
        EXPECT_TRUE(waitUntil([&] { return liste.count() > 0; }));
        livre.execute(SqlText("update Config set Fauteuil = 7 where Fauteuil = 1"));
        QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, liste.visualItemRect(liste.item(0)).center());
        EXPECT_EQ(dits(), "Ce praticien n'a plus de configuration pour ce fauteuil.");
        EXPECT_TRUE(waitUntil([&] { return recherche.findChild<QWidget *>(q("BtnOK"))->isEnabled(); }));
        EXPECT_EQ(liste.count(), 0);
    });
}

TEST_F(CreneauChoisiTest, ADayThatTheWeekLeavesOut) {
    ouvre();
    EXPECT_EQ(choisit("14/03/2026", 0, reserve), -1);
    EXPECT_EQ(etat(), "docteur UN 0 0 -ESP 14 mars 2026 08:00 / 09:00 MARTIN");
    EXPECT_EQ(grilles(),
              "12x2 samedi 14 mars Fauteuil 1: 1,1 MARTIN [1,1-1,1]; 12x2 samedi 14 mars Fauteuil 2:");
    fait(q("clic 3,1 2"));
    EXPECT_EQ(choisit("16/03/2026", 0,
                      [&](QWidget &) {
                          EXPECT_EQ(grilles(),
                                    "12x2 lundi 16 mars Fauteuil 1:; 12x2 lundi 16 mars Fauteuil 2: "
                                    "[1,1-1,1]");
                      }),
              -1)
        << "the chair of the selected grid";
    fait(q("BtnSemaine"));
    livre.execute(SqlText("delete from Config where Fauteuil = 2"));
    EXPECT_EQ(choisit("21/03/2026", 0, reserve), -1);
    EXPECT_EQ(etat(), "docteur UN 0 0 ---- 21 mars 2026") << "his only chair has no day view";
    EXPECT_EQ(dits(),
              "Le rendez-vous du samedi 21 mars 2026, de 08:00 à 09:00, n'est montré ni par la semaine "
              "ni par le jour.");
}

#include "support/Fenetre.h"
#include "support/Gestes.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QListWidget>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1 at chairs 1 and 2, 60-minute slots, Wednesday 10:05; the pinboard beside the week.
class ReplacerTest : public testing::Test, public Fenetre {
  protected:
    ReplacerTest() {
        cabinet.ouvre(Base::Parametres).execute(SqlText("delete from Praticien where codeprat > 1"));
        cabinet.ouvre(Base::Parametres).execute(SqlText("update Praticien set PreNom = '', nom = 'P'"));
        livre.config({.intervalle = 60});
        livre.config({.nom = "Cabinet2", .fauteuil = 2, .defaut = false});
    }
    QListWidget &liste() const { return objet<QListWidget>("ListeReplacer"); }
    /// "" while it is hidden.
    std::string volet() const {
        QStringList textes;
        for (int i = 0; i < liste().count(); ++i) {
            textes << liste().item(i)->text().replace(u'\n', u'|');
        }
        return (liste().isVisible() ? q("+") + textes.join(u';') : textes.join(u';')).toStdString();
    }
    int epingles() const {
        const auto &blocs = grille().cells().blocks();
        return int(std::ranges::count_if(blocs, &FlexBlock::pinned));
    }
};

} // namespace

TEST_F(ReplacerTest, SetAsidePlacedUndoneAndStillThereAfterARestart) {
    livre.rdv({.nom = "ROUX", .debut = "11:00:00", .fin = "12:00:00"});
    livre.rdv({.nom = "DUR", .debut = "15:00:00", .fin = "16:30:00"});
    ouvre();
    EXPECT_EQ(volet(), "");
    const int large = grille().width();
    joue(R"(
        clic 4,3      |
        touche Ctrl+X | docteur P 0 0 -ESP 11 mars 2026 11:00 / 12:00 ROUX)");
    EXPECT_EQ(volet(), "+ROUX|mer. 11 mars 11:00 · 60 min|en attente depuis 0 minute");
    EXPECT_EQ(epingles(), 1);
    EXPECT_TRUE(waitUntil([&] { return grille().width() < large; })) << "it takes room of its own";
    cabinet.maintenant = cabinet.maintenant.addSecs(3600);
    fait(q("clic 8,3"));
    fait(q("touche Ctrl+X"));
    fenetre.reset();
    ouvre();
    EXPECT_EQ(volet(),
              "+ROUX|mer. 11 mars 11:00 · 60 min|en attente depuis 1 heure;DUR|mer. 11 mars 15:00 · 90 "
              "min|en attente depuis 0 minute");
    EXPECT_EQ(liste().accessibleName(), q("À replacer, 2 en attente"));
    liste().setCurrentRow(1);
    joue(R"(
        clic 2,4      |
        touche Ctrl+V | docteur P 0 0 -ESP 12 mars 2026 09:00 / 10:30 DUR
        clic 1,5      |
        touche Ctrl+V | docteur P 0 0 -ESP 13 mars 2026 08:00 / 09:00 ROUX)");
    EXPECT_EQ(volet(), "");
    EXPECT_EQ(epingles(), 0);
    joue(R"(
        touche Ctrl+Z | docteur P 0 0 -ESP 11 mars 2026 11:00 / 12:00 ROUX)");
    EXPECT_EQ(volet(), "+ROUX|mer. 11 mars 11:00 · 60 min|en attente depuis 1 heure");
    joue("touche Ctrl+Y |");
    EXPECT_EQ(volet(), "");
    EXPECT_EQ(dits(), "");
}

TEST_F(ReplacerTest, WhatBecameOfItIsToldAndItsKeysAreTheListsOwn) {
    const qint64 ref = livre.rdv({.nom = "ROUX", .debut = "11:00:00", .fin = "12:00:00"});
    ouvre();
    fait(q("clic 4,3"));
    fait(q("touche Ctrl+X"));
    livre.rdv({.nom = "PRIS", .debut = "15:30:00", .fin = "16:00:00"});
    livre.execute(SqlText("update RDV set HeureDebut = '14:00:00', HeureFin = '15:00:00' where RefRDV = ")
                  << nombre(ref));
    fait(q("mnuRafraichir"));
    EXPECT_EQ(volet(), "+ROUX|mer. 11 mars 11:00 · 60 min|déplacé depuis : mer. 11 mars 14:00");
    EXPECT_EQ(epingles(), 0);
    liste().setCurrentRow(0);
    fait(q("clic 3,4"));
    fait(q("mnuPoser"));
    EXPECT_EQ(dits(), "ROUX : déplacé depuis : mer. 11 mars 14:00.");
    QTest::keyClick(&liste(), Qt::Key_Return);
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP 11 mars 2026 14:00 / 15:00 ROUX");
    QTest::keyClick(&liste(), Qt::Key_Delete);
    EXPECT_EQ(volet(), "") << "off the list, and no window asks whether to delete";
    EXPECT_EQ(livre.ouvre().query(SqlText("select RefRDV from RDV")).count(), 2);
    fait(q("touche Ctrl+X"));
    fait(q("clic 7,3")); // 14:00 is taken by then
    fait(q("mnuReplacer"));
    EXPECT_FALSE(liste().isVisible());
    fait(q("mnuRafraichir"));
    EXPECT_FALSE(liste().isVisible()) << "closed by hand";
    fait(q("mnuReplacer"));
    EXPECT_TRUE(liste().isVisible());
    for (QWidget *la : {&objet<QWidget>("VoletReplacer"), &objet<QWidget>("menubar")}) {
        const QPoint ici(la->width() / 2, 5);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, ici, la->mapToGlobal(ici));
        QApplication::sendEvent(la, &menu);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "no menu that hides it behind our back";
    }
    livre.execute(
        SqlText("update RDV set HeureFin = '16:30:00', HeureDebut = '15:59:00' where Nom = 'PRIS'"));
    joue("clic 2,4 |");
    livre.rdv({.nom = "LA", .debut = "09:30:00", .fin = "10:00:00", .jour = "2026-03-12"});
    fait(q("touche Ctrl+V"));
    EXPECT_NE(dits().find("Un rendez-vous s'y trouve déjà."), std::string::npos);
    EXPECT_EQ(epingles(), 1) << "it stays where it was";
    EXPECT_EQ(questions(), "") << "of what is refused nothing is asked";
    quandMeme = false;
    fait(q("clic 2,1"));
    fait(q("mnuPoser"));
    EXPECT_EQ(questions(), "Déplacer ce rendez-vous ?") << "that day is past";
    EXPECT_EQ(epingles(), 1) << "Revenir: nothing has moved";
}

#include "start/Touches.h"
#include "support/Fenetre.h"
#include "support/Gestes.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFile>
#include <QKeySequence>
#include <QMenu>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1 with chairs 1 and 2 of 60-minute slots, practitioner 2 without chairs.
class TouchesTest : public testing::Test, public Fenetre {
  protected:
    TouchesTest() {
        cabinet.ouvre(Base::Parametres).execute(SqlText("delete from Praticien where codeprat > 2"));
        cabinet.ouvre(Base::Parametres).execute(SqlText("update Praticien set PreNom = '', nom = 'P'"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        livre.config();
        livre.config({.nom = "Cabinet2", .fauteuil = 2, .defaut = false});
        livre.config({.nom = "Principal", .fauteuil = 0, .praticien = "02"});
    }
    std::string heures() const {
        QStringList toutes;
        for (const Record row : livre.ouvre().query(SqlText("select * from RDV order by RefRDV"))) {
            toutes << row[u"HeureDebut"].toText().left(5) + u'-' + row[u"HeureFin"].toText().left(5);
        }
        return toutes.join(u' ').toStdString();
    }
};

} // namespace

TEST_F(TouchesTest, TheReadmeHasTheListAndTheListTheActions) {
    QFile lisezmoi(q(LISEZMOI));
    ASSERT_TRUE(lisezmoi.open(QIODevice::ReadOnly));
    const QString texte = QString::fromUtf8(lisezmoi.readAll());
    QStringList ecrites; // the first cell of each row below the table's heading
    for (const QString &ligne : texte.section(q("| Key |"), 1).section(q("\n\n"), 0, 0).split(u'\n').mid(2)) {
        ecrites << ligne.section(u'|', 1, 1).remove(u'`').simplified();
    }
    ouvre();
    QStringList listees;
    QStringList vues;
    for (const Touche &touche : Touches()) {
        const QStringList suites = SuitesDe(touche);
        listees << (suites.size() > 4 ? suites.first() + q(" … ") + suites.last() : suites.join(u' '));
        vues << (touche.portee == PorteeTouche::RendezVous ? QStringList() : suites);
        const auto *action = fenetre->findChild<QAction *>(q(touche.action));
        EXPECT_TRUE(touche.action[0] == '\0' || q(touche.action) == q("menuFaut") ||
                    q(touche.action) == q("mnuZoom") ||
                    (action != nullptr && action->shortcuts().size() == suites.size() &&
                     action->shortcut().toString() == suites[0]))
            << touche.action;
        EXPECT_FALSE(touche.repetee && action->text().endsWith(u'.')) << touche.action << " opens a window";
    }
    EXPECT_EQ(ecrites.join(u'\n'), listees.join(u'\n'));
    EXPECT_EQ(vues.removeDuplicates(), 0);
}

TEST_F(TouchesTest, KeysGoWhereTheirMenusGo) {
    ouvre();
    joue(R"(
        clic 2,3      |                                                | 12x7 lundi 09 mars: [2,3-2,3]
        touche Ctrl++ |                                                | 122x7 lundi 09 mars: [13,3-24,3]
        touche Ctrl++ |                                                | 122x7 lundi 09 mars: [13,3-24,3]
        touche Ctrl+- |                                                | 12x7 lundi 09 mars: [2,3-2,3]
        touche Ctrl+- |                                                | 12x7 lundi 09 mars: [2,3-2,3]
        touche Alt+2  | docteur P 0 1 A--- 11 mars 2026 09:00 / 10:00
        touche Alt+&  | docteur P 0 0 A--- 11 mars 2026 09:00 / 10:00
        touche Alt+9  | docteur P 0 0 A--- 11 mars 2026 09:00 / 10:00
        docteur 1     | docteur P 1 - A--- 11 mars 2026 09:00 / 10:00
        touche Alt+1  | docteur P 0 0 A--- 11 mars 2026 09:00 / 10:00
        touche Alt+é  | docteur P 0 1 A--- 11 mars 2026 09:00 / 10:00
        touche Ctrl+J | docteur P 0 1 A--- 11 mars 2026 09:00 / 10:00)");
    QTest::keyClick(&grille(1), Qt::Key_1, Qt::AltModifier | Qt::KeypadModifier);
    EXPECT_EQ(etat(), "docteur P 0 1 A--- 11 mars 2026 09:00 / 10:00") << "the numeric pad types characters";
    QStringList volets;
    grille(1).setFocus();
    for (const Qt::KeyboardModifiers maj :
         {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) {
        QTest::keyClick(fenetre->focusWidget(), Qt::Key_F6, maj);
        volets << fenetre->focusWidget()->objectName();
    }
    EXPECT_EQ(volets.join(u' '), q("GrilleRDV03 BtnPrecedent2 GrilleRDV02 BtnPrecedent2"));
    fait(q("mnuContemporaine"));
    grille(1).setFocus();
    QTest::keyClick(fenetre->focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(fenetre->focusWidget()->objectName(), q("OutilPrecedent"));
    fait(q("mnuClassique"));
    grille(1).setFocus();
    joue("touche Ctrl+S");
    for (const char *touche : {"touche Shift+F10", "touche Menu"}) {
        fait(q(touche));
        EXPECT_TRUE(objet<QMenu>("mnupatient").isVisible()) << touche;
        objet<QMenu>("mnupatient").close();
    }
    pendant("touche F1", [](QWidget &page) {
        EXPECT_EQ(controle<QTableWidget>(page, q("ListeTouches")).rowCount(), int(Touches().size()));
    });
    pendant("touche Ctrl+G", [](QWidget &mois) {
        EXPECT_EQ(mois.focusWidget()->objectName(), q("DTPicker1"));
        QTest::keyClicks(mois.focusWidget(), q("25.12.26"));
        QTest::keyClick(mois.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(etat(), "docteur P 0 0 ---- 25 déc. 2026");
    pendant("touche Ctrl+G", [this](QWidget &mois) {
        QTest::keyClicks(mois.focusWidget(), q("31/02"));
        QTest::keyClick(mois.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(dits(), "Cette date n'est pas valide. Veuillez la saisir sous la forme 02/12/2026.");
        EXPECT_TRUE(mois.isVisible());
    });
}

TEST_F(TouchesTest, PlusAndMinus) {
    livre.rdv({.fin = "09:30:00"});
    livre.rdv({.nom = "SUIVANT", .debut = "11:00:00", .fin = "12:00:00"});
    livre.rdv({.nom = "DERNIER", .debut = "23:00:00", .fin = "23:30:00"});
    ouvre();
    joue(R"(
        clic 6,3 |                                                       | 12x7 lundi 09 mars: 2,3 ROUX 4,3 SUIVANT [6,3-6,3]
        touche + | docteur P 0 0 A--- 11 mars 2026 13:00 / 15:00         | 12x7 lundi 09 mars: 2,3 ROUX 4,3 SUIVANT [6,3-7,3]
        touche = | docteur P 0 0 A--- 11 mars 2026 13:00 / 16:00
        touche - | docteur P 0 0 A--- 11 mars 2026 13:00 / 15:00
        touche - | docteur P 0 0 A--- 11 mars 2026 13:00 / 14:00
        touche - | docteur P 0 0 A--- 11 mars 2026 13:00 / 14:00
        clic 3,3 | docteur P 0 0 A--- 11 mars 2026 10:00 / 11:00
        touche + | docteur P 0 0 A--- 11 mars 2026 10:00 / 11:00
        clic 10,3 |
        touche + | docteur P 0 0 A--- 11 mars 2026 17:00 / 18:00
        clic 2,3 |
        touche - | docteur P 0 0 -ESP 11 mars 2026 09:00 / 09:30 ROUX
        touche + | docteur P 0 0 -ESP 11 mars 2026 09:00 / 10:30 ROUX    | 12x7 lundi 09 mars: 2,3 ROUX 4,3 SUIVANT [2,3-3,3]
        touche - | docteur P 0 0 -ESP 11 mars 2026 09:00 / 10:00 ROUX)");
    EXPECT_EQ(heures() + dits(), "09:00-10:00 11:00-12:00 23:00-23:30");
    livre.rdv({.nom = "PRIS", .debut = "10:15:00", .fin = "10:45:00"}); // elsewhere, and not drawn yet
    joue("touche + | docteur P 0 0 -ESP 11 mars 2026 09:00 / 10:00 ROUX | 12x7 lundi 09 mars: 2,3 ROUX 3,3 "
         "PRIS "
         "4,3 SUIVANT [2,3-2,3]");
    EXPECT_EQ(dits(), "Le créneau choisit n'est pas libre!");
    livre.execute(SqlText("update RDV set Telephone = '01' where Nom = 'ROUX'"));
    fait(q("touche +"));
    EXPECT_EQ(dits().find("Ce rendez-vous a été modifié sur un autre poste."), 0U);
    livre.execute(SqlText("delete from RDV where Nom = 'ROUX'"));
    joue("touche + | docteur P 0 0 A--- 11 mars 2026 09:00 / 10:00");
    EXPECT_EQ(dits(), "Ce rendez-vous n'existe plus !");
    EXPECT_EQ(heures(), "11:00-12:00 23:00-23:30 10:15-10:45");
}

TEST_F(TouchesTest, ThereIsOneWritingToAKeyAndNoneOutsideTheGrids) {
    livre.rdv();
    ouvre();
    fait(q("clic 2,3"));
    const auto tenue = [&](QWidget &ou, Qt::Key touche, const char *texte) {
        QTest::keyPress(&ou, touche);
        for (int i = 0; i < 3; ++i) {
            QKeyEvent encore(QEvent::ShortcutOverride, touche, {}, q(texte), true);
            QKeyEvent pressee(QEvent::KeyPress, touche, {}, q(texte), true);
            QApplication::sendEvent(&ou, &encore);
            QApplication::sendEvent(&ou, &pressee);
        }
        QTest::keyRelease(&ou, touche);
    };
    tenue(grille(), Qt::Key_Plus, "+");
    EXPECT_EQ(heures(), "09:00-11:00");
    tenue(grille(), Qt::Key_P, "p");
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP* 11 mars 2026 09:00 / 11:00 ROUX");
    auto &bouton = objet<QAbstractButton>("BtnMois");
    bouton.setFocus();
    for (const Qt::Key touche : {Qt::Key_P, Qt::Key_Plus, Qt::Key_Minus}) {
        QTest::keyClick(&bouton, touche);
    }
    EXPECT_EQ(etat() + heures(), "docteur P 0 0 -ESP* 11 mars 2026 09:00 / 11:00 ROUX09:00-11:00");
    grille().setFocus();
    Database autre = livre.ouvre();
    const Transaction verrou(autre);
    fait(q("touche -"));
    EXPECT_NE(dits().find("occupé par un autre programme"), std::string::npos);
    *cabinet.environnement().lectureSeule = q("abîmé");
    fait(q("mnuRafraichir"));
    EXPECT_FALSE(objet<QAction>("mnuAllonger").isEnabled());
    joue("clic 5,3\ntouche + | docteur P 0 0 ---- 11 mars 2026 12:00 / 14:00");
}

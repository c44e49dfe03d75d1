#include "start/GlisseRDV.h"

#include "support/Fenetre.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1, week 9 to 13 March 2026: chairs 1 (slots of an hour) and 12 (half hours from 10:00).
class GlisseTest : public testing::Test, public Fenetre {
  protected:
    GlisseTest() {
        cabinet.ouvre(Base::Parametres).execute(SqlText("delete from Praticien where codeprat > 1"));
        cabinet.ouvre(Base::Parametres).execute(SqlText("update Praticien set PreNom = '', nom = 'P'"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        livre.config();
        livre.config({.nom = "Second",
                      .fauteuil = 12,
                      .defaut = false,
                      .intervalle = 30,
                      .heures = {"10:00:00", "12:00:00", "14:00:00", "18:00:00"}});
    }
    /// The middle of a cell, or so many pixels below it, on the screen.
    QPoint point(int ligne, int colonne, int g = 0, int plusBas = 0) const {
        const FlexGrid &vue = grille(g);
        return vue.viewport()->mapToGlobal(vue.visualRect(vue.cells().index(ligne, colonne)).center()) +
               QPoint(0, plusBas);
    }
    void bouge(const QPoint &ecran, Qt::KeyboardModifiers touches = {}) const {
        QWidget *vue = grille(m_prise).viewport();
        QMouseEvent move(QEvent::MouseMove, vue->mapFromGlobal(ecran), ecran, Qt::NoButton, Qt::LeftButton,
                         touches);
        QApplication::sendEvent(vue, &move);
    }
    void prend(const QPoint &ecran, int g = 0) {
        m_prise = g;
        QWidget *vue = grille(g).viewport();
        QTest::mousePress(vue, Qt::LeftButton, {}, vue->mapFromGlobal(ecran));
    }
    void depose(const QPoint &ecran, Qt::KeyboardModifiers touches = {}) const {
        QWidget *vue = grille(m_prise).viewport();
        QTest::mouseRelease(vue, Qt::LeftButton, touches, vue->mapFromGlobal(ecran));
    }
    void glisse(const QPoint &de, const QPoint &vers, int g = 0, Qt::KeyboardModifiers touches = {}) {
        prend(de, g);
        bouge(vers, touches);
        depose(vers, touches);
    }
    Qt::CursorShape forme() const { return grille(m_prise).viewport()->cursor().shape(); }
    /// "ROUX 2026-03-11 09:00 10:00 1 0" of each row, by number.
    std::string rangs() const {
        const Records rows = livre.ouvre().query(
            SqlText("select Nom, Date1, HeureDebut, HeureFin, Fauteuil, Present, DateInv from RDV "
                    "order by RefRDV"));
        QStringList lus;
        for (const Record row : rows) {
            const QDate jour = row.at(1).toDate();
            lus << q("%1 %2 %3-%4 %5 %6")
                       .arg(row.at(0).toText())
                       .arg(jour.day())
                       .arg(row.at(2).toText().left(5), row.at(3).toText().left(5), row.at(4).toText(),
                            row.at(5).toText());
            EXPECT_EQ(row.at(6).toText(), jour.toString(q("yyyyMMdd")));
        }
        return lus.join(u'|').toStdString();
    }
    std::string annuler() const { return objet<QAction>("mnuAnnuler").text().toStdString(); }

    int m_prise = 0;
};

} // namespace

TEST_F(GlisseTest, TheWeekMovesLengthensAndBooksOnceMore) {
    livre.rdv({.present = true});
    livre.rdv({.nom = "AUTRE", .debut = "14:00:00", .fin = "15:00:00"});
    ouvre();
    glisse(point(2, 3), point(4, 5));
    EXPECT_EQ(rangs(), "ROUX 13 11:00-12:00 1 1|AUTRE 11 14:00-15:00 1 0");
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP* 13 mars 2026 11:00 / 12:00 ROUX");
    EXPECT_EQ(annuler(), "A&nnuler « Déplacer ROUX »");
    const QPoint bord = point(4, 5, 0, grille().visualRect(grille().cells().index(4, 5)).height() / 2 - 3);
    glisse(bord, bord + (point(6, 5) - point(4, 5)));
    EXPECT_EQ(rangs(), "ROUX 13 11:00-14:00 1 1|AUTRE 11 14:00-15:00 1 0");
    EXPECT_EQ(annuler(), "A&nnuler « Allonger ROUX »");
    glisse(point(7, 3), point(1, 1), 0, Qt::ControlModifier);
    EXPECT_EQ(rangs(), "ROUX 13 11:00-14:00 1 1|AUTRE 11 14:00-15:00 1 0|AUTRE 9 08:00-09:00 1 0");
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP 09 mars 2026 08:00 / 09:00 AUTRE");
    EXPECT_EQ(annuler(), "A&nnuler « Ajouter AUTRE »");
    joue("mnuAnnuler |\nmnuAnnuler |\nmnuAnnuler | docteur P 0 0 -ESP* 11 mars 2026 09:00 / 10:00 ROUX");
    EXPECT_EQ(rangs(), "ROUX 11 09:00-10:00 1 1|AUTRE 11 14:00-15:00 1 0");
    EXPECT_EQ(dits(), "");
}

TEST_F(GlisseTest, WhatIsRefusedOrLetGoWritesNothing) {
    livre.rdv();
    livre.rdv({.nom = "AUTRE", .debut = "14:00:00", .fin = "15:00:00"});
    ouvre();
    const std::string avant = rangs();
    glisse(point(2, 3), point(7, 3));
    EXPECT_EQ(dits(), "Le créneau choisit n'est pas libre!");
    glisse(point(2, 3), point(2, 3, 0, 20), 0, Qt::ControlModifier);
    EXPECT_EQ(dits(), "Vous ne pouvez ajouter de rendez-vous à cet endroit.\nUn rendez-vous s'y trouve déjà. "
                      "Veuillez rafraichir l'affichage.");
    for (const QPoint &hors : {point(11, 3), point(3, 0), point(1, 3) - QPoint(0, 90), point(2, 3) * 9}) {
        glisse(point(2, 3), hors);
    }
    prend(point(2, 3));
    bouge(point(4, 4));
    EXPECT_EQ(forme(), Qt::ClosedHandCursor);
    bouge(point(7, 3));
    EXPECT_EQ(forme(), Qt::ForbiddenCursor);
    bouge(point(4, 4), Qt::ControlModifier);
    EXPECT_EQ(forme(), Qt::DragCopyCursor);
    QWheelEvent zoom(QPointF(), point(4, 4), {}, QPoint(0, 120), Qt::NoButton, Qt::ControlModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(fenetre.get(), &zoom);
    EXPECT_EQ(grille().cells().rows(), 12) << "no zoom meanwhile";
    EXPECT_LT(tique(), 1000) << "the timer waits";
    QTest::keyClick(&grille(), Qt::Key_Escape);
    EXPECT_EQ(forme(), Qt::ArrowCursor);
    depose(point(4, 4));
    EXPECT_GT(tique(), 1000);
    *cabinet.environnement().lectureSeule = q("abîmé");
    fait(q("mnuRafraichir"));
    glisse(point(2, 3), point(4, 3));
    EXPECT_EQ(etat(), "docteur P 0 0 ---- 11 mars 2026 09:00 / 10:00 ROUX") << "rows are selected";
    EXPECT_EQ(rangs(), avant);
    EXPECT_EQ(dits(), "");
}

TEST_F(GlisseTest, AnAppointmentThatAnotherDeskHasChangedIsLeftAlone) {
    const struct {
        SqlText ailleurs;
        const char *dit = nullptr;
        const char *apres = nullptr;
    } cas[] = {{SqlText("update RDV set HeureDebut = '15:00:00', HeureFin = '16:00:00'"),
                "Ce rendez-vous a été modifié sur un autre poste.", "ROUX 11 15:00-16:00 1 0"},
               {SqlText("update RDV set Present = 1"), "Ce rendez-vous a été modifié sur un autre poste.",
                "ROUX 11 09:00-10:00 1 1"},
               {SqlText("delete from RDV"), "Ce rendez-vous n'existe plus !", ""}};
    for (const auto &c : cas) {
        for (const Qt::KeyboardModifier touche : {Qt::NoModifier, Qt::ControlModifier}) {
            livre.execute(SqlText("delete from RDV"));
            livre.rdv();
            ouvre();
            prend(point(2, 3));
            bouge(point(4, 4), touche);
            livre.execute(c.ailleurs);
            depose(point(4, 4), touche);
            EXPECT_EQ(dits().find(c.dit), 0U) << c.dit;
            EXPECT_EQ(rangs(), c.apres);
            EXPECT_FALSE(objet<QAction>("mnuAnnuler").isEnabled());
        }
    }
    livre.rdv();
    ouvre();
    prend(point(2, 3));
    bouge(point(4, 4));
    livre.rdv({.nom = "PRIS", .debut = "11:00:00", .fin = "12:00:00", .jour = "2026-03-12"});
    depose(point(4, 4));
    EXPECT_EQ(dits(), "Le créneau choisit n'est pas libre!") << "taken since";
    EXPECT_EQ(rangs(), "ROUX 11 09:00-10:00 1 0|PRIS 12 11:00-12:00 1 0");
}

TEST_F(GlisseTest, AtTheEdgeTheWeekTurnsAndTheHandHolds) {
    livre.rdv();
    ouvre();
    const auto titre = [this](const char *jour) {
        return waitUntil([&] { return grille().cells().cell(0, 1).text == q(jour); });
    };
    prend(point(2, 3));
    bouge(point(2, 6));
    EXPECT_TRUE(titre("lundi 16 mars"));
    EXPECT_TRUE(titre("lundi 23 mars"));
    bouge(point(2, 0) - QPoint(2000, 0));
    EXPECT_TRUE(titre("lundi 16 mars")) << "beyond the window, too";
    depose(point(5, 1));
    EXPECT_EQ(rangs(), "ROUX 16 12:00-13:00 1 0");
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP 16 mars 2026 12:00 / 13:00 ROUX");
    prend(point(5, 1));
    bouge(point(2, 6));
    livre.execute(SqlText("drop table RDV"));
    EXPECT_TRUE(waitUntil([this] { return !grille().isDragging(); })) << "it could not be read";
    EXPECT_NE(dits(), "");
    EXPECT_EQ(grille().cells().cell(0, 1).text, q("lundi 16 mars"));
    depose(point(5, 1));
}

TEST_F(GlisseTest, TheDayMovesFromChairToChair) {
    livre.rdv();
    ouvre();
    fait(q("BtnJour"));
    glisse(point(2, 1, 1), point(4, 1, 2), 1);
    EXPECT_EQ(rangs(), "ROUX 11 11:30-12:30 12 0") << "slots of the other chair";
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP 11 mars 2026 11:30 / 12:30 ROUX");
    glisse(point(4, 1, 2), point(1, 1, 1), 2, Qt::ControlModifier);
    EXPECT_EQ(rangs(), "ROUX 11 11:30-12:30 12 0|ROUX 11 08:00-09:00 1 0");
    EXPECT_EQ(dits(), "");
}

TEST_F(GlisseTest, WhatIsOddAboutADropIsAskedOnce) {
    livre.rdv();
    ouvre();
    quandMeme = false;
    glisse(point(2, 3), point(4, 1));
    EXPECT_EQ(questions(), "Déplacer ce rendez-vous ?");
    glisse(point(2, 3), point(4, 3), 0, Qt::ControlModifier); // a second one of that day
    EXPECT_EQ(questions(), "Réserver ce rendez-vous ?");
    glisse(point(2, 3), point(4, 4));
    EXPECT_EQ(questions(), "");
    EXPECT_EQ(rangs(), "ROUX 12 11:00-12:00 1 0");
}

TEST_F(GlisseTest, ThePinboardTakesAndGives) {
    livre.rdv();
    ouvre();
    fait(q("mnuReplacer"));
    auto &liste = objet<QListWidget>("ListeReplacer");
    const QPoint centre = liste.viewport()->mapToGlobal(liste.viewport()->rect().center());
    prend(point(2, 3));
    bouge(centre);
    livre.execute(SqlText("update RDV set Telephone = '0297112233'"));
    depose(centre);
    EXPECT_NE(dits().find("modifié"), std::string::npos);
    EXPECT_EQ(liste.count(), 0);
    glisse(point(2, 3), centre);
    EXPECT_EQ(rangs(), "ROUX 11 09:00-10:00 1 0") << "it stays where it is";
    ASSERT_EQ(liste.count(), 1);
    const QPoint bord = point(2, 3, 0, grille().visualRect(grille().cells().index(2, 3)).height() / 2 - 3);
    glisse(bord, bord + (point(3, 3) - point(2, 3)));
    EXPECT_EQ(rangs(), "ROUX 11 09:00-11:00 1 0");
    ASSERT_EQ(liste.count(), 1) << "longer, and still to be placed";
    const QPoint prise = liste.visualItemRect(liste.item(0)).center();
    const auto tire = [&](const QPoint &vers, bool lache) {
        const QPoint ici = liste.viewport()->mapFromGlobal(vers);
        QTest::mousePress(liste.viewport(), Qt::LeftButton, {}, prise);
        QMouseEvent move(QEvent::MouseMove, ici, vers, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(liste.viewport(), &move);
        if (lache) {
            QTest::keyClick(&liste, Qt::Key_Escape);
        }
        QTest::mouseRelease(liste.viewport(), Qt::LeftButton, {}, ici);
    };
    tire(point(4, 4), true);
    tire(centre, false);
    EXPECT_EQ(rangs(), "ROUX 11 09:00-11:00 1 0");
    tire(point(2, 4), false);
    EXPECT_EQ(rangs(), "ROUX 12 09:00-11:00 1 0");
    EXPECT_EQ(liste.count(), 0);
    EXPECT_EQ(annuler(), "A&nnuler « Déplacer ROUX »");
    EXPECT_EQ(questions() + dits(), "");
}

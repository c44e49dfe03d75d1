#include "booking/FicheRDV.h"
#include "booking/PlaceFiche.h"
#include "platform/ui/FlexMarks.h"
#include "support/Fenetre.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// One appointment of a patient who has an act to do, at 9 on the Wednesday that is shown.
class FicheTest : public testing::Test, public Fenetre {
  protected:
    FicheTest() {
        livre.config();
        cabinet.ouvre(Base::Actes).execute(SqlText("delete from Actes"));
        cabinet.ouvre(Base::Actes)
            .execute(
                SqlText("insert into Actes (NumActe, NumPatient, AFaire, Libellé, CodeSecu, Coefficient) "
                        "values (1, 77, 1, 'Bilan', 'TO', 15)"));
        rdv = livre.rdv();
        livre.execute(
            SqlText("update RDV set NumPatient = '77', Telephone = '01 02', Description = 'Carie'"));
        ouvre();
        fait(q("clic 2,3"));
    }
    /// What the card says; nothing when none is open.
    std::string fiche() const {
        const auto *ouverte = fenetre->findChild<FicheRDV *>();
        if (ouverte == nullptr || !ouverte->isVisible()) {
            return {};
        }
        QStringList dits;
        for (const char *champ : {"FicheNom", "FicheQuand", "FicheTelephone", "FicheDescription", "FicheActe",
                                  "FicheNumPatient", "FichePresent"}) {
            dits << ouverte->findChild<QLabel *>(q(champ))->text();
        }
        return dits.join(u'|').simplified().toStdString();
    }
    QRect bloc() const {
        const QRect place = grille().blockRect(rdv);
        return {grille().viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    qint64 rdv = 0;
    const std::string pleine =
        "ROUX|mercredi 11 mars 2026 · 09:00–10:00 · 60 min|01 02|Carie|Bilan (TO 15)|77|non";
};

} // namespace

TEST_F(FicheTest, OpensByKeyAndByRestingAndCloses) {
    EXPECT_EQ(fiche(), "");
    fait(q("touche Space"));
    EXPECT_EQ(fiche(), pleine);
    EXPECT_FALSE(fenetre->findChild<FicheRDV *>()->geometry().intersects(bloc()));
    fait(q("touche Esc"));
    EXPECT_EQ(fiche(), "");
    const QPoint dedans = grille().blockRect(rdv).center();
    QTest::mouseMove(grille().viewport(), dedans);
    EXPECT_EQ(fiche(), "") << "it has to rest";
    EXPECT_TRUE(waitUntil([&] { return fiche() == pleine; }));
    QTest::mouseMove(grille().viewport(), QPoint(dedans.x(), grille().viewport()->height() - 5));
    EXPECT_EQ(fiche(), "");
    fait(q("touche Space"));
    fait(q("clic 6,3"));
    EXPECT_EQ(fiche(), "") << "a press";
    QTest::mouseMove(grille().viewport(), dedans);
    EXPECT_TRUE(waitUntil([&] { return fiche() == pleine; }));
    EXPECT_EQ(fenetre->findChild<QLabel *>(q("FicheTouches"))->text(), q("Échap : fermer"))
        << "another place is selected: no key acts on it";
    fait(q("touche Space"));
    EXPECT_EQ(fiche(), "") << "nobody is selected";
    EXPECT_EQ(dits(), "");
}

TEST_F(FicheTest, HasTheHeightOfItsOwnTextAndLeavesTheSelectionInSight) {
    fait(q("touche Space"));
    const int haute = fenetre->findChild<FicheRDV *>()->height();
    livre.execute(SqlText("update RDV set Description = ") << texte(q("mot ").repeated(60)));
    tique();
    EXPECT_TRUE(waitUntil([&] { return fenetre->findChild<FicheRDV *>()->height() > haute + 20; }));
    livre.execute(SqlText("update RDV set Description = 'Carie'"));
    tique();
    EXPECT_TRUE(waitUntil([&] { return fenetre->findChild<FicheRDV *>()->height() == haute; }));
    const QRect avant = fenetre->findChild<FicheRDV *>()->geometry();
    fait(q("clic 2,2")); // on what the card covered
    const QPoint dedans = grille().blockRect(rdv).center();
    QTest::mouseMove(grille().viewport(), QPoint(5, 5)); // wherever the pointer was
    QTest::mouseMove(grille().viewport(), dedans);
    ASSERT_TRUE(waitUntil([&] { return fiche() == pleine; }));
    const QRect choisi(grille().viewport()->mapToGlobal(grille().outlineRect().topLeft()),
                       grille().outlineRect().size());
    EXPECT_TRUE(avant.intersects(choisi));
    EXPECT_FALSE(fenetre->findChild<FicheRDV *>()->geometry().intersects(choisi));
    const QString longue = q("W").repeated(255);
    livre.execute(SqlText("update RDV set Nom = ")
                  << texte(longue) << SqlText(", Prenom = ") << texte(longue) << SqlText(", Telephone = ")
                  << texte(longue) << SqlText(", Description = ") << texte(longue));
    tique();
    EXPECT_TRUE(waitUntil([&] { return fiche().starts_with("WWW"); })) << "cut, it still says something";
}

TEST_F(FicheTest, FollowsTheBook) {
    fait(q("touche Space"));
    livre.execute(SqlText("update RDV set Present = True, Description = '', HeureDebut = '09:30:00'"));
    tique();
    EXPECT_TRUE(waitUntil([&] {
        return fiche() == "ROUX|mercredi 11 mars 2026 · 09:30–10:00 · 30 min|01 02|—|Bilan (TO 15)|77|oui";
    })) << fiche();
    livre.execute(SqlText("update RDV set Date1 = '2026-03-18', DateInv = '20260318'"));
    tique();
    EXPECT_TRUE(waitUntil([&] { return fiche().empty(); })) << "it lies in another week";
}

TEST_F(FicheTest, AReadingThatFailsLeavesNoCardThatIsWrong) {
    const QString actes = cabinet.fichier(Base::Actes);
    QFile::rename(actes, actes + u'x');
    fait(q("touche Space"));
    EXPECT_NE(fiche().find("|ne peut pas être lu|77|"), std::string::npos) << fiche();
    EXPECT_EQ(dits(), "") << "nobody asked for the act";
    QFile::rename(livre.fichier(), livre.fichier() + u'x');
    tique();
    EXPECT_EQ(fiche(), "");
}

TEST_F(FicheTest, TheHourMovesEachMinuteWithoutARedraw) {
    const auto *marques = grille().findChild<FlexMarksLayer *>();
    EXPECT_EQ(marques->marks().nowText, q("10:05"));
    const int avant = marques->marks().nowLine.top();
    int redessins = 0;
    QObject::connect(&grille().cells(), &QAbstractItemModel::modelReset, fenetre.get(), [&] { ++redessins; });
    cabinet.maintenant = cabinet.maintenant.addSecs(1200);
    objet<QTimer>("Minute").start(0);
    EXPECT_TRUE(waitUntil([&] { return marques->marks().nowText == q("10:25"); }));
    EXPECT_GT(marques->marks().nowLine.top(), avant);
    EXPECT_LE(objet<QTimer>("Minute").interval(), 60'000);
    EXPECT_EQ(redessins, 0);
    cabinet.maintenant = cabinet.maintenant.addDays(1);
    objet<QTimer>("Minute").start(0);
    EXPECT_TRUE(waitUntil([&] { return marques->marks().nowLine.isNull(); })) << "that column is yesterday's";
}

TEST(PlaceFiche, NeverCoversItsBlock) {
    const QRect ecran(0, 0, 800, 600);
    int sans = 0;
    for (int x = -50; x < 800; x += 30) {
        for (int large = 10; large < 850; large += 60) {
            for (int y = 0; y < 600; y += 45) {
                const QRect bloc(x, y, large, y % 200 + 15);
                const QRect choisi(x + large + 40, y - 30, 60, 90);
                const auto place = PlaceFiche(bloc, choisi, QSize(334, 220), ecran);
                sans += place ? 0 : 1;
                ASSERT_TRUE(!place || (ecran.contains(*place) && !place->intersects(bloc) &&
                                       !place->intersects(choisi)))
                    << x << ' ' << y << ' ' << large;
            }
        }
    }
    EXPECT_GT(sans, 0) << "where there is no room there is no card";
    EXPECT_EQ(PlaceFiche({100, 500, 90, 20}, {}, {334, 220}, ecran), QRect(198, 380, 334, 220));
    EXPECT_EQ(PlaceFiche({600, 100, 90, 20}, {}, {334, 220}, ecran), QRect(258, 100, 334, 220));
    EXPECT_EQ(PlaceFiche({300, 100, 200, 20}, {}, {334, 220}, ecran), QRect(300, 128, 334, 220));
}

TEST_F(FicheTest, OpensInNoOtherActionsWait) {
    int &actions = *cabinet.environnement().actions;
    ++actions;
    fait(q("touche Space"));
    EXPECT_EQ(fiche(), "");
    --actions;
    EXPECT_TRUE(waitUntil([&] { return fiche() == pleine; }));
}

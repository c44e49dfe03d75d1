#include "search/FrmRecherche.h"
#include "search/FrmResultatRech.h"
#include "search/LargeursResultat.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"
#include "support/Livre.h"

#include <QApplication>
#include <QLabel>
#include <QTableWidget>
#include <QThreadPool>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// The search on a book that holds what a test writes, today being 11 March 2026.
class FenetresRecherche : public testing::Test {
  protected:
    FenetresRecherche() {
        env.imprimante = [this](const QList<Page> &pages, const QString &) {
            imprimees += pages;
            return PrintResult{PrintResult::Outcome::Printed, {}};
        };
        for (int i = 0; i < 9; ++i) {
            const QByteArray jour = QDate(2026, 3, 11).addDays(i).toString(Qt::ISODate).toUtf8();
            avant = livre.rdv({.nom = " ROUX", .jour = jour.constData()}) - 9;
        }
        livre.execute(SqlText("update RDV set Prenom = 'Léa', Professionnel = RefRDV < ")
                      << nombre(avant + 9));
        fenetre.show();
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); } // an index may be on its way
    /// Works in the search; `dedans` happens in the results, which are closed at the latest then. False: they
    /// did not open.
    bool cherche(const char *gestes, const std::function<void(FrmResultatRech &)> &dedans) {
        bool vus = false;
        QTimer::singleShot(0, &fenetre, [&] {
            if (auto *resultat = qobject_cast<FrmResultatRech *>(QApplication::activeModalWidget())) {
                vus = true;
                dedans(*resultat);
                resultat->close();
            }
        });
        joue(fenetre, q(gestes));
        return vus;
    }
    /// The first row, how many there are and the notes below.
    static QString vu(const FrmResultatRech &resultat) {
        const auto &grille = controle<QTableWidget>(resultat, q("Grille"));
        QString tout;
        for (int col = 0; col < grille.columnCount() && grille.rowCount() > 0; ++col) {
            tout += grille.item(0, col)->text() + u' ';
        }
        tout += QString::number(grille.rowCount());
        for (const char *avis : {"LblAucun", "LblHorsHoraires"}) {
            const auto &label = controle<QLabel>(resultat, q(avis));
            tout += label.isHidden() ? QString() : u'|' + label.text();
        }
        return tout;
    }

    CabinetDEssai cabinet;
    Environnement env = cabinet.environnement();
    Livre livre{cabinet.fichier(Base::RendezVous)};
    qint64 avant = 0; ///< the RefRDV before the first
    QList<Page> imprimees;
    FrmRecherche fenetre{env, q(" ROUX"), q("Léa")};
};

} // namespace

TEST_F(FenetresRecherche, ShowsAndPrintsWhatIsFound) {
    livre.execute(SqlText("update RDV set HeureDebut = '1899-12-30 08:05:00' where Date1 = '2026-03-12'"));
    EXPECT_TRUE(cherche(">BtnOK", [&](FrmResultatRech &r) {
        EXPECT_EQ(vu(r), q("mercredi 11 mars 2026 09:00 10:00 8|1 rendez-vous hors des heures de travail "
                           "ou d'un jour non affiché n'est pas listé."));
        EXPECT_EQ(controle<QLabel>(r, q("Label3")).text(), q(" ROUX")) << "as it was typed";
        joue(r, q(">BtnImprimer"));
        EXPECT_TRUE(r.isVisible());
    }));
    EXPECT_EQ(cabinet.messages.taken(), QString());
    livre.execute(SqlText("update RDV set Professionnel = 1"));
    EXPECT_TRUE(cherche("DTPicker1=12/3/2026;>BtnOK",
                        [](FrmResultatRech &r) { EXPECT_EQ(vu(r), q("jeudi 12 mars 2026 08:05 10:00 8")); }));
    cherche("DTPicker1=11/3/2026;>BtnOK", [](FrmResultatRech &r) { joue(r, q(">BtnImprimer")); });
    EXPECT_TRUE(cabinet.messages.taken().endsWith(
        q(": Attention, seulement les huit premiers rendez-vous seront imprimés.")));
    ASSERT_EQ(imprimees.size(), 2);
    for (const Page &carte : imprimees) {
        EXPECT_EQ(carte.texts.last().text, q("mercredi  18 mars 2026\t\t\t09:00"));
    }
    livre.execute(SqlText("update RDV set Professionnel = 0"));
    EXPECT_TRUE(cherche(">BtnOK", [](FrmResultatRech &r) {
        EXPECT_EQ(vu(r), q("0|Aucun rendez-vous à ce nom à partir du mercredi 11 mars 2026.|9 rendez-vous "
                           "hors des heures de travail ou d'un jour non affiché ne sont pas listés."));
    }));
    EXPECT_EQ(LargeursResultat(4800), (std::array{1000, 2000, 750, 750}));
}

TEST_F(FenetresRecherche, ButtonsCloseOneWindowOrBoth) {
    const auto grille = [](auto &r) -> QTableWidget & { return controle<QTableWidget>(r, q("Grille")); };
    const struct {
        const char *nom;
        std::function<void(FrmResultatRech &)> geste;
        bool ferme;
        int choisi; ///< which row; 0: none
    } cas[] = {
        {"Annuler", [](auto &r) { joue(r, q(">BtnAnnuler")); }, false, 0},
        {"a click", [&](auto &r) { emit grille(r).cellClicked(1, 0); }, false, 0},
        {"OK", [](auto &r) { joue(r, q(">BtnOK")); }, true, 0},
        {"Enter", [&](auto &r) { QTest::keyClick(r.focusWidget(), Qt::Key_Return); }, true, 1},
        {"a double click", [&](auto &r) { emit grille(r).cellDoubleClicked(1, 3); }, true, 2},
    };
    for (const auto &c : cas) {
        fenetre.show();
        EXPECT_TRUE(cherche(">BtnOK", c.geste)) << c.nom;
        EXPECT_EQ(fenetre.isVisible(), !c.ferme) << c.nom;
        EXPECT_EQ(fenetre.choisi().value_or(avant), avant + c.choisi) << c.nom;
    }
}

TEST_F(FenetresRecherche, APickSearchesAtOnceAndAFailureLeavesTheWindow) {
    cabinet.ouvre(Base::Patients)
        .execute(SqlText("update TabPat set nom = ' ZOLA ', PreNom = 'Eva ' where cptid = 7"));
    EXPECT_TRUE(cherche("+7;!", [](auto &) {}));
    EXPECT_EQ(texte(fenetre, "Text1") + texte(fenetre, "Text2"), q("ZOLAEva"));
    QTest::keyClicks(&controle<QLineEdit>(fenetre, q("Text1")), q("N"));
    EXPECT_EQ(texte(fenetre, "Text1") + texte(fenetre, "Text2"), q("ZOLAN")) << "that is not Eva any more";
    EXPECT_FALSE(cherche("DTPicker1=31/02/2005;>BtnOK", [](auto &) {}));
    EXPECT_TRUE(cabinet.messages.taken().startsWith(q("Erreur !: Cette date n'est pas valide.")));
    QFile::rename(livre.fichier(), livre.fichier() + u'x');
    EXPECT_FALSE(cherche("DTPicker1=1/2/2005;>BtnOK", [](auto &) {}));
    EXPECT_TRUE(cabinet.messages.taken().contains(q("Tavelin.mdb")));
    EXPECT_TRUE(fenetre.isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

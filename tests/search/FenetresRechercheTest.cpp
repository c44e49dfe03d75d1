#include "platform/ui/DatesFr.h"
#include "search/FrmRecherche.h"
#include "search/FrmResultatRech.h"
#include "search/LargeursResultat.h"
#include "support/CabinetDEssai.h"
#include "support/Livre.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QThreadPool>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

template <typename T>
T &enfant(const QWidget &dans, const char *nom) {
    return *dans.findChild<T *>(q(nom));
}

/// The search on a book that holds what a test writes, today being 11 March 2026.
class FenetresRecherche : public testing::Test {
  protected:
    FenetresRecherche() {
        env.imprimante = [this](const QList<Page> &pages, const QString &) {
            imprimees += pages;
            return PrintResult{PrintResult::Outcome::Printed, {}};
        };
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); } // an index may be on its way
    void ecrit(int combien, const char *nom = "ROUX", const char *prenom = "Léa") {
        for (int i = 0; i < combien; ++i) {
            const QByteArray jour = QDate(2026, 3, 11).addDays(i).toString(Qt::ISODate).toUtf8();
            livre.rdv({.nom = nom, .jour = jour.constData()});
        }
        livre.execute(SqlText("update RDV set Prenom = ") << texte(q(prenom)) << ", Professionnel = 1");
    }
    /// Presses OK; `dedans` happens in the results, which are closed at the latest then. False: they did not
    /// open.
    bool cherche(FrmRecherche &f, const std::function<void(FrmResultatRech &)> &dedans) {
        bool vus = false;
        QTimer::singleShot(0, &f, [&] {
            if (auto *resultat = qobject_cast<FrmResultatRech *>(QApplication::activeModalWidget())) {
                vus = true;
                dedans(*resultat);
                resultat->close();
            }
        });
        enfant<QPushButton>(f, "BtnOK").click();
        return vus;
    }
    static std::string textes(const FrmResultatRech &resultat) {
        const auto &grille = enfant<QTableWidget>(resultat, "Grille");
        QStringList rangees;
        for (int i = 0; i < grille.rowCount(); ++i) {
            QStringList cellules;
            for (int col = 0; col < grille.columnCount(); ++col) {
                cellules << grille.item(i, col)->text();
            }
            rangees << cellules.join(u' ');
        }
        for (const char *avis : {"LblAucun", "LblHorsHoraires"}) {
            const auto &label = enfant<QLabel>(resultat, avis);
            rangees << (label.isHidden() ? QString() : label.text());
        }
        return rangees.join(u'|').toStdString();
    }
    QStringList dits() {
        QStringList lus;
        for (const auto &message : std::exchange(cabinet.messages.shown, {})) {
            lus << message.text;
        }
        return lus;
    }

    CabinetDEssai cabinet;
    Environnement env = cabinet.environnement();
    Livre livre{cabinet.fichier(Base::RendezVous)};
    QList<Page> imprimees;
};

} // namespace

TEST_F(FenetresRecherche, ShowsWhatIsFoundAndWhatIsNotListed) {
    ecrit(2, " ROUX");
    livre.execute(SqlText("update RDV set HeureDebut = '1899-12-30 08:05:00' where Date1 = '2026-03-12'"));
    FrmRecherche f(env, q(" ROUX"), q("Léa"));
    EXPECT_TRUE(cherche(f, [](FrmResultatRech &r) {
        EXPECT_EQ(textes(r), "mercredi 11 mars 2026 09:00 10:00|jeudi 12 mars 2026 08:05 10:00||");
        EXPECT_EQ(enfant<QLabel>(r, "Label3").text(), q(" ROUX")) << "as it was typed";
    }));
    livre.execute(SqlText("update RDV set Professionnel = 0"));
    EXPECT_TRUE(cherche(f, [](FrmResultatRech &r) {
        EXPECT_EQ(textes(r),
                  "Aucun rendez-vous à ce nom à partir du mercredi 11 mars 2026.|2 rendez-vous hors "
                  "des heures de travail ne sont pas listés.");
    }));
    EXPECT_EQ(LargeursResultat(4800), (std::array{1000, 2000, 750, 750}));
}

TEST_F(FenetresRecherche, ButtonsCloseOneWindowOrBoth) {
    ecrit(2);
    const qint64 second =
        livre.ouvre().query(SqlText("select max(RefRDV) from RDV")).first().at(0).toInteger();
    const struct {
        const char *nom;
        std::function<void(FrmResultatRech &)> geste;
        bool ferme;
        bool choisi;
    } cas[] = {
        {"Annuler", [](auto &r) { enfant<QPushButton>(r, "BtnAnnuler").click(); }, false, false},
        {"OK", [](auto &r) { enfant<QPushButton>(r, "BtnOK").click(); }, true, false},
        {"a click", [](auto &r) { emit enfant<QTableWidget>(r, "Grille").cellClicked(1, 0); }, false, false},
        {"Enter",
         [](auto &r) {
             auto &grille = enfant<QTableWidget>(r, "Grille");
             EXPECT_EQ(r.focusWidget(), &grille);
             QTest::keyClick(&grille, Qt::Key_Down);
             QTest::keyClick(&grille, Qt::Key_Return);
         },
         true, true},
        {"a double click", [](auto &r) { emit enfant<QTableWidget>(r, "Grille").cellDoubleClicked(1, 3); },
         true, true},
    };
    for (const auto &c : cas) {
        FrmRecherche f(env, q("ROUX"), q("Léa"));
        f.show();
        EXPECT_TRUE(cherche(f, c.geste)) << c.nom;
        EXPECT_EQ(f.isVisible(), !c.ferme) << c.nom;
        EXPECT_EQ(f.choisi(), c.choisi ? std::optional(second) : std::nullopt) << c.nom;
    }
}

TEST_F(FenetresRecherche, TheCardGoesOutAfterItsWarning) {
    for (const int combien : {8, 9}) {
        livre.execute(SqlText("delete from RDV"));
        ecrit(combien);
        FrmRecherche f(env, q("ROUX"), q("Léa"));
        EXPECT_TRUE(cherche(f, [](FrmResultatRech &r) {
            enfant<QPushButton>(r, "BtnImprimer").click();
            EXPECT_TRUE(r.isVisible());
        }));
        EXPECT_EQ(dits(), combien == 8
                              ? QStringList()
                              : QStringList(q(
                                    "Attention, seulement les huit premiers rendez-vous seront imprimés.")));
        ASSERT_EQ(imprimees.size(), 1);
        EXPECT_EQ(imprimees.takeFirst().texts.last().text, q("mercredi  18 mars 2026\t\t\t09:00"));
    }
}

TEST_F(FenetresRecherche, APickSearchesAtOnceAndAFailureLeavesTheWindow) {
    cabinet.ouvre(Base::Patients)
        .execute(SqlText("update TabPat set nom = ' ZOLA ', PreNom = 'Eva ' where cptid = 7"));
    FrmRecherche f(env, q("ROUX"), q("Léa"));
    f.show();
    auto &nom = enfant<QLineEdit>(f, "TxtPatient");
    nom.setText(q("7"));
    QTest::keyClick(&nom, Qt::Key_Down);
    QString titre;
    QTimer::singleShot(0, &f, [&] {
        titre = QApplication::activeModalWidget()->windowTitle();
        QApplication::activeModalWidget()->close();
    });
    QTest::keyClick(&nom, Qt::Key_Return);
    EXPECT_EQ(titre, q(" Résultat de la recherche"));
    EXPECT_EQ(enfant<QLineEdit>(f, "Text1").text() + enfant<QLineEdit>(f, "Text2").text(), q("ZOLAEva"));

    enfant<QLineEdit>(f, "DTPicker1").setText(q("31/02/2005"));
    EXPECT_FALSE(cherche(f, [](auto &) {}));
    enfant<QLineEdit>(f, "DTPicker1").setText(q("01/02/2005"));
    QFile::rename(livre.fichier(), livre.fichier() + u'x');
    EXPECT_FALSE(cherche(f, [](auto &) {}));
    const QStringList messages = dits();
    ASSERT_EQ(messages.size(), 2);
    EXPECT_TRUE(messages[0].startsWith(q("Cette date n'est pas valide.")));
    EXPECT_TRUE(messages[1].contains(q("Tavelin.mdb"))) << messages[1].toStdString();
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

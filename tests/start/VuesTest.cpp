#include "grid/Navigation.h"
#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// The main window on a sample practice whose Wednesday holds exactly the appointments that a test books.
class VuesTest : public testing::Test {
  protected:
    VuesTest() {
        cabinet.ouvre(Base::RendezVous).execute(SqlText("delete from RDV"));
        v = cabinet.variables();
    }
    void start() {
        fenetre = std::make_unique<FrmEntree>(v);
        fenetre->Form_Load();
        fenetre->resize(1024, 700);
        fenetre->show();
    }
    void chairs(bool avec) {
        cabinet.ouvre(Base::PatientTransmis)
            .execute(SqlText("update LePraticien set NumPraticien = ")
                     << texte(avec ? QStringLiteral("01") : QStringLiteral("02")));
    }
    qint64 book(const char *debut, const char *fin, QDate jour = QDate(2026, 3, 11), int fauteuil = 1,
                const QString &praticien = QStringLiteral("01")) {
        return cabinet.ouvre(Base::RendezVous)
            .insert(
                QStringLiteral("RDV"),
                {{QStringLiteral("Nom"), Value(QStringLiteral("ROUX"))},
                 {QStringLiteral("Prenom"), Value(QStringLiteral("Léa"))},
                 {QStringLiteral("Date1"), Value::date(jour)},
                 {QStringLiteral("DateInv"), Value(jour.toString(QStringLiteral("yyyyMMdd")))},
                 {QStringLiteral("HeureDebut"), Value(QString::fromLatin1(debut) + QStringLiteral(":00"))},
                 {QStringLiteral("HeureFin"), Value(QString::fromLatin1(fin) + QStringLiteral(":00"))},
                 {QStringLiteral("NumPraticien"), Value(praticien)},
                 {QStringLiteral("Fauteuil"), Value(fauteuil)}});
    }
    FlexGrid &grille(const char *nom) { return *fenetre->findChild<FlexGrid *>(QLatin1StringView(nom)); }
    /// Rows of column 1 that carry text, one by one.
    QList<int> rows(const char *nom, int col = 1) {
        QList<int> found;
        for (int row = 1; row < grille(nom).cells().rows(); ++row) {
            if (!grille(nom).cells().cell(row, col).text.isEmpty()) {
                found << row;
            }
        }
        return found;
    }
    void press(const char *bouton) { fenetre->findChild<QPushButton *>(QLatin1StringView(bouton))->click(); }
    QAction &action(const char *nom) { return *fenetre->findChild<QAction *>(QLatin1StringView(nom)); }
    QString panneau(int i) {
        return fenetre->findChild<QLabel *>(QStringLiteral("StatusBar1_%1").arg(i))->text();
    }
    bool shown(const char *nom) { return fenetre->findChild<QWidget *>(QLatin1StringView(nom))->isVisible(); }

    CabinetDEssai cabinet;
    VariablesGlobales v;
    std::unique_ptr<FrmEntree> fenetre;
};

} // namespace

TEST(Navigation, StaysInTheBook) {
    EXPECT_EQ(DecaleDate(QDate(2026, 12, 31), 1), QDate(2027, 1, 1));
    EXPECT_FALSE(DecaleDate(QDate(1900, 1, 3), -7).isValid());
    EXPECT_FALSE(DecaleDate(QDate(2999, 12, 31), 1).isValid());
}

TEST(Navigation, ZoomIsAToggleThatNeverGivesZero) {
    int sansZoom = 0;
    EXPECT_EQ(BasculeZoom(15, sansZoom), 5);
    EXPECT_EQ(BasculeZoom(5, sansZoom), 15);
    EXPECT_EQ(sansZoom, 0);
    EXPECT_EQ(BasculeZoom(5, sansZoom), 5) << "5-minute slots have nothing to come back to";
}

TEST_F(VuesTest, WeeksGoByWithTheirHeadersAndAppointments) {
    book("09:00", "09:30");
    book("10:00", "10:15", QDate(2026, 3, 18));
    start();
    EXPECT_EQ(rows("GrilleRDV", 3), QList<int>{5});
    press("BtnSuivant");
    EXPECT_EQ(panneau(4), QStringLiteral("18 mars 2026"));
    EXPECT_EQ(grille("GrilleRDV").cells().cell(0, 1).text, QStringLiteral("lundi 16 mars"));
    EXPECT_EQ(rows("GrilleRDV", 3), QList<int>{9});
    press("BtnPrecedent");
    press("BtnPrecedent");
    EXPECT_EQ(grille("GrilleRDV").cells().cell(0, 1).text, QStringLiteral("lundi 02 mars"));
    EXPECT_EQ(rows("GrilleRDV", 3), QList<int>{});
    press("BtnAujourdhui");
    EXPECT_EQ(rows("GrilleRDV", 3), QList<int>{5});
}

TEST_F(VuesTest, GreyStaysWhereAnAttendedAppointmentWas) {
    const qint64 ref = book("15:00", "15:30");
    cabinet.ouvre(Base::RendezVous)
        .update(QStringLiteral("RDV"), QStringLiteral("RefRDV"), ref,
                {{QStringLiteral("Present"), Value(1)}});
    start();
    const FlexGridModel &cellules = grille("GrilleRDV").cells();
    ASSERT_EQ(v.config.JourGrise[2], 2) << "the sample practice is closed on Wednesday afternoon";
    EXPECT_EQ(cellules.cell(29, 3).back, QColor(255, 128, 0));
    press("BtnSuivant");
    EXPECT_EQ(cellules.cell(29, 3).back, QColor(160, 160, 160));
}

TEST_F(VuesTest, TheBookHasAnEnd) {
    start();
    v.txtNumJourEnCours = QDate(2999, 12, 28);
    press("BtnSuivant");
    EXPECT_EQ(v.txtNumJourEnCours, QDate(2999, 12, 28));
    ASSERT_EQ(cabinet.messages.shown.size(), 1);
    EXPECT_EQ(cabinet.messages.shown[0].text, QStringLiteral("Le carnet va du 01/01/1900 au 31/12/2999."));
}

TEST_F(VuesTest, MorningAndAfternoonCutWhatCrossesLunch) {
    chairs(false);
    const QDate jour(2026, 3, 11);
    cabinet.ouvre(Base::RendezVous)
        .execute(SqlText("update Config set Intervalle = 15, HeureMatDebut = #08:00#, HeureMatFin = #12:00#, "
                         "HeurePMDebut = #14:00#, HeurePMFin = #18:00# where clng(NumPraticien) = 2"));
    book("11:30", "14:30", jour, 0, QStringLiteral("02"));
    book("09:00", "09:30", jour, 0, QStringLiteral("02"));
    start();
    press("BtnJour");
    EXPECT_FALSE(v.VueSemaine);
    EXPECT_EQ(grille("GrilleRDV02").cells().rows(), 18);
    EXPECT_EQ(grille("GrilleRDV03").cells().rows(), 18);
    EXPECT_EQ(grille("GrilleRDV02").cells().cell(0, 1).text, QStringLiteral("mercredi 11 mars       Matin"));
    EXPECT_EQ(grille("GrilleRDV03").cells().cell(0, 1).text,
              QStringLiteral("mercredi 11 mars       Après-midi"));
    EXPECT_EQ(grille("GrilleRDV03").cells().cell(17, 0).text, QStringLiteral("18:00"));
    EXPECT_EQ(rows("GrilleRDV02"), (QList<int>{5, 15}));
    EXPECT_EQ(rows("GrilleRDV03"), QList<int>{1});
    EXPECT_FALSE(grille("GrilleRDV03").cells().cell(2, 1).picture.isNull());
    EXPECT_TRUE(grille("GrilleRDV03").cells().cell(3, 1).picture.isNull());
}

TEST_F(VuesTest, ViewsShowTheirOwnGridsAndButtons) {
    start();
    const auto semaine = {"GrilleRDV", "Frame1", "BtnPrecedent", "BtnAujourdhui", "BtnSuivant"};
    const auto jour = {"GrilleRDV02",   "GrilleRDV03",    "Frame4",
                       "BtnPrecedent2", "BtnAujourdhui2", "BtnSuivant2"};
    for (const bool vueJour : {false, true, false}) {
        for (const char *nom : semaine) {
            EXPECT_EQ(shown(nom), !vueJour) << nom;
        }
        for (const char *nom : jour) {
            EXPECT_EQ(shown(nom), vueJour) << nom;
        }
        action(vueJour ? "mnusemaine" : "mnuJour").trigger();
    }
}

TEST_F(VuesTest, TwoChairsSideBySideWhicheverIsTicked) {
    book("09:00", "09:30");
    book("10:30", "11:00", QDate(2026, 3, 12), 2);
    start();
    press("BtnSuivant");
    press("BtnJour");
    EXPECT_EQ(v.txtNumJourEnCours, QDate(2026, 3, 11)) << "always on today";
    EXPECT_TRUE(grille("GrilleRDV02").cells().cell(0, 1).text.endsWith(QStringLiteral("       Fauteuil 1")));
    EXPECT_TRUE(grille("GrilleRDV03").cells().cell(0, 1).text.endsWith(QStringLiteral("       Fauteuil 2")));
    EXPECT_EQ(rows("GrilleRDV02"), QList<int>{5});
    EXPECT_EQ(rows("GrilleRDV03"), QList<int>{});
    press("BtnSuivant2");
    EXPECT_EQ(rows("GrilleRDV02"), QList<int>{});
    EXPECT_EQ(rows("GrilleRDV03"), QList<int>{5}) << "08:30 by 30 minutes";
    press("BtnPrecedent2");
    press("BtnPrecedent2");
    EXPECT_EQ(panneau(4), QStringLiteral("10 mars 2026"));
    press("BtnAujourdhui2");
    EXPECT_EQ(panneau(4), QStringLiteral("11 mars 2026"));
}

TEST_F(VuesTest, ThreeChairsShowTheTickedOneAndTheNext) {
    Database base = cabinet.ouvre(Base::RendezVous);
    base.insert(QStringLiteral("Config"), {{QStringLiteral("NomConfig"), Value(QStringLiteral("Trois"))},
                                           {QStringLiteral("NumPraticien"), Value(QStringLiteral("01"))},
                                           {QStringLiteral("Fauteuil"), Value(3)},
                                           {QStringLiteral("Intervalle"), Value(0)}});
    start();
    fenetre->findChild<QMenu *>(QStringLiteral("menuFaut"))->actions()[2]->setChecked(true);
    for (int i : {0, 1}) {
        fenetre->findChild<QMenu *>(QStringLiteral("menuFaut"))->actions()[i]->setChecked(false);
    }
    press("BtnJour");
    EXPECT_TRUE(grille("GrilleRDV02").cells().cell(0, 1).text.endsWith(QStringLiteral("Fauteuil 3")));
    EXPECT_TRUE(grille("GrilleRDV03").cells().cell(0, 1).text.endsWith(QStringLiteral("Fauteuil 1")));
    EXPECT_EQ(grille("GrilleRDV02").cells().rows(), 1) << "chair 3 has no usable slots: its header only";
}

TEST_F(VuesTest, ASelectionWidensToTheAppointmentAndSaysItAll) {
    const qint64 ref = book("09:00", "10:00");
    start();
    FlexGrid &g = grille("GrilleRDV");
    g.select(6, 3, 7, 3);
    EXPECT_EQ(g.row(), 5);
    EXPECT_EQ(g.rowSel(), 8);
    EXPECT_EQ(v.RefRDVCourant, ref);
    EXPECT_EQ(panneau(1), QStringLiteral("ROUX Léa"));
    EXPECT_EQ(panneau(3), QStringLiteral("09:00  /  10:00"));
    EXPECT_EQ(panneau(4), QStringLiteral("11 mars 2026"));
    EXPECT_FALSE(v.SelectionLibre);

    g.select(17, 2, 18, 2);
    EXPECT_TRUE(v.SelectionLibre);
    EXPECT_EQ(v.NomRDV, QString());
    EXPECT_EQ(v.NumPatientCourant, QStringLiteral("0"));
    EXPECT_EQ(v.txtNumJourEnCours, QDate(2026, 3, 10)) << "the selected column's day";
    EXPECT_EQ(v.ChoixHoraire, 0) << "lunch";
    EXPECT_EQ(panneau(3), QStringLiteral("12:00  /  12:30"));
    g.select(16, 2, 17, 2);
    EXPECT_EQ(v.ChoixHoraire, 2);
}

TEST_F(VuesTest, BadSelectionsComeBack) {
    start();
    FlexGrid &g = grille("GrilleRDV");
    g.select(5, 2, 6, 3);
    ASSERT_EQ(cabinet.messages.shown.size(), 1);
    EXPECT_EQ(cabinet.messages.shown[0].text,
              QStringLiteral("Vous ne pouvez pas sélectionner plusieurs colonnes !"));
    EXPECT_EQ(cabinet.messages.shown[0].title, QStringLiteral("Erreur de sélection !"));
    const auto first = [&] { return g.row() == 1 && g.col() == 1 && g.rowSel() == 1 && g.colSel() == 1; };
    EXPECT_TRUE(first());
    g.select(5, 2, g.cells().rows() - 1, 2);
    EXPECT_EQ(g.rowSel(), g.cells().rows() - 2) << "one row above the closing one";
    g.select(0, 3, 0, 3);
    EXPECT_TRUE(first()) << "header";
    g.select(4, g.cells().cols() - 1, 4, g.cells().cols() - 1);
    EXPECT_TRUE(first()) << "hours on the right";
    g.select(g.cells().rows() - 1, 2, g.cells().rows() - 1, 2);
    EXPECT_TRUE(first()) << "closing row";
    EXPECT_EQ(cabinet.messages.shown.size(), 1);
}

TEST_F(VuesTest, ADayGridTakesItsChairWithIt) {
    const qint64 ref = book("09:30", "10:00", QDate(2026, 3, 11), 2);
    start();
    press("BtnJour");
    grille("GrilleRDV03").select(3, 1, 3, 1);
    EXPECT_EQ(v.config.FauteuilCourant, QStringLiteral("2"));
    EXPECT_EQ(v.RefRDVCourant, ref);
    EXPECT_EQ(panneau(3), QStringLiteral("09:30  /  10:00"));
    EXPECT_EQ(v.txtNumJourEnCours, QDate(2026, 3, 11)) << "the day shown stays";
    grille("GrilleRDV02").select(7, 1, 7, 1);
    EXPECT_EQ(v.config.FauteuilCourant, QStringLiteral("1"));
    EXPECT_TRUE(v.SelectionLibre);
    EXPECT_EQ(panneau(3), QStringLiteral("09:30  /  09:45"));
}

TEST_F(VuesTest, TheAfternoonGridCountsFromTheAfternoon) {
    chairs(false);
    start();
    press("BtnJour");
    grille("GrilleRDV03").select(1, 1, 2, 1);
    EXPECT_EQ(v.HeureDebutCourante, v.config.HeurePMDebut);
    EXPECT_EQ(v.HeureFinCourante, v.config.HeurePMDebut.addSecs(2 * 60 * v.config.Intervalle));
}

TEST_F(VuesTest, ADaySelectionCountsInTheSlotsThatAreShown) {
    cabinet.ouvre(Base::RendezVous)
        .execute(SqlText("update Config set Intervalle = 30, HeureMatDebut = #07:00#, HeureMatFin = #12:00#, "
                         "HeurePMDebut = #14:00#, HeurePMFin = #18:00# where clng(NumPraticien) = 2"));
    start();
    press("BtnJour");
    fenetre->findChild<QMenu *>(QStringLiteral("mnuPraticien"))->actions()[1]->trigger();
    grille("GrilleRDV02").select(3, 1, 3, 1);
    EXPECT_EQ(panneau(3), QStringLiteral("08:00  /  08:30")) << "the other practitioner's slots";
    action("mnuZoom").trigger();
    grille("GrilleRDV02").select(4, 1, 4, 1);
    EXPECT_EQ(panneau(3), QStringLiteral("08:30  /  09:00")) << "the zoom is the week grid's";
}

TEST_F(VuesTest, ZoomLastsUntilTheConfigurationIsLoadedAgain) {
    start();
    const int lignes = grille("GrilleRDV").cells().rows();
    action("mnuZoom").trigger();
    EXPECT_EQ(grille("GrilleRDV").cells().rows(), (lignes - 2) * 3 + 2);
    EXPECT_EQ(grille("GrilleRDV").rowAt(0), 24) << "two rows above 10:05, the hour of today";
    press("BtnSuivant");
    EXPECT_EQ(grille("GrilleRDV").cells().rows(), (lignes - 2) * 3 + 2) << "another week, same zoom";
    press("BtnRafraichir");
    EXPECT_EQ(grille("GrilleRDV").cells().rows(), lignes);
    EXPECT_EQ(panneau(4), QStringLiteral("18 mars 2026")) << "the week stays";
}

TEST_F(VuesTest, TheTimerRedrawsButNeverUnderADialog) {
    start();
    auto *timer = fenetre->findChild<QTimer *>(QStringLiteral("Timer1"));
    EXPECT_EQ(timer->interval(), 65535);
    book("09:00", "09:30");
    QDialog dialogue(fenetre.get());
    dialogue.setModal(true);
    dialogue.show();
    timer->start(0);
    ASSERT_TRUE(waitUntil([&] { return timer->interval() != 0; }));
    EXPECT_EQ(rows("GrilleRDV", 3), QList<int>{}) << "put off";
    dialogue.close();
    EXPECT_TRUE(waitUntil([&] { return rows("GrilleRDV", 3) == QList<int>{5}; }));
    EXPECT_EQ(timer->interval(), 65535);
}

TEST_F(VuesTest, AChairDeletedMeanwhileFallsBack) {
    start();
    cabinet.ouvre(Base::RendezVous).execute(SqlText("delete from Config where Fauteuil = 2"));
    fenetre->findChild<QMenu *>(QStringLiteral("menuFaut"))->actions()[1]->trigger();
    EXPECT_TRUE(cabinet.messages.shown.isEmpty());
    EXPECT_EQ(v.config.FauteuilCourant, QStringLiteral("0")) << "Défaut";
    EXPECT_GT(grille("GrilleRDV").cells().rows(), 2);
}

TEST_F(VuesTest, ABookThatVanishesIsToldOnceAndTheWindowLives) {
    start();
    QFile::rename(cabinet.fichier(Base::RendezVous), cabinet.fichier(Base::RendezVous) + QStringLiteral("x"));
    grille("GrilleRDV").select(6, 2, 8, 2);
    EXPECT_EQ(cabinet.messages.shown.size(), 1);
    press("BtnSuivant");
    QFile::rename(cabinet.fichier(Base::RendezVous) + QStringLiteral("x"), cabinet.fichier(Base::RendezVous));
    cabinet.messages.shown.clear();
    press("BtnRafraichir");
    EXPECT_TRUE(cabinet.messages.shown.isEmpty());
}

TEST_F(VuesTest, AnyWindowSizeIsSurvived) {
    start();
    const QRect avant = grille("GrilleRDV").geometry();
    for (const QSize &taille : {QSize(1, 1), QSize(200, 90), QSize(3840, 2160), QSize(1024, 700)}) {
        fenetre->resize(taille);
        QApplication::processEvents();
        fenetre->grab();
    }
    EXPECT_EQ(grille("GrilleRDV").geometry(), avant);
}

TEST_F(VuesTest, KeysMoveAboutTheBook) {
    start();
    fenetre->activateWindow(); // shortcuts belong to the active window
    ASSERT_TRUE(waitUntil([&] { return fenetre->isActiveWindow(); }));
    FlexGrid &g = grille("GrilleRDV");
    g.select(2, 2, 2, 2);
    QTest::keyClick(&g, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&g, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(panneau(3), QStringLiteral("08:15  /  09:00"));
    QTest::keyClick(&g, Qt::Key_Right);
    EXPECT_EQ(g.col(), 3);
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(&g, Qt::Key_Left);
    }
    EXPECT_EQ(g.col(), 1) << "arrow keys stay out of the hours";
    QTest::keyClick(&g, Qt::Key_PageDown);
    EXPECT_EQ(panneau(4), QStringLiteral("16 mars 2026"));
    QTest::keyClick(&g, Qt::Key_Home);
    EXPECT_EQ(grille("GrilleRDV").cells().cell(0, 1).text, QStringLiteral("lundi 09 mars"));
    EXPECT_TRUE(cabinet.messages.shown.isEmpty());
}

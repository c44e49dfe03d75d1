#include "gui/Souris.h"
#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace {

/// The main window, worked with a real mouse and real keys, on a practice whose book holds one appointment:
/// Tuesday 9:00 to 10:00, chair 1.
class Carnet : public testing::Test {
  protected:
    Carnet() {
        Database base = cabinet.ouvre(Base::RendezVous);
        base.execute(SqlText("delete from RDV"));
        base.insert(QStringLiteral("RDV"), {{QStringLiteral("Nom"), Value(QStringLiteral("D'ARC"))},
                                            {QStringLiteral("Prenom"), Value(QStringLiteral("Jeanne"))},
                                            {QStringLiteral("Date1"), Value::date(QDate(2026, 3, 10))},
                                            {QStringLiteral("DateInv"), Value(QStringLiteral("20260310"))},
                                            {QStringLiteral("HeureDebut"), Value(QStringLiteral("09:00:00"))},
                                            {QStringLiteral("HeureFin"), Value(QStringLiteral("10:00:00"))},
                                            {QStringLiteral("NumPraticien"), Value(QStringLiteral("01"))},
                                            {QStringLiteral("Fauteuil"), Value(1)}});
    }
    void ouvre() {
        v = cabinet.variables();
        fenetre = std::make_unique<FrmEntree>(v);
        fenetre->Form_Load();
        fenetre->resize(1100, 900);
        ASSERT_TRUE(montre(*fenetre));
        grille("GrilleRDV").showAtTop(1);
    }
    template <typename T>
    T &enfant(const char *nom, const QWidget *dans = nullptr) {
        return *(dans != nullptr ? dans : fenetre.get())->findChild<T *>(QString::fromLatin1(nom));
    }
    FlexGrid &grille(const char *nom) { return enfant<FlexGrid>(nom); }
    QAction &action(const char *nom) { return enfant<QAction>(nom); }
    static QPoint cellule(const FlexGrid &g, int ligne, int colonne) {
        return g.visualRect(g.model()->index(ligne, colonne)).center();
    }
    void glisse(FlexGrid &g, int ligne, int colonne, int ligneFin, int colonneFin) {
        Souris::glisse(*g.viewport(), cellule(g, ligne, colonne), cellule(g, ligneFin, colonneFin));
    }
    QString panneau(int i) {
        return enfant<QLabel>(qPrintable(QStringLiteral("StatusBar1_%1").arg(i))).text();
    }
    bool attendPanneau(int i, const QString &texte) {
        return waitUntil([&] { return panneau(i) == texte; });
    }

    CabinetDEssai cabinet;
    VariablesGlobales v;
    std::unique_ptr<FrmEntree> fenetre;
};

} // namespace

TEST_F(Carnet, DraggingOverAnAppointmentTakesItWhole) {
    ouvre();
    FlexGrid &g = grille("GrilleRDV");
    glisse(g, 6, 2, 7, 2);
    EXPECT_TRUE(attendPanneau(3, QStringLiteral("09:00  /  10:00")));
    EXPECT_EQ(panneau(1), QStringLiteral("D'ARC Jeanne"));
    EXPECT_EQ(panneau(4), QStringLiteral("10 mars 2026"));
    EXPECT_EQ(g.row(), 5);
    EXPECT_EQ(g.rowSel(), 8);
    EXPECT_TRUE(
        waitUntil([&] { return g.toolTip().startsWith(QStringLiteral("RDV: 09:00 à 10:00 pour D'ARC")); }));

    glisse(g, 9, 4, 11, 4);
    EXPECT_TRUE(attendPanneau(3, QStringLiteral("10:00  /  10:45")));
    EXPECT_EQ(panneau(1).trimmed(), QString());
    EXPECT_EQ(panneau(4), QStringLiteral("12 mars 2026"));
}

TEST_F(Carnet, DraggingOverTwoDaysIsRefused) {
    ouvre();
    glisse(grille("GrilleRDV"), 9, 3, 11, 4);
    ASSERT_TRUE(waitUntil([&] { return !cabinet.messages.shown.isEmpty(); }));
    EXPECT_EQ(cabinet.messages.shown[0].text,
              QStringLiteral("Vous ne pouvez pas sélectionner plusieurs colonnes !"));
    EXPECT_EQ(grille("GrilleRDV").row(), 1);
    EXPECT_EQ(grille("GrilleRDV").colSel(), 1);
    EXPECT_EQ(panneau(3), QStringLiteral("08:00  /  08:15"));
}

TEST_F(Carnet, HeaderAndHoursGoBackToTheFirstCell) {
    ouvre();
    FlexGrid &g = grille("GrilleRDV");
    const auto premiere = [&] { return g.row() == 1 && g.col() == 1; };
    Souris::clic(*g.viewport(), cellule(g, 9, 3));
    ASSERT_TRUE(waitUntil([&] { return g.row() == 9; }));
    Souris::clic(*g.horizontalHeader()->viewport(), QPoint(g.columnViewportPosition(3) + 10, 8));
    EXPECT_TRUE(waitUntil(premiere));
    Souris::clic(*g.viewport(), cellule(g, 9, 3));
    ASSERT_TRUE(waitUntil([&] { return g.row() == 9; }));
    Souris::clic(*g.viewport(), cellule(g, 9, 0));
    EXPECT_TRUE(waitUntil(premiere));
    EXPECT_TRUE(cabinet.messages.shown.isEmpty());
}

TEST_F(Carnet, TheRightButtonShowsThePatientMenu) {
    ouvre();
    FlexGrid &g = grille("GrilleRDV");
    auto &menu = enfant<QMenu>("mnupatient");
    Souris::clic(*g.viewport(), cellule(g, 6, 2), Souris::droite);
    EXPECT_TRUE(waitUntil([&] { return menu.isVisible(); }));
    EXPECT_FALSE(v.SelectionLibre) << "the appointment under the pointer";
    Clavier::touches({QStringLiteral("Escape")});
    EXPECT_TRUE(waitUntil([&] { return !menu.isVisible(); }));
}

TEST_F(Carnet, TheDayViewShowsChairsThenHalves) {
    ouvre();
    Souris::clic(enfant<QPushButton>("BtnJour"));
    ASSERT_TRUE(waitUntil([&] { return grille("GrilleRDV02").isVisible(); }));
    EXPECT_TRUE(grille("GrilleRDV03").cells().cell(0, 1).text.endsWith(QStringLiteral("Fauteuil 2")));
    Souris::clic(enfant<QPushButton>("BtnPrecedent2"));
    ASSERT_TRUE(attendPanneau(4, QStringLiteral("10 mars 2026")));
    FlexGrid &g = grille("GrilleRDV02");
    Souris::clic(*g.viewport(), cellule(g, 6, 1));
    EXPECT_TRUE(attendPanneau(1, QStringLiteral("D'ARC Jeanne")));
    Souris::clic(*grille("GrilleRDV03").viewport(), cellule(grille("GrilleRDV03"), 3, 1));
    EXPECT_TRUE(waitUntil([&] { return v.config.FauteuilCourant == QStringLiteral("2"); }));
    EXPECT_EQ(panneau(3), QStringLiteral("09:30  /  10:00"));

    Souris::choisit(*fenetre, *enfant<QMenu>("mnuPraticien").actions()[1]);
    EXPECT_TRUE(waitUntil([&] {
        return grille("GrilleRDV03").cells().cell(0, 1).text.endsWith(QStringLiteral("Après-midi"));
    }));
    Souris::clic(enfant<QPushButton>("BtnSemaine"));
    EXPECT_TRUE(waitUntil([&] { return grille("GrilleRDV").isVisible(); }));
    EXPECT_FALSE(grille("GrilleRDV02").isVisible());
}

TEST_F(Carnet, ASavedConfigurationIsThereAfterARestart) {
    ouvre();
    ASSERT_TRUE(pendant(
        QStringLiteral("FrmTrancheHoraire"), [&] { Souris::choisit(*fenetre, action("mnutranche")); },
        [&](QWidget &f) {
            Souris::clic(enfant<QRadioButton>("Option4", &f));
            Souris::clic(enfant<QPushButton>("BtnOK", &f));
        }));
    EXPECT_EQ(v.config.Intervalle, 20);
    EXPECT_EQ(grille("GrilleRDV").cells().rows(), 32);
    bool sauvegarde = false;
    const auto sauve = [&](QWidget &f) {
        Clavier::tape(QStringLiteral("vingt minutes"));
        Souris::clic(enfant<QLineEdit>("TxtNumFauteuil", &f));
        Clavier::tape(QStringLiteral("7"));
        Clavier::touches({QStringLiteral("Return")});
    };
    EXPECT_TRUE(pendant(
        QStringLiteral("FrmQuit"),
        [&] {
            sauvegarde = pendant(
                QStringLiteral("FrmSauvegarde"), [&] { Souris::choisit(*fenetre, action("mnuSauver")); },
                sauve);
        },
        [](QWidget &q) { q.close(); }))
        << "the restart window was shown";
    EXPECT_TRUE(sauvegarde);
    const Records rows = cabinet.ouvre(Base::RendezVous)
                             .query(SqlText("select * from Config where NomConfig = 'vingt minutes'"));
    ASSERT_EQ(rows.count(), 1);
    EXPECT_EQ(rows.first()[u"Intervalle"], Value(20));
    EXPECT_EQ(rows.first()[u"Fauteuil"], Value(7));
    EXPECT_TRUE(rows.first()[u"DefaultConfig"].toBoolean());

    fenetre.reset();
    ouvre();
    EXPECT_EQ(v.config.FauteuilCourant, QStringLiteral("7"));
    EXPECT_EQ(grille("GrilleRDV").cells().rows(), 32);
}

TEST_F(Carnet, TheMonthWindowGoesToTheDayPicked) {
    ouvre();
    EXPECT_TRUE(pendant(
        QStringLiteral("FrmMois"), [&] { Souris::clic(enfant<QPushButton>("BtnMois")); },
        [&](QWidget &) {
            Clavier::touches({QStringLiteral("Down"), QStringLiteral("Return")});
        }));
    EXPECT_TRUE(attendPanneau(4, QStringLiteral("18 mars 2026")));
    EXPECT_TRUE(pendant(
        QStringLiteral("FrmMois"), [&] { Souris::clic(enfant<QPushButton>("BtnMois")); },
        [&](QWidget &) {
            Clavier::touches({QStringLiteral("Right"), QStringLiteral("Escape")});
        }));
    EXPECT_EQ(panneau(4), QStringLiteral("18 mars 2026"));
}

TEST_F(Carnet, KeysAndWheelMoveAbout) {
    ouvre();
    Clavier::touches({QStringLiteral("Next")});
    EXPECT_TRUE(attendPanneau(4, QStringLiteral("18 mars 2026")));
    Clavier::touches({QStringLiteral("Home")});
    EXPECT_TRUE(attendPanneau(4, QStringLiteral("11 mars 2026")));
    const int lignes = grille("GrilleRDV").cells().rows();
    Souris::deplace(*grille("GrilleRDV").viewport(), QPoint(300, 300));
    ASSERT_TRUE(xdotool({QStringLiteral("keydown"), QStringLiteral("ctrl"), QStringLiteral("click"),
                         QStringLiteral("4"), QStringLiteral("keyup"), QStringLiteral("ctrl")}));
    EXPECT_TRUE(waitUntil([&] { return grille("GrilleRDV").cells().rows() == (lignes - 2) * 3 + 2; }));
    Clavier::touches({QStringLiteral("F5")});
    EXPECT_TRUE(waitUntil([&] { return grille("GrilleRDV").cells().rows() == lignes; }));
}

#include "start/FrmEntree.h"

#include "platform/ui/FlexGrid.h"
#include "start/Demarrage.h"
#include "start/FrmAPropos.h"
#include "start/FrmQuit.h"
#include "support/CabinetDEssai.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

const QString RDV = QStringLiteral("RDV");
const QString Config = QStringLiteral("Config");

/// A sample practice and the program that opens on it.
struct Essai {
    /// Starts the program as far as the main window.
    FrmEntree &start() {
        v = cabinet.variables();
        fenetre = std::make_unique<FrmEntree>(v);
        fenetre->Form_Load();
        return *fenetre;
    }
    void execute(Base base, const SqlText &sql) { cabinet.ouvre(base).execute(sql); }
    const FlexGridModel &grille() const {
        return fenetre->findChild<FlexGrid *>(QStringLiteral("GrilleRDV"))->cells();
    }
    QAction &action(const char *name) const {
        return *fenetre->findChild<QAction *>(QLatin1StringView(name));
    }
    QString panneau(int i) const {
        return fenetre->findChild<QLabel *>(QStringLiteral("StatusBar1_%1").arg(i))->text();
    }
    QString dernierMessage() const {
        return cabinet.messages.shown.isEmpty() ? QString() : cabinet.messages.shown.last().text;
    }

    CabinetDEssai cabinet;
    VariablesGlobales v;
    std::unique_ptr<FrmEntree> fenetre;
};

class FrmEntreeTest : public testing::Test, public Essai {};

} // namespace

TEST_F(FrmEntreeTest, OpensOnTheHandedOverPractitioner) {
    start();
    EXPECT_TRUE(cabinet.messages.shown.isEmpty()) << dernierMessage().toStdString();
    EXPECT_EQ(v.PraticienCourant, QStringLiteral("01"));
    EXPECT_EQ(v.NbPraticiens, 3);
    EXPECT_NE(v.NumPatientTransmis, 0);
    EXPECT_FALSE(v.NomPatientTransmis.isEmpty());
    EXPECT_EQ(fenetre->windowTitle(), QStringLiteral("Carnet de rendez-vous du ") + panneau(2));
    EXPECT_EQ(panneau(4), QStringLiteral("11 mars 2026"));
    EXPECT_TRUE(v.ConfigExiste);
    EXPECT_TRUE(v.AvecFauteuils);
    EXPECT_FALSE(action("mnuReporter").isVisible());
    EXPECT_FALSE(action("mnuEditer").isEnabled());
    EXPECT_FALSE(action("mnuSupprimer").isEnabled());
    EXPECT_FALSE(action("mnuPresent").isEnabled());
    EXPECT_EQ(grille().cols(), v.config.NbJours + 2);
}

TEST_F(FrmEntreeTest, StartsOnTheNextDisplayedDay) {
    cabinet.maintenant.setDate(QDate(2026, 3, 14));
    execute(Base::RendezVous, SqlText("update Config set NbJours = 5, SamAffich = 0, DimAffich = 0"));
    start();
    EXPECT_EQ(v.txtNumJourEnCours, QDate(2026, 3, 16));
    EXPECT_EQ(panneau(4), QStringLiteral("16 mars 2026"));
}

TEST_F(FrmEntreeTest, APractitionerWithoutConfigurationGetsTheFallBack) {
    execute(Base::PatientTransmis, SqlText("update LePraticien set NumPraticien = '03'"));
    execute(Base::RendezVous, SqlText("update Config set Intervalle = 60 where NomConfig = 'défaut'"));
    start();
    EXPECT_FALSE(v.ConfigExiste);
    EXPECT_EQ(v.config.Intervalle, 60);
    EXPECT_FALSE(action("mnuAjouter").isEnabled());
    EXPECT_FALSE(action("mnuPurger").isEnabled());
}

TEST_F(FrmEntreeTest, OtherPractitionersAndChairsLoadTheirOwn) {
    start();
    QList<QAction *> docteurs;
    QList<QAction *> fauteuils;
    for (QAction *a : fenetre->findChild<QMenu *>(QStringLiteral("mnuPraticien"))->actions()) {
        docteurs << a;
    }
    for (QAction *a : fenetre->findChild<QMenu *>(QStringLiteral("menuFaut"))->actions()) {
        fauteuils << a;
    }
    ASSERT_EQ(docteurs.size(), 3);
    ASSERT_EQ(fauteuils.size(), 2);
    fauteuils[1]->trigger();
    EXPECT_EQ(v.config.FauteuilCourant, QStringLiteral("2"));
    EXPECT_TRUE(fauteuils[1]->isChecked());
    EXPECT_FALSE(fauteuils[0]->isChecked());
    docteurs[2]->trigger();
    EXPECT_EQ(v.PraticienCourant, QStringLiteral("03"));
    EXPECT_FALSE(v.AvecFauteuils);
    EXPECT_EQ(fenetre->windowTitle(), QStringLiteral("Carnet de rendez-vous du ") + docteurs[2]->text());
    docteurs[0]->trigger();
    EXPECT_EQ(fenetre->findChild<QMenu *>(QStringLiteral("menuFaut"))->actions().size(), 2);
    EXPECT_EQ(v.config.FauteuilCourant, QStringLiteral("1"));
}

TEST_F(FrmEntreeTest, HandOffWithoutRowsOpensOnTheFirstPractitioner) {
    execute(Base::PatientTransmis, SqlText("delete from LePatient"));
    execute(Base::PatientTransmis, SqlText("delete from LePraticien"));
    start();
    EXPECT_EQ(v.PraticienCourant, QStringLiteral("01"));
    EXPECT_EQ(v.NumPatientTransmis, 0);
    EXPECT_GT(grille().rows(), 0);
}

TEST_F(FrmEntreeTest, TellsAndGoesOnWhenTheDataIsOdd) {
    struct Row {
        const char *name = nullptr;
        std::function<void(Essai &)> damage;
        const char *message = nullptr;
        bool avecGrille = false;
    };
    const auto remove = [](Base base) {
        return [base](Essai &t) { QFile::remove(t.cabinet.fichier(base)); };
    };
    for (const Row &row : {
             Row{"practitioner is no number",
                 [](Essai &t) {
                     t.execute(Base::PatientTransmis, SqlText("update LePraticien set NumPraticien = 'abc'"));
                 },
                 "« abc »", true},
             Row{"no hand-off", remove(Base::PatientTransmis), "introuvable", true},
             Row{"no book", remove(Base::RendezVous), "introuvable", false},
             Row{"no Config", [](Essai &t) { t.execute(Base::RendezVous, SqlText("drop table Config")); },
                 "la table « Config » manque", false},
             Row{"no fall-back", [](Essai &t) { t.execute(Base::RendezVous, SqlText("delete from Config")); },
                 "« Défaut » n'existe pas", false},
             Row{"slot of no length",
                 [](Essai &t) { t.execute(Base::RendezVous, SqlText("update Config set Intervalle = 0")); },
                 "la durée d'un créneau", false},
             Row{"hours out of order",
                 [](Essai &t) {
                     t.execute(Base::RendezVous, SqlText("update Config set HeurePMFin = #07:00#"));
                 },
                 "les horaires ne se suivent pas", false},
             Row{"nobody", [](Essai &t) { t.execute(Base::Parametres, SqlText("delete from Praticien")); },
                 "Aucun praticien", false},
         }) {
        Essai essai;
        row.damage(essai);
        essai.start();
        EXPECT_TRUE(essai.dernierMessage().contains(QString::fromUtf8(row.message)))
            << row.name << ": " << essai.dernierMessage().toStdString();
        EXPECT_EQ(essai.grille().rows() > 0, row.avecGrille) << row.name;
        for (const auto &message : essai.cabinet.messages.shown) {
            EXPECT_EQ(message.title, QStringLiteral("Erreur")) << row.name;
        }
        EXPECT_TRUE(essai.action("mnuquitter").isEnabled()) << row.name;
    }
}

TEST_F(FrmEntreeTest, NullInAnyFieldOfAnAppointmentIsNoTrouble) {
    for (const char *champ :
         {"Nom", "Prenom", "Telephone", "Description", "NumPatient", "Date1", "HeureDebut", "HeureFin",
          "NumPraticien", "Professionnel", "Present", "Fauteuil", "DateInv"}) {
        Essai essai;
        Database base = essai.cabinet.ouvre(Base::RendezVous);
        const qint64 ref = base.query(SqlText("select RefRDV from RDV where DateInv = '20260311'"))
                               .first()[u"RefRDV"]
                               .toInteger();
        base.update(RDV, QStringLiteral("RefRDV"), ref, {{QString::fromLatin1(champ), Value()}});
        essai.start();
        EXPECT_TRUE(essai.cabinet.messages.shown.isEmpty()) << champ << essai.dernierMessage().toStdString();
        EXPECT_GT(essai.grille().rows(), 0) << champ;
    }
}

TEST_F(FrmEntreeTest, HardTextIsDrawnAsItIs) {
    const QString hard = QString(10000, u'W') + QStringLiteral("\n'#*\"");
    Database base = cabinet.ouvre(Base::RendezVous);
    base.insert(RDV, {{QStringLiteral("Nom"), Value(hard)},
                      {QStringLiteral("Date1"), Value::date(QDate(2026, 3, 15))},
                      {QStringLiteral("DateInv"), Value(QStringLiteral("20260315"))},
                      {QStringLiteral("HeureDebut"), Value::time(QTime(9, 0))},
                      {QStringLiteral("HeureFin"), Value::time(QTime(9, 30))},
                      {QStringLiteral("NumPraticien"), Value(QStringLiteral("01"))},
                      {QStringLiteral("Fauteuil"), Value(1)}});
    execute(Base::RendezVous,
            SqlText("update Config set NbJours = 7, LunAffich = 1, MarAffich = 2, MerAffich = 3, "
                    "JeuAffich = 4, VenAffich = 5, SamAffich = 6, DimAffich = 7"));
    start();
    EXPECT_EQ(grille().cell(5, 7).text, QStringLiteral("  ") + hard + u' ');
    fenetre->grab();
}

TEST_F(FrmEntreeTest, PathDatabaseWithoutDataRootEndsTheProgram) {
    struct Row {
        const char *name = nullptr;
        SqlText sql;
    };
    for (const Row &row : {Row{"empty table", SqlText("delete from Chemin")},
                           Row{"empty folder", SqlText("update Chemin set LeChemin = ''")},
                           Row{"null folder", SqlText("update Chemin set LeChemin = Null")},
                           Row{"no table", SqlText("drop table Chemin")}}) {
        CabinetDEssai autre;
        autre.ouvre(Base::Chemins).execute(row.sql);
        VariablesGlobales etat;
        etat.messages = &autre.messages;
        EXPECT_FALSE(LitEmplacements(etat, autre.fichier(Base::Chemins))) << row.name;
        EXPECT_EQ(autre.messages.shown.size(), 1) << row.name;
    }
}

TEST_F(FrmEntreeTest, OnlyTheFirstRowOfThePathDatabaseCounts) {
    execute(Base::Chemins, SqlText("update Chemin set LeChemin = 'D:\\Data', CheminBase = 'E:\\Base\\'"));
    execute(Base::Chemins, SqlText("insert into Chemin (LeChemin, CheminBase) values ('X:', 'Y:')"));
    VariablesGlobales etat;
    etat.messages = &cabinet.messages;
    ASSERT_TRUE(LitEmplacements(etat, cabinet.fichier(Base::Chemins)));
    EXPECT_EQ(etat.CheminRacine, QStringLiteral("D:\\Data"));
    EXPECT_EQ(etat.CheminFichiers, QStringLiteral("E:\\Base\\\\Fichiers")) << "two roots, backslash kept";
}

TEST(SmallWindows, SayWhatTheyMust) {
    const FrmAPropos aPropos({QStringLiteral("docteur D'ARC Zoé"), QStringLiteral("docteur ROUX Léa")});
    const auto *liste = aPropos.findChild<QListWidget *>(QStringLiteral("ListePraticiens"));
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(0)->text(), QStringLiteral("docteur D'ARC Zoé"));
    const FrmQuit quit;
    EXPECT_EQ(quit.windowTitle(), QStringLiteral("Quitter"));
    EXPECT_EQ(quit.findChild<QPushButton *>(QStringLiteral("Command1"))->text(), QStringLiteral("Quitter"));
}

#include "support/Fenetre.h"
#include "maintenance/FrmPurger.h"
#include "support/Gestes.h"
#include "support/WaitUntil.h"

#include <QCalendarWidget>
#include <QFile>
#include <QMenu>
#include <gtest/gtest.h>

namespace {

/// Practitioners 1, 4 and 9; the first has chairs 1 and 12 of 60-minute slots, the second no chairs, the
/// third no configuration.
class FenetreTest : public testing::Test, public Fenetre {
  protected:
    FenetreTest() {
        const QStringList noms{q("UN"), q("DEUX"), q("TROIS")};
        for (int i = 1; i <= 3; ++i) {
            ecrit(Base::Parametres, SqlText("update Praticien set PreNom = '', nom = ")
                                        << texte(noms[i - 1]) << ", codeprat = " << nombre(qint64{i} * i)
                                        << " where codeprat = " << nombre(i));
        }
        ecrit(Base::PatientTransmis, SqlText("delete from LePatient"));
        livre.config({.nom = "Défaut", .fauteuil = 0, .defaut = false, .praticien = "0", .intervalle = 120});
        livre.config();
        livre.config({.nom = "Cabinet2", .fauteuil = 12, .defaut = false});
        livre.config({.nom = "Principal", .fauteuil = 0, .praticien = "04", .intervalle = 30});
    }
    void ecrit(Base base, const SqlText &sql) { cabinet.ouvre(base).execute(sql); }
    void disparait() { QFile::rename(livre.fichier(), livre.fichier() + u'x'); }
    void revient() { QFile::rename(livre.fichier() + u'x', livre.fichier()); }
};

} // namespace

TEST_F(FenetreTest, PractitionersAndChairs) {
    livre.rdv();
    livre.rdv({.nom = "AUTRE", .fauteuil = 0, .praticien = "04"});
    livre.rdv({.nom = "SECOND", .fauteuil = 12});
    ouvre();
    EXPECT_EQ(lecture(), "lu à 10:05");
    EXPECT_EQ(etat(), "docteur UN 0 0 ---- 11 mars 2026");
    joue(R"(
        docteur 1  | docteur DEUX 1 - ---- 11 mars 2026              | 22x7 lundi 09 mars: 3,3 AUTRE
        docteur 2  | docteur TROIS 2 - ---- 11 mars 2026             | 7x7 lundi 09 mars:
        clic 1,1   | docteur TROIS 2 - ---- 09 mars 2026 08:00 / 10:00
        docteur 0  | docteur UN 0 0 A--- 09 mars 2026 08:00 / 10:00  | 12x7 lundi 09 mars: 2,3 ROUX [1,1-2,1]
        fauteuil 1 | docteur UN 0 1 A--- 09 mars 2026 08:00 / 10:00  | 12x7 lundi 09 mars: 2,3 SECOND [1,1-2,1])");
    livre.execute(SqlText("delete from Config where Fauteuil = 12"));
    joue(R"(
        fauteuil 1 | docteur UN 0 aucun ---- 09 mars 2026 08:00 / 10:00 | 7x7 lundi 09 mars: [1,1-1,1]
        fauteuil 0 | docteur UN 0 0 A--- 09 mars 2026 08:00 / 10:00     | 12x7 lundi 09 mars: 2,3 ROUX [1,1-2,1])");
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, HandedOverPractitioners) {
    for (const QStringList &cas : tableau(R"(
        09  | docteur TROIS 2 - ---- 11 mars 2026   |
        07  | praticien 7 aucun - ---- 11 mars 2026 |
        abc | docteur UN 0 0 ---- 11 mars 2026      | Le numéro de praticien « abc » transmis par la gestion du cabinet n'est pas un numéro valable : le carnet s'ouvre sur le premier praticien.)")) {
        ecrit(Base::PatientTransmis, SqlText("update LePraticien set NumPraticien = ") << texte(cas[0]));
        ouvre();
        EXPECT_EQ(etat(), cas[1].toStdString());
        EXPECT_EQ(dits(), cas[2].toStdString());
    }
    ecrit(Base::PatientTransmis, SqlText("delete from LePraticien"));
    cabinet.maintenant.setDate(QDate(2026, 3, 14));
    ouvre();
    EXPECT_EQ(etat(), "docteur UN 0 0 ---- 16 mars 2026") << "the first one; from Saturday to Monday";
}

TEST_F(FenetreTest, Weeks) {
    livre.rdv();
    livre.rdv({.nom = "SUIVANT", .jour = "2026-03-18"});
    ouvre();
    joue(R"(
        clic 4,3      | docteur UN 0 0 A--- 11 mars 2026 11:00 / 12:00
        BtnSuivant    | docteur UN 0 0 A--- 18 mars 2026 11:00 / 12:00 | 12x7 lundi 16 mars: 2,3 SUIVANT [4,3-4,3]
        BtnPrecedent  |                                                | 12x7 lundi 09 mars: 2,3 ROUX [4,3-4,3]
        BtnPrecedent  | docteur UN 0 0 A--- 04 mars 2026 11:00 / 12:00 | 12x7 lundi 02 mars: [4,3-4,3]
        BtnAujourdhui | docteur UN 0 0 A--- 11 mars 2026 11:00 / 12:00 | 12x7 lundi 09 mars: 2,3 ROUX [4,3-4,3]
        touche PgDown | docteur UN 0 0 A--- 18 mars 2026 11:00 / 12:00 | 12x7 lundi 16 mars: 2,3 SUIVANT [4,3-4,3]
        touche PgUp   |                                                | 12x7 lundi 09 mars: 2,3 ROUX [4,3-4,3]
        touche PgUp   |                                                | 12x7 lundi 02 mars: [4,3-4,3]
        touche Home   |                                                | 12x7 lundi 09 mars: 2,3 ROUX [4,3-4,3]
        mnuZoom       |                                                | 122x7 lundi 09 mars: 13,3 ROUX [37,3-48,3]
        touche F5     |                                                | 12x7 lundi 09 mars: 2,3 ROUX [4,3-4,3]
        touche Down   |                                                | 12x7 lundi 09 mars: 2,3 ROUX [5,3-5,3]
        maj Down      | docteur UN 0 0 A--- 11 mars 2026 12:00 / 14:00
        touche Right  | docteur UN 0 0 A--- 12 mars 2026 12:00 / 13:00)");
    pendant("BtnMois", [](QWidget &mois) {
        controle<QCalendarWidget>(mois, q("MonthView1")).setSelectedDate(QDate(2026, 12, 25));
        ::joue(mois, q(">BtnOK"));
    });
    EXPECT_EQ(etat(), "docteur UN 0 0 ---- 25 déc. 2026");
}

TEST_F(FenetreTest, DayView) {
    livre.rdv();
    livre.rdv({.nom = "SECOND", .fauteuil = 12});
    ouvre();
    joue(R"(
        fauteuil 1   |
        BtnJour      | docteur UN 0 1 ---- 11 mars 2026
        BtnSemaine   | docteur UN 0 0 ---- 11 mars 2026
        BtnJour      | docteur UN 0 0 ---- 11 mars 2026 | 12x2 mercredi 11 mars Fauteuil 1: 2,1 ROUX; 12x2 mercredi 11 mars Fauteuil 12: 2,1 SECOND
        clic 2,1 1   | docteur UN 0 0 -ESP 11 mars 2026 09:00 / 10:00 ROUX | 12x2 mercredi 11 mars Fauteuil 1: 2,1 ROUX [2,1-2,1]; 12x2 mercredi 11 mars Fauteuil 12: 2,1 SECOND
        clic 10,1 2  |
        touche Down  | docteur UN 0 0 A--- 11 mars 2026 17:00 / 18:00
        clic 1,1 2   | docteur UN 0 0 A--- 11 mars 2026 08:00 / 09:00 | 12x2 mercredi 11 mars Fauteuil 1: 2,1 ROUX; 12x2 mercredi 11 mars Fauteuil 12: 2,1 SECOND [1,1-1,1]
        touche PgDown | docteur UN 0 0 A--- 12 mars 2026 08:00 / 09:00
        touche PgUp  | docteur UN 0 0 A--- 11 mars 2026 08:00 / 09:00)");
    cabinet.maintenant.setTime(QTime(7, 0)); // that hour is not past
    pendant("mnuAjouter", [](QWidget &f) { ::joue(f, q("Text1=NEUF;>BtnAjouter")); });
    EXPECT_EQ(etat(), "docteur UN 0 0 -ESP 11 mars 2026 08:00 / 09:00 NEUF");
    joue(R"(
        BtnSuivant2  | docteur UN 0 0 A--- 12 mars 2026 08:00 / 09:00 | 12x2 jeudi 12 mars Fauteuil 1:; 12x2 jeudi 12 mars Fauteuil 12: [1,1-1,1]
        BtnPrecedent2  |                                              | 12x2 mercredi 11 mars Fauteuil 1: 2,1 ROUX; 12x2 mercredi 11 mars Fauteuil 12: 1,1 NEUF 2,1 SECOND
        docteur 1    | docteur DEUX 1 - ---- 11 mars 2026 | 10x2 mercredi 11 mars Matin:; 10x2 mercredi 11 mars Après-midi:
        mnusemaine   | docteur DEUX 1 - ---- 11 mars 2026 | 22x7 lundi 09 mars:)");
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, ADoubleClickOpensWhatWasSelectedBefore) {
    livre.rdv({.nom = "TOT", .fin = "09:30:00"});
    livre.rdv({.nom = "TARD", .debut = "09:30:00"});
    ouvre();
    joue(R"(
        clic 2,3 | docteur UN 0 0 -ESP 11 mars 2026 09:00 / 09:30 1 sur 2 : TOT
        clic 2,3 | docteur UN 0 0 -ESP 11 mars 2026 09:30 / 10:00 2 sur 2 : TARD
        clic 2,3 | docteur UN 0 0 -ESP 11 mars 2026 09:00 / 09:30 1 sur 2 : TOT)");
    pendant("double 2,3", [](QWidget &editer) {
        EXPECT_EQ(::texte(editer, "TextHeureDebut"), q("09:30"));
        ::joue(editer, q("DTPicker1=14/03/2026;>BtnMettreAJour"));
    });
    EXPECT_EQ(etat(), "docteur UN 0 0 -ESP 14 mars 2026 09:30 / 10:00 TARD") << "asked about: shown by day";
    EXPECT_EQ(questions(), "Déplacer ce rendez-vous ?");
    EXPECT_EQ(dits(), "");
    pendant("mnuEditer", [](QWidget &editer) { ::joue(editer, q("DTPicker1=18/03/2026;>BtnMettreAJour")); });
    EXPECT_EQ(dits(),
              "Le rendez-vous est enregistré au mercredi 18 mars 2026, de 09:30 à 10:00 : il n'est pas "
              "dans ce qui est affiché.");
}

TEST_F(FenetreTest, WhatOthersWriteMeanwhile) {
    livre.rdv({.debut = "09:30:00", .fin = "10:30:00"});
    ouvre();
    joue("clic 2,3\nmnuZoom | docteur UN 0 0 -ESP 11 mars 2026 09:30 / 10:30 ROUX | 122x7 lundi 09 mars: "
         "19,3 ROUX [19,3-30,3]");
    EXPECT_EQ(grille().rowAt(0), 19) << "the hour, and what is selected";
    joue(R"(
        BtnSuivant    |
        BtnPrecedent  | | 122x7 lundi 09 mars: 19,3 ROUX
        clic 20,3     | | 122x7 lundi 09 mars: 19,3 ROUX [19,3-30,3]
        BtnRafraichir | | 12x7 lundi 09 mars: 2,3 ROUX [2,3-3,3]
        mnuZoom       | | 122x7 lundi 09 mars: 19,3 ROUX [19,3-30,3]
        docteur 0     | | 12x7 lundi 09 mars: 2,3 ROUX [2,3-3,3])");
    livre.execute(SqlText("update RDV set Present = True, Nom = 'VENU'"));
    tique();
    EXPECT_EQ(etat(), "docteur UN 0 0 -ESP* 11 mars 2026 09:30 / 10:30 VENU");
    joue("mnuPresent | docteur UN 0 0 -ESP 11 mars 2026 09:30 / 10:30 VENU");
    livre.execute(SqlText("delete from RDV"));
    livre.rdv({.nom = "AUTRE"});
    joue("mnuSupprimer | docteur UN 0 0 ---- 11 mars 2026 | 12x7 lundi 09 mars: 2,3 AUTRE\nclic 6,3");
    EXPECT_EQ(dits(), "Ce rendez-vous n'existe plus !");
    livre.rdv({.nom = "PRIS", .debut = "13:00:00", .fin = "14:00:00"});
    joue("mnuAjouter | docteur UN 0 0 ---- 11 mars 2026");
    EXPECT_NE(dits(), "");
    *cabinet.environnement().lectureSeule = q("abîmé");
    livre.execute(SqlText("update RDV set Nom = 'CHANGE' where Nom = 'AUTRE'"));
    joue("clic 2,3 | docteur UN 0 0 ---- 11 mars 2026 09:00 / 10:00 CHANGE");
    EXPECT_EQ(lecture(), "lecture seule · lu à 10:05");
}

TEST_F(FenetreTest, TheTimerWaitsForTheUserAndLatenessForTheTimer) {
    livre.rdv({.nom = "ILLISIBLE", .debut = "midi"});
    cabinet.maintenant.setTime(QTime(10, 0, 59));
    ouvre();
    EXPECT_EQ(lecture(), "1 rendez-vous sans horaire lisible · lu à 10:00");
    fait(q("presse 4,4"));
    livre.rdv({.debut = "10:00:00", .fin = "11:00:00"});
    EXPECT_EQ(tique(), 500);
    QTest::mouseRelease(grille().viewport(), Qt::LeftButton);
    objet<QMenu>("mnupatient").popup({});
    EXPECT_EQ(tique(), 500);
    objet<QMenu>("mnupatient").close();
    pendant("BtnMois", [&](QWidget &) { EXPECT_EQ(tique(), 500); });
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: [4,4-4,4]");
    EXPECT_EQ(tique(), 65535);
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 3,3 ROUX [4,4-4,4]");
    const auto rouge = [&] { return grille().cells().cell(3, 3).fore == QColor(255, 0, 0); };
    EXPECT_FALSE(rouge());
    cabinet.maintenant.setTime(QTime(10, 1));
    tique();
    EXPECT_TRUE(rouge());
}

TEST_F(FenetreTest, AFailedReadLeavesAllAsItIs) {
    livre.rdv();
    ouvre();
    joue("fauteuil 1\nfauteuil 0\nclic 2,3");
    const std::string avant = etat() + grilles();
    disparait();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(tique(), 65535);
        EXPECT_EQ(etat() + grilles(), avant);
    }
    EXPECT_EQ(cabinet.messages.shown.size(), 1) << "told once for a series";
    for (const char *geste : {"clic 5,2", "docteur 1", "fauteuil 1", "BtnSuivant", "BtnJour", "mnuZoom",
                              "BtnRafraichir", "mnuEditer", "mnuSupprimer", "mnuPresent"}) {
        dits();
        fait(q(geste));
        EXPECT_EQ(etat() + grilles(), avant) << geste;
        EXPECT_EQ(lecture(), "!lu à 10:05") << geste;
        EXPECT_NE(dits(), "") << geste;
    }
    revient();
    cabinet.maintenant = cabinet.maintenant.addSecs(60);
    tique();
    EXPECT_EQ(lecture(), "lu à 10:06");
    EXPECT_EQ(etat() + grilles(), avant);
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, TheVeryFirstReadComesBackByItself) {
    disparait();
    ouvre();
    EXPECT_NE(dits(), "");
    EXPECT_EQ(tique(), 5000);
    EXPECT_EQ(dits(), "") << "told once";
    joue("BtnRafraichir | | 0x0 :");
    EXPECT_NE(dits(), "");
    revient();
    EXPECT_EQ(tique(), 65535);
    EXPECT_EQ(etat(), "docteur UN 0 0 ---- 11 mars 2026");
}

TEST_F(FenetreTest, SettingsAreKeptForTheWeek) {
    const auto coche = [](QWidget &f, const char *nom) {
        return controle<QAbstractButton>(f, q(nom)).isChecked();
    };
    const auto trente = [coche](QWidget &tranche) {
        EXPECT_TRUE(coche(tranche, "Option12"));
        ::joue(tranche, q(">Option6;>BtnOK"));
    };
    ouvre();
    pendant("mnutranche", trente);
    joue("BtnSuivant | | 22x7 lundi 16 mars:");
    pendant("mnuexclure", [](QWidget &exclure) { ::joue(exclure, q(">Option3")); });
    pendant("mnuexclure", [coche](QWidget &exclure) { EXPECT_TRUE(coche(exclure, "Option3")); });
    joue("BtnJour\nclic 1,1 2");
    pendant("mnutranche", trente);
    joue("clic 1,1 2 | | 12x2 mercredi 11 mars Fauteuil 1:; 12x2 mercredi 11 mars Fauteuil 12: [1,1-1,1]");
    pendant("mnutranche", [coche](QWidget &f) { EXPECT_TRUE(coche(f, "Option6")); });
    joue("clic 1,1 1");
    pendant("mnutranche", [coche](QWidget &f) { EXPECT_TRUE(coche(f, "Option12")); });
    joue("BtnSemaine | | 12x7 lundi 09 mars: [1,3-1,3]\nmnuZoom");
    pendant("mnutranche", [](QWidget &f) { ::joue(f, q(">Option1;>BtnOK")); });
    joue("mnuZoom | | 122x7 lundi 09 mars: [1,3-12,3]"); // five minutes by choice: nothing to come back to
}

TEST_F(FenetreTest, TheSuiteIsAskedForTheHistory) {
    ecrit(Base::Historique, SqlText("update Carnet set NumPatient = 5"));
    ecrit(Base::Historique, SqlText("insert into Carnet (NumPatient) values (6)"));
    const auto demandes = [&] {
        QStringList numeros;
        for (const Record row : cabinet.ouvre(Base::Historique).query(SqlText("Select * from Carnet"))) {
            numeros << row[u"NumPatient"].toText();
        }
        return numeros.join(u' ').toStdString();
    };
    livre.rdv();
    livre.rdv({.nom = "SANS", .debut = "11:00:00", .fin = "12:00:00"});
    livre.execute(SqlText("update RDV set Prenom = 'Zoé', NumPatient = 7041 where Nom = 'ROUX'"));
    ouvre();
    for (const char *geste : {"mnuRafraichir", "clic 6,3", "clic 4,3"}) { // nothing, nobody, somebody
        fait(q(geste));
        fait(q("menuAllerHisto"));
        EXPECT_EQ(dits(), "Le patient ne possède pas de numéro Belmor !\nActin Impossible à exécuter.")
            << geste;
    }
    fait(q("clic 2,3"));
    disparait();
    fait(q("menuAllerHisto"));
    EXPECT_NE(dits().find("Tavelin.mdb"), std::string::npos);
    revient();
    const QString fichier = cabinet.fichier(Base::Historique);
    Database historique = cabinet.ouvre(Base::Historique);
    const std::pair<std::function<void()>, std::function<void()>> pannes[] = {
        {[&] { historique.execute(SqlText("begin exclusive")); },
         [&] { historique.execute(SqlText("rollback")); }},
        {[&] { historique.execute(SqlText("alter table Carnet rename to Autre")); },
         [&] { historique.execute(SqlText("alter table Autre rename to Carnet")); }},
        {[&] { QFile::rename(fichier, fichier + u'x'); }, [&] { QFile::rename(fichier + u'x', fichier); }},
    };
    for (const auto &[casse, repare] : pannes) {
        casse();
        fait(q("menuAllerHisto"));
        EXPECT_NE(dits().find("ChangePatient.mdb"), std::string::npos);
        repare();
    }
    EXPECT_EQ(demandes(), "5 6");
    EXPECT_FALSE(fenetre->isMinimized());
    for (const char *attendu : {"7041 6", ""}) {
        fait(q("menuAllerHisto"));
        EXPECT_EQ(dits(), "");
        EXPECT_EQ(demandes(), attendu);
        EXPECT_TRUE(fenetre->isMinimized());
        fenetre->showNormal();
        ecrit(Base::Historique, SqlText("delete from Carnet"));
    }
}

TEST_F(FenetreTest, ACancelledPurgeIsDrawn) {
    const auto permise = [this] { return objet<QAction>("mnuPurger").isEnabled(); };
    livre.rdv({.nom = "PREMIER", .debut = "08:00:00", .fin = "09:00:00", .jour = "2026-03-09"});
    for (int lot = 0; lot < 9; ++lot) { // more than one, at the other chair
        livre.execute(SqlText("insert into RDV (NumPraticien, DateInv, Fauteuil, HeureDebut) select '01', "
                              "'20260309', 2, '10:00:00' from RDV"));
    }
    ouvre();
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 1,1 PREMIER");
    pendant("mnuPurger", [&](QWidget &fenetrePurge) {
        auto &purger = dynamic_cast<FrmPurger &>(fenetrePurge);
        EXPECT_EQ(controle<QLabel>(purger, q("LabelPraticien")).text(),
                  q("Carnet du docteur UN, tous fauteuils compris."));
        purger.demandeNom = [](const QString &dossier) { return dossier + q("/a"); };
        ::joue(purger, q("DateFinPurge=10/3/2026;>Command1"));
        waitUntil([&] { return purger.deplaces() > 0; });
        ::joue(purger, q(">BtnAnnuler"));
        waitUntil([&] { return !purger.isVisible(); });
    });
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars:");
    EXPECT_EQ(dits().find("La purge est annulée. "), 0U);
    EXPECT_TRUE(permise());
    fait(q("docteur 2"));
    EXPECT_FALSE(permise()) << "no configuration";
    fait(q("docteur 0"));
    *cabinet.environnement().lectureSeule = q("abîmé");
    fait(q("mnuRafraichir"));
    EXPECT_FALSE(permise());
}

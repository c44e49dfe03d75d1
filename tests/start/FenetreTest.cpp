#include "support/Fenetre.h"

#include <QCalendarWidget>
#include <QFile>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace {

/// Practitioners 1, 4 and 9; the first has chairs 1 and 2 of 60-minute slots, the second no chairs, the third
/// no configuration.
class FenetreTest : public testing::Test, public Fenetre {
  protected:
    FenetreTest() {
        for (const char *nom : {"UN", "DEUX", "TROIS"}) {
            ++m_code;
            cabinet.ouvre(Base::Parametres)
                .execute(SqlText("update Praticien set PreNom = '', nom = ")
                         << texte(q(nom)) << ", codeprat = " << nombre(m_code * m_code)
                         << " where codeprat = " << nombre(m_code));
        }
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        livre.config({.nom = "Défaut", .fauteuil = 0, .defaut = false, .praticien = "0", .intervalle = 120});
        livre.config();
        livre.config({.nom = "Cabinet2", .fauteuil = 2, .defaut = false});
        livre.config({.nom = "Principal", .fauteuil = 0, .praticien = "04", .intervalle = 30});
    }
    void disparait() { QFile::rename(livre.fichier(), livre.fichier() + u'x'); }
    void revient() { QFile::rename(livre.fichier() + u'x', livre.fichier()); }
    bool perime() { return !objet<QLabel>("StatusBar1_5").styleSheet().isEmpty(); }
    /// `dedans` runs in the dialog that `ouvre` opens.
    static void pendant(const std::function<void()> &ouvre, const std::function<void(QWidget &)> &dedans) {
        bool vu = false;
        QTimer::singleShot(0, qApp, [&] {
            QWidget *fenetre = QApplication::activeModalWidget();
            vu = fenetre != nullptr;
            if (vu) {
                dedans(*fenetre);
                fenetre->close();
            }
        });
        ouvre();
        EXPECT_TRUE(vu) << "no dialog";
    }
    static void appuieDans(QWidget &fenetre, const char *bouton) {
        fenetre.findChild<QAbstractButton *>(q(bouton))->click();
    }

  private:
    int m_code = 0;
};

} // namespace

TEST_F(FenetreTest, Practitioners) {
    livre.rdv();
    livre.rdv({.nom = "AUTRE", .fauteuil = 0, .praticien = "04"});
    ouvre();
    EXPECT_EQ(etat(), "docteur UN  0 0 ---- 11 mars 2026   ");
    EXPECT_EQ(panneau(5), "lu à 10:05");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 ROUX");
    choisit("mnuPraticien", 1);
    EXPECT_EQ(etat(), "docteur DEUX  1 - ---- 11 mars 2026   ");
    EXPECT_EQ(grilles(), "22x7 lundi 09 mars: 3,3 AUTRE");
    choisit("mnuPraticien", 2);
    EXPECT_EQ(grilles(), "7x7 lundi 09 mars:");
    clique(1, 1);
    EXPECT_EQ(etat(), "docteur TROIS  2 - ---- 09 mars 2026 08:00/10:00  ");
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, HandedOverPractitioners) {
    struct Cas {
        const char *nom, *numero, *etat, *dit;
    };
    for (const Cas &cas : {Cas{"listed", "09", "docteur TROIS  2 - ---- 11 mars 2026   ", ""},
                           Cas{"not listed", "07", "praticien 7  - ---- 11 mars 2026   ", ""},
                           Cas{"no number", "abc", "docteur UN  0 0 ---- 11 mars 2026   ",
                               "Le numéro de praticien « abc » transmis par la gestion du cabinet n'est pas "
                               "un numéro valable : "
                               "le carnet s'ouvre sur le premier praticien."}}) {
        cabinet.ouvre(Base::PatientTransmis)
            .execute(SqlText("update LePraticien set NumPraticien = ") << texte(q(cas.numero)));
        ouvre();
        EXPECT_EQ(etat(), cas.etat) << cas.nom;
        EXPECT_EQ(dits(), cas.dit) << cas.nom;
    }
    cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePraticien"));
    cabinet.maintenant.setDate(QDate(2026, 3, 14));
    ouvre();
    EXPECT_EQ(etat(), "docteur UN  0 0 ---- 16 mars 2026   ") << "the first one; from Saturday to Monday";
}

TEST_F(FenetreTest, Chairs) {
    livre.rdv();
    livre.rdv({.nom = "SECOND", .fauteuil = 2});
    ouvre();
    choisit("menuFaut", 1);
    EXPECT_EQ(etat(), "docteur UN  0 1 ---- 11 mars 2026   ");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 SECOND");
    livre.execute(SqlText("delete from Config where Fauteuil = 2"));
    choisit("menuFaut", 1);
    EXPECT_EQ(etat(), "docteur UN  0  ---- 11 mars 2026   ") << "deleted elsewhere: the fall-back";
    choisit("menuFaut", 0);
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 ROUX");
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, Weeks) {
    livre.rdv();
    livre.rdv({.nom = "SUIVANT", .jour = "2026-03-18"});
    ouvre();
    clique(4, 3);
    appuie("BtnSuivant");
    EXPECT_EQ(grilles(), "12x7 lundi 16 mars: 2,3 SUIVANT [4,3-4,3]");
    EXPECT_EQ(etat(), "docteur UN  0 0 A--- 18 mars 2026 11:00/12:00  ");
    appuie("BtnPrecedent");
    appuie("BtnPrecedent");
    EXPECT_EQ(grilles(), "12x7 lundi 02 mars: [4,3-4,3]");
    appuie("BtnAujourdhui");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 ROUX [4,3-4,3]");
    QTest::keyClick(&grille(), Qt::Key_Down);
    QTest::keyClick(&grille(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&grille(), Qt::Key_Right);
    EXPECT_EQ(etat(), "docteur UN  0 0 A--- 12 mars 2026 12:00/13:00  ");
}

TEST_F(FenetreTest, DayView) {
    livre.rdv();
    livre.rdv({.nom = "SECOND", .fauteuil = 2});
    ouvre();
    appuie("BtnJour");
    clique(2, 1, 1);
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP 11 mars 2026 09:00/10:00 ROUX ");
    EXPECT_EQ(grilles(), "12x2 mercredi 11 mars       Fauteuil 1: 2,1 ROUX [2,1-2,1]\n"
                         "12x2 mercredi 11 mars       Fauteuil 2: 2,1 SECOND");
    clique(1, 1, 2);
    EXPECT_EQ(etat(), "docteur UN  0 0 A--- 11 mars 2026 08:00/09:00  ");
    EXPECT_EQ(grilles(), "12x2 mercredi 11 mars       Fauteuil 1: 2,1 ROUX\n"
                         "12x2 mercredi 11 mars       Fauteuil 2: 2,1 SECOND [1,1-1,1]");
    pendant([&] { choisit("mnuAjouter"); },
            [](QWidget &ajouter) {
                ajouter.findChild<QLineEdit *>(q("Text1"))->setText(q("NEUF"));
                appuieDans(ajouter, "BtnAjouter");
            });
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP 11 mars 2026 08:00/09:00 NEUF ");
    EXPECT_EQ(grilles(), "12x2 mercredi 11 mars       Fauteuil 1: 2,1 ROUX\n"
                         "12x2 mercredi 11 mars       Fauteuil 2: 1,1 NEUF 2,1 SECOND [1,1-1,1]");
    clique(10, 1, 2);
    QTest::keyClick(&grille(2), Qt::Key_Down);
    EXPECT_EQ(etat(), "docteur UN  0 0 A--- 11 mars 2026 17:00/18:00  ") << "the closing row is out of reach";
    appuie("BtnSuivant2");
    EXPECT_EQ(grilles(), "12x2 jeudi 12 mars       Fauteuil 1:\n"
                         "12x2 jeudi 12 mars       Fauteuil 2: [10,1-10,1]");
    choisit("mnuPraticien", 1);
    EXPECT_EQ(grilles(), "10x2 jeudi 12 mars       Matin:\n"
                         "10x2 jeudi 12 mars       Après-midi: [7,1-8,1]");
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, SeveralAppointmentsInOneRow) {
    livre.rdv({.nom = "TOT", .fin = "09:30:00"});
    livre.rdv({.nom = "TARD", .debut = "09:30:00"});
    ouvre();
    clique(2, 3);
    clique(2, 3);
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP 11 mars 2026 09:30/10:00 2 sur 2 : TARD ");
    clique(2, 3);
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP 11 mars 2026 09:00/09:30 1 sur 2 : TOT ");
    QString edite;
    pendant([&] { QTest::mouseDClick(grille().viewport(), Qt::LeftButton, {}, place(2, 3, 0)); },
            [&](QWidget &editer) { edite = editer.findChild<QLineEdit *>(q("TextHeureDebut"))->text(); });
    EXPECT_EQ(edite, q("09:30")) << "what was selected before the first press";
}

TEST_F(FenetreTest, WhatOthersWriteMeanwhile) {
    const qint64 ref = livre.rdv({.debut = "09:30:00", .fin = "10:30:00"});
    ouvre();
    clique(2, 3);
    choisit("mnuZoom");
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP 11 mars 2026 09:30/10:30 ROUX ");
    EXPECT_EQ(grilles(), "122x7 lundi 09 mars: 19,3 ROUX [19,3-30,3]");
    EXPECT_EQ(grille().rowAt(0), 24) << "two rows above 10:05";
    appuie("BtnSuivant");
    appuie("BtnPrecedent");
    EXPECT_EQ(grilles(), "122x7 lundi 09 mars: 19,3 ROUX [19,3-30,3]") << "zoom lasts";
    appuie("BtnRafraichir");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 ROUX [2,3-3,3]");
    livre.execute(SqlText("update RDV set Present = True, Nom = 'VENU' where RefRDV = ") << nombre(ref));
    tique();
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP* 11 mars 2026 09:30/10:30 VENU ");
    choisit("mnuPresent");
    EXPECT_EQ(etat(), "docteur UN  0 0 -ESP 11 mars 2026 09:30/10:30 VENU ");
    livre.execute(SqlText("delete from RDV"));
    livre.rdv({.nom = "AUTRE"});
    choisit("mnuSupprimer");
    EXPECT_EQ(dits(), "Ce rendez-vous n'existe plus !");
    EXPECT_EQ(etat(), "docteur UN  0 0 ---- 11 mars 2026   ");
    EXPECT_EQ(livre.ouvre().query(SqlText("select * from RDV")).count(), 1);
}

TEST_F(FenetreTest, TheTimerWaitsForTheUser) {
    ouvre();
    QTest::mousePress(grille().viewport(), Qt::LeftButton, {}, place(4, 4, 0));
    const std::string avant = grilles();
    livre.rdv();
    EXPECT_EQ(tique(), 500);
    QTest::mouseRelease(grille().viewport(), Qt::LeftButton);
    objet<QMenu>("mnupatient").popup({});
    EXPECT_EQ(tique(), 500);
    objet<QMenu>("mnupatient").close();
    pendant([&] { appuie("BtnMois"); }, [&](QWidget &) { EXPECT_EQ(tique(), 500); });
    EXPECT_EQ(grilles(), avant);
    EXPECT_EQ(tique(), 65535);
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 ROUX [4,4-4,4]");
}

TEST_F(FenetreTest, AFailedReadLeavesAllAsItIs) {
    livre.rdv();
    ouvre();
    choisit("menuFaut", 1);
    choisit("menuFaut", 0);
    clique(2, 3);
    const std::string avant = etat() + grilles();
    const auto rien = [&](const char *quoi) {
        EXPECT_EQ(etat() + grilles(), avant) << quoi;
        EXPECT_TRUE(perime()) << quoi;
    };
    disparait();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(tique(), 65535);
        rien("timer");
    }
    EXPECT_EQ(cabinet.messages.shown.size(), 1) << "told once for a series";
    dits();
    const std::pair<const char *, std::function<void()>> gestes[] = {
        {"a click", [&] { clique(5, 2); }},           {"a practitioner", [&] { choisit("mnuPraticien", 1); }},
        {"a chair", [&] { choisit("menuFaut", 1); }}, {"another week", [&] { appuie("BtnSuivant"); }},
        {"day view", [&] { appuie("BtnJour"); }},     {"zoom", [&] { choisit("mnuZoom"); }},
        {"F5", [&] { appuie("BtnRafraichir"); }},     {"edit", [&] { choisit("mnuEditer"); }},
        {"delete", [&] { choisit("mnuSupprimer"); }}, {"present", [&] { choisit("mnuPresent"); }},
    };
    for (const auto &[quoi, geste] : gestes) {
        geste();
        rien(quoi);
        EXPECT_NE(dits(), "") << quoi;
    }
    revient();
    cabinet.maintenant = cabinet.maintenant.addSecs(60);
    tique();
    EXPECT_FALSE(perime());
    EXPECT_EQ(panneau(5), "lu à 10:06");
    EXPECT_EQ(etat() + grilles(), avant);
    EXPECT_EQ(dits(), "");
}

TEST_F(FenetreTest, TheVeryFirstReadComesBackByItself) {
    disparait();
    ouvre();
    EXPECT_NE(dits(), "");
    EXPECT_EQ(tique(), 5000);
    EXPECT_EQ(dits(), "") << "told once";
    EXPECT_EQ(grilles(), "0x0 :");
    appuie("BtnRafraichir");
    EXPECT_NE(dits(), "");
    revient();
    EXPECT_EQ(tique(), 65535);
    EXPECT_EQ(etat(), "docteur UN  0 0 ---- 11 mars 2026   ");
}

TEST_F(FenetreTest, SettingsWindows) {
    ouvre();
    pendant([&] { choisit("mnutranche"); },
            [](QWidget &f) {
                appuieDans(f, "Option6");
                appuieDans(f, "BtnOK");
            });
    EXPECT_EQ(grilles(), "22x7 lundi 09 mars:");
    appuie("BtnSuivant");
    EXPECT_EQ(grilles(), "22x7 lundi 16 mars:") << "kept";
    pendant([&] { choisit("mnuexclure"); }, [](QWidget &f) { appuieDans(f, "Option3"); });
    pendant([&] { choisit("mnuexclure"); },
            [](QWidget &f) { EXPECT_TRUE(f.findChild<QAbstractButton *>(q("Option3"))->isChecked()); });
    appuie("BtnJour");
    clique(1, 1, 2);
    pendant([&] { choisit("mnutranche"); },
            [](QWidget &f) {
                EXPECT_TRUE(f.findChild<QAbstractButton *>(q("Option12"))->isChecked())
                    << "the right grid's chair";
                appuieDans(f, "Option6");
                appuieDans(f, "BtnOK");
            });
    EXPECT_EQ(grilles(), "12x2 mercredi 11 mars       Fauteuil 1:\n"
                         "12x2 mercredi 11 mars       Fauteuil 2: [1,1-1,1]");
    pendant([&] { choisit("mnutranche"); },
            [](QWidget &f) {
                EXPECT_TRUE(f.findChild<QAbstractButton *>(q("Option6"))->isChecked()) << "what was changed";
            });
    appuie("BtnSemaine");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: [1,3-1,3]");
}

TEST_F(FenetreTest, GoesWhereItIsTold) {
    livre.rdv();
    ouvre();
    pendant([&] { appuie("BtnMois"); },
            [](QWidget &mois) {
                mois.findChild<QCalendarWidget *>(q("MonthView1"))->setSelectedDate(QDate(2026, 12, 25));
                appuieDans(mois, "BtnOK");
            });
    EXPECT_EQ(etat(), "docteur UN  0 0 ---- 25 déc. 2026   ");
    appuie("BtnAujourdhui");
    clique(2, 3);
    pendant([&] { choisit("mnuEditer"); },
            [](QWidget &editer) {
                editer.findChild<QLineEdit *>(q("DTPicker1"))->setText(q("14/03/2026"));
                appuieDans(editer, "BtnMettreAJour");
            });
    EXPECT_EQ(dits(), "Le rendez-vous est placé au samedi 14 mars 2026, un jour qui n'est pas affiché.");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: [2,3-2,3]");
    *cabinet.environnement().lectureSeule = q("abîmé");
    livre.rdv();
    clique(2, 3);
    EXPECT_EQ(etat(), "docteur UN  0 0 ---- 11 mars 2026 09:00/10:00 ROUX ") << "nothing can be written";
    EXPECT_EQ(panneau(5), "lecture seule · lu à 10:05");
}

TEST_F(FenetreTest, LatenessFollowsTheClock) {
    livre.rdv({.debut = "10:00:00", .fin = "11:00:00"});
    livre.rdv({.nom = "ILLISIBLE", .debut = "midi"});
    cabinet.maintenant.setTime(QTime(10, 0, 59));
    ouvre();
    EXPECT_EQ(panneau(5), "1 rendez-vous sans horaire lisible · lu à 10:00");
    const auto rouge = [&] { return grille().cells().cell(3, 3).fore == QColor(255, 0, 0); };
    EXPECT_FALSE(rouge());
    cabinet.maintenant.setTime(QTime(10, 1));
    tique();
    EXPECT_TRUE(rouge());
}

#include "support/Fenetre.h"
#include "support/Gestes.h"

#include <QAction>
#include <QFile>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1 at one chair, 60-minute slots; the book keeps its history.
class RetourTest : public testing::Test, public Fenetre {
  protected:
    RetourTest() {
        cabinet.ouvre(Base::Parametres).execute(SqlText("delete from Praticien where codeprat > 1"));
        cabinet.ouvre(Base::Parametres).execute(SqlText("update Praticien set PreNom = '', nom = 'P'"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        livre.config();
    }
    /// What undoing and doing again are called now; "-" where they cannot be chosen.
    std::string gestes() const {
        QStringList noms;
        for (const char *nom : {"mnuAnnuler", "mnuRetablir"}) {
            const auto &action = objet<QAction>(nom);
            noms << (action.isEnabled() ? action.text() : q("-"));
        }
        return noms.join(u'|').toStdString();
    }
    /// The texts of a table, one row a line.
    static std::string textes(const QWidget &dialogue, const char *nom) {
        const auto &table = controle<QTableWidget>(dialogue, q(nom));
        QStringList rangees;
        for (int i = 0; i < table.rowCount(); ++i) {
            QStringList cellules;
            for (int j = 0; j < table.columnCount(); ++j) {
                cellules << table.item(i, j)->text();
            }
            rangees << cellules.join(u'|');
        }
        return rangees.join(u'\n').toStdString();
    }
};

} // namespace

TEST_F(RetourTest, TheKeysUndoAndDoAgainWhereverItLies) {
    livre.rdv({.nom = "ROUX & FILS"});
    ouvre();
    EXPECT_EQ(gestes(), "-|-");
    joue(R"(
        clic 2,3       |
        touche +       | docteur P 0 0 -ESP 11 mars 2026 09:00 / 11:00 ROUX & FILS
        BtnSuivant     | docteur P 0 0 A--- 18 mars 2026 09:00 / 11:00
        touche Ctrl+Z  | docteur P 0 0 -ESP 11 mars 2026 09:00 / 10:00 ROUX & FILS
        BtnSuivant     |
        touche Ctrl+Y  | docteur P 0 0 -ESP 11 mars 2026 09:00 / 11:00 ROUX & FILS
        touche P       | docteur P 0 0 -ESP* 11 mars 2026 09:00 / 11:00 ROUX & FILS)");
    EXPECT_EQ(gestes(), "A&nnuler « Présence de ROUX && FILS »|-");
    pendant("mnuSupprimer", [](QWidget &f) { ::joue(f, q(">BtnOK")); });
    EXPECT_EQ(gestes(), "A&nnuler « Supprimer ROUX && FILS »|-");
    joue(R"(
        touche Ctrl+Z  | docteur P 0 0 -ESP* 11 mars 2026 09:00 / 11:00 ROUX & FILS
        touche Ctrl+Z  | docteur P 0 0 -ESP 11 mars 2026 09:00 / 11:00 ROUX & FILS)");
    EXPECT_EQ(gestes(), "A&nnuler « Allonger ROUX && FILS »|Réta&blir « Présence de ROUX && FILS »");
    joue("clic 6,3 |");
    pendant("mnuAjouter", [](QWidget &f) { ::joue(f, q("Text1=NEUF;>BtnAjouter")); });
    EXPECT_EQ(gestes(), "A&nnuler « Ajouter NEUF »|-");
    joue(R"(
        touche Ctrl+Z  | docteur P 0 0 A--- 11 mars 2026 13:00 / 14:00
        touche Ctrl+Y  | docteur P 0 0 -ESP 11 mars 2026 13:00 / 14:00 NEUF)");
    EXPECT_EQ(dits(), "");
}

TEST_F(RetourTest, WhatCannotBeUndoneIsToldAndLeftAlone) {
    livre.rdv();
    ouvre();
    const auto ecrit = [&](const char *geste) {
        joue("clic 2,3 |");
        fait(q(geste));
    };
    const struct {
        const char *geste = nullptr;
        SqlText ailleurs;
        const char *dit = nullptr;
        bool reste = false;
    } cas[] = {
        {"touche +", SqlText("update RDV set Telephone = '07'"),
         "« Allonger ROUX » ne peut pas être annulé : ce rendez-vous a été modifié depuis sur un autre "
         "poste."},
        {"touche P", SqlText("delete from RDV"),
         "« Présence de ROUX » ne peut pas être annulé : ce rendez-vous n'existe plus."},
        {"touche -",
         SqlText("insert into RDV (Nom, Date1, DateInv, HeureDebut, HeureFin, NumPraticien, Fauteuil) "
                 "values ('PRIS', '2026-03-11', '20260311', '10:30:00', '11:00:00', '01', 1)"),
         "« Raccourcir ROUX » ne peut pas être annulé : la place du mercredi 11 mars 2026, de 09:00 à 11:00, "
         "n'est plus libre.",
         true}};
    for (const auto &c : cas) {
        livre.execute(SqlText("delete from RDV"));
        livre.rdv({.fin = c.reste ? "11:00:00" : "10:00:00"});
        fait(q("mnuRafraichir"));
        ecrit(c.geste);
        const QString nom = objet<QAction>("mnuAnnuler").text();
        livre.execute(c.ailleurs);
        fait(q("mnuAnnuler"));
        const std::string dit = dits();
        EXPECT_EQ(dit.find(c.dit), 0U) << dit;
        EXPECT_EQ(objet<QAction>("mnuAnnuler").text() == nom, c.reste) << c.geste;
    }
    Database autre = livre.ouvre();
    {
        const Transaction verrou(autre);
        fait(q("mnuAnnuler"));
    }
    EXPECT_NE(dits().find("occupé par un autre programme"), std::string::npos);
    livre.execute(SqlText("delete from RDV where Nom = 'PRIS'"));
    joue("mnuAnnuler | docteur P 0 0 -ESP 11 mars 2026 09:00 / 11:00 ROUX");
    *cabinet.environnement().lectureSeule = q("abîmé");
    fait(q("mnuRafraichir"));
    EXPECT_EQ(gestes(), "-|-");
}

TEST_F(RetourTest, TheHistoryTellsAndPutsBack) {
    livre.rdv({.nom = "AUTRE", .debut = "17:00:00", .fin = "18:00:00"});
    ouvre();
    joue("clic 4,3 |");
    pendant("mnuAjouter", [](QWidget &f) { ::joue(f, q("Text1=DURAND;Text2=Léa;Text4=a;>BtnAjouter")); });
    pendant("mnuEditer", [](QWidget &f) { ::joue(f, q("DTPicker1=12/03/2026;Text4=<b>;>BtnMettreAJour")); });
    fait(q("mnuPresent"));
    const QString qui = cabinet.environnement().poste() + u'|' + cabinet.environnement().utilisateur() + u'|';
    const std::string debut = (q("11 mars 2026 10:05|") + qui).toStdString();
    const std::string presence = debut + "Présence|Présent : non → oui";
    const std::string deplace = debut + "Déplacé|mer. 11 mars 2026 11:00 → jeu. 12 mars 2026 11:00 ; "
                                        "Description : « a » → « <b> »";
    const std::string ajoute = debut + "Ajouté|mer. 11 mars 2026, 11:00–12:00, fauteuil 1";
    pendant("mnuHistorique", [&](QWidget &f) {
        EXPECT_EQ(f.windowTitle(), q("Historique — DURAND Léa"));
        EXPECT_EQ(textes(f, "Ecritures"), presence + '\n' + deplace + '\n' + ajoute);
        EXPECT_EQ(controle<QLabel>(f, q("LblNombre")).text(), q("gardé 12 mois · 3 écritures"));
        controle<QTableWidget>(f, q("Ecritures")).setCurrentCell(1, 0);
        EXPECT_EQ(textes(f, "AvantApres"), "Date|mercredi 11 mars 2026|jeudi 12 mars 2026\n"
                                           "Heures|11:00–12:00|11:00–12:00\nPatient|DURAND Léa|DURAND Léa\n"
                                           "Description|a|<b>\nPraticien|1|1\nFauteuil|1|1\nPrésent|non|non");
        EXPECT_EQ(controle<QLabel>(f, q("LblPlace")).text(),
                  q("La place d'avant (mer. 11 mars 2026, 11:00) est libre."));
        ::joue(f, q(">BtnRetablir"));
        EXPECT_EQ(textes(f, "Ecritures").find(debut + "Rétabli|jeu. 12 mars"), 0U);
        controle<QTableWidget>(f, q("Ecritures")).setCurrentCell(3, 0);
        EXPECT_FALSE(controle<QAbstractButton>(f, q("BtnRetablir")).isEnabled())
            << "there was nothing before";
    });
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP 11 mars 2026 11:00 / 12:00 DURAND Léa [ a ]");
    EXPECT_EQ(gestes(), "A&nnuler « Rétablir DURAND »|-");
    pendant("mnuSupprimer", [](QWidget &f) { ::joue(f, q(">BtnOK")); });
    livre.rdv({.nom = "PRIS", .debut = "11:30:00", .fin = "12:00:00"});
    joue("clic 6,3 |");
    pendant("mnuHistorique", [&](QWidget &f) {
        EXPECT_FALSE(controle<QAbstractButton>(f, q("OptRDV")).isEnabled()) << "nothing is selected";
        EXPECT_EQ(textes(f, "Ecritures").find(debut + "Supprimé|DURAND Léa : mer. 11 mars 2026, 11:00–12:00"),
                  0U);
        EXPECT_EQ(controle<QLabel>(f, q("LblPlace")).text(),
                  q("La place d'avant (mer. 11 mars 2026, 11:00) n'est plus libre."));
        EXPECT_FALSE(controle<QAbstractButton>(f, q("BtnRetablir")).isEnabled());
        livre.execute(SqlText("delete from RDV where Nom = 'PRIS'"));
        controle<QTableWidget>(f, q("Ecritures")).setCurrentCell(1, 0);
        controle<QTableWidget>(f, q("Ecritures")).setCurrentCell(0, 0);
        livre.rdv({.nom = "PRIS", .debut = "11:30:00", .fin = "12:00:00"});
        ::joue(f, q(">BtnRetablir"));
        livre.execute(SqlText("delete from RDV where Nom = 'PRIS'"));
        controle<QTableWidget>(f, q("Ecritures")).setCurrentCell(1, 0);
        controle<QTableWidget>(f, q("Ecritures")).setCurrentCell(0, 0);
        ::joue(f, q(">BtnRetablir"));
    });
    EXPECT_NE(dits().find("la place du mercredi 11 mars 2026, de 11:00 à 12:00, n'est plus libre."),
              std::string::npos);
    EXPECT_EQ(etat(), "docteur P 0 0 -ESP 11 mars 2026 11:00 / 12:00 DURAND Léa [ a ]");
    joue("clic 10,3 |");
    pendant("mnuHistorique", [&](QWidget &f) {
        EXPECT_EQ(textes(f, "Ecritures"), "");
        EXPECT_EQ(controle<QLabel>(f, q("LblVide")).text(), q("Rien n'a été écrit depuis 12 mois."));
        EXPECT_FALSE(controle<QAbstractButton>(f, q("BtnRetablir")).isEnabled());
    });
    QFile::rename(livre.fichier(), livre.fichier() + u'x');
    pendant("mnuHistorique", [&](QWidget &f) {
        EXPECT_TRUE(
            controle<QLabel>(f, q("LblVide")).text().startsWith(q("L'historique n'a pas pu être lu.")));
        EXPECT_FALSE(controle<QLabel>(f, q("LblNombre")).isVisible());
    });
    EXPECT_NE(dits().find("Tavelin.mdb"), std::string::npos);
}

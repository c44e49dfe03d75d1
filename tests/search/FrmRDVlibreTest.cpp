#include "search/FrmRDVlibre.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1 on Wednesday 2026-03-11, chair 1, hours from 8 to 10 and from 14 to 15, slots of 60
/// minutes.
class FrmRDVlibreTest : public testing::Test {
  protected:
    FrmRDVlibreTest() {
        livre.config({.nom = "Autre", .fauteuil = 2, .intervalle = 5});
        livre.config(rang);
    }
    void ouvre(const Configuration &config) {
        fenetre = std::make_unique<FrmRDVlibre>(env, q("01"), config);
        fenetre->show();
        fenetre->activateWindow(); // shortcuts belong to the active window
        waitUntil([this] { return fenetre->isActiveWindow(); });
    }
    void ouvre() { ouvre(configDe(rang)); }
    QListWidget &liste() const { return controle<QListWidget>(*fenetre, q("List1")); }
    bool cherche() const { return !controle<QAbstractButton>(*fenetre, q("BtnOK")).isEnabled(); }
    /// Day, length, day found with its starts, line below.
    QString etat() const {
        QString tout = texte(*fenetre, "DTPicker1") + u' ' + texte(*fenetre, "TextDuree");
        for (int i = 0; i < liste().count(); ++i) {
            const QString entree = liste().item(i)->text();
            tout += (i == 0 ? q(": ") + entree.mid(17, 10) : QString()) + u' ' + entree.right(8).left(5);
        }
        const QString ligne = controle<QLabel>(*fenetre, q("Label3")).text();
        return ligne.isEmpty() ? tout : tout + u' ' + ligne;
    }
    /// Row by row: gestures, etat() after them, what was told.
    void rangees(const char *texte) {
        for (const QStringList &rangee : tableau(texte)) {
            joue(*fenetre, rangee[0]);
            waitUntil([this] { return !cherche(); });
            EXPECT_EQ(etat(), rangee[1]) << rangee[0];
            const QString dit = cabinet.messages.taken().section(q(": "), 1);
            EXPECT_EQ(QString(dit).replace(livre.fichier(), q("LIVRE")), rangee.value(2)) << rangee[0];
        }
    }
    /// Every appointment once more, so many days later.
    void copie(int jours) const {
        const QString plus = q("%1 day").arg(jours);
        livre.execute(
            SqlText("insert into RDV (Date1, DateInv, HeureDebut, HeureFin, NumPraticien, Fauteuil) "
                    "select date(Date1, ")
            << texte(plus) << "), replace(date(Date1, " << texte(plus)
            << "), '-', ''), HeureDebut, HeureFin, NumPraticien, Fauteuil from RDV");
    }

    CabinetDEssai cabinet;
    const Environnement &env = cabinet.environnement();
    Livre livre{cabinet.fichier(Base::RendezVous)};
    RangConfig rang{.heures = {"08:00:00", "10:00:00", "14:00:00", "15:00:00"}};
    std::unique_ptr<FrmRDVlibre> fenetre;
};

} // namespace

TEST_F(FrmRDVlibreTest, DaysAndLengths) {
    for (const int autre : {0, 2}) {
        livre.rdv({.debut = "07:00:00", .fin = "19:00:00", .fauteuil = autre});
    }
    livre.rdv({.debut = "08:00:00", .fin = "09:00:00", .cle = "20260312"});
    livre.rdv({.debut = "08:00:00", .fin = "09:00:00", .jour = "2026-03-12", .cle = "20260311"});
    for (const char *jour : {"2026-03-11", "2026-03-12"}) {
        livre.rdv({.debut = "14:00:00", .fin = "15:00:00", .jour = jour});
    }
    ouvre();
    EXPECT_EQ(etat(), q("mercredi 11 mars 2026 01:00")) << "nothing is searched yet";
    rangees(R"(
        >BtnOK               | mercredi 11 mars 2026 01:00: 11/03/2026 09:00
        ^UpDown1             | mercredi 11 mars 2026 02:00: 11/03/2026 09:00
        >BtnOK               | mercredi 11 mars 2026 02:00: 13/03/2026 08:00 14:00
        >cmdJourSuivant      | jeudi 12 mars 2026 02:00: 13/03/2026 08:00 14:00
        >cmdJourSuivant      | vendredi 13 mars 2026 02:00: 13/03/2026 08:00 14:00
        _UpDown1             | vendredi 13 mars 2026 01:00: 13/03/2026 08:00 14:00
        >cmdJourSuivant      | lundi 16 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00 | Vous ne pouvez pas commencer la recherche sur votre jour de repos
        DTPicker1=11/03/2026 | mercredi 11 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00
        DTPicker1=14/03/2026 | lundi 16 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00 | Vous ne pouvez pas commencer la recherche sur votre jour de repos
        DTPicker1=demain;>BtnOK | demain 01:00: 16/03/2026 08:00 09:00 14:00 | Cette date n'est pas valide. Veuillez la saisir sous la forme 02/12/2026.
        >cmdJourSuivant      | demain 01:00: 16/03/2026 08:00 09:00 14:00 | Cette date n'est pas valide. Veuillez la saisir sous la forme 02/12/2026.)");
    auto &champ = controle<QLineEdit>(*fenetre, q("DTPicker1"));
    champ.setFocus();
    champ.setText(q("22/3/26"));
    const auto &ok = controle<QAbstractButton>(*fenetre, q("BtnOK"));
    const QPoint dessus = ok.mapTo(fenetre.get(), ok.rect().center());
    QTest::mousePress(fenetre->windowHandle(), Qt::LeftButton, {}, dessus);
    EXPECT_EQ(cabinet.messages.shown.size(), 0) << "it would take the click";
    QTest::mouseRelease(fenetre->windowHandle(), Qt::LeftButton, {}, dessus);
    EXPECT_TRUE(waitUntil([this] { return etat().contains(q("23/03/2026 08:00")); })) << etat();
    EXPECT_EQ(cabinet.messages.shown.size(), 1) << "the day of rest, once";
    cabinet.messages.shown.clear();
    rangees("DTPicker1=16/3/26;>BtnOK | lundi 16 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00");
    EXPECT_EQ(liste().item(2)->text(), q("Horaire Libre le 16/03/2026 à 14:00:00"));
    const QSignalSpy choix(fenetre.get(), &FrmRDVlibre::creneauChoisi);
    joue(*fenetre, q("^UpDown1"));
    QTest::mouseClick(liste().viewport(), Qt::LeftButton, {}, QPoint(20, 150));
    EXPECT_EQ(choix.size(), 0) << "below the last entry";
    liste().setCurrentRow(1);
    QTest::keyClick(&liste(), Qt::Key_Return);
    ASSERT_EQ(choix.size(), 1);
    EXPECT_EQ(choix[0][0].value<PlaceRDV>().jour, QDate(2026, 3, 16));
    EXPECT_EQ(choix[0][0].value<PlaceRDV>().horaire, (PlageHoraire{QTime(9, 0), QTime(11, 0)}));
}

TEST_F(FrmRDVlibreTest, WhatIsShownAndWhatIsStored) {
    Configuration zoomee = configDe(rang);
    zoomee.Intervalle = 5;
    zoomee.JourAffich = {1, 2, 0, 4, 5, 0, 0};
    zoomee.JourGrise = {0, 0, 1, 3, 3, 3, 3};
    zoomee.HeurePMFin = QTime(16, 0);
    ouvre(zoomee);
    rangees(">BtnOK | mercredi 11 mars 2026 00:05: 11/03/2026 14:00 15:00 La semaine n'affiche pas le "
            "mercredi 11 mars 2026 : après l'ajout, le carnet montrera ce jour.");
    livre.execute(SqlText("update Config set Intervalle = 0"));
    rangees(">BtnOK | mercredi 11 mars 2026 00:05 | Le fichier « LIVRE » n'a pas la structure attendue : un "
            "créneau de 0 "
            "minutes.");
    livre.execute(SqlText("delete from Config"));
    rangees(">BtnOK | mercredi 11 mars 2026 00:05 Ce praticien n'a pas de configuration pour ce fauteuil.");
    zoomee.JourGrise.fill(3);
    ouvre(zoomee);
    rangees(">cmdJourSuivant | jeudi 12 mars 2026 00:05 | Tous les jours sont des jours de repos : il n'y a "
            "pas de jour où commencer la recherche.");
    zoomee.HeureMatFin = QTime();
    ouvre(zoomee);
    rangees(">BtnOK | mercredi 11 mars 2026 00:05 | La recherche n'est pas possible avec la configuration « "
            "Cabinet1 » : un horaire manque ou ne peut pas être lu.");
}

TEST_F(FrmRDVlibreTest, ASearchEndsCanBeStoppedAndMayFail) {
    livre.rdv({.debut = "07:00:00", .fin = "19:00:00"}); // and so for longer than any search
    for (int jours = 1; jours < joursCherches; jours *= 2) {
        copie(jours);
    }
    ouvre();
    rangees(
        ">BtnOK | mercredi 11 mars 2026 01:00 | Aucun horaire libre de 01:00 du 11/03/2026 au 11/03/2027.");
    livre.execute(SqlText("delete from RDV where DateInv >= '20270311'"));
    rangees(">BtnOK | mercredi 11 mars 2026 01:00: 11/03/2027 08:00 09:00 14:00");
    for (int fois = 0; fois < 8; ++fois) { // a search of several stretches
        copie(0);
    }
    joue(*fenetre, q(">BtnOK"));
    EXPECT_TRUE(etat().startsWith(q("mercredi 11 mars 2026 01:00 Recherche en cours : ")));
    rangees(">BtnAnnuler | mercredi 11 mars 2026 01:00 Recherche arrêtée.");
    joue(*fenetre, q(">BtnOK"));
    QFile::rename(livre.fichier(), livre.fichier() + u'x');
    EXPECT_TRUE(waitUntil([this] { return !cherche(); }));
    EXPECT_TRUE(cabinet.messages.taken().contains(q("Tavelin.mdb")));
    QFile::rename(livre.fichier() + u'x', livre.fichier());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    joue(*fenetre, q(">BtnOK"));
    EXPECT_TRUE(cherche());
    fenetre->close();
    EXPECT_FALSE(fenetre->isVisible() || cherche());
}

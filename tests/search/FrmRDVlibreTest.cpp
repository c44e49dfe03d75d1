#include "search/FrmRDVlibre.h"
#include "platform/ui/UpDown.h"
#include "support/CabinetDEssai.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

/// Practitioner 1 on Wednesday 2026-03-11, chair 1, hours from 8 to 10 and from 14 to 15, slots of 60
/// minutes.
class FrmRDVlibreTest : public testing::Test {
  protected:
    FrmRDVlibreTest() { livre.config(rang); }
    void ouvre(const Configuration &config) {
        fenetre = std::make_unique<FrmRDVlibre>(env, q("01"), config);
        fenetre->show();
        fenetre->activateWindow(); // shortcuts belong to the active window
        waitUntil([this] { return fenetre->isActiveWindow(); });
    }
    void ouvre() { ouvre(configDe(rang)); }
    template <typename T>
    T &objet(const char *nom) const {
        return *fenetre->findChild<T *>(q(nom));
    }
    bool cherche() const { return !objet<QPushButton>("BtnOK").isEnabled(); }
    /// A button, "+" and "-" the arrows, "=" and a date typed and left.
    void fait(const QString &geste) {
        if (geste[0] == u'+' || geste[0] == u'-') {
            const char *fleche = geste[0] == u'+' ? "Augmenter" : "Diminuer";
            objet<UpDown>("UpDown1").findChild<QToolButton *>(q(fleche))->click();
        } else if (geste[0] == u'=') {
            objet<QLineEdit>("DTPicker1").setText(geste.mid(1));
            emit objet<QLineEdit>("DTPicker1").editingFinished();
        } else {
            objet<QPushButton>(geste.toUtf8()).click();
        }
        waitUntil([this] { return !cherche(); });
    }
    /// Day, length, day found with its starts, line below.
    std::string etat() const {
        const auto &liste = objet<QListWidget>("List1");
        QString texte = objet<QLineEdit>("DTPicker1").text() + u' ' + objet<QLineEdit>("TextDuree").text();
        for (int i = 0; i < liste.count(); ++i) {
            const QString entree = liste.item(i)->text();
            texte += (i == 0 ? q(": ") + entree.mid(17, 10) : QString()) + u' ' + entree.right(8).left(5);
        }
        const QString ligne = objet<QLabel>("Label3").text();
        return (ligne.isEmpty() ? texte : texte + u' ' + ligne).toStdString();
    }
    std::string dits() {
        QStringList textes;
        for (const auto &message : std::exchange(cabinet.messages.shown, {})) {
            textes << message.title + message.text;
        }
        return textes.join(u'\n').toStdString();
    }
    void joue(const char *rangees) {
        for (const QStringList &rangee : tableau(rangees)) {
            fait(rangee[0]);
            EXPECT_EQ(etat(), rangee[1].toStdString()) << rangee[0].toStdString();
            EXPECT_EQ(dits(), rangee.value(2).toStdString()) << rangee[0].toStdString();
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
    /// Full days from today on, for longer than any search.
    void remplit() const {
        livre.rdv({.debut = "07:00:00", .fin = "19:00:00"});
        for (int jours = 1; jours < joursCherches; jours *= 2) {
            copie(jours);
        }
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
    EXPECT_EQ(fenetre->windowTitle(), q(" Horaire libre "));
    EXPECT_EQ(etat(), "mercredi 11 mars 2026 01:00") << "nothing is searched yet";
    joue(R"(
        BtnOK          | mercredi 11 mars 2026 01:00: 11/03/2026 09:00
        +              | mercredi 11 mars 2026 02:00: 11/03/2026 09:00
        BtnOK          | mercredi 11 mars 2026 02:00: 13/03/2026 08:00 14:00
        cmdJourSuivant | jeudi 12 mars 2026 02:00: 13/03/2026 08:00 14:00
        cmdJourSuivant | vendredi 13 mars 2026 02:00: 13/03/2026 08:00 14:00
        -              | vendredi 13 mars 2026 01:00: 13/03/2026 08:00 14:00
        cmdJourSuivant | lundi 16 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00 | Vous ne pouvez pas commencer la recherche sur votre jour de repos
        =11/03/2026    | mercredi 11 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00
        =14/03/2026    | lundi 16 mars 2026 01:00: 16/03/2026 08:00 09:00 14:00 | Vous ne pouvez pas commencer la recherche sur votre jour de repos
        =demain        | demain 01:00: 16/03/2026 08:00 09:00 14:00
        BtnOK          | demain 01:00: 16/03/2026 08:00 09:00 14:00 | Erreur !Cette date n'est pas valide. Veuillez la saisir sous la forme 02/12/2026.)");
    EXPECT_EQ(objet<QListWidget>("List1").item(2)->text(), q("Horaire Libre le 16/03/2026 à 14:00:00"));
}

TEST_F(FrmRDVlibreTest, WhatIsShownAndWhatIsStored) {
    Configuration zoomee = configDe(rang);
    zoomee.Intervalle = 5;
    zoomee.JourRepos = 3;
    zoomee.JourAffich = {1, 2, 0, 4, 5, 0, 0};
    zoomee.JourGrise = {0, 0, 1, 3, 3, 3, 3};
    zoomee.HeurePMFin = QTime(16, 0);
    ouvre(zoomee);
    joue("BtnOK | mercredi 11 mars 2026 00:05: 11/03/2026 14:00 15:00 Le mercredi 11 mars 2026 n'est pas "
         "affiché : le carnet montrera ce jour après l'ajout.");
    livre.execute(SqlText("update Config set Intervalle = 0"));
    joue("BtnOK | mercredi 11 mars 2026 00:05 | Aucun horaire libre de 00:05 du 11/03/2026 au 11/03/2027.");
    livre.execute(SqlText("delete from Config"));
    joue("BtnOK | mercredi 11 mars 2026 00:05 Ce praticien n'a pas de configuration pour ce fauteuil.");
    zoomee.HeureMatFin = QTime();
    ouvre(zoomee);
    joue("BtnOK | mercredi 11 mars 2026 00:05 | La recherche n'est pas possible avec la configuration « "
         "Cabinet1 » : un horaire manque ou ne peut pas être lu.");
}

TEST_F(FrmRDVlibreTest, NothingIsSearchedForEver) {
    remplit();
    ouvre();
    joue("BtnOK | mercredi 11 mars 2026 01:00 | Aucun horaire libre de 01:00 du 11/03/2026 au 11/03/2027.");
    livre.execute(SqlText("delete from RDV where DateInv >= '20270311'"));
    joue("BtnOK | mercredi 11 mars 2026 01:00: 11/03/2027 08:00 09:00 14:00");
    Configuration grisee = configDe(rang);
    grisee.JourGrise.fill(3);
    ouvre(grisee);
    const std::string repos = " | Tous les jours sont des jours de repos : il n'y a pas de jour où commencer "
                              "la recherche.";
    joue(("cmdJourSuivant | jeudi 12 mars 2026 01:00" + repos).c_str());
    joue("BtnOK | jeudi 12 mars 2026 01:00 | Aucun horaire libre de 01:00 du 12/03/2026 au 12/03/2027.");
}

TEST_F(FrmRDVlibreTest, APickGivesThePlace) {
    ouvre();
    const QSignalSpy choix(fenetre.get(), &FrmRDVlibre::creneauChoisi);
    joue("BtnOK | mercredi 11 mars 2026 01:00: 11/03/2026 08:00 09:00 14:00\n"
         "+     | mercredi 11 mars 2026 02:00: 11/03/2026 08:00 09:00 14:00");
    auto &liste = objet<QListWidget>("List1");
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, QPoint(20, 150));
    EXPECT_EQ(choix.size(), 0) << "below the last entry";
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, {}, liste.visualItemRect(liste.item(1)).center());
    QTest::keyClick(&liste, Qt::Key_Return);
    ASSERT_EQ(choix.size(), 2);
    EXPECT_EQ(choix[1][0].value<PlaceRDV>().jour, QDate(2026, 3, 11));
    EXPECT_EQ(choix[1][0].value<PlaceRDV>().horaire, (PlageHoraire{QTime(9, 0), QTime(11, 0)}));
}

TEST_F(FrmRDVlibreTest, ASearchCanBeStoppedAndMayFail) {
    remplit();
    for (int fois = 0; fois < 8; ++fois) { // a search of several stretches
        copie(0);
    }
    ouvre();
    const auto commence = [&] {
        objet<QPushButton>("BtnOK").click();
        EXPECT_EQ(etat().find("mercredi 11 mars 2026 01:00 Recherche en cours : "), 0U);
    };
    commence();
    objet<QPushButton>("BtnAnnuler").click();
    EXPECT_EQ(etat(), "mercredi 11 mars 2026 01:00 Recherche arrêtée.");
    commence();
    QFile::rename(livre.fichier(), livre.fichier() + u'x');
    EXPECT_TRUE(waitUntil([this] { return !cherche(); }));
    EXPECT_NE(dits().find("Tavelin.mdb"), std::string::npos);
    QFile::rename(livre.fichier() + u'x', livre.fichier());
    Database autre = livre.ouvre();
    autre.execute(SqlText("begin exclusive"));
    fait(q("BtnOK"));
    autre.execute(SqlText("rollback"));
    EXPECT_NE(dits().find("Tavelin.mdb » est occupé par un autre programme"), std::string::npos);
    EXPECT_EQ(etat(), "mercredi 11 mars 2026 01:00");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    commence();
    fenetre->close();
    EXPECT_FALSE(fenetre->isVisible() || cherche());
}

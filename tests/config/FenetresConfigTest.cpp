#include "config/FrmJourExclure.h"
#include "config/FrmSauvegarde.h"
#include "config/FrmTrancheHoraire.h"
#include "config/SuppConfig.h"
#include "practice/Environnement.h"
#include "support/Gestes.h"
#include "support/Livre.h"
#include "support/RecordingMessages.h"

#include <QFile>
#include <QListWidget>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

class FenetresConfigTest : public testing::Test {
  protected:
    FenetresConfigTest() {
        env.messages = &messages;
        env.patience = {};
        env.CheminBaseRDV = livre.fichier();
    }
    static QString heures(const QDialog &f) {
        return QStringList{texte(f, "Text1"), texte(f, "Text2"), texte(f, "Text3"), texte(f, "Text4")}.join(
            u' ');
    }
    void protege() { QFile::setPermissions(livre.fichier(), QFile::ReadOwner | QFile::ReadUser); }

    const Configuration config = configDe({.intervalle = 15, .grise = {0, 1, 2, 3, 0, 0, 3}});
    Livre livre;
    RecordingMessages messages;
    Environnement env;
};

} // namespace

TEST_F(FenetresConfigTest, SlotsAndHoursAreGivenBackOnOk) {
    FrmTrancheHoraire fenetre(env, config);
    EXPECT_EQ(heures(fenetre), q("08:00 12:00 14:00 18:00"));
    EXPECT_TRUE(controle<QAbstractButton>(fenetre, q("Option3")).isChecked());
    joue(fenetre, q(">Option5;^UpDown1;_UpDown4"));
    EXPECT_EQ(heures(fenetre), q("08:05 12:00 14:00 17:55"));
    EXPECT_EQ(controle<QLineEdit>(fenetre, q("Text2")).toolTip(), q("12:15"));
    joue(fenetre, q("Text1=9h;Text4=1800;>Option12;>BtnOK"));
    EXPECT_EQ(messages.taken(), QString());
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
    EXPECT_EQ(fenetre.configuration(),
              configDe({.heures = {"09:00", "12:00", "14:00", "18:00"}, .grise = {0, 1, 2, 3, 0, 0, 3}}));
}

TEST_F(FenetresConfigTest, HoursThatDoNotDoAreToldAndNothingIsChanged) {
    for (const QStringList &cas : tableau(R"(
        >Option12;Text4=15:00 | 08:00 12:00 14:00 18:00 | trop rapprochés
        >Option5              | 08:00 12:00 14:00 18:00 | Incohérence entre l'intervalle et l'heure de fin du matin.
        Text3=24:00           | 08:00 12:00 24:00 18:00 | Cette heure n'est pas valide.
        Text2=                | 08:00  14:00 18:00      | Cette heure n'est pas valide.
        Text4=13:00           | 08:00 12:00 14:00 13:00 | 14:00 vient après 13:00.)")) {
        FrmTrancheHoraire fenetre(env, config);
        joue(fenetre, cas[0] + q(";>BtnOK"));
        EXPECT_TRUE(messages.taken().contains(cas[2])) << cas[0];
        EXPECT_EQ(heures(fenetre), cas[1]) << "typed nonsense stays, a refused schedule does not";
        EXPECT_EQ(fenetre.configuration(), config);
        EXPECT_FALSE(fenetre.result());
    }
    FrmTrancheHoraire vide(env, {});
    joue(vide, q(">BtnOK"));
    EXPECT_TRUE(messages.taken().contains(q("Veuillez choisir un intervalle.")))
        << "opens on any configuration";
}

TEST_F(FenetresConfigTest, DaysAreGivenBackOnOkTheRestDayAlways) {
    Configuration sansGris = config;
    sansGris.JourGrise[6] = 0; // of the rest day, which is hidden and grey
    for (const Configuration &ouverte : {config, sansGris}) {
        FrmJourExclure fenetre(env, ouverte);
        joue(fenetre, q(">BtnOK"));
        EXPECT_EQ(fenetre.configuration(), config);
    }
    FrmJourExclure fenetre(env, config);
    joue(fenetre, q(">Option3"));
    fenetre.reject();
    Configuration attendue = config;
    attendue.JourRepos = 3;
    EXPECT_EQ(fenetre.configuration(), attendue);
    joue(fenetre, q(">Option1;>Check1_2;>Check2_2;>Check2_4;>BtnOK")); // another rest day clears all boxes
    attendue.JourRepos = 1;
    attendue.NbJours = 6;
    attendue.JourAffich = {0, 2, 3, 4, 5, 6, 7};
    attendue.JourGrise = {3, 0, 3, 0, 2, 0, 0};
    EXPECT_EQ(fenetre.configuration(), attendue);
    FrmJourExclure presque(env, config);
    joue(presque, q(">Check3_0;>Check3_1;>Check3_2;>Check3_3;>BtnOK"));
    EXPECT_TRUE(messages.taken().contains(q("au moins deux jours")));
    EXPECT_EQ(presque.configuration(), config);
    joue(presque, q(">Check3_0;>BtnOK"));
    EXPECT_EQ(presque.configuration().NbJours, 2);
}

TEST_F(FenetresConfigTest, SavingShowsTheConfigurationAndWritesItsRow) {
    FrmSauvegarde fenetre(env, q("01"), config);
    const auto &grille = controle<QTableWidget>(fenetre, q("GrilleJours"));
    QString couleurs;
    for (int i = 0; i < 14; ++i) {
        const QBrush fond = grille.item(i / 2, 1 + i % 2)->background();
        couleurs += fond.style() == Qt::NoBrush ? u'-' : (fond.color() == Qt::black ? u'N' : u'g');
    }
    EXPECT_EQ(couleurs, q("--g--ggg--NNNN"));
    EXPECT_EQ(texte(fenetre, "Text5"), q("18:00"));
    joue(fenetre, q("Text6=  à 2 ;>Check1;>BtnSauver"));
    EXPECT_EQ(fenetre.result(), QDialog::Accepted) << messages.taken();
    EXPECT_EQ(livre.configs(), "à 2 01 0") << "no default any more: the box was ticked";
}

TEST_F(FenetresConfigTest, SavingRefusesInItsOrder) {
    livre.config({.nom = "Prise", .fauteuil = 2, .praticien = "02"});
    livre.config();
    const std::string avant = livre.configs();
    for (const QStringList &cas : tableau(R"(
        Text6=Été;TxtNumFauteuil=1a   | TxtNumFauteuil | Le numéro de fauteuil n'est pas valide
        TxtNumFauteuil=               | Text6          | Votre nom de sauvegarde n'est pas valide
        Text6=Été;TxtNumFauteuil=12   | Text6          | Votre nom de sauvegarde n'est pas valide
        Text6=prise;TxtNumFauteuil=1  | Text6          | Une configuration porte déjà ce nom !
        Text6= Bonne;TxtNumFauteuil=1 | TxtNumFauteuil | Un Fauteuil porte déjà ce numéro !)")) {
        const FrmSauvegarde fenetre(env, q("01"), config);
        joue(fenetre, cas[0] + q(";>BtnSauver"));
        EXPECT_TRUE(messages.taken().contains(cas[2])) << cas[0];
        EXPECT_EQ(fenetre.focusWidget()->objectName(), cas[1]) << cas[0];
        EXPECT_FALSE(fenetre.result());
    }
    Configuration faussee = config;
    faussee.Intervalle = 0;
    protege();
    for (const Configuration &c : {faussee, config}) {
        const FrmSauvegarde fenetre(env, q("01"), c);
        joue(fenetre, q("Text6=Bonne;>BtnSauver"));
        EXPECT_TRUE(
            messages.taken().contains(c == config ? q("protégé en écriture") : q("ne peut pas être sauv")));
        EXPECT_EQ(texte(fenetre, "Text6"), q("Bonne")) << "typed once is enough";
    }
    EXPECT_EQ(livre.configs(), avant);
}

TEST_F(FenetresConfigTest, DeletingAsksFirstAndListsOnesOwn) {
    livre.config({.nom = "L'une"});
    livre.config({.nom = "Autre", .praticien = "02"});
    livre.config({.nom = "Seconde", .fauteuil = 2, .defaut = false});
    const auto supprime = [this](int ligne) {
        SuppConfig fenetre(env, 1);
        controle<QListWidget>(fenetre, q("ListDesConfig")).setCurrentRow(ligne);
        joue(fenetre, q(">cmdSupprimer"));
        return std::pair(fenetre.result() == QDialog::Accepted, messages.taken());
    };
    EXPECT_EQ(supprime(1).second,
              q("Attention: Etes-vous certain de vouloir supprimer cette configuration ?"));
    messages.answer = true;
    EXPECT_TRUE(supprime(1).first);
    EXPECT_EQ(livre.configs(), "L'une 01 1*, Autre 02 1*");
    protege();
    const auto [fermee, dit] = supprime(0);
    EXPECT_TRUE(!fermee && dit.contains(q("protégé en écriture"))) << dit;
    QFile::remove(livre.fichier());
    EXPECT_FALSE(controle<QAbstractButton>(SuppConfig(env, 1), q("cmdSupprimer")).isEnabled());
}

#include "config/FrmJourExclure.h"
#include "config/FrmSauvegarde.h"
#include "config/FrmTrancheHoraire.h"
#include "config/SuppConfig.h"
#include "platform/ui/UpDown.h"
#include "practice/Environnement.h"
#include "support/Livre.h"
#include "support/RecordingMessages.h"

#include <QAbstractButton>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class FenetresConfigTest : public testing::Test {
  protected:
    FenetresConfigTest() {
        env.messages = &messages;
        env.patience = {};
        env.CheminBaseRDV = livre.fichier();
    }
    template <typename T>
    static T &controle(const QDialog &fenetre, const char *nom) {
        return *fenetre.findChild<T *>(q(nom));
    }
    static void clique(const QDialog &fenetre, const QString &noms) {
        for (const QString &nom : noms.split(u' ')) {
            fenetre.findChild<QAbstractButton *>(nom)->click();
        }
    }
    static void saisit(const QDialog &fenetre, const QString &champ, const QString &texte) {
        fenetre.findChild<QLineEdit *>(champ)->setText(texte);
    }
    static std::string textes(const QDialog &fenetre) {
        QStringList liste;
        for (int i = 1; i <= 4; ++i) {
            liste << controle<QLineEdit>(fenetre, "Text" + QByteArray::number(i)).text();
        }
        return liste.join(u' ').toStdString();
    }
    /// What was told since the last call.
    std::string dits() {
        QStringList liste;
        for (const auto &message : std::exchange(messages.shown, {})) {
            liste << message.text.simplified();
        }
        return liste.join(u'\n').toStdString();
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
    EXPECT_EQ(textes(fenetre), "08:00 12:00 14:00 18:00");
    EXPECT_TRUE(controle<QAbstractButton>(fenetre, "Option3").isChecked());
    clique(fenetre, q("Option5"));
    EXPECT_EQ(controle<QLineEdit>(fenetre, "Text2").toolTip(), q("12:10"));
    controle<UpDown>(fenetre, "UpDown1").findChild<QAbstractButton *>(q("Augmenter"))->click();
    controle<UpDown>(fenetre, "UpDown4").findChild<QAbstractButton *>(q("Diminuer"))->click();
    EXPECT_EQ(textes(fenetre), "08:05 12:00 14:00 17:55");
    EXPECT_EQ(controle<QLineEdit>(fenetre, "Text2").toolTip(), q("12:15"));
    saisit(fenetre, q("Text1"), q("9h"));
    saisit(fenetre, q("Text4"), q("1800"));
    clique(fenetre, q("Option12 BtnOK"));
    EXPECT_EQ(dits(), "");
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
    EXPECT_EQ(fenetre.configuration(),
              configDe({.heures = {"09:00", "12:00", "14:00", "18:00"}, .grise = {0, 1, 2, 3, 0, 0, 3}}));
}

TEST_F(FenetresConfigTest, HoursThatDoNotDoAreToldAndNothingIsChanged) {
    for (const QStringList &cas : tableau(R"(
        Option12 | Text4 | 15:00 | 08:00 12:00 14:00 18:00 | Les horaires sont trop rapprochés ou l'intervalle est trop grand. Veuillez les modifier.
        Option5  | Text4 | 18:00 | 08:00 12:00 14:00 18:00 | Incohérence entre l'intervalle et l'heure de fin du matin.
        Option3  | Text3 | 24:00 | 08:00 12:00 24:00 18:00 | Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00.
        Option3  | Text2 |       | 08:00  14:00 18:00      | Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00.
        Option3  | Text4 | 13:00 | 08:00 12:00 14:00 13:00 | Les horaires ne se suivent pas : 14:00 vient après 13:00. Veuillez les modifier.)")) {
        FrmTrancheHoraire fenetre(env, config);
        saisit(fenetre, cas[1], cas[2]);
        clique(fenetre, cas[0] + q(" BtnOK"));
        EXPECT_EQ(dits(), cas[4].toStdString());
        EXPECT_EQ(textes(fenetre), cas[3].toStdString())
            << "typed nonsense stays, a refused schedule does not";
        EXPECT_EQ(fenetre.configuration(), config);
        EXPECT_FALSE(fenetre.result());
    }
    FrmTrancheHoraire vide(env, {});
    clique(vide, q("BtnOK"));
    EXPECT_EQ(dits(), "Veuillez choisir un intervalle.") << "opens on any configuration";
}

TEST_F(FenetresConfigTest, DaysAreGivenBackOnOkTheRestDayAlways) {
    Configuration sansGris = config;
    sansGris.JourGrise[6] = 0; // of the rest day, which is hidden and grey
    for (const Configuration &ouverte : {config, sansGris}) {
        FrmJourExclure fenetre(env, ouverte);
        clique(fenetre, q("BtnOK"));
        EXPECT_EQ(fenetre.configuration(), config);
    }
    FrmJourExclure fenetre(env, config);
    clique(fenetre, q("Option3"));
    QTest::keyClick(&fenetre, Qt::Key_Escape);
    Configuration attendue = config;
    attendue.JourRepos = 3;
    EXPECT_EQ(fenetre.configuration(), attendue);
    clique(fenetre, q("Option1 Check1_2 Check2_2 Check2_4 BtnOK")); // another rest day clears all boxes
    attendue.JourRepos = 1;
    attendue.NbJours = 6;
    attendue.JourAffich = {0, 2, 3, 4, 5, 6, 7};
    attendue.JourGrise = {3, 0, 3, 0, 2, 0, 0};
    EXPECT_EQ(fenetre.configuration(), attendue);
    FrmJourExclure presque(env, config);
    clique(presque, q("Check3_0 Check3_1 Check3_2 Check3_3 BtnOK"));
    EXPECT_EQ(dits(), "Vous devez permettre l'affichage d'au moins deux jours.");
    EXPECT_EQ(presque.configuration(), config);
    clique(presque, q("Check3_0 BtnOK"));
    EXPECT_EQ(presque.configuration().NbJours, 2);
}

TEST_F(FenetresConfigTest, SavingShowsTheConfigurationAndWritesItsRow) {
    FrmSauvegarde fenetre(env, q("01"), config);
    const auto &grille = controle<QTableWidget>(fenetre, "GrilleJours");
    QString couleurs;
    for (int i = 0; i < 14; ++i) {
        const QBrush fond = grille.item(i / 2, 1 + i % 2)->background();
        couleurs += fond.style() == Qt::NoBrush ? u'-' : (fond.color() == Qt::black ? u'N' : u'g');
    }
    EXPECT_EQ(couleurs, q("--g--ggg--NNNN"));
    EXPECT_EQ(controle<QLineEdit>(fenetre, "Text5").text(), q("18:00"));
    saisit(fenetre, q("Text6"), q("  à 2 "));
    clique(fenetre, q("Check1 BtnSauver"));
    EXPECT_EQ(fenetre.result(), QDialog::Accepted) << dits();
    EXPECT_EQ(livre.configs(), "à 2 01 0") << "no default any more: the box was ticked";
}

TEST_F(FenetresConfigTest, SavingRefusesInItsOrder) {
    livre.config({.nom = "Prise", .fauteuil = 2, .praticien = "02"});
    livre.config();
    const std::string avant = livre.configs();
    for (const QStringList &cas : tableau(R"(
        Été   | 1a | TxtNumFauteuil | Le numéro de fauteuil n'est pas valide
              |    | Text6          | Votre nom de sauvegarde n'est pas valide
        Été   | 12 | Text6          | Votre nom de sauvegarde n'est pas valide
        prise | 1  | Text6          | Une configuration porte déjà ce nom !
        Bonne | 1  | TxtNumFauteuil | Un Fauteuil porte déjà ce numéro !)")) {
        const FrmSauvegarde fenetre(env, q("01"), config);
        saisit(fenetre, q("Text6"), u' ' + cas[0]);
        saisit(fenetre, q("TxtNumFauteuil"), cas[1]);
        clique(fenetre, q("BtnSauver"));
        EXPECT_EQ(dits(), cas[3].toStdString());
        EXPECT_EQ(fenetre.focusWidget()->objectName(), cas[2]) << cas[0].toStdString();
        EXPECT_FALSE(fenetre.result());
    }
    Configuration faussee = config;
    faussee.Intervalle = 0;
    protege();
    for (const Configuration &c : {faussee, config}) {
        const FrmSauvegarde fenetre(env, q("01"), c);
        saisit(fenetre, q("Text6"), q("Bonne"));
        clique(fenetre, q("BtnSauver"));
        EXPECT_NE(dits().find(c == config ? "protégé en écriture" : "ne peut pas être sauvegardée"),
                  std::string::npos);
        EXPECT_EQ(controle<QLineEdit>(fenetre, "Text6").text(), q("Bonne")) << "typed once is enough";
    }
    EXPECT_EQ(livre.configs(), avant);
}

TEST_F(FenetresConfigTest, DeletingAsksFirstAndListsOnesOwn) {
    livre.config({.nom = "L'une"});
    livre.config({.nom = "Autre", .praticien = "02"});
    livre.config({.nom = "Seconde", .fauteuil = 2, .defaut = false});
    SuppConfig fenetre(env, 1);
    auto &liste = controle<QListWidget>(fenetre, "ListDesConfig");
    ASSERT_EQ(liste.count(), 2);
    liste.setCurrentRow(1);
    clique(fenetre, q("cmdSupprimer"));
    EXPECT_EQ(dits(), "Etes-vous certain de vouloir supprimer cette configuration ?");
    EXPECT_FALSE(fenetre.result());
    messages.answer = true;
    clique(fenetre, q("cmdSupprimer"));
    EXPECT_EQ(livre.configs(), "L'une 01 1*, Autre 02 1*");
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
    protege();
    SuppConfig refusee(env, 1);
    controle<QListWidget>(refusee, "ListDesConfig").setCurrentRow(0);
    clique(refusee, q("cmdSupprimer"));
    EXPECT_NE(dits().find("protégé en écriture"), std::string::npos);
    EXPECT_FALSE(refusee.result());
    QFile::remove(livre.fichier());
    EXPECT_FALSE(controle<QAbstractButton>(SuppConfig(env, 1), "cmdSupprimer").isEnabled());
}

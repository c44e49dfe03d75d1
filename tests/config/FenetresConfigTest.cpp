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
    static void clique(const QDialog &fenetre, const char *noms) {
        for (const QByteArray &nom : QByteArray(noms).split(' ')) {
            controle<QAbstractButton>(fenetre, nom).click();
        }
    }
    static void saisit(const QDialog &fenetre, const char *champ, const char *texte) {
        controle<QLineEdit>(fenetre, champ).setText(q(texte));
    }
    static std::string textes(const QDialog &fenetre) {
        QStringList liste;
        for (int i = 1; i <= 4; ++i) {
            liste << controle<QLineEdit>(fenetre, "Text" + QByteArray::number(i)).text();
        }
        return liste.join(u' ').toStdString();
    }
    /// Checked boxes of a group, disabled ones in capitals.
    static std::string coches(const QDialog &fenetre) {
        std::string etat;
        for (int groupe = 1; groupe <= 3; ++groupe) {
            for (int i = 0; i < 7; ++i) {
                const auto &boite = *fenetre.findChild<QAbstractButton *>(q("Check%1_%2").arg(groupe).arg(i));
                etat += boite.isEnabled() ? (boite.isChecked() ? 'x' : '.') : (boite.isChecked() ? 'X' : '-');
            }
            etat += groupe < 3 ? " " : "";
        }
        return etat;
    }
    /// What was told since the last call: "title|text".
    std::string dits() {
        QStringList liste;
        for (const auto &message : std::exchange(messages.shown, {})) {
            liste << message.title + u'|' + message.text;
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
    clique(fenetre, "Option5");
    EXPECT_EQ(controle<QLineEdit>(fenetre, "Text2").toolTip(), q("12:10"));
    controle<UpDown>(fenetre, "UpDown1").findChild<QAbstractButton *>(q("Augmenter"))->click();
    controle<UpDown>(fenetre, "UpDown4").findChild<QAbstractButton *>(q("Diminuer"))->click();
    EXPECT_EQ(textes(fenetre), "08:05 12:00 14:00 17:55");
    EXPECT_EQ(controle<QLineEdit>(fenetre, "Text2").toolTip(), q("12:15"));
    saisit(fenetre, "Text1", "9h");
    saisit(fenetre, "Text4", "1800");
    clique(fenetre, "Option12 BtnOK");
    EXPECT_EQ(dits(), "");
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
    EXPECT_EQ(fenetre.configuration(),
              configDe({.heures = {"09:00", "12:00", "14:00", "18:00"}, .grise = {0, 1, 2, 3, 0, 0, 3}}));
}

TEST_F(FenetresConfigTest, HoursThatDoNotDoAreToldAndNothingIsChanged) {
    const char *const pasUneHeure =
        "Erreur !|Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00.";
    const char *const ouverture = "08:00 12:00 14:00 18:00";
    struct Cas {
        const char *option, *champ, *saisi, *message, *apres;
    };
    for (const Cas &cas :
         {Cas{"Option12", "Text4", "15:00",
              "Erreur !|Les horaires sont trop rapprochés ou l'intervalle est trop grand.\nVeuillez les "
              "modifier.",
              ouverture},
          Cas{"Option5", "Text4", "18:00",
              "Erreur de cohérence.|Incohérence entre l'intervalle et l'heure de fin du matin.", ouverture},
          Cas{"Option3", "Text3", "24:00", pasUneHeure, "08:00 12:00 24:00 18:00"},
          Cas{"Option3", "Text2", "", pasUneHeure, "08:00  14:00 18:00"},
          Cas{"Option3", "Text4", "13:00",
              "Erreur !|Les horaires ne se suivent pas : 14:00 vient après 13:00. Veuillez les modifier.",
              "08:00 12:00 14:00 13:00"}}) {
        FrmTrancheHoraire fenetre(env, config);
        saisit(fenetre, cas.champ, cas.saisi);
        clique(fenetre, cas.option);
        clique(fenetre, "BtnOK");
        EXPECT_EQ(dits(), cas.message);
        EXPECT_EQ(textes(fenetre), cas.apres) << "typed nonsense stays, a refused schedule does not";
        EXPECT_EQ(fenetre.configuration(), config);
        EXPECT_FALSE(fenetre.result());
    }
    FrmTrancheHoraire vide(env, {});
    clique(vide, "BtnOK");
    EXPECT_EQ(dits(), "Erreur !|Veuillez choisir un intervalle.") << "opens on any configuration";
}

TEST_F(FenetresConfigTest, DaysAreGivenBackOnOkTheRestDayAlways) {
    Configuration sansGris = config;
    sansGris.JourGrise[6] = 0;
    EXPECT_EQ(coches(FrmJourExclure(env, sansGris)), ".x.x..X ..xx..X .....xX")
        << "the rest day is hidden and grey";
    FrmJourExclure annulee(env, config);
    clique(annulee, "Option3");
    EXPECT_EQ(coches(annulee), "..X.... ..X.... ..X....");
    QTest::keyClick(&annulee, Qt::Key_Escape);
    Configuration attendue = config;
    attendue.JourRepos = 3;
    EXPECT_EQ(annulee.configuration(), attendue);
    FrmJourExclure fenetre(env, config);
    clique(fenetre, "Option1 Check1_2 Check2_2 Check2_4 BtnOK");
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
    EXPECT_EQ(fenetre.configuration().NbJours, 6);
    EXPECT_EQ(fenetre.configuration().JourRepos, 1);
    EXPECT_EQ(fenetre.configuration().JourAffich, (std::array{0, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(fenetre.configuration().JourGrise, (std::array{3, 0, 3, 0, 2, 0, 0}));
    FrmJourExclure presque(env, config);
    clique(presque, "Check3_0 Check3_1 Check3_2 Check3_3 BtnOK");
    EXPECT_EQ(dits(), "Erreur d'affichage !|Vous devez permettre l'affichage d'au moins deux jours.");
    EXPECT_EQ(presque.configuration(), config);
    clique(presque, "Check3_0 BtnOK");
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
    saisit(fenetre, "Text6", "  à 2 ");
    clique(fenetre, "Check1 BtnSauver");
    EXPECT_EQ(fenetre.result(), QDialog::Accepted) << dits();
    EXPECT_EQ(livre.configs(), "à 2 01 0") << "no default any more: the box was ticked";
}

TEST_F(FenetresConfigTest, SavingRefusesInItsOrder) {
    const char *const fauteuilFaux = "Nom de configuration ?|Le numéro de fauteuil n'est pas valide";
    const char *const nomFaux = "Nom de configuration ?|Votre nom de sauvegarde n'est pas valide";
    struct Cas {
        const char *nom, *fauteuil, *message, *champ;
    };
    livre.config({.nom = "Prise", .fauteuil = 2, .praticien = "02"});
    livre.config();
    const std::string avant = livre.configs();
    for (const Cas &cas :
         {Cas{"Été", "1a", fauteuilFaux, "TxtNumFauteuil"}, Cas{"   ", "", nomFaux, "Text6"},
          Cas{"Été", "12", nomFaux, "Text6"},
          Cas{" prise ", "1", "Action Impossible|Une configuration porte déjà ce nom !", "Text6"},
          Cas{"Bonne", "1", "Action Impossible|Un Fauteuil porte déjà ce numéro !", "TxtNumFauteuil"}}) {
        const FrmSauvegarde fenetre(env, q("01"), config);
        saisit(fenetre, "Text6", cas.nom);
        saisit(fenetre, "TxtNumFauteuil", cas.fauteuil);
        clique(fenetre, "BtnSauver");
        EXPECT_EQ(dits(), cas.message);
        EXPECT_EQ(fenetre.focusWidget()->objectName(), q(cas.champ)) << cas.nom;
        EXPECT_FALSE(fenetre.result());
    }
    Configuration faussee = config;
    faussee.Intervalle = 0;
    protege();
    for (const Configuration &c : {faussee, config}) {
        const FrmSauvegarde fenetre(env, q("01"), c);
        saisit(fenetre, "Text6", "Bonne");
        clique(fenetre, "BtnSauver");
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
    clique(fenetre, "cmdSupprimer");
    EXPECT_EQ(dits(), "Attention|Etes-vous certain de vouloir supprimer cette configuration ?");
    EXPECT_FALSE(fenetre.result());
    messages.answer = true;
    clique(fenetre, "cmdSupprimer");
    EXPECT_EQ(livre.configs(), "L'une 01 1*, Autre 02 1*");
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
    protege();
    SuppConfig refusee(env, 1);
    controle<QListWidget>(refusee, "ListDesConfig").setCurrentRow(0);
    clique(refusee, "cmdSupprimer");
    EXPECT_NE(dits().find("protégé en écriture"), std::string::npos);
    EXPECT_FALSE(refusee.result());
    QFile::remove(livre.fichier());
    EXPECT_FALSE(controle<QAbstractButton>(SuppConfig(env, 1), "cmdSupprimer").isEnabled());
}

#include "LivreDEssai.h"
#include "config/FrmSauvegarde.h"
#include "config/SuppConfig.h"

#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class SauvegardeTest : public testing::Test, public LivreDEssai {
  protected:
    void sauve(const FrmSauvegarde &fenetre, const char *nom, const char *fauteuil) {
        controle<QLineEdit>(fenetre, QStringLiteral("Text6")).setText(QString::fromUtf8(nom));
        controle<QLineEdit>(fenetre, QStringLiteral("TxtNumFauteuil")).setText(QString::fromUtf8(fauteuil));
        clique(fenetre, QStringLiteral("BtnSauver"));
    }
    void protege() { QFile::setPermissions(chemin(), QFile::ReadOwner | QFile::ReadUser); }
};

class SuppConfigTest : public SauvegardeTest {
  protected:
    void SetUp() override {
        ajoute(QStringLiteral("L'une"), QStringLiteral("01"), 1, true);
        ajoute(QStringLiteral("Autre"), QStringLiteral("02"), 1, true);
        ajoute(QStringLiteral("Seconde"), QStringLiteral("01"), 2, false);
    }
    static QListWidget &liste(const SuppConfig &fenetre) {
        return controle<QListWidget>(fenetre, QStringLiteral("ListDesConfig"));
    }
};

} // namespace

TEST_F(SauvegardeTest, ShowsTheLoadedConfiguration) {
    const FrmSauvegarde fenetre(v);
    QStringList champs;
    for (int i = 1; i <= 5; ++i) {
        champs << controle<QLineEdit>(fenetre, QStringLiteral("Text%1").arg(i)).text();
    }
    EXPECT_EQ(champs.join(u' '), QStringLiteral("15 08:00 12:00 14:00 18:00"));
    EXPECT_TRUE(controle<QCheckBox>(fenetre, QStringLiteral("Check1")).isChecked());
    const auto &grille = controle<QTableWidget>(fenetre, QStringLiteral("GrilleJours"));
    QStringList couleurs;
    for (int i = 0; i < 7; ++i) {
        for (int col = 1; col <= 2; ++col) {
            const QBrush fond = grille.item(i, col)->background();
            couleurs << (fond.style() == Qt::NoBrush ? QStringLiteral("-") : fond.color().name());
        }
    }
    EXPECT_EQ(grille.item(6, 0)->text(), QStringLiteral("Dimanche"));
    EXPECT_EQ(couleurs.join(u' '), QStringLiteral("- - #a0a0a0 - - #a0a0a0 #a0a0a0 #a0a0a0 - - "
                                                  "#000000 #000000 #000000 #000000"));
}

TEST_F(SauvegardeTest, RefusesInItsOrder) {
    const QString titre = QStringLiteral("Nom de configuration ?|");
    const QString fauteuilFaux = titre + QStringLiteral("Le numéro de fauteuil n'est pas valide");
    const QString nomFaux = titre + QStringLiteral("Votre nom de sauvegarde n'est pas valide");
    const QString impossible = QStringLiteral("Action Impossible|");
    const QByteArray long256(256, 'x');
    struct {
        const char *nom, *fauteuil;
        QString message;
        const char *champ;
        bool vide;
    } const cas[] = {{"Été", "1a", fauteuilFaux, "TxtNumFauteuil", true},
                     {"Bonne", "12", fauteuilFaux, "TxtNumFauteuil", true},
                     {"   ", "", nomFaux, "Text6", true},
                     {"Été", "", nomFaux, "Text6", true},
                     {long256.constData(), "", nomFaux, "Text6", true},
                     {" prise ", "1", impossible + QStringLiteral("Une configuration porte déjà ce nom !"),
                      "Text6", false},
                     {"Bonne", "1", impossible + QStringLiteral("Un Fauteuil porte déjà ce numéro !"),
                      "TxtNumFauteuil", false}};
    ajoute(QStringLiteral("Prise"), QStringLiteral("02"), 2, true);
    ajoute(QStringLiteral("Mienne"), QStringLiteral("01"), 1, true);
    const QStringList avant = lignes();
    for (const auto &c : cas) {
        messages.shown.clear();
        const FrmSauvegarde fenetre(v);
        sauve(fenetre, c.nom, c.fauteuil);
        EXPECT_EQ(messagesLus(), c.message);
        EXPECT_EQ(messages.shown.value(0).icon, c.vide ? Messages::Icon::None : Messages::Icon::Critical);
        auto &champ = controle<QLineEdit>(fenetre, QString::fromLatin1(c.champ));
        EXPECT_EQ(fenetre.focusWidget(), &champ) << c.nom;
        EXPECT_EQ(champ.text().isEmpty(), c.vide) << c.nom;
        EXPECT_EQ(fenetre.result(), 0);
    }
    EXPECT_EQ(lignes(), avant);
}

TEST_F(SauvegardeTest, SavesWithoutTheBlanksAround) {
    ajoute(QStringLiteral("Ancienne"), QStringLiteral("01"), 1, true);
    const FrmSauvegarde fenetre(v);
    controle<QCheckBox>(fenetre, QStringLiteral("Check1")).setChecked(false);
    sauve(fenetre, "  à 2 ", "");
    EXPECT_EQ(messagesLus(), QString());
    EXPECT_EQ(lignes(), (QStringList{QStringLiteral("Ancienne 01 1 *"), QStringLiteral("à 2 01 0")}));
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
}

TEST_F(SauvegardeTest, AReadOnlyBookKeepsWhatWasTyped) {
    ajoute(QStringLiteral("Ancienne"), QStringLiteral("01"), 1, true);
    protege();
    const FrmSauvegarde fenetre(v);
    sauve(fenetre, "Nouvelle", "2");
    EXPECT_TRUE(messagesLus().contains(QStringLiteral("protégé en écriture"))) << qPrintable(messagesLus());
    EXPECT_EQ(controle<QLineEdit>(fenetre, QStringLiteral("Text6")).text(), QStringLiteral("Nouvelle"));
    EXPECT_EQ(controle<QLineEdit>(fenetre, QStringLiteral("TxtNumFauteuil")).text(), QStringLiteral("2"));
    EXPECT_EQ(fenetre.result(), 0);
    EXPECT_EQ(lignes(), QStringList{QStringLiteral("Ancienne 01 1 *")});
}

TEST_F(SauvegardeTest, AnUnusableConfigurationIsNotSaved) {
    v.config.Intervalle = 0;
    sauve(FrmSauvegarde(v), "Nouvelle", "2");
    EXPECT_TRUE(messagesLus().contains(QStringLiteral("ne peut pas être sauvegardée")));
    EXPECT_EQ(lignes(), QStringList());
}

TEST_F(SuppConfigTest, AsksThenDeletesTheSelectedOne) {
    SuppConfig fenetre(v);
    ASSERT_EQ(liste(fenetre).count(), 2);
    liste(fenetre).setCurrentRow(0);
    clique(fenetre, QStringLiteral("cmdSupprimer"));
    EXPECT_EQ(messagesLus(),
              QStringLiteral("Attention|Etes-vous certain de vouloir supprimer cette configuration ?"));
    EXPECT_EQ(lignes().size(), 3);
    EXPECT_EQ(fenetre.result(), 0);
    messages.answer = true;
    fenetre.show(); // only a visible button answers to Enter
    QTest::keyClick(&liste(fenetre), Qt::Key_Return);
    EXPECT_EQ(lignes(), (QStringList{QStringLiteral("Autre 02 1 *"), QStringLiteral("Seconde 01 2")}));
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
}

TEST_F(SuppConfigTest, WithNothingSelectedItOnlyEnds) {
    const SuppConfig fenetre(v);
    messages.answer = true;
    clique(fenetre, QStringLiteral("cmdSupprimer"));
    EXPECT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(lignes().size(), 3);
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
}

TEST_F(SuppConfigTest, ARefusedBookIsToldAndNothingEnds) {
    protege();
    messages.answer = true;
    {
        const SuppConfig fenetre(v);
        liste(fenetre).setCurrentRow(1);
        clique(fenetre, QStringLiteral("cmdSupprimer"));
        EXPECT_TRUE(messagesLus().contains(QStringLiteral("protégé en écriture")))
            << qPrintable(messagesLus());
        EXPECT_EQ(fenetre.result(), 0);
    }
    messages.shown.clear();
    v.CheminBaseRDV = dossier.filePath(QStringLiteral("absente.mdb"));
    const SuppConfig fenetre(v);
    EXPECT_EQ(messages.shown.size(), 1);
    EXPECT_FALSE(controle<QAbstractButton>(fenetre, QStringLiteral("cmdSupprimer")).isEnabled());
}

#include "LivreDEssai.h"
#include "config/FrmJourExclure.h"
#include "config/FrmTrancheHoraire.h"
#include "platform/ui/UpDown.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class TrancheTest : public testing::Test, public LivreDEssai {
  protected:
    void ouvreFenetre() {
        fenetre = std::make_unique<FrmTrancheHoraire>(v);
        modifiee = std::make_unique<QSignalSpy>(fenetre.get(), &FrmTrancheHoraire::configurationModifiee);
    }
    QLineEdit &texte(int i) { return controle<QLineEdit>(*fenetre, QStringLiteral("Text%1").arg(i)); }
    void choisit(int k) { clique(*fenetre, QStringLiteral("Option%1").arg(k)); }
    void fleche(int i, const QString &nom) {
        controle<UpDown>(*fenetre, QStringLiteral("UpDown%1").arg(i))
            .findChild<QAbstractButton *>(nom)
            ->click();
    }
    void ok() { clique(*fenetre, QStringLiteral("BtnOK")); }
    QString saisie() {
        QStringList textes;
        for (int i = 1; i <= 4; ++i) {
            textes << texte(i).text();
        }
        return textes.join(u' ');
    }
    void attendRefus(const Configuration &avant) {
        EXPECT_EQ(v.config, avant);
        EXPECT_EQ(modifiee->count(), 0);
        EXPECT_EQ(fenetre->result(), 0);
    }

    std::unique_ptr<FrmTrancheHoraire> fenetre;
    std::unique_ptr<QSignalSpy> modifiee;
};

class JourExclureTest : public testing::Test, public LivreDEssai {
  protected:
    QString coches(const FrmJourExclure &fenetre) {
        QString etat;
        for (int groupe = 1; groupe <= 3; ++groupe) {
            for (int i = 0; i < 7; ++i) {
                const auto &boite =
                    controle<QCheckBox>(fenetre, QStringLiteral("Check%1_%2").arg(groupe).arg(i));
                etat +=
                    boite.isEnabled() ? (boite.isChecked() ? u'x' : u'.') : (boite.isChecked() ? u'X' : u'-');
            }
            etat += u' ';
        }
        return etat.trimmed();
    }
};

} // namespace

TEST_F(TrancheTest, OpensOnTheLoadedValues) {
    ouvreFenetre();
    EXPECT_EQ(saisie(), QStringLiteral("08:00 12:00 14:00 18:00"));
    EXPECT_TRUE(controle<QRadioButton>(*fenetre, QStringLiteral("Option3")).isChecked());
    choisit(5);
    EXPECT_EQ(texte(2).toolTip(), QStringLiteral("12:10"));
    fleche(1, QStringLiteral("Augmenter"));
    EXPECT_EQ(saisie(), QStringLiteral("08:05 12:00 14:00 18:00"));
    EXPECT_EQ(texte(2).toolTip(), QStringLiteral("12:15"));
    fleche(4, QStringLiteral("Diminuer"));
    EXPECT_EQ(saisie(), QStringLiteral("08:05 12:00 14:00 17:55"));
    QTest::keyClick(fenetre.get(), Qt::Key_Escape);
    attendRefus(semaineOrdinaire());
}

TEST_F(TrancheTest, OkTakesTheScreen) {
    ouvreFenetre();
    choisit(12);
    texte(1).setText(QStringLiteral("9:00"));
    fenetre->show(); // only a visible button answers to Enter
    QTest::keyClick(&texte(1), Qt::Key_Return);
    Configuration attendue = semaineOrdinaire();
    attendue.Intervalle = 60;
    attendue.HeureMatDebut = QTime(9, 0);
    EXPECT_EQ(v.config, attendue) << qPrintable(messagesLus());
    EXPECT_EQ(modifiee->count(), 1);
    EXPECT_EQ(fenetre->result(), QDialog::Accepted);
}

TEST_F(TrancheTest, RefusalsRestoreTheOpening) {
    struct {
        int option;
        const char *fin, *message;
    } const cas[] = {
        {12, "15:00",
         "Erreur !|Les horaires sont trop rapprochés ou l'intervalle est trop grand.\nVeuillez les "
         "modifier."},
        {5, "18:00", "Erreur de cohérence.|Incohérence entre l'intervalle et l'heure de fin du matin."}};
    for (const auto &c : cas) {
        messages.shown.clear();
        ouvreFenetre();
        choisit(c.option);
        texte(4).setText(QString::fromLatin1(c.fin));
        ok();
        EXPECT_EQ(messagesLus(), QString::fromUtf8(c.message));
        EXPECT_EQ(saisie(), QStringLiteral("08:00 12:00 14:00 18:00"));
        EXPECT_TRUE(controle<QRadioButton>(*fenetre, QStringLiteral("Option3")).isChecked());
        attendRefus(semaineOrdinaire());
    }
}

TEST_F(TrancheTest, TypedNonsenseIsRefusedAndKept) {
    const char *const pasUneHeure =
        "Erreur !|Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00.";
    struct {
        int champ;
        const char *saisi, *message;
    } const cas[] = {
        {3, "24:00", pasUneHeure},
        {2, "", pasUneHeure},
        {4, "13:00",
         "Erreur !|Les horaires ne se suivent pas : 14:00 vient après 13:00. Veuillez les modifier."}};
    for (const auto &c : cas) {
        messages.shown.clear();
        ouvreFenetre();
        texte(c.champ).setText(QString::fromUtf8(c.saisi));
        ok();
        EXPECT_EQ(messagesLus(), QString::fromUtf8(c.message));
        EXPECT_EQ(fenetre->focusWidget(), &texte(c.champ));
        EXPECT_EQ(texte(c.champ).text(), QString::fromUtf8(c.saisi));
        attendRefus(semaineOrdinaire());
    }
}

TEST_F(TrancheTest, RepairsAnUnusableConfiguration) {
    v.config = {};
    ouvreFenetre();
    const auto saisit = [this](int option) {
        for (int i = 1; i <= 4; ++i) {
            texte(i).setText(QStringLiteral("%1:00").arg(6 + 2 * i));
        }
        choisit(option);
    };
    saisit(5);
    ok(); // 25 minutes do not divide the morning: back to no hours and no option
    messages.shown.clear();
    EXPECT_EQ(saisie().trimmed(), QString());
    ok();
    EXPECT_EQ(messagesLus(), QStringLiteral("Erreur !|Veuillez choisir un intervalle."));
    attendRefus({});
    saisit(6);
    ok();
    EXPECT_EQ(v.config.Intervalle, 30);
    EXPECT_EQ(v.config.HeurePMFin, QTime(14, 0));
    EXPECT_EQ(fenetre->result(), QDialog::Accepted) << qPrintable(messagesLus());
}

TEST_F(JourExclureTest, OpensWithTheRestDayHiddenAndGreyed) {
    EXPECT_EQ(coches(FrmJourExclure(v)), QStringLiteral(".x.x..X ..xx..X .....xX"));
    v.config.JourGrise[6] = 0; // as a row written by other means may say
    EXPECT_EQ(coches(FrmJourExclure(v)), QStringLiteral(".x.x..X ..xx..X .....xX"));
    v.config.JourRepos = 0;
    EXPECT_EQ(coches(FrmJourExclure(v)), QStringLiteral(".x.x... ..xx... .....xx"));
}

TEST_F(JourExclureTest, AnotherRestDayClearsAllAndStaysOnCancel) {
    FrmJourExclure fenetre(v);
    clique(fenetre, QStringLiteral("Option3"));
    EXPECT_EQ(coches(fenetre), QStringLiteral("..X.... ..X.... ..X...."));
    QTest::keyClick(&fenetre, Qt::Key_Escape);
    Configuration attendue = semaineOrdinaire();
    attendue.JourRepos = 3;
    EXPECT_EQ(v.config, attendue);
}

TEST_F(JourExclureTest, OkWritesTheDays) {
    FrmJourExclure fenetre(v);
    const QSignalSpy modifiee(&fenetre, &FrmJourExclure::configurationModifiee);
    clique(fenetre, QStringLiteral("Option1"));
    clique(fenetre, QStringLiteral("Check1_2"));
    clique(fenetre, QStringLiteral("Check2_2"));
    clique(fenetre, QStringLiteral("Check2_4"));
    clique(fenetre, QStringLiteral("BtnOK"));
    EXPECT_EQ(v.config.NbJours, 6);
    EXPECT_EQ(v.config.JourRepos, 1);
    EXPECT_EQ(v.config.JourAffich, (std::array{0, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(v.config.JourGrise, (std::array{3, 0, 3, 0, 2, 0, 0}));
    EXPECT_EQ(modifiee.count(), 1);
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
}

TEST_F(JourExclureTest, TwoDaysAtLeast) {
    FrmJourExclure fenetre(v); // Saturday and Sunday are hidden already
    for (const char *boite : {"Check3_0", "Check3_1", "Check3_2", "Check3_3"}) {
        clique(fenetre, QLatin1StringView(boite));
    }
    clique(fenetre, QStringLiteral("BtnOK"));
    EXPECT_EQ(messagesLus(),
              QStringLiteral("Erreur d'affichage !|Vous devez permettre l'affichage d'au moins deux jours."));
    EXPECT_EQ(v.config, semaineOrdinaire());
    EXPECT_EQ(fenetre.result(), 0);
    clique(fenetre, QStringLiteral("Check3_0"));
    clique(fenetre, QStringLiteral("BtnOK"));
    EXPECT_EQ(v.config.NbJours, 2);
    EXPECT_EQ(fenetre.result(), QDialog::Accepted);
}

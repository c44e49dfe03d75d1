#include "patients/RecherchePatient.h"
#include "PatientsDEssai.h"
#include "support/Gestes.h"
#include "support/WaitUntil.h"

#include <QDialog>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QThreadPool>
#include <gtest/gtest.h>

namespace {

/// The lookup in a dialog whose default button must never be pressed by a search.
class RechercheTest : public testing::Test, public PatientsDEssai {
  protected:
    RechercheTest() {
        ajoute({q("DUPONT| Jean |01/02/1980"), q("DUPRÉ"), q("MARTIN|<b>Luc")});
        dialogue.resize(800, 600);
        recherche.resize(600, 600);
        bouton.setDefault(true);
        QObject::connect(&bouton, &QPushButton::clicked, &dialogue, [this] { vus << q("!!"); });
        const auto note = [this](const char *marque) {
            return [this, marque](const PatientTrouve &p) { vus << q(marque) + p.nom + p.prenom + p.numero; };
        };
        QObject::connect(&recherche, &RecherchePatient::patientParcouru, &dialogue, note("+"));
        QObject::connect(&recherche, &RecherchePatient::patientChoisi, &dialogue, note("!"));
        QObject::connect(&recherche, &RecherchePatient::patientPerdu, &dialogue,
                         [this] { vus << q("lost"); });
        recherche.utilise(env);
        dialogue.show();
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); } // the index may be on its way
    QString liste() const {
        QStringList noms;
        for (int i = 0; i < grille.model()->rowCount(); ++i) {
            noms << grille.model()->index(i, 0).data().toString();
        }
        return noms.join(u',');
    }
    void clique(int ligne, int plusBas = 0) {
        const QPoint milieu = grille.visualRect(grille.model()->index(ligne, 1)).center();
        QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu + QPoint(0, plusBas));
    }
    static void touches(QWidget &ou, std::initializer_list<Qt::Key> suite) {
        for (const Qt::Key touche : suite) {
            QTest::keyClick(&ou, touche);
        }
    }
    QString vu() { return std::exchange(vus, {}).join(u' '); }

    QDialog dialogue;
    RecherchePatient recherche{&dialogue};
    QPushButton bouton{&dialogue};
    QStringList vus;
    QLineEdit &champ = controle<QLineEdit>(dialogue, q("TxtPatient"));
    QLineEdit &saisie = controle<QLineEdit>(dialogue, q("TxtPatient1"));
    QTableView &grille = controle<QTableView>(dialogue, q("Grille1"));
};

} // namespace

TEST_F(RechercheTest, ListsWhateverIsTyped) {
    for (const QString &rien : {q(""), q("x\ty\r\nz"), QString(10'000, u'9'), QString(QChar(0xD800))}) {
        champ.setText(rien);
        EXPECT_EQ(liste(), QString()) << rien.left(5);
    }
    for (const auto &[texte, noms] : {std::pair("du", "DUPONT,DUPRÉ"), {"3", "MARTIN"}, {"dupo", "DUPONT"}}) {
        champ.setText(q(texte));
        EXPECT_EQ(liste(), q(noms)) << texte;
    }
    saisie.setText(q("mar"));
    EXPECT_EQ(liste(), q("DUPONT")) << "this field waits for Enter";
    touches(saisie, {Qt::Key_Return});
    EXPECT_EQ(liste(), q("MARTIN"));
    EXPECT_EQ(grille.model()->index(0, 1).data(Qt::ToolTipRole).toString(), q("<span>&lt;b&gt;Luc</span>"));
    saisie.setText(q("DUPRÉ\r\n"));
    EXPECT_EQ(saisie.text() + liste(), q("DUPRÉ")) << "a pasted line brings its Enter along";
    EXPECT_EQ(messages.taken(), QString());
}

TEST_F(RechercheTest, AClickOnARowPicksAndNothingElseDoes) {
    champ.setText(q("du"));
    vu();
    QTest::mouseClick(grille.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    clique(1, 60); // below the rows
    EXPECT_EQ(vu(), QString());
    clique(0);
    clique(0); // the second one of a double click
    clique(1);
    EXPECT_EQ(vu(), q("+DUPONTJean1 !DUPONTJean1 +DUPRÉ2 !DUPRÉ2"));
}

TEST_F(RechercheTest, WhatIsHighlightedIsSaidAndEnterPicksIt) {
    champ.setFocus();
    touches(champ, {Qt::Key_Return});
    EXPECT_EQ(vu(), QString()) << "no row, and no default button is reached";
    QTest::keyClicks(&champ, q("du"));
    EXPECT_EQ(vu(), q("+DUPONTJean1 +DUPONTJean1")) << "the first row, at each keystroke";
    touches(champ, {Qt::Key_Enter, Qt::Key_Down});
    EXPECT_EQ(dialogue.focusWidget(), &grille);
    touches(grille, {Qt::Key_Return, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return});
    EXPECT_EQ(vu(), q("!DUPONTJean1 +DUPRÉ2 !DUPRÉ2 +DUPONTJean1 !DUPONTJean1"));
    recherche.oublieChoix(); // the fields name somebody else
    touches(grille, {Qt::Key_Return});
    EXPECT_EQ(vu(), QString());
    touches(grille, {Qt::Key_Backspace, Qt::Key_D});
    EXPECT_EQ(vu(), q("+DUPONTJean1"));
    EXPECT_EQ(dialogue.focusWidget(), &champ);
    QTest::keyClicks(&champ, q("x"));
    touches(champ, {Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(vu(), q("lost"));
}

TEST_F(RechercheTest, ALetterGoesToTheNextFirstName) {
    ajoute({q("NOM|Anne"), q("NOM|Élodie"), q("NOM|Eric"), q("NOM|Zoé"), q("NOM")});
    QStringList beaucoup; // more than are read at once
    for (int i = 100; i < 400; ++i) {
        beaucoup << q("NOMA%1|Bob").arg(i);
    }
    ajoute(beaucoup << q("NOMB|Yann"));
    champ.setText(q("nom"));
    grille.setFocus();
    const auto prenom = [this](const char *suite) {
        QTest::keyClicks(&grille, q(suite));
        return grille.currentIndex().siblingAtColumn(1).data().toString();
    };
    for (const auto &[suite, attendu] : {std::pair("e", "Élodie"),
                                         {"e", "Eric"},
                                         {"Z", "Zoé"},
                                         {"a", "Anne"},
                                         {"a", "Anne"},
                                         {"y", "Yann"},
                                         {"x", "Yann"},
                                         {"z", "Zoé"}}) {
        EXPECT_EQ(prenom(suite), q(attendu)) << suite;
    }
}

TEST_F(RechercheTest, ManyAreReadAsTheyComeIntoSight) {
    QStringList patients;
    for (int i = 100; i < 600; ++i) {
        patients << q("Z%1").arg(i);
    }
    ajoute(patients);
    champ.setText(q("z"));
    EXPECT_LT(grille.model()->rowCount(), 300);
    grille.selectRow(0);
    for (int i = 0; i < 1000 && grille.model()->canFetchMore({}); ++i) {
        touches(grille, {Qt::Key_PageDown});
    }
    EXPECT_EQ(liste(), patients.join(u','));
    champ.setText(q("Z"));
    QFile::remove(fichier(Base::Patients));
    grille.scrollToBottom();
    EXPECT_TRUE(messages.taken().contains(q("introuvable"))) << "told, and the list ends there";
}

TEST_F(RechercheTest, TheFileGetsItsIndexBesideAndAMissingOneIsToldOnce) {
    EXPECT_TRUE(waitUntil(
        [this] { return ouvre(Base::Patients).tableDef(q("TabPat")).hasIndex(q("PatientsParNom")); }));
    QFile::remove(fichier(Base::Patients));
    QTest::keyClicks(&champ, q("dup"));
    EXPECT_EQ(messages.shown.size(), 1);
}

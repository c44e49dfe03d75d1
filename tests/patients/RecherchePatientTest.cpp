#include "patients/RecherchePatient.h"
#include "PatientsDEssai.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

/// The lookup in a dialog whose default button must never be pressed by a search.
class RechercheTest : public testing::Test, public PatientsDEssai {
  protected:
    RechercheTest() {
        ajoute("DUPONT", " Jean ", "01/02/1980");
        ajoute("DUPRÉ", nullptr);
        ajoute("MARTIN", "Luc");
        disposition.addWidget(&recherche);
        disposition.addWidget(&bouton);
        bouton.setDefault(true);
        QObject::connect(&bouton, &QPushButton::clicked, &dialogue,
                         [this] { choisis << QStringLiteral("!"); });
        QObject::connect(
            &recherche, &RecherchePatient::patientChoisi, &dialogue,
            [this](const PatientTrouve &p) { choisis << p.nom + u'|' + p.prenom + u'|' + p.numero; });
        recherche.utilise(v);
        dialogue.show();
    }
    QString liste() const {
        QStringList noms;
        for (int i = 0; i < grille.model()->rowCount(); ++i) {
            noms << grille.model()->index(i, 0).data().toString();
        }
        return noms.join(u',');
    }
    QPoint milieu(int ligne) const { return grille.visualRect(grille.model()->index(ligne, 1)).center(); }

    QDialog dialogue;
    QVBoxLayout disposition{&dialogue};
    RecherchePatient recherche{&dialogue};
    QPushButton bouton;
    QStringList choisis;
    QLineEdit &champ = controle<QLineEdit>(dialogue, "TxtPatient");
    QLineEdit &saisie = controle<QLineEdit>(dialogue, "TxtPatient1");
    QTableView &grille = controle<QTableView>(dialogue, "Grille1");
};

} // namespace

TEST_F(RechercheTest, ListsAtEveryKeystroke) {
    EXPECT_EQ(liste(), QString());
    QTest::keyClicks(&champ, QStringLiteral("du"));
    EXPECT_EQ(liste(), QStringLiteral("DUPONT,DUPRÉ"));
    QTest::keyClicks(&champ, QStringLiteral("po"));
    EXPECT_EQ(liste(), QStringLiteral("DUPONT"));
    champ.clear();
    EXPECT_EQ(liste(), QString());
    QTest::keyClicks(&champ, QStringLiteral("3"));
    EXPECT_EQ(liste(), QStringLiteral("MARTIN"));
}

TEST_F(RechercheTest, ShowsFourColumns) {
    champ.setText(QStringLiteral("dupo"));
    QStringList vus;
    for (int col = 0; col < grille.model()->columnCount(); ++col) {
        const QModelIndex cellule = grille.model()->index(0, col);
        const int alignement = cellule.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
        vus << grille.model()->headerData(col, Qt::Horizontal).toString() + u'=' + cellule.data().toString() +
                   (alignement == Qt::AlignLeft ? u'<' : u'^') + QString::number(grille.columnWidth(col));
    }
    EXPECT_EQ(vus.join(u';'),
              QStringLiteral("Nom Patient=DUPONT<97;Prénom Patient= Jean <97;N°=1^47;Date N=01/02/1980^73"));
}

TEST_F(RechercheTest, AClickOnARowPicksAndNothingElseDoes) {
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, QPoint(20, 5)); // no row yet
    champ.setText(QStringLiteral("du"));
    QTest::mouseClick(grille.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(1) + QPoint(0, 60)); // below the rows
    EXPECT_EQ(choisis, QStringList());
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(0));
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(1));
    EXPECT_EQ(choisis, (QStringList{QStringLiteral("DUPONT|Jean|1"), QStringLiteral("DUPRÉ||2")}));
}

TEST_F(RechercheTest, EnterHandsTheEntryFieldOver) {
    QTest::keyClicks(&saisie, QStringLiteral("dupont"));
    EXPECT_EQ(liste(), QString());
    QTest::keyClick(&saisie, Qt::Key_Return);
    EXPECT_EQ(saisie.text(), QString());
    EXPECT_EQ(champ.text(), QStringLiteral("dupont"));
    EXPECT_EQ(liste(), QStringLiteral("DUPONT"));
    saisie.setText(QStringLiteral("MARTIN\r\n"));
    EXPECT_EQ(saisie.text(), QString());
    EXPECT_EQ(champ.text(), QStringLiteral("MARTIN"));
    EXPECT_EQ(choisis, QStringList());
}

TEST_F(RechercheTest, ArrowsWalkTheListAndEnterPicks) {
    champ.setText(QStringLiteral("du"));
    QTest::keyClick(&champ, Qt::Key_Return); // no row is walked to: nothing, and no default button
    EXPECT_EQ(choisis, QStringList());
    QTest::keyClick(&champ, Qt::Key_Down);
    QTest::keyClick(&champ, Qt::Key_Down);
    QTest::keyClick(&champ, Qt::Key_Enter);
    QTest::keyClick(&grille, Qt::Key_Up);
    QTest::keyClick(&grille, Qt::Key_Return);
    EXPECT_EQ(choisis, (QStringList{QStringLiteral("DUPRÉ||2"), QStringLiteral("DUPONT|Jean|1")}));
    champ.setText(QStringLiteral("dup")); // a new list has no current row
    QTest::keyClick(&champ, Qt::Key_Return);
    EXPECT_EQ(choisis.size(), 2);
}

TEST_F(RechercheTest, PastedRubbishFindsNothing) {
    for (const QString &texte :
         {QStringLiteral("x\ty\r\nz"), QStringLiteral("😀"), QString(10'000, u'*'), QString(10'000, u'\''),
          QString(10'000, u'D'), QString(10'000, u'9'), QString(QChar(0)), QString(QChar(0xD800))}) {
        champ.setText(texte);
        EXPECT_EQ(liste(), QString()) << qPrintable(texte.left(5));
    }
    EXPECT_EQ(messagesLus(), QString());
}

TEST_F(RechercheTest, AMissingFileIsToldOnce) {
    champ.setText(QStringLiteral("d"));
    const QString ailleurs = dossier.filePath(QStringLiteral("ailleurs.mdb"));
    QFile::rename(fichier(Base::Patients), ailleurs);
    QTest::keyClicks(&champ, QStringLiteral("up"));
    EXPECT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messagesLus().contains(QStringLiteral("introuvable"))) << qPrintable(messagesLus());
    EXPECT_EQ(liste(), QString());
    QFile::rename(ailleurs, fichier(Base::Patients));
    QTest::keyClicks(&champ, QStringLiteral("o"));
    EXPECT_EQ(liste(), QStringLiteral("DUPONT"));
    QFile::remove(fichier(Base::Patients));
    QTest::keyClicks(&champ, QStringLiteral("n"));
    EXPECT_EQ(messages.shown.size(), 2);
}

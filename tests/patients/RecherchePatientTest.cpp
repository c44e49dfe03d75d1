#include "patients/RecherchePatient.h"
#include "PatientsDEssai.h"
#include "support/WaitUntil.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QThreadPool>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

/// The lookup in a dialog whose default button must never be pressed by a search.
class RechercheTest : public testing::Test, public PatientsDEssai {
  protected:
    RechercheTest() {
        ajoute("DUPONT", " Jean ", "01/02/1980");
        ajouteTous({q("DUPRÉ"), q("MARTIN|<b>Luc")});
        disposition.addWidget(&recherche);
        disposition.addWidget(&bouton);
        bouton.setDefault(true);
        QObject::connect(&bouton, &QPushButton::clicked, &dialogue, [this] { vus << q("!!"); });
        const auto note = [this](const QString &marque) {
            return [this, marque](const PatientTrouve &p) {
                vus << marque + p.nom + u'|' + p.prenom + u'|' + p.numero;
            };
        };
        QObject::connect(&recherche, &RecherchePatient::patientParcouru, &dialogue, note(q("+")));
        QObject::connect(&recherche, &RecherchePatient::patientChoisi, &dialogue, note(q("!")));
        recherche.utilise(env);
        dialogue.show();
    }
    ~RechercheTest() override { QThreadPool::globalInstance()->waitForDone(); } // the index may be on its way
    QString liste() const {
        QStringList noms;
        for (int i = 0; i < grille.model()->rowCount(); ++i) {
            noms << grille.model()->index(i, 0).data().toString();
        }
        return noms.join(u',');
    }
    QPoint milieu(int ligne) const { return grille.visualRect(grille.model()->index(ligne, 1)).center(); }
    QString vu() { return std::exchange(vus, {}).join(u' '); }
    void touches(QWidget &ou, std::initializer_list<Qt::Key> suite) {
        for (const Qt::Key touche : suite) {
            QTest::keyClick(&ou, touche);
        }
    }

    QDialog dialogue;
    QVBoxLayout disposition{&dialogue};
    RecherchePatient recherche{&dialogue};
    QPushButton bouton;
    QStringList vus;
    QLineEdit &champ = controle<QLineEdit>(dialogue, "TxtPatient");
    QLineEdit &saisie = controle<QLineEdit>(dialogue, "TxtPatient1");
    QTableView &grille = controle<QTableView>(dialogue, "Grille1");
};

} // namespace

TEST_F(RechercheTest, ListsAtEveryKeystrokeInFourColumns) {
    QTest::keyClicks(&champ, q("du"));
    EXPECT_EQ(liste(), q("DUPONT,DUPRÉ"));
    QTest::keyClicks(&champ, q("po"));
    EXPECT_EQ(liste(), q("DUPONT"));
    QStringList colonnes;
    for (int col = 0; col < grille.model()->columnCount(); ++col) {
        const QModelIndex cellule = grille.model()->index(0, col);
        const int alignement = cellule.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
        colonnes << grille.model()->headerData(col, Qt::Horizontal).toString() + u'=' +
                        cellule.data().toString() + (alignement == Qt::AlignLeft ? u'<' : u'^') +
                        QString::number(grille.columnWidth(col));
    }
    EXPECT_EQ(colonnes.join(u';'),
              q("Nom Patient=DUPONT<97;Prénom Patient= Jean <97;N°=1^47;Date N=01/02/1980^73"));
    champ.clear();
    EXPECT_EQ(liste(), QString());
    QTest::keyClicks(&champ, q("3"));
    EXPECT_EQ(liste(), q("MARTIN"));
    EXPECT_EQ(grille.model()->index(0, 1).data(Qt::ToolTipRole).toString(), q("<span>&lt;b&gt;Luc</span>"));
    for (const QString &texte : {q("x\ty\r\nz"), q("😀"), QString(10'000, u'*'), QString(10'000, u'9'),
                                 QString(QChar(0)), QString(QChar(0xD800))}) {
        champ.setText(texte);
        EXPECT_EQ(liste(), QString()) << qPrintable(texte.left(5));
    }
    EXPECT_EQ(messagesLus() + vu(), QString());
}

TEST_F(RechercheTest, AClickOnARowPicksAndNothingElseDoes) {
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, QPoint(20, 5)); // no row yet
    champ.setText(q("du"));
    QTest::mouseClick(grille.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(1) + QPoint(0, 60)); // below the rows
    EXPECT_EQ(vu(), QString());
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(0));
    EXPECT_EQ(vu(), q("+DUPONT|Jean|1 !DUPONT|Jean|1"));
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(0)); // the second one of a double click
    EXPECT_EQ(vu(), QString());
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, milieu(1));
    EXPECT_EQ(vu(), q("+DUPRÉ||2 !DUPRÉ||2"));
}

TEST_F(RechercheTest, ArrowsHighlightAndEnterPicksTheHighlightedOnly) {
    champ.setText(q("du"));
    touches(champ, {Qt::Key_Return, Qt::Key_Tab});
    grille.setFocus();
    touches(grille, {Qt::Key_Return});
    EXPECT_EQ(vu(), QString()) << "no row was walked to, and no default button is reached";
    touches(grille, {Qt::Key_Down});
    EXPECT_EQ(vu(), q("+DUPONT|Jean|1")) << "the first row first";
    touches(champ, {Qt::Key_Down, Qt::Key_Enter, Qt::Key_Up});
    touches(grille, {Qt::Key_Return});
    EXPECT_EQ(vu(), q("+DUPRÉ||2 !DUPRÉ||2 +DUPONT|Jean|1 !DUPONT|Jean|1"));
    champ.setText(q("dup")); // a new list has no highlighted row
    touches(champ, {Qt::Key_Return});
    EXPECT_EQ(vu(), QString());
    QTest::keyClicks(&saisie, q("dupont"));
    EXPECT_EQ(liste(), q("DUPONT,DUPRÉ")) << "this field waits for Enter";
    touches(saisie, {Qt::Key_Return});
    EXPECT_EQ(saisie.text() + champ.text() + liste(), q("dupontDUPONT"));
    saisie.setText(q("MARTIN\r\n"));
    EXPECT_EQ(saisie.text() + champ.text() + vu(), q("MARTIN"));
}

TEST_F(RechercheTest, ManyAreReadAsTheyComeIntoSight) {
    QStringList patients;
    for (int i = 0; i < 500; ++i) {
        patients << QStringLiteral("Z%1|z").arg(i, 3, 10, QLatin1Char('0'));
    }
    ajouteTous(patients);
    champ.setText(q("z"));
    EXPECT_LT(grille.model()->rowCount(), 300);
    grille.selectRow(0);
    for (int i = 0; i < 1000 && grille.model()->canFetchMore({}); ++i) {
        touches(grille, {Qt::Key_PageDown});
    }
    EXPECT_EQ(liste().count(u'Z'), 500);
    EXPECT_TRUE(liste().endsWith(q("Z498,Z499")));
    champ.setText(q("Z"));
    QFile::remove(fichier(Base::Patients));
    grille.scrollToBottom();
    EXPECT_TRUE(messagesLus().contains(q("introuvable"))) << "told, and the list ends there";
}

TEST_F(RechercheTest, TheFileGetsItsIndexBesideAndAMissingOneIsToldOnce) {
    EXPECT_TRUE(waitUntil([this] {
        Database base = ouvre(Base::Patients);
        return base.tableDef(q("TabPat")).hasIndex(q("PatientsParNom"));
    }));
    const QString ailleurs = dossier.filePath(q("ailleurs.mdb"));
    QFile::rename(fichier(Base::Patients), ailleurs);
    QTest::keyClicks(&champ, q("dup"));
    EXPECT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messagesLus().contains(q("introuvable")));
    EXPECT_EQ(liste(), QString());
    QFile::rename(ailleurs, fichier(Base::Patients));
    QTest::keyClicks(&champ, q("o"));
    EXPECT_EQ(liste(), q("DUPONT"));
    QFile::remove(fichier(Base::Patients));
    QTest::keyClicks(&champ, q("n"));
    EXPECT_EQ(messages.shown.size(), 1);
}

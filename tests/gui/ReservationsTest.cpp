#include "gui/Souris.h"
#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace {

/// Appointments are booked, changed and deleted with a real mouse and real keys, on an empty book, and read
/// back from the database.
class Reservations : public testing::Test {
  protected:
    Reservations() {
        cabinet.ouvre(Base::RendezVous).execute(SqlText("delete from RDV"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
    }
    void ouvre() {
        v = cabinet.variables();
        fenetre = std::make_unique<FrmEntree>(v);
        fenetre->Form_Load();
        fenetre->resize(1200, 900);
        ASSERT_TRUE(montre(*fenetre));
        grille().showAtTop(1);
    }
    FlexGrid &grille() { return *fenetre->findChild<FlexGrid *>(QStringLiteral("GrilleRDV")); }
    QAction &action(const char *nom) { return *fenetre->findChild<QAction *>(QString::fromLatin1(nom)); }
    QPoint cellule(int ligne, int colonne) {
        return grille().visualRect(grille().model()->index(ligne, colonne)).center();
    }
    void clic(int ligne, int colonne) { Souris::clic(*grille().viewport(), cellule(ligne, colonne)); }
    void glisse(int ligne, int colonne, int ligneFin) {
        Souris::glisse(*grille().viewport(), cellule(ligne, colonne), cellule(ligneFin, colonne));
    }
    template <typename T>
    static T &enfant(const QWidget &dans, const char *nom) {
        return *dans.findChild<T *>(QString::fromLatin1(nom));
    }
    static void remplit(QLineEdit &champ, const QString &texte) {
        Souris::clic(champ);
        Clavier::touches({QStringLiteral("ctrl+a"), QStringLiteral("BackSpace")});
        Clavier::tape(texte);
    }
    Records rdv() {
        return cabinet.ouvre(Base::RendezVous)
            .query(SqlText("select * from RDV order by Date1, HeureDebut, Fauteuil"));
    }
    qint64 reserve(const char *debut, const char *fin, const QString &nom, int fauteuil = 1) {
        return cabinet.ouvre(Base::RendezVous)
            .insert(
                QStringLiteral("RDV"),
                {{QStringLiteral("Nom"), Value(nom)},
                 {QStringLiteral("Prenom"), Value(QStringLiteral("Jeanne"))},
                 {QStringLiteral("Date1"), Value::date(QDate(2026, 3, 10))},
                 {QStringLiteral("DateInv"), Value(QStringLiteral("20260310"))},
                 {QStringLiteral("HeureDebut"), Value(QString::fromLatin1(debut) + QStringLiteral(":00"))},
                 {QStringLiteral("HeureFin"), Value(QString::fromLatin1(fin) + QStringLiteral(":00"))},
                 {QStringLiteral("NumPraticien"), Value(QStringLiteral("01"))},
                 {QStringLiteral("Fauteuil"), Value(fauteuil)}});
    }
    bool attendLibre(bool libre) {
        return waitUntil([&] { return v.SelectionLibre == libre && v.LigneDebut > 0; });
    }

    CabinetDEssai cabinet;
    VariablesGlobales v;
    std::unique_ptr<FrmEntree> fenetre;
};

const QString frmAjouter = QStringLiteral("FrmAjouter");

} // namespace

TEST_F(Reservations, AFreeSlotIsBookedWithMouseAndKeys) {
    ouvre();
    glisse(9, 2, 10);
    ASSERT_TRUE(attendLibre(true));
    EXPECT_TRUE(pendant(
        frmAjouter, [] { Clavier::touches({QStringLiteral("Return")}); },
        [&](QWidget &f) {
            remplit(enfant<QLineEdit>(f, "Text1"), QStringLiteral("D'HARCOURT"));
            remplit(enfant<QLineEdit>(f, "Text2"), QStringLiteral("Zoé"));
            remplit(enfant<QLineEdit>(f, "Text3"), QStringLiteral("02 61 91 00 00"));
            remplit(enfant<QLineEdit>(f, "Text4"), QStringLiteral("Détartrage"));
            Clavier::touches({QStringLiteral("Return")});
        }));
    const Records rows = rdv();
    ASSERT_EQ(rows.count(), 1) << qPrintable(cabinet.messages.shown.value(0).text);
    const Record row = rows.first();
    EXPECT_EQ(row[u"Nom"].toText(), QStringLiteral("D'HARCOURT"));
    EXPECT_EQ(row[u"Prenom"].toText(), QStringLiteral("Zoé"));
    EXPECT_EQ(row[u"Telephone"].toText(), QStringLiteral("02 61 91 00 00"));
    EXPECT_EQ(row[u"Description"].toText(), QStringLiteral("Détartrage"));
    EXPECT_EQ(row[u"NumPatient"].toInteger(), 0);
    EXPECT_EQ(row[u"Date1"].toDate(), QDate(2026, 3, 10));
    EXPECT_EQ(row[u"DateInv"].toText(), QStringLiteral("20260310"));
    EXPECT_EQ(row[u"HeureDebut"].toTime(), QTime(10, 0));
    EXPECT_EQ(row[u"HeureFin"].toTime(), QTime(10, 30));
    EXPECT_EQ(row[u"NumPraticien"].toText(), QStringLiteral("01"));
    EXPECT_EQ(row[u"Fauteuil"].toInteger(), 1);
    EXPECT_TRUE(row[u"Professionnel"].toBoolean());
    EXPECT_FALSE(row[u"Present"].toBoolean());
    EXPECT_TRUE(waitUntil([&] {
        return grille().cells().cell(9, 2).text == QStringLiteral("  D'HARCOURT Zoé  [Détartrage]");
    }));
}

TEST_F(Reservations, APatientIsFoundByTypingAndPickedWithEnter) {
    cabinet.ouvre(Base::Patients)
        .execute(SqlText("update TabPat set nom = 'ZYSMAN', PreNom = 'Éloïse' where cptid = 9"));
    ouvre();
    clic(9, 2);
    ASSERT_TRUE(attendLibre(true));
    EXPECT_TRUE(pendant(
        frmAjouter, [&] { Souris::doubleClic(*grille().viewport(), cellule(9, 2)); },
        [&](QWidget &) {
            Clavier::tape(QStringLiteral("zys"));
            Clavier::touches({QStringLiteral("Down"), QStringLiteral("Return")});
        }));
    ASSERT_EQ(rdv().count(), 1) << qPrintable(cabinet.messages.shown.value(0).text);
    EXPECT_EQ(rdv().first()[u"Nom"].toText(), QStringLiteral("ZYSMAN"));
    EXPECT_EQ(rdv().first()[u"NumPatient"].toInteger(), 9);
}

TEST_F(Reservations, AnOccupiedRangeIsRefused) {
    reserve("10:15", "10:30", QStringLiteral("ROUX"));
    ouvre();
    clic(9, 2);
    ASSERT_TRUE(attendLibre(true));
    EXPECT_TRUE(pendant(
        frmAjouter, [] { Clavier::touches({QStringLiteral("Return")}); },
        [&](QWidget &f) {
            remplit(enfant<QLineEdit>(f, "Text1"), QStringLiteral("ADAM"));
            remplit(enfant<QLineEdit>(f, "TextHeureFin"), QStringLiteral("11:00"));
            Clavier::touches({QStringLiteral("Return")});
            EXPECT_TRUE(waitUntil([&] { return !cabinet.messages.shown.isEmpty(); }));
            EXPECT_TRUE(f.isVisible());
            Clavier::touches({QStringLiteral("Escape")});
        }));
    EXPECT_EQ(cabinet.messages.shown.value(0).title, QStringLiteral("Horaire occupé"));
    EXPECT_EQ(rdv().count(), 1);
}

TEST_F(Reservations, AcrossLunchTheQuestionDecides) {
    ouvre();
    glisse(16, 2, 17);
    ASSERT_TRUE(waitUntil([&] { return v.ChoixHoraire == 2; }));
    bool question = false;
    EXPECT_TRUE(pendant(
        frmAjouter,
        [&] {
            question = pendant(
                QStringLiteral("FrmQuelHoraire"), [] { Clavier::touches({QStringLiteral("Return")}); },
                [&](QWidget &f) {
                    Souris::clic(enfant<QRadioButton>(f, "Option2"));
                    Souris::clic(enfant<QPushButton>(f, "BtnOK"));
                });
        },
        [&](QWidget &f) {
            remplit(enfant<QLineEdit>(f, "Text1"), QStringLiteral("ADAM"));
            Souris::clic(enfant<QPushButton>(f, "BtnAjouter"));
        }));
    EXPECT_TRUE(question);
    ASSERT_EQ(rdv().count(), 1);
    EXPECT_FALSE(rdv().first()[u"Professionnel"].toBoolean());
    EXPECT_EQ(rdv().first()[u"HeureFin"].toTime(), QTime(12, 15));
}

TEST_F(Reservations, AnAppointmentMovesToAnotherDay) {
    const qint64 ref = reserve("09:00", "09:30", QStringLiteral("ROUX"));
    ouvre();
    clic(5, 2);
    ASSERT_TRUE(attendLibre(false));
    EXPECT_TRUE(pendant(
        QStringLiteral("FrmEditer"), [] { Clavier::touches({QStringLiteral("Return")}); },
        [&](QWidget &f) {
            enfant<QDateEdit>(f, "DTPicker1").setDate(QDate(2026, 3, 12));
            Souris::clic(enfant<QPushButton>(f, "BtnMettreAJour"));
        }));
    ASSERT_EQ(rdv().count(), 1);
    EXPECT_EQ(rdv().first()[u"RefRDV"].toInteger(), ref);
    EXPECT_EQ(rdv().first()[u"DateInv"].toText(), QStringLiteral("20260312"));
    EXPECT_TRUE(waitUntil([&] { return grille().cells().cell(5, 4).text.contains(QStringLiteral("ROUX")); }));
    EXPECT_EQ(grille().cells().cell(5, 2).text, QString());
}

TEST_F(Reservations, DeletingTakesTheRightOneOfTwoAtTheSameMinute) {
    reserve("09:00", "09:30", QStringLiteral("D'ARC"), 2);
    const qint64 ref = reserve("09:00", "09:30", QStringLiteral("D'ARC"), 1);
    ouvre();
    clic(5, 2);
    ASSERT_TRUE(attendLibre(false));
    EXPECT_TRUE(pendant(
        QStringLiteral("FrmSupprimer"), [] { Clavier::touches({QStringLiteral("Delete")}); },
        [&](QWidget &) { Clavier::touches({QStringLiteral("Escape")}); }));
    EXPECT_EQ(rdv().count(), 2);
    EXPECT_TRUE(pendant(
        QStringLiteral("FrmSupprimer"), [&] { Souris::choisit(*fenetre, action("mnuSupprimer")); },
        [&](QWidget &) { Clavier::touches({QStringLiteral("Return")}); }));
    ASSERT_EQ(rdv().count(), 1);
    EXPECT_NE(rdv().first()[u"RefRDV"].toInteger(), ref);
    EXPECT_EQ(rdv().first()[u"Fauteuil"].toInteger(), 2);
}

TEST_F(Reservations, APresentPatientIsColoured) {
    reserve("09:00", "09:30", QStringLiteral("ROUX"));
    ouvre();
    clic(5, 2);
    ASSERT_TRUE(attendLibre(false));
    for (const bool present : {true, false}) {
        Souris::choisit(*fenetre, action("mnuPresent"));
        ASSERT_TRUE(waitUntil([&] { return rdv().first()[u"Present"].toBoolean() == present; }));
        EXPECT_TRUE(waitUntil([&] { return action("mnuPresent").isChecked() == present; }));
        const QColor fond = grille().cells().cell(6, 2).back;
        EXPECT_EQ(fond, present ? QColor(128, 0, 128) : QColor());
    }
}

TEST_F(Reservations, ANewPatientWhoMayBeThereAlreadyIsAskedAbout) {
    const Records avant =
        cabinet.ouvre(Base::Patients).query(SqlText("select * from TabPat where cptid = 9"));
    ouvre();
    clic(9, 2);
    ASSERT_TRUE(attendLibre(true));
    cabinet.messages.answer = true;
    EXPECT_TRUE(pendant(
        frmAjouter, [] { Clavier::touches({QStringLiteral("Return")}); },
        [&](QWidget &f) {
            EXPECT_TRUE(pendant(
                QStringLiteral("FrmNouveauPatient"),
                [&] { Souris::clic(enfant<QPushButton>(f, "NouveauPatient")); },
                [&](QWidget &n) {
                    remplit(enfant<QLineEdit>(n, "txtNomPatient"), avant.first()[u"nom"].toText());
                    remplit(enfant<QLineEdit>(n, "txtPrenomPatient"), avant.first()[u"PreNom"].toText());
                    Souris::clic(enfant<QPushButton>(n, "cmdValiderActe"));
                }));
            Souris::clic(enfant<QPushButton>(f, "BtnAnnuler"));
        }));
    ASSERT_EQ(cabinet.messages.shown.size(), 1);
    EXPECT_TRUE(cabinet.messages.shown[0].question);
    EXPECT_TRUE(cabinet.messages.shown[0].text.startsWith(
        QStringLiteral("Un patient portant le nom et le même prénom")))
        << qPrintable(cabinet.messages.shown[0].text);
    EXPECT_EQ(cabinet.ouvre(Base::Patients).query(SqlText("select * from TabPat")).count(), 121);
    EXPECT_EQ(cabinet.ouvre(Base::PatientsCrees).query(SqlText("select * from LesPatients")).count(), 1);
    EXPECT_EQ(rdv().count(), 0);
}

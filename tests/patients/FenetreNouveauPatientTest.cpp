#include "PatientsDEssai.h"
#include "patients/FrmNouveauPatient.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

class NouveauPatientTest : public testing::Test, public PatientsDEssai {
  protected:
    void ouvreFenetre() {
        fenetre = std::make_unique<FrmNouveauPatient>(v);
        fenetre->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(fenetre.get()));
    }
    QLineEdit &champ(const char *nom) const { return controle<QLineEdit>(*fenetre, nom); }
    void tape(const char *nom, const char *texte) const {
        champ(nom).setFocus();
        for (const QChar c : QString::fromUtf8(texte)) { // keyClicks() has no accents
            QTest::sendKeyEvent(QTest::Click, &champ(nom), Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
    void valide() const { controle<QPushButton>(*fenetre, "cmdValiderActe").click(); }
    void remplit(const char *nom, const char *prenom, const char *date = "", const char *secu = "") const {
        tape("txtNomPatient", nom);
        tape("txtPrenomPatient", prenom);
        tape("txtDateNaissance", date);
        tape("txtNumSecu", secu);
    }

    std::unique_ptr<FrmNouveauPatient> fenetre;
};

} // namespace

TEST_F(NouveauPatientTest, FieldsAreTidiedWhenLeft) {
    ouvreFenetre();
    struct {
        const char *champ, *tape, *lu;
    } const cas[] = {{"txtNomPatient", " dupré ", "DUPRÉ"},
                     {"txtPrenomPatient", "jean-luc", "Jean-luc"},
                     {"txtPrenomPatient", "JEAN", "JEAN"},
                     {"txtPrenomPatient", "élodie", "Élodie"},
                     {"txtNumSecu", " 185057800608491 ", "185057800608491"}};
    for (const auto &c : cas) {
        champ(c.champ).clear();
        tape(c.champ, c.tape);
        QTest::keyClick(&champ(c.champ), Qt::Key_Tab);
        EXPECT_EQ(champ(c.champ).text(), QString::fromUtf8(c.lu));
    }
    EXPECT_EQ(messagesLus(), QString());
}

TEST_F(NouveauPatientTest, TabFollowsTheScreen) {
    ouvreFenetre();
    QStringList ordre;
    for (int i = 0; i < 12; ++i) {
        ordre << fenetre->focusWidget()->objectName();
        QTest::keyClick(fenetre->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(ordre.join(u' '),
              QStringLiteral("txtNomPatient txtPrenomPatient txtAdresse1 txtAdresse2 txtCodePostal txtVille "
                             "txtNumTel txtNumSecu txtDateNaissance Titre cmdValiderActe cmdAnnuler"));
}

TEST_F(NouveauPatientTest, AWrongKeyIsToldOnceAndEnterCreates) {
    ouvreFenetre();
    tape("txtNumSecu", "185057800608442");
    tape("txtPrenomPatient", "jean");
    EXPECT_EQ(messagesLus(), QStringLiteral("ATTENTION|Le numéro de Sécurité Sociale n'est pas valide !"));
    tape("txtNomPatient", "dupont");
    QTest::keyClick(&champ("txtNomPatient"), Qt::Key_Return);
    EXPECT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(fenetre->result(), QDialog::Accepted);
    const Records rows = ouvre(Base::Patients).query(SqlText("select * from TabPat"));
    ASSERT_EQ(rows.count(), 1);
    EXPECT_EQ(rows.first()[u"nom"].toText(), QStringLiteral("DUPONT"));
    EXPECT_EQ(rows.first()[u"PreNom"].toText(), QStringLiteral("Jean"));
    EXPECT_EQ(rows.first()[u"DateNais"].toText(), QString());
    EXPECT_EQ(nombreDe(Base::PatientsCrees), 1);
}

TEST_F(NouveauPatientTest, RefusesWhatIsMissingOrFalse) {
    const QString noms = QStringLiteral("Vous devez saisir le Nom, le Prénom !");
    struct {
        const char *nom, *prenom, *date;
        QString message;
        const char *champ;
    } const cas[] = {{"", "", "31041980", noms, "txtNomPatient"},
                     {"  ", "jean", "", noms, "txtNomPatient"},
                     {"dupont", "", "", noms, "txtPrenomPatient"},
                     {"dupont", "jean", "2503", QStringLiteral("incomplète"), "txtDateNaissance"},
                     {"dupont", "jean", "31041980", QStringLiteral("n'existe pas"), "txtDateNaissance"},
                     {"dupont", "jean", "12032026", QStringLiteral("futur"), "txtDateNaissance"}};
    for (const auto &c : cas) {
        messages.shown.clear();
        ouvreFenetre();
        remplit(c.nom, c.prenom, c.date);
        champ("txtVille").setFocus();
        valide();
        EXPECT_TRUE(messagesLus().startsWith(QStringLiteral("Action Impossible|")))
            << qPrintable(messagesLus());
        EXPECT_TRUE(messagesLus().contains(c.message)) << qPrintable(messagesLus());
        EXPECT_EQ(fenetre->focusWidget(), &champ(c.champ));
        EXPECT_TRUE(fenetre->isVisible());
    }
    EXPECT_EQ(nombreDe(Base::Patients), 0);
}

TEST_F(NouveauPatientTest, AsksBeforeASecondPatientOfThatName) {
    ajoute("d'arc", "ÉLISE", "25/03/1980", "1");
    ajoute("D'ARC", "Elise", "25/03/1980", "");
    const QString question =
        QStringLiteral("Message|Un patient portant le nom,le même prénom et la même date de naissance existe "
                       "déja!\nVoulez vous quand même créez un nouveau patient");
    for (const bool oui : {false, true}) {
        messages.shown.clear();
        messages.answer = oui;
        ouvreFenetre();
        remplit("d'arc", "élise", "25031980");
        valide();
        EXPECT_EQ(messagesLus(), question);
        EXPECT_FALSE(fenetre->isVisible());
        EXPECT_EQ(fenetre->result(), oui ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_EQ(nombreDe(Base::Patients), oui ? 3 : 2);
        EXPECT_EQ(nombreDe(Base::PatientsCrees), oui ? 1 : 0);
    }
}

TEST_F(NouveauPatientTest, TitlesAreOfferedAndOthersAccepted) {
    Database base = ouvre(Base::Patients);
    const QString mme = QStringLiteral("Mme");
    for (const Value &valeur : {Value(mme), Value(QStringLiteral(" ")), Value(), Value(mme)}) {
        base.insert(QStringLiteral("TabPat"), {{QStringLiteral("Titre"), valeur}});
    }
    ouvreFenetre();
    auto &titre = controle<QComboBox>(*fenetre, "Titre");
    EXPECT_EQ(titre.count(), 1);
    EXPECT_EQ(titre.itemText(0), mme);
    EXPECT_EQ(titre.currentText(), QString());
    champ("txtNomPatient").setText(QStringLiteral("dupont")); // not left by any key
    champ("txtPrenomPatient").setText(QStringLiteral("jean"));
    titre.setEditText(QStringLiteral(" Dr "));
    valide();
    const Records rows = base.query(SqlText("select * from TabPat where Titre = 'Dr'"));
    ASSERT_EQ(rows.count(), 1);
    EXPECT_EQ(rows.first()[u"nom"].toText(), QStringLiteral("DUPONT"));
    EXPECT_EQ(rows.first()[u"PreNom"].toText(), QStringLiteral("Jean"));
}

TEST_F(NouveauPatientTest, AnUnusableFileKeepsTheFormOpen) {
    const std::pair<QString, std::function<void()>> pannes[] = {
        {QStringLiteral("la table « LesPatients » manque"),
         [this] { ouvre(Base::PatientsCrees).execute(SqlText("Alter table LesPatients rename to Autre")); }},
        {QStringLiteral("Crees.mdb » est protégé en écriture"),
         [this] {
             ouvre(Base::PatientsCrees).execute(SqlText("Alter table Autre rename to LesPatients"));
             protege(Base::PatientsCrees);
         }},
        {QStringLiteral("Patient.mdb » est protégé en écriture"), [this] { protege(Base::Patients); }},
        {QStringLiteral("Crees.mdb » est introuvable"),
         [this] { QFile::remove(fichier(Base::PatientsCrees)); }}};
    for (const auto &[cause, panne] : pannes) {
        panne();
        messages.shown.clear();
        ouvreFenetre();
        remplit("dupont", "jean");
        valide();
        EXPECT_TRUE(messagesLus().contains(cause)) << qPrintable(messagesLus());
        EXPECT_TRUE(fenetre->isVisible());
        EXPECT_EQ(champ("txtNomPatient").text(), QStringLiteral("DUPONT"));
        EXPECT_EQ(nombreDe(Base::Patients), 0);
    }
}

TEST_F(NouveauPatientTest, CreatesBothHalvesOrNone) {
    ouvreFenetre();
    remplit("dupont", "jean");
    // A program that is still reading lets a row be written, but not the transaction be ended.
    sqlite3 *lecteur = nullptr;
    ASSERT_EQ(sqlite3_open(fichier(Base::PatientsCrees).toUtf8().constData(), &lecteur), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(lecteur, "BEGIN; SELECT * FROM LesPatients", nullptr, nullptr, nullptr),
              SQLITE_OK);
    valide();
    sqlite3_close(lecteur);
    EXPECT_TRUE(messagesLus().contains(QStringLiteral("occupé"))) << qPrintable(messagesLus());
    EXPECT_TRUE(fenetre->isVisible());
    EXPECT_EQ(nombreDe(Base::Patients), 0);
    EXPECT_EQ(nombreDe(Base::PatientsCrees), 0);
}

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
        fenetre = std::make_unique<FrmNouveauPatient>(env);
        fenetre->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(fenetre.get()));
    }
    QLineEdit &champ(const char *nom) const { return controle<QLineEdit>(*fenetre, nom); }
    void tape(const char *nom, const char *texte) const {
        champ(nom).setFocus();
        for (const QChar c : q(texte)) { // keyClicks() has no accents
            QTest::sendKeyEvent(QTest::Click, &champ(nom), Qt::Key_unknown, QString(c), Qt::NoModifier);
        }
    }
    void valide() const { controle<QPushButton>(*fenetre, "cmdValiderActe").click(); }
    void remplit(const char *nom, const char *prenom, const char *date = "") const {
        tape("txtNomPatient", nom);
        tape("txtPrenomPatient", prenom);
        tape("txtDateNaissance", date);
    }

    std::unique_ptr<FrmNouveauPatient> fenetre;
};

} // namespace

TEST_F(NouveauPatientTest, FieldsAreTidiedWhenLeftAndEnterCreates) {
    ouvreFenetre();
    const struct {
        const char *champ, *tape, *lu;
    } cas[] = {{"txtNomPatient", " d'arcé ", "D'ARCÉ"},
               {"txtPrenomPatient", "élodie", "Élodie"},
               {"txtAdresse1", "1, rue \"Basse\"", nullptr},
               {"txtAdresse2", "Bât. B", nullptr},
               {"txtCodePostal", "56000", nullptr},
               {"txtVille", "VANNES", nullptr},
               {"txtNumTel", "02 61", nullptr},
               {"txtNumSecu", " 185057800608442 ", "185057800608442"},
               {"txtDateNaissance", "25031980", "25/03/1980"}};
    for (const auto &c : cas) { // Tab goes down the screen
        EXPECT_EQ(fenetre->focusWidget()->objectName(), q(c.champ));
        tape(c.champ, c.tape);
        QTest::keyClick(&champ(c.champ), Qt::Key_Tab);
        EXPECT_EQ(champ(c.champ).text(), q(c.lu == nullptr ? c.tape : c.lu));
    }
    EXPECT_EQ(messagesLus(), q("ATTENTION|Le numéro de Sécurité Sociale n'est pas valide !"));
    controle<QComboBox>(*fenetre, "Titre").setEditText(q(" Dr "));
    QTest::keyClick(&champ("txtNomPatient"), Qt::Key_Return);
    EXPECT_EQ(fenetre->result(), QDialog::Accepted);
    EXPECT_EQ(contenu(Base::Patients),
              q("cptid=1;nom=D'ARCÉ;PreNom=Élodie;Titre=Dr;adresse1=1, rue \"Basse\";adresse2=Bât. "
                "B;CodePostal=56000;"
                "ville=VANNES;telephone=02 "
                "61;Profession=;telephone1=;NomJF=;CAM=;medecin=;AdrPar=;mutuelle=;DateNais=25/03/"
                "1980;NumeroSS=185057800608442;TauxCam=0;TauxMut=0;"
                "PenChargeTp=0;Option=0;Filler1=0;Filler2=0;cmu=N"));
    EXPECT_EQ(
        contenu(Base::PatientsCrees),
        q("DateCréationFicheInv=20260311;DateCréationFiche=11/03/2026;NumPatient=1;nom=D'ARCÉ;PreNom=Élodie;"
          "telephone=02 61;adresse1=1, rue \"Basse\";adresse2=Bât. B;CodePostal=56000;ville=VANNES;"
          "DateNais=25/03/1980;NumeroSS=185057800608442"));
    EXPECT_EQ(messagesLus(), QString()) << "the key is told once";
    ouvreFenetre();
    EXPECT_EQ(controle<QComboBox>(*fenetre, "Titre").itemText(0), q("Dr"));
    EXPECT_EQ(controle<QComboBox>(*fenetre, "Titre").currentText(), QString());
    ouvre(Base::Patients).execute(SqlText("delete from TabPat"));
    remplit("b", "b");
    valide();
    EXPECT_TRUE(contenu(Base::PatientsCrees).contains(q("NumPatient=2;"))) << "a number is never given twice";
    EXPECT_TRUE(contenu(Base::PatientsCrees).endsWith(q("NumeroSS= ")));
}

TEST_F(NouveauPatientTest, RefusesWhatIsMissingOrFalse) {
    const struct {
        const char *nom, *prenom, *date, *message, *champ;
    } cas[] = {{"", "", "31041980", "Vous devez saisir le Nom, le Prénom !", "txtNomPatient"},
               {"  ", "jean", "", "Vous devez saisir le Nom, le Prénom !", "txtNomPatient"},
               {"dupont", "", "", "Vous devez saisir le Nom, le Prénom !", "txtPrenomPatient"},
               {"dupont", "jean", "2503", "incomplète", "txtDateNaissance"},
               {"dupont", "jean", "12032026", "futur", "txtDateNaissance"}};
    for (const auto &c : cas) {
        ouvreFenetre();
        remplit(c.nom, c.prenom, c.date);
        champ("txtVille").setFocus();
        valide();
        const QString lu = messagesLus();
        EXPECT_TRUE(lu.startsWith(q("Action Impossible|")) && lu.contains(q(c.message))) << qPrintable(lu);
        EXPECT_EQ(fenetre->focusWidget(), &champ(c.champ));
        EXPECT_TRUE(fenetre->isVisible());
    }
    EXPECT_EQ(nombreDe(Base::Patients), 0);
}

TEST_F(NouveauPatientTest, AsksBeforeASecondPatientOfThatName) {
    ajoute("d'arc", "ÉLISE", "25/03/1980", "1");
    ajoute("D'ARC", "Elise", "25/03/1980", "");
    for (const bool oui : {false, true}) {
        messages.answer = oui;
        ouvreFenetre();
        remplit("d'arc", "élise", "25031980");
        valide();
        EXPECT_EQ(messagesLus(),
                  q("Message|Un patient portant le nom,le même prénom et la même date de naissance existe "
                    "déja!\nVoulez vous quand même créez un nouveau patient"));
        EXPECT_FALSE(fenetre->isVisible());
        EXPECT_EQ(fenetre->result(), oui ? QDialog::Accepted : QDialog::Rejected);
        EXPECT_EQ(nombreDe(Base::Patients), oui ? 3 : 2);
        EXPECT_EQ(nombreDe(Base::PatientsCrees), oui ? 1 : 0);
    }
}

TEST_F(NouveauPatientTest, AnUnusableFileKeepsTheFormOpen) {
    const std::pair<const char *, std::function<void()>> pannes[] = {
        {"Crees.mdb » est protégé en écriture", [this] { protege(Base::PatientsCrees); }},
        {"Patient.mdb » est protégé en écriture",
         [this] {
             protege(Base::Patients);
             QFile::setPermissions(fichier(Base::PatientsCrees), QFile::ReadOwner | QFile::WriteOwner);
         }},
        {"Crees.mdb » est introuvable", [this] { QFile::remove(fichier(Base::PatientsCrees)); }}};
    for (const auto &[cause, panne] : pannes) {
        panne();
        ouvreFenetre();
        remplit("dupont", "jean");
        valide();
        EXPECT_TRUE(messagesLus().contains(q(cause))) << cause;
        EXPECT_TRUE(fenetre->isVisible());
        EXPECT_EQ(champ("txtNomPatient").text(), q("DUPONT"));
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
    EXPECT_TRUE(messagesLus().contains(q("occupé")));
    EXPECT_TRUE(fenetre->isVisible());
    EXPECT_EQ(nombreDe(Base::Patients), 0);
    EXPECT_EQ(nombreDe(Base::PatientsCrees), 0);
}

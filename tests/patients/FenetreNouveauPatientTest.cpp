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
    }
    QLineEdit &champ(const char *nom) const { return controle<QLineEdit>(*fenetre, nom); }
    /// Fills the field as if it were typed in, and leaves it.
    void tape(const char *nom, const char *texte) const {
        champ(nom).insert(q(texte));
        emit champ(nom).editingFinished();
    }
    /// Opens the window, fills it and presses its button.
    void cree(const char *nom, const char *prenom, const char *date = "") {
        ouvreFenetre();
        tape("txtNomPatient", nom);
        tape("txtPrenomPatient", prenom);
        tape("txtDateNaissance", date);
        controle<QPushButton>(*fenetre, "cmdValiderActe").click();
    }

    std::unique_ptr<FrmNouveauPatient> fenetre;
};

} // namespace

TEST_F(NouveauPatientTest, EnterCreatesWhatTheTidiedFieldsSay) {
    ouvreFenetre();
    const char *const saisie[][2] = {{"txtNomPatient", " d'arcé "},
                                     {"txtPrenomPatient", "élodie"},
                                     {"txtAdresse1", "1, rue \"Basse\""},
                                     {"txtAdresse2", "Bât. B"},
                                     {"txtCodePostal", "56000"},
                                     {"txtVille", "VANNES"},
                                     {"txtNumTel", "02 61"},
                                     {"txtNumSecu", " 185057800608442 "},
                                     {"txtDateNaissance", "25031980"}};
    for (const auto &[nom, texte] : saisie) {
        tape(nom, texte);
    }
    EXPECT_EQ(messagesLus(), q("ATTENTION|Le numéro de Sécurité Sociale n'est pas valide !"));
    controle<QComboBox>(*fenetre, "Titre").setEditText(q(" Dr "));
    QTest::keyClick(&champ("txtNomPatient"), Qt::Key_Return);
    EXPECT_EQ(contenu(Base::Patients),
              q("cptid=1;nom=D'ARCÉ;PreNom=Élodie;Titre=Dr;adresse1=1, rue \"Basse\";adresse2=Bât. B;"
                "CodePostal=56000;ville=VANNES;telephone=02 61;Profession=;telephone1=;NomJF=;CAM=;medecin=;"
                "AdrPar=;mutuelle=;DateNais=25/03/1980;NumeroSS=185057800608442;TauxCam=0;TauxMut=0;"
                "PenChargeTp=0;Option=0;Filler1=0;Filler2=0;cmu=N"));
    EXPECT_EQ(contenu(Base::PatientsCrees),
              q("DateCréationFicheInv=20260311;DateCréationFiche=11/03/2026;NumPatient=1;nom=D'ARCÉ;"
                "PreNom=Élodie;telephone=02 61;adresse1=1, rue \"Basse\";adresse2=Bât. B;CodePostal=56000;"
                "ville=VANNES;DateNais=25/03/1980;NumeroSS=185057800608442"));
    ouvreFenetre();
    EXPECT_EQ(controle<QComboBox>(*fenetre, "Titre").itemText(0), q("Dr"));
    ouvre(Base::Patients).execute(SqlText("delete from TabPat"));
    cree("b", "b");
    EXPECT_TRUE(contenu(Base::PatientsCrees).contains(q("NumPatient=2;"))) << "a number is never given twice";
    EXPECT_TRUE(contenu(Base::PatientsCrees).endsWith(q("NumeroSS= ")));
}

TEST_F(NouveauPatientTest, RefusesWhatIsMissingOrFalse) {
    const char *const cas[][4] = {{"  ", "jean", "", "txtNomPatient"},
                                  {"dupont", "", "", "txtPrenomPatient"},
                                  {"dupont", "jean", "2503", "txtDateNaissance"},
                                  {"dupont", "jean", "12032026", "txtDateNaissance"}};
    for (const auto &[nom, prenom, date, fautif] : cas) {
        cree(nom, prenom, date);
        EXPECT_TRUE(messagesLus().startsWith(q("Action Impossible|"))) << nom << prenom << date;
        EXPECT_EQ(fenetre->focusWidget(), &champ(fautif));
        EXPECT_TRUE(fenetre->isVisible());
    }
    EXPECT_EQ(contenu(Base::Patients), QString());
}

TEST_F(NouveauPatientTest, AsksBeforeASecondPatientOfThatName) {
    ajoute({q("d'arc|ÉLISE|25/03/1980")});
    for (const bool oui : {false, true}) {
        messages.answer = oui;
        cree("d'arc", "élise", "25031980");
        EXPECT_TRUE(messagesLus().contains(q("nom,le même prénom")));
        EXPECT_FALSE(fenetre->isVisible());
        EXPECT_EQ(contenu(Base::Patients).count(q(";nom=")), oui ? 2 : 1);
        EXPECT_EQ(contenu(Base::PatientsCrees).isEmpty(), !oui);
    }
}

TEST_F(NouveauPatientTest, CreatesBothHalvesOrNone) {
    sqlite3 *lecteur = nullptr;
    const std::tuple<const char *, std::function<void()>> pannes[] = {
        {"occupé",
         [&] { // one that is still reading lets a row be written, but not the transaction be ended
             ASSERT_EQ(sqlite3_open(fichier(Base::PatientsCrees).toUtf8().constData(), &lecteur), SQLITE_OK);
             ASSERT_EQ(sqlite3_exec(lecteur, "BEGIN; SELECT * FROM LesPatients", nullptr, nullptr, nullptr),
                       SQLITE_OK);
         }},
        {"Crees.mdb » n'a pas la structure attendue",
         [&] { ouvre(Base::PatientsCrees).execute(SqlText("drop table LesPatients")); }},
        {"Crees.mdb » est protégé en écriture", [&] { protege(Base::PatientsCrees); }},
        {"Crees.mdb » est introuvable", [&] { QFile::remove(fichier(Base::PatientsCrees)); }},
        {"Patient.mdb » est protégé en écriture", [&] {
             creeBase(fichier(Base::PatientsCrees), schema(Base::PatientsCrees));
             protege(Base::Patients);
         }}};
    for (const auto &[cause, panne] : pannes) {
        panne();
        cree("dupont", "jean");
        sqlite3_close(std::exchange(lecteur, nullptr));
        EXPECT_TRUE(messagesLus().contains(q(cause))) << cause;
        EXPECT_TRUE(fenetre->isVisible()) << cause;
        EXPECT_EQ(champ("txtNomPatient").text(), q("DUPONT"));
        EXPECT_EQ(contenu(Base::Patients), QString()) << cause;
    }
    EXPECT_EQ(contenu(Base::PatientsCrees), QString());
}

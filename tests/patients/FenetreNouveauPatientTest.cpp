#include "PatientsDEssai.h"
#include "patients/FrmNouveauPatient.h"
#include "support/Gestes.h"

#include <QComboBox>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

class NouveauPatientTest : public testing::Test, public PatientsDEssai {
  protected:
    /// Works in a new window of this kind.
    void ouvre(const QString &gestes) {
        fenetre = std::make_unique<FrmNouveauPatient>(env);
        fenetre->show();
        joue(*fenetre, gestes);
    }
    std::unique_ptr<FrmNouveauPatient> fenetre;
};

const QString valide = q(";>cmdValiderActe");

} // namespace

TEST_F(NouveauPatientTest, EnterCreatesWhatTheTidiedFieldsSay) {
    ouvre(q("txtNomPatient= d'arcé ;txtPrenomPatient=élodie;txtAdresse1=1, rue \"Basse\";txtAdresse2=Bât. B;"
            "txtCodePostal=56000;txtVille=VANNES;txtNumTel=02 61;txtNumSecu= 185057800608442 ;"
            "txtDateNaissance=25031980"));
    EXPECT_EQ(messages.taken(), q("ATTENTION: Le numéro de Sécurité Sociale n'est pas valide !"));
    controle<QComboBox>(*fenetre, q("Titre")).setEditText(q(" Dr "));
    QTest::keyClick(&controle<QLineEdit>(*fenetre, q("txtNomPatient")), Qt::Key_Return);
    EXPECT_EQ(contenu(Base::Patients),
              q("cptid=1;nom=D'ARCÉ;PreNom=Élodie;Titre=Dr;adresse1=1, rue \"Basse\";adresse2=Bât. B;"
                "CodePostal=56000;ville=VANNES;telephone=02 61;Profession=;telephone1=;NomJF=;CAM=;medecin=;"
                "AdrPar=;mutuelle=;DateNais=25/03/1980;NumeroSS=185057800608442;TauxCam=0;TauxMut=0;"
                "PenChargeTp=0;Option=0;Filler1=0;Filler2=0;cmu=N;"));
    EXPECT_EQ(contenu(Base::PatientsCrees),
              q("DateCréationFicheInv=20260311;DateCréationFiche=11/03/2026;NumPatient=1;nom=D'ARCÉ;"
                "PreNom=Élodie;telephone=02 61;adresse1=1, rue \"Basse\";adresse2=Bât. B;CodePostal=56000;"
                "ville=VANNES;DateNais=25/03/1980;NumeroSS=185057800608442;"));
    Database::open(fichier(Base::Patients)).execute(SqlText("delete from TabPat where Titre <> 'Dr'"));
    ouvre(q("txtPrenomPatient=b"));
    controle<QLineEdit>(*fenetre, q("txtNomPatient")).setText(q("b")); // as nobody who leaves a field does
    joue(*fenetre, valide.mid(1));
    EXPECT_TRUE(contenu(Base::PatientsCrees).contains(q("nom=B;")));
    EXPECT_EQ(controle<QComboBox>(*fenetre, q("Titre")).itemText(0), q("Dr"));
    EXPECT_TRUE(contenu(Base::PatientsCrees).endsWith(q("NumeroSS= ;")));
}

TEST_F(NouveauPatientTest, RefusesWhatIsMissingOrFalse) {
    for (const QStringList &cas : tableau(R"(
        txtNomPatient=  ;txtPrenomPatient=jean                                  | txtNomPatient
        txtNomPatient=dupont                                                    | txtPrenomPatient
        txtNomPatient=dupont;txtPrenomPatient=jean;txtDateNaissance=2503        | txtDateNaissance
        txtNomPatient=dupont;txtPrenomPatient=jean;txtDateNaissance=12032026    | txtDateNaissance)")) {
        ouvre(cas[0] + valide);
        EXPECT_TRUE(messages.taken().startsWith(q("Action Impossible:"))) << cas[0];
        EXPECT_EQ(fenetre->focusWidget()->objectName(), cas[1]);
        EXPECT_TRUE(fenetre->isVisible());
    }
    EXPECT_EQ(contenu(Base::Patients), QString());
}

TEST_F(NouveauPatientTest, AsksBeforeASecondPatientOfThatName) {
    ajoute({q("d'arc|ÉLISE|25/03/1980")});
    ouvre(q("txtNomPatient=d'arc;txtPrenomPatient=zoé") + valide);
    EXPECT_EQ(messages.taken(), QString());
    for (const bool oui : {false, true}) {
        messages.answer = oui;
        ouvre(q("txtNomPatient=d'arc;txtPrenomPatient=élise;txtDateNaissance=25031980") + valide);
        EXPECT_TRUE(messages.taken().contains(q("nom,le même prénom")));
        EXPECT_FALSE(fenetre->isVisible());
        EXPECT_EQ(contenu(Base::Patients).count(q(";nom=")), oui ? 3 : 2);
        EXPECT_EQ(contenu(Base::PatientsCrees).count(q(";nom=")), oui ? 2 : 1);
    }
}

TEST_F(NouveauPatientTest, CreatesBothHalvesOrNone) {
    sqlite3 *lecteur = nullptr;
    const std::tuple<const char *, std::function<void()>> pannes[] = {
        {"occupé",
         [&] { // one that is still reading lets a row be written, but not the transaction be ended
             sqlite3_open(fichier(Base::PatientsCrees).toUtf8().constData(), &lecteur);
             sqlite3_exec(lecteur, "BEGIN; SELECT * FROM LesPatients", nullptr, nullptr, nullptr);
         }},
        {"Crees.mdb » ou son dossier est protégé", [&] { protege(Base::PatientsCrees); }},
        {"Crees.mdb » est introuvable", [&] { QFile::remove(fichier(Base::PatientsCrees)); }},
        {"Patient.mdb » ou son dossier est protégé", [&] {
             creeBase(fichier(Base::PatientsCrees), schema(Base::PatientsCrees));
             protege(Base::Patients);
         }}};
    for (const auto &[cause, panne] : pannes) {
        panne();
        ouvre(q("txtNomPatient=dupont;txtPrenomPatient=jean") + valide);
        sqlite3_close(std::exchange(lecteur, nullptr));
        EXPECT_TRUE(messages.taken().contains(q(cause))) << cause;
        EXPECT_TRUE(fenetre->isVisible()) << cause;
        EXPECT_EQ(texte(*fenetre, "txtNomPatient"), q("DUPONT"));
        EXPECT_EQ(contenu(Base::Patients), QString()) << cause;
    }
    EXPECT_EQ(contenu(Base::PatientsCrees), QString());
}

#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "patients/RecherchePatient.h"
#include "support/CabinetDEssai.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

/// The state as a selection of Wednesday 10:00 to 10:30, chair 1, leaves it, on an empty book.
class FenetresRDV : public testing::Test {
  protected:
    FenetresRDV() {
        cabinet.ouvre(Base::RendezVous).execute(SqlText("delete from RDV"));
        v = cabinet.variables();
        v.CheminBaseRDV = v.CheminFichiers + QStringLiteral("\\Tavelin.mdb");
        v.PraticienCourant = QStringLiteral("01");
        v.config.FauteuilCourant = QStringLiteral("1");
        v.config.Intervalle = 15;
        v.txtNumJourEnCours = QDate(2026, 3, 11);
        v.HeureDebutCourante = QTime(10, 0);
        v.HeureFinCourante = QTime(10, 30);
        v.ChoixHoraire = 1;
        v.NumPatientCourant = QStringLiteral("0");
    }
    template <typename T>
    static T &enfant(const QWidget &dans, const char *nom) {
        return *dans.findChild<T *>(QString::fromLatin1(nom));
    }
    static void ecrit(const QWidget &f, const char *champ, const QString &texte) {
        enfant<QLineEdit>(f, champ).setText(texte);
    }
    static QString texte(const QWidget &f, const char *champ) { return enfant<QLineEdit>(f, champ).text(); }
    static void presse(const QWidget &f, const char *bouton) { enfant<QPushButton>(f, bouton).click(); }
    Records rdv() {
        return cabinet.ouvre(Base::RendezVous)
            .query(SqlText("select * from RDV order by HeureDebut, Fauteuil"));
    }
    qint64 reserve(const char *debut, const char *fin, const QString &nom = QStringLiteral("ROUX"),
                   int fauteuil = 1) {
        return cabinet.ouvre(Base::RendezVous)
            .insert(
                QStringLiteral("RDV"),
                {{QStringLiteral("Nom"), Value(nom)},
                 {QStringLiteral("Prenom"), Value(QStringLiteral("Léa"))},
                 {QStringLiteral("Date1"), Value::date(v.txtNumJourEnCours)},
                 {QStringLiteral("DateInv"), Value(QStringLiteral("20260311"))},
                 {QStringLiteral("HeureDebut"), Value(QString::fromLatin1(debut) + QStringLiteral(":00"))},
                 {QStringLiteral("HeureFin"), Value(QString::fromLatin1(fin) + QStringLiteral(":00"))},
                 {QStringLiteral("NumPraticien"), Value(QStringLiteral("01"))},
                 {QStringLiteral("Professionnel"), Value(1)},
                 {QStringLiteral("Present"), Value(1)},
                 {QStringLiteral("Fauteuil"), Value(fauteuil)}});
    }
    /// The appointment under the selection.
    void selectionne(qint64 ref) {
        const Records rows = cabinet.ouvre(Base::RendezVous)
                                 .query(SqlText("select * from RDV where RefRDV = ") << nombre(ref));
        v.RefRDVCourant = ref;
        v.NomRDV = rows.first()[u"Nom"].toText();
        v.PrenomRDV = rows.first()[u"Prenom"].toText();
        v.HeureDebutCourante = rows.first()[u"HeureDebut"].toTime();
        v.HeureFinCourante = rows.first()[u"HeureFin"].toTime();
    }
    RecordingMessages::Message message() const { return cabinet.messages.shown.value(0); }

    CabinetDEssai cabinet;
    VariablesGlobales v;
};

} // namespace

TEST_F(FenetresRDV, AddingWritesEveryField) {
    FrmAjouter f(v);
    QSignalSpy ecrit_(&f, &FrmAjouter::rdvEcrit);
    EXPECT_EQ(texte(f, "TextHeureDebut"), QStringLiteral("10:00"));
    EXPECT_EQ(texte(f, "Text1"), v.NomPatientTransmis) << "the patient whom the suite hands over";
    ecrit(f, "Text3", QStringLiteral("02 61 91 00 00"));
    ecrit(f, "Text4", QStringLiteral("L'examen \"complet\" #1"));
    presse(f, "BtnAjouter");
    const Records rows = rdv();
    ASSERT_EQ(rows.count(), 1) << qPrintable(message().text);
    const Record row = rows.first();
    EXPECT_EQ(row[u"Nom"].toText(), v.NomPatientTransmis);
    EXPECT_EQ(row[u"Prenom"].toText(), v.PrenomPatientTransmis);
    EXPECT_EQ(row[u"Telephone"].toText(), QStringLiteral("02 61 91 00 00"));
    EXPECT_EQ(row[u"Description"].toText(), QStringLiteral("L'examen \"complet\" #1"));
    EXPECT_EQ(row[u"NumPatient"].toInteger(), v.NumPatientTransmis);
    EXPECT_EQ(row[u"Date1"].toDate(), QDate(2026, 3, 11));
    EXPECT_EQ(row[u"DateInv"].toText(), QStringLiteral("20260311"));
    EXPECT_EQ(row[u"HeureDebut"].toTime(), QTime(10, 0));
    EXPECT_EQ(row[u"HeureFin"].toTime(), QTime(10, 30));
    EXPECT_EQ(row[u"NumPraticien"].toText(), QStringLiteral("01"));
    EXPECT_EQ(row[u"Fauteuil"].toInteger(), 1);
    EXPECT_TRUE(row[u"Professionnel"].toBoolean());
    EXPECT_FALSE(row[u"Present"].toBoolean());
    EXPECT_EQ(ecrit_.count(), 1);
    EXPECT_EQ(f.result(), QDialog::Accepted);
}

TEST_F(FenetresRDV, AnEmptyDescriptionOfAHandedOverPatientIsHisActToDo) {
    Database actes = cabinet.ouvre(Base::Actes);
    actes.execute(SqlText("delete from Actes"));
    v.ChoixHoraire = 0;
    FrmAjouter f(v);
    for (int num : {1, 2}) {
        actes.insert(QStringLiteral("Actes"), {{QStringLiteral("NumActe"), Value(num)},
                                               {QStringLiteral("NumPatient"), Value(v.NumPatientTransmis)},
                                               {QStringLiteral("AFaire"), Value(1)},
                                               {QStringLiteral("Libellé"), Value(QStringLiteral("Bilan"))},
                                               {QStringLiteral("CodeSecu"), Value(QStringLiteral("TO"))},
                                               {QStringLiteral("Coefficient"), Value(14 + num)}});
    }
    presse(f, "BtnAjouter");
    ASSERT_EQ(rdv().count(), 1);
    EXPECT_EQ(rdv().first()[u"Description"].toText(), QStringLiteral("Bilan (TO 16)"));
    EXPECT_FALSE(rdv().first()[u"Professionnel"].toBoolean());
}

TEST_F(FenetresRDV, WhatCannotBeBookedIsRefusedAndNothingIsLost) {
    struct Row {
        const char *name;
        const char *nom;
        const char *debut;
        const char *fin;
        const char *titre;
    };
    reserve("09:15", "09:30");
    for (const Row &row : {Row{"blank name", "   ", "10:00", "10:30", "Erreur de case vide"},
                           Row{"covered", "ROUX", "09:00", "10:00", "Horaire occupé"},
                           Row{"overlapping", "ROUX", "09:20", "09:40", "Horaire occupé"},
                           Row{"no time", "ROUX", "8h", "10:30", "Erreur !"},
                           Row{"24:00", "ROUX", "10:00", "24:00", "Erreur !"},
                           Row{"end before start", "ROUX", "10:30", "10:00", "Erreur !"},
                           Row{"no length", "ROUX", "10:30", "10:30", "Erreur !"}}) {
        FrmAjouter f(v);
        cabinet.messages.shown.clear();
        ecrit(f, "Text1", QString::fromUtf8(row.nom));
        ecrit(f, "Text4", QStringLiteral("à garder"));
        ecrit(f, "TextHeureDebut", QString::fromUtf8(row.debut));
        ecrit(f, "TextHeureFin", QString::fromUtf8(row.fin));
        presse(f, "BtnAjouter");
        EXPECT_EQ(rdv().count(), 1) << row.name;
        EXPECT_EQ(cabinet.messages.shown.size(), 1) << row.name;
        EXPECT_EQ(message().title, QString::fromUtf8(row.titre)) << row.name;
        EXPECT_EQ(texte(f, "Text4"), QStringLiteral("à garder")) << row.name;
    }
    FrmAjouter f(v);
    ecrit(f, "TextHeureDebut", QStringLiteral("09:30"));
    presse(f, "BtnAjouter");
    EXPECT_EQ(rdv().count(), 2) << "what begins where another ends is free";
}

TEST_F(FenetresRDV, ABookThatCannotBeWrittenKeepsWhatWasTyped) {
    QFile::setPermissions(cabinet.fichier(Base::RendezVous), QFile::ReadOwner | QFile::ReadGroup);
    FrmAjouter f(v);
    ecrit(f, "Text4", QStringLiteral("à garder"));
    presse(f, "BtnAjouter");
    EXPECT_TRUE(message().text.contains(QStringLiteral("protégé en écriture"))) << qPrintable(message().text);
    EXPECT_EQ(texte(f, "Text4"), QStringLiteral("à garder"));
    EXPECT_EQ(f.result(), 0);
    EXPECT_EQ(rdv().count(), 0);
}

TEST_F(FenetresRDV, APickWarnsAndBooksAtOnce) {
    cabinet.ouvre(Base::Patients).execute(SqlText("update TabPat set RDVNonHonoré = 'O' where cptid = 7"));
    FrmAjouter f(v);
    cabinet.messages.shown.clear();
    emit f.findChild<RecherchePatient *>()->patientChoisi(
        {QStringLiteral("D'ARC"), QStringLiteral("Jeanne"), QStringLiteral("7"), QString()});
    ASSERT_EQ(cabinet.messages.shown.size(), 1);
    EXPECT_EQ(message().title, QStringLiteral("MESSAGE ALERTE"));
    ASSERT_EQ(rdv().count(), 1);
    EXPECT_EQ(rdv().first()[u"Nom"].toText(), QStringLiteral("D'ARC"));
    EXPECT_EQ(rdv().first()[u"NumPatient"].toInteger(), 7);
    EXPECT_EQ(v.NumPatientTransmis, 0);
}

TEST_F(FenetresRDV, ComingBackRefillsOnlyForAnotherPatient) {
    FrmAjouter f(v);
    const auto reactive = [&] {
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&f, &activation);
    };
    ecrit(f, "Text4", QStringLiteral("tapé"));
    reactive();
    EXPECT_EQ(texte(f, "Text4"), QStringLiteral("tapé"));
    cabinet.ouvre(Base::PatientTransmis)
        .execute(SqlText("update LePatient set NomPatient = 'NEUF', NumPatient = 99"));
    reactive();
    EXPECT_EQ(texte(f, "Text1"), QStringLiteral("NEUF"));
    EXPECT_EQ(texte(f, "Text4"), QString());
    EXPECT_EQ(v.NumPatientTransmis, 99);
}

TEST_F(FenetresRDV, TheHandOffMayBeMissingOrEmpty) {
    cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
    {
        FrmAjouter f(v);
        EXPECT_EQ(texte(f, "Text1"), QString());
        EXPECT_TRUE(cabinet.messages.shown.isEmpty());
    }
    QFile::remove(cabinet.fichier(Base::PatientTransmis));
    FrmAjouter f(v);
    EXPECT_EQ(cabinet.messages.shown.size(), 1);
    ecrit(f, "Text1", QStringLiteral("ROUX"));
    presse(f, "BtnAjouter");
    EXPECT_EQ(rdv().count(), 1) << "the book is usable without the suite";
}

TEST_F(FenetresRDV, CheckAndResetButtons) {
    FrmAjouter f(v);
    EXPECT_FALSE(enfant<QPushButton>(f, "BtnPatient").isEnabled());
    enfant<QCheckBox>(f, "Check1").click();
    EXPECT_TRUE(enfant<QPushButton>(f, "BtnPatient").isEnabled());
    EXPECT_FALSE(enfant<QLineEdit>(f, "Text1").isEnabled());
    EXPECT_TRUE(enfant<QLineEdit>(f, "Text4").isEnabled());
    presse(f, "BtnInit");
    EXPECT_EQ(texte(f, "Text1"), QString());
    EXPECT_EQ(v.NumPatientCourant, QStringLiteral("0"));
}

TEST_F(FenetresRDV, EditingRewritesItsFieldsAndNoOther) {
    const qint64 ref = reserve("09:00", "09:30", QStringLiteral("D'ARC"), 1);
    selectionne(ref);
    FrmEditer f(v, ref);
    enfant<QDateEdit>(f, "DTPicker1").setDate(QDate(2026, 3, 12));
    ecrit(f, "TextHeureDebut", QStringLiteral("09:15"));
    ecrit(f, "TextHeureFin", QStringLiteral("09:45"));
    ecrit(f, "txtNumPatient", QStringLiteral("12"));
    presse(f, "BtnMettreAJour");
    const Records rows = rdv();
    ASSERT_EQ(rows.count(), 1) << qPrintable(message().text);
    EXPECT_EQ(rows.first()[u"RefRDV"].toInteger(), ref);
    EXPECT_EQ(rows.first()[u"Date1"].toDate(), QDate(2026, 3, 12));
    EXPECT_EQ(rows.first()[u"DateInv"].toText(), QStringLiteral("20260312"));
    EXPECT_EQ(rows.first()[u"HeureFin"].toTime(), QTime(9, 45));
    EXPECT_EQ(rows.first()[u"NumPatient"].toInteger(), 12);
    EXPECT_TRUE(rows.first()[u"Present"].toBoolean());
    EXPECT_TRUE(rows.first()[u"Professionnel"].toBoolean());
    EXPECT_EQ(rows.first()[u"Fauteuil"].toInteger(), 1);
}

TEST_F(FenetresRDV, EditingOntoAnotherOrAGoneOneIsRefused) {
    const qint64 ref = reserve("09:00", "09:30");
    reserve("10:15", "10:45");
    selectionne(ref);
    FrmEditer f(v, ref);
    ecrit(f, "TextHeureDebut", QStringLiteral("10:00"));
    ecrit(f, "TextHeureFin", QStringLiteral("10:30"));
    presse(f, "BtnMettreAJour");
    EXPECT_EQ(message().text, QStringLiteral("Le créneau choisit n'est pas libre!"));
    EXPECT_EQ(f.result(), 0) << "the dialog stays";
    cabinet.messages.shown.clear();
    cabinet.ouvre(Base::RendezVous).execute(SqlText("delete from RDV where RefRDV = ") << nombre(ref));
    ecrit(f, "TextHeureDebut", QStringLiteral("08:00"));
    presse(f, "BtnMettreAJour");
    EXPECT_FALSE(cabinet.messages.shown.isEmpty());
    EXPECT_EQ(rdv().count(), 1);
}

TEST_F(FenetresRDV, DeletingTakesTheSelectedOneOnly) {
    reserve("09:00", "09:30", QStringLiteral("D'ARC"), 2);
    const qint64 ref = reserve("09:00", "09:30", QStringLiteral("D'ARC"), 1);
    selectionne(ref);
    FrmSupprimer f(v);
    EXPECT_EQ(enfant<QLabel>(f, "Label3").text(), QStringLiteral("D'ARC"));
    EXPECT_EQ(enfant<QLabel>(f, "Label17").text(), QStringLiteral("mercredi 11 mars 2026"));
    EXPECT_EQ(enfant<QLabel>(f, "Label13").text(), QStringLiteral("09:00"));
    presse(f, "BtnOK");
    ASSERT_EQ(rdv().count(), 1);
    EXPECT_EQ(rdv().first()[u"Fauteuil"].toInteger(), 2);
    EXPECT_TRUE(cabinet.messages.shown.isEmpty());
    FrmSupprimer encore(v);
    presse(encore, "BtnOK");
    EXPECT_EQ(message().text, QStringLiteral("Ce rendez-vous n'existe plus !"));
    EXPECT_EQ(message().title, QStringLiteral("Rendez-vous déjà supprimé"));
    EXPECT_EQ(rdv().count(), 1) << "never another patient's appointment";
}

TEST_F(FenetresRDV, AnAppointmentWithoutFirstNameCanBeDeleted) {
    const qint64 ref = reserve("09:00", "09:30");
    cabinet.ouvre(Base::RendezVous)
        .update(QStringLiteral("RDV"), QStringLiteral("RefRDV"), ref, {{QStringLiteral("Prenom"), Value()}});
    selectionne(ref);
    FrmSupprimer f(v);
    presse(f, "BtnOK");
    EXPECT_EQ(rdv().count(), 0) << qPrintable(message().text);
}

TEST_F(FenetresRDV, TheWorkingHoursQuestion) {
    FrmQuelHoraire f;
    EXPECT_EQ(f.ChoixHoraire(), 1);
    enfant<QRadioButton>(f, "Option2").click();
    EXPECT_EQ(f.ChoixHoraire(), 0);
}

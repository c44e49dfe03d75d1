#include "Lignes.h"
#include "booking/ActionsRDV.h"
#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/ReservationTables.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QThreadPool>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// "11 09:00 09:30", a day of March 2026; nobody's, at chair 1 of practitioner 1.
RendezVous place(const QString &texte, qint64 ref = 0) {
    const QStringList mots = texte.split(u' ');
    RendezVous rdv;
    rdv.RefRDV = ref;
    rdv.Nom = q("ROUX");
    rdv.Date1 = QDate(2026, 3, mots[0].toInt());
    rdv.HeureDebut = QTime::fromString(mots[1], q("HH:mm"));
    rdv.HeureFin = QTime::fromString(mots[2], q("HH:mm"));
    rdv.NumPraticien = 1;
    rdv.Fauteuil = 1;
    return rdv;
}

QString titres(const QList<Insolite> &insolites) {
    QStringList lus;
    for (const Insolite &une : insolites) {
        lus << une.titre + u'/' + une.detail;
    }
    return lus.join(u'|');
}

} // namespace

/// Wednesday 11 March, 10:05; mornings greyed on Thursday, afternoons on Friday, Monday wholly; Saturday is
/// not displayed, Sunday is the rest day.
TEST(Insolite, IsWhatTheBookHasToSayAboutAPlace) {
    const Configuration config = configDe({.intervalle = 15, .grise = {3, 0, 0, 1, 2, 0, 3}});
    const QString heure = q("Cette heure est passée/Il est 10:05.");
    const QString jour = q("Ce jour est passé/Nous sommes le mercredi 11 mars 2026.");
    const QString midi = q("Il traverse la pause de midi/Le matin finit à 12:00.");
    const QString tard = q("Il traverse la pause de midi/L'après-midi commence à 14:00.");
    const QString matin = q("Le matin de ce jour est grisé/Le jeudi matin n'est pas travaillé.");
    const QString soir = q("L'après-midi de ce jour est grisé/Le vendredi après-midi n'est pas travaillé.");
    const QString repos = q("C'est un jour de repos/Le %1 n'est pas travaillé.");
    const QString cache = q("Ce jour n'est pas affiché/La semaine ne montre pas le %1.");
    const struct {
        const char *nom = nullptr;
        const char *voulu = nullptr;
        const char *avant = nullptr;
        QString dits;
    } cas[] = {
        {"to come", "11 10:15 10:30", nullptr, {}},
        {"this very minute", "11 10:05 10:30", nullptr, {}},
        {"begun", "11 10:00 10:30", nullptr, heure},
        {"yesterday", "10 11:00 11:30", nullptr, jour},
        {"into lunch", "11 11:45 12:15", nullptr, midi},
        {"out of lunch", "11 13:45 14:15", nullptr, tard},
        {"over lunch", "11 11:00 15:00", nullptr, midi},
        {"up to lunch", "11 11:45 12:00", nullptr, {}},
        {"in lunch, which is no crossing", "11 12:00 14:00", nullptr, {}},
        {"greyed morning", "12 11:00 11:30", nullptr, matin},
        {"afternoon of that day", "12 14:00 14:30", nullptr, {}},
        {"greyed afternoon", "13 14:00 14:30", nullptr, soir},
        {"lunch before it", "13 11:45 14:15", nullptr, midi + u'|' + soir},
        {"not displayed", "14 09:00 09:30", nullptr, cache.arg(q("samedi"))},
        {"rest day", "15 11:45 12:15", nullptr, repos.arg(q("dimanche")) + u'|' + cache.arg(q("dimanche"))},
        {"greyed day", "16 11:45 12:15", nullptr, repos.arg(q("lundi"))},
        {"moved there", "11 11:45 12:15", "11 11:30 12:15", midi},
        {"longer, into lunch", "11 11:45 12:15", "11 11:45 12:00", midi},
        {"longer, and in it already", "11 11:45 12:30", "11 11:45 12:15", {}},
        {"longer, and begun", "11 10:00 10:45", "11 10:00 10:30", {}},
        {"longer, yesterday, into lunch", "10 11:00 12:15", "10 11:00 12:00", midi}};
    const QDateTime maintenant(QDate(2026, 3, 11), QTime(10, 5, 30));
    for (const auto &c : cas) {
        Visee visee{place(q(c.voulu))};
        visee.place.config = config;
        if (c.avant != nullptr) {
            visee.avant = place(q(c.avant));
        }
        EXPECT_EQ(titres(InsoliteDe(visee, {}, maintenant)), c.dits) << c.nom;
        visee.place.config = {};
        EXPECT_LE(InsoliteDe(visee, {}, maintenant).size(), 1) << c.nom << ": by the clock alone";
    }
}

TEST(Insolite, ASecondAppointmentIsThePatientsByNumberElseByName) {
    const QString second = q("Second rendez-vous de ce jour pour ce patient/L'autre est à 16:00.");
    const struct {
        const char *nom = nullptr;
        const char *numero = nullptr; ///< of the one that is booked
        const char *autre = nullptr;  ///< whose the other is
        const char *autreNo = nullptr;
        bool dit = false;
    } cas[] = {{"his number", "7", "DUR", "7", true},
               {"another's number", "7", "ROUX", "8", false},
               {"his name, no number", "0", "roux", "8", true},
               {"no number there", "7", "Roux", "0", true},
               {"nobody's", "", "DUR", "", false}};
    for (const auto &c : cas) {
        RendezVous voulu = place(q("12 15:00 15:30"));
        voulu.NumPatient = q(c.numero);
        RendezVous autre = place(q("12 16:00 16:30"), 5);
        autre.Nom = q(c.autre);
        autre.NumPatient = q(c.autreNo);
        autre.NumPraticien = 2; // wherever it is
        EXPECT_EQ(titres(InsoliteDe({voulu}, {autre}, {})), c.dit ? second : QString()) << c.nom;
        EXPECT_EQ(InsoliteDe({voulu, autre}, {autre}, {}), QList<Insolite>()) << c.nom << ": itself";
    }
    RendezVous tot = place(q("12 08:30 09:00"), 6);
    EXPECT_EQ(titres(InsoliteDe({place(q("12 15:00 15:30"))}, {place(q("12 16:00 16:30"), 5), tot}, {})),
              q("Encore un rendez-vous de ce jour pour ce patient/Les autres sont à 08:30, 16:00."));
}

namespace {

/// Practitioner 1 on a book of his own, at 10:05; what is asked is kept and answered.
class QuestionTest : public testing::Test {
  protected:
    QuestionTest() {
        base.execute(SqlText("delete from RDV"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        QObject::connect(&guet, &QTimer::timeout, [this] { repond(); });
        guet.start(0);
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); }
    void repond() {
        QWidget *question = QApplication::activeModalWidget();
        if (question == nullptr || question->objectName() != q("FrmInsolite")) {
            return;
        }
        QStringList lus{question->windowTitle()};
        for (const QLabel *label : question->findChild<QWidget *>(q("Insolites"))->findChildren<QLabel *>()) {
            lus << (label->text().isEmpty() ? QStringList() : QStringList(label->text()));
        }
        demandes << lus.join(u'|');
        const auto *defaut = qobject_cast<QPushButton *>(question->focusWidget());
        EXPECT_TRUE(defaut != nullptr && defaut->isDefault() && defaut->objectName() == q("BtnRevenir"));
        oui ? controle<QAbstractButton>(*question, q("BtnQuandMeme")).click()
            : QTest::keyClick(question, Qt::Key_Escape);
    }
    QString posees() { return std::exchange(demandes, {}).join(u'\n'); }
    qint64 nombre() { return base.query(SqlText("select RefRDV from RDV")).count(); }

    CabinetDEssai cabinet;
    Environnement env = cabinet.environnement();
    Database base = cabinet.ouvre(Base::RendezVous);
    PlaceRDV la{q("01"), q("1"), QDate(2026, 3, 11), {QTime(11, 45), QTime(12, 15)}, 15, 1, configDe()};
    QWidget fenetre;
    ActionsRDV actions{env, fenetre};
    QTimer guet;
    QStringList demandes;
    bool oui = false;
};

} // namespace

TEST_F(QuestionTest, OneWindowBeforeAnOddBookingAndNoneBeforeARefusal) {
    const QString midi = q("Réserver ce rendez-vous ?|Il traverse la pause de midi|Le matin finit à 12:00.");
    const QString second = q("|Second rendez-vous de ce jour pour ce patient|L'autre est à 17:00.");
    const qint64 ref =
        AjouteRDV(base, {},
                  {{q("ROUX"), {}, {}, {}, q("0"), la.jour, QTime(17, 0), QTime(17, 30)}, q("02"), q("3")})
            .ecriture.RefRDV();
    FrmAjouter ajouter(env, la);
    joue(ajouter, q("Text1=Roux;>BtnAjouter"));
    EXPECT_EQ(posees(), midi + second);
    EXPECT_EQ(nombre(), 1) << "Escape goes back";
    base.execute(SqlText("update RDV set NumPraticien = '01', Fauteuil = 1, HeureDebut = '12:00:00'"));
    oui = true;
    joue(ajouter, q(">BtnAjouter"));
    EXPECT_EQ(posees(), QString()) << "the place is taken: that is told, and nothing asked";
    EXPECT_EQ(cabinet.messages.shown.size(), 1);
    base.execute(SqlText("update RDV set HeureDebut = '17:00:00'"));
    joue(ajouter, q(">BtnAjouter"));
    EXPECT_EQ(posees(), midi + second);
    EXPECT_EQ(nombre(), 2);
    const QString fichier = cabinet.fichier(Base::RendezVous);
    FrmEditer editer(env, *LitRDV(base, ref), la);
    joue(editer, q("Text4=x;>BtnMettreAJour"));
    EXPECT_EQ(posees(), QString()) << "neither date nor hours are others";
    FrmEditer encore(env, *LitRDV(base, ref), la);
    QFile::rename(fichier, fichier + u'x');
    joue(encore, q("TextHeureDebut=17:15;>BtnMettreAJour"));
    QFile::rename(fichier + u'x', fichier);
    EXPECT_EQ(cabinet.messages.shown.size(), 2) << "told once";
    oui = false;
    joue(encore, q("DTPicker1=15/03/2026;>BtnMettreAJour"));
    EXPECT_EQ(posees(),
              q("Déplacer ce rendez-vous ?|C'est un jour de repos|Le dimanche n'est pas travaillé.|Ce jour "
                "n'est pas affiché|La semaine ne montre pas le dimanche."));
    EXPECT_EQ(LitRDV(base, ref)->Date1, la.jour);
}

TEST_F(QuestionTest, WhatTheChoiceOfHoursHasToldIsNotAskedAgain) {
    la.ChoixHoraire = 2;
    oui = true;
    const auto reserve = [&](const char *gestes) {
        QString dits;
        QTimer suite;
        QObject::connect(&suite, &QTimer::timeout, [&] {
            QWidget *dessus = QApplication::activeModalWidget();
            if (dessus != nullptr && dessus->objectName() == q("FrmQuelHoraire")) {
                dits = dessus->findChild<QWidget *>(q("Insolites"))->accessibleDescription();
                joue(*dessus, q(">BtnOK"));
            } else if (dessus != nullptr && dessus->objectName() == q("FrmAjouter")) {
                suite.stop();
                joue(*dessus, q(gestes));
                dessus->close();
            }
        });
        suite.start(0);
        actions.ajoute(la);
        return dits;
    };
    EXPECT_EQ(reserve("Text1=A;>BtnAjouter"), q("Il traverse la pause de midi. Le matin finit à 12:00."));
    EXPECT_EQ(posees(), QString());
    EXPECT_EQ(nombre(), 1);
    reserve("Text1=B;DTPicker1=12/03/2026;>BtnAjouter");
    EXPECT_EQ(posees().count(q("midi")), 1) << "another day";
    base.execute(SqlText("update RDV set HeureDebut = '10:00:00', HeureFin = '11:00:00'"));
    reserve("Text1=A;>BtnAjouter");
    EXPECT_EQ(posees(),
              q("Réserver ce rendez-vous ?|Second rendez-vous de ce jour pour ce patient|L'autre est à "
                "10:00."));
}

TEST_F(QuestionTest, LengtheningAsksWhatIsNew) {
    const qint64 ref =
        AjouteRDV(base, {},
                  {{q("ROUX"), {}, {}, {}, q("0"), la.jour, QTime(10, 0), QTime(12, 0)}, q("01"), q("1")})
            .ecriture.RefRDV();
    actions.changeDuree(*LitRDV(base, ref), la, Sens::PlusTard);
    EXPECT_EQ(posees(), q("Allonger ce rendez-vous ?|Il traverse la pause de midi|Le matin finit à 12:00."));
    EXPECT_EQ(LitRDV(base, ref)->HeureFin, QTime(12, 0));
    oui = true;
    actions.changeDuree(*LitRDV(base, ref), la, Sens::PlusTard);
    actions.changeDuree(*LitRDV(base, ref), la, Sens::PlusTard);
    EXPECT_EQ(posees().count(u'\n'), 0) << "once";
    EXPECT_EQ(LitRDV(base, ref)->HeureFin, QTime(12, 30));
}

#include "Lignes.h"
#include "booking/ActionsRDV.h"
#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "booking/ReservationTables.h"
#include "schedule/TrancheHoraire.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QThreadPool>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// Works in the modal window of that kind as soon as it is there.
template <typename T>
void dans(const char *gestes) {
    auto *guet = new QTimer(qApp);
    QObject::connect(guet, &QTimer::timeout, guet, [guet, gestes] {
        if (auto *fenetre = qobject_cast<T *>(QApplication::activeModalWidget())) {
            guet->stop();
            guet->deleteLater();
            joue(*fenetre, q(gestes));
        }
    });
    guet->start(0);
}

/// Wednesday 10:00 to 10:30, chair 1, on an empty book; two patients, the second one flagged.
class FenetresRDV : public testing::Test {
  protected:
    FenetresRDV() {
        vide();
        cabinet.maintenant.setTime(QTime(8, 0)); // nothing is past yet
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        Database patients = cabinet.ouvre(Base::Patients);
        patients.execute(SqlText("update TabPat set nom = 'ZOLA', PreNom = 'Eva' where cptid = 7"));
        patients.execute(SqlText("update TabPat set nom = 'ZYSMAN', PreNom = 'Luc', RDVNonHonoré = 'O' "
                                 "where cptid = 8"));
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); } // an index may be on its way
    void vide() { base.execute(SqlText("delete from RDV")); }
    void transmet(const char *nom, qint64 numero) {
        cabinet.ouvre(Base::PatientTransmis)
            .insert(q("LePatient"),
                    {{q("NomPatient"), q(nom)}, {q("PrenomPatient"), q("Ana")}, {q("NumPatient"), numero}});
    }
    /// ROUX Léa at 9:00 on chair 1, in each field something of its own.
    RendezVous reserve() {
        const SaisieRDV saisie{q("ROUX"), q("Léa"),   q("02 97"),  q("contrôle"),
                               q("12"),   place.jour, QTime(9, 0), QTime(9, 30)};
        const auto fait =
            AjouteRDV(base, env.auteur(), {saisie, place.PraticienCourant, place.FauteuilCourant});
        return *LitRDV(base, fait.ecriture.RefRDV());
    }
    QString livre() { return lignes(cabinet.ouvre(Base::RendezVous)); }
    QStringList titres() {
        QStringList lus;
        for (const auto &lu : std::exchange(cabinet.messages.shown, {})) {
            lus << lu.title;
        }
        return lus;
    }
    RendezVous dernier() {
        return signale.isEmpty() ? RendezVous() : signale.takeLast().at(0).value<RendezVous>();
    }

    CabinetDEssai cabinet;
    Environnement env = cabinet.environnement();
    Database base = cabinet.ouvre(Base::RendezVous);
    PlaceRDV place{q("01"), q("1"), QDate(2026, 3, 11), {QTime(10, 0), QTime(10, 30)}, 15, 1};
    QWidget fenetre;
    ActionsRDV actions{env, fenetre};
    QSignalSpy signale{&actions, &ActionsRDV::rdvEcrit};
};

} // namespace

TEST_F(FenetresRDV, AddingWritesWhatTheFieldsSay) {
    cabinet.ouvre(Base::Actes)
        .execute(SqlText("insert into Actes (NumActe, NumPatient, AFaire, Libellé, CodeSecu, "
                         "Coefficient) values (999999, 99, 1, 'Bilan', 'TO', 15)"));
    const char *const cas[][2] = {
        {">BtnAjouter", "SUITE|Ana||Bilan (TO 15)|99"},
        {"Text1=ROUX;Text3=02;>BtnAjouter", "ROUX|Ana|02||0"},
        {"+zola;Text2=Eve;!;>BtnAjouter", "ZOLA|Eve|||0"},
        {"+zola;+zolax;!;>BtnAjouter", "SUITE|Ana||Bilan (TO 15)|99"},
        {"+zysman;Text1=ROUX;+qqq;>BtnAjouter", "ROUX|Luc|||0"},
        {"+zola;!", "ZOLA|Eva|||7"},
        {"Text3=0123456789 0123456789 0;+zola;!", "ZOLA|Eva|0123456789 012345678||7"}};
    transmet("SUITE", 99);
    for (const auto &[gestes, champs] : cas) {
        FrmAjouter f(env, place);
        f.show();
        joue(f, q(gestes));
        EXPECT_EQ(livre(), q(champs) + q("|2026-03-11|10:00:00|10:30:00|20260311|01|1|1|0")) << gestes;
        EXPECT_EQ(LitRDV(base, f.rdvEcrit().RefRDV), f.rdvEcrit()) << gestes;
        vide();
    }
    EXPECT_EQ(titres(), QStringList());
}

TEST_F(FenetresRDV, EditingRewritesWhatWasTouched) {
    const QString long60(60, u'X'); // wider than its column
    const QString matin = q("|2026-03-11|09:00:00|09:30:00|20260311");
    const QString suite = q("|Léa|02 97|a\nb|12");
    struct {
        const char *gestes;
        QString ecrit;
    } const cas[] = {{"Text3=02 97", long60 + suite + matin},
                     {"Text4=x\ty", long60 + q("|Léa|02 97|x y|12") + matin},
                     {"Text1=DUR", q("DUR|Léa|02 97|a\nb|0") + matin},
                     {"+zysman;!", q("ZYSMAN|Luc|02 97|a\nb|8") + matin},
                     {">BtnInit;Text1=A;txtNumPatient=42", q("A||||42") + matin},
                     {"DTPicker1=2/12/26;TextHeureDebut=9h15;TextHeureFin=945",
                      long60 + suite + q("|2026-12-02|09:15:00|09:45:00|20261202")},
                     {"+zysman;+qqq", long60 + suite + matin},
                     {"^UpDown2;^UpDown2;^UpDown1;_UpDown3",
                      long60 + suite + q("|2026-03-11|09:00:00|09:45:00|20260311")}};
    for (const auto &c : cas) {
        const qint64 ref = reserve().RefRDV;
        base.execute(SqlText("update RDV set Present = 1, Professionnel = 0, Description = 'a\nb', Nom = ")
                     << ::texte(long60));
        FrmEditer f(env, *LitRDV(base, ref), place, nullptr);
        const QString avant = livre();
        joue(f, q(c.gestes));
        EXPECT_EQ(texte(f, "TextHeureFin"), c.ecrit.section(u'|', 7, 7).first(5)) << c.gestes;
        EXPECT_EQ(livre(), avant) << c.gestes << ": not before the button";
        joue(f, q(">BtnMettreAJour"));
        EXPECT_EQ(livre(), c.ecrit + q("|01|1|0|1")) << c.gestes;
        EXPECT_EQ(LitRDV(base, ref), f.rdvEcrit()) << c.gestes;
        vide();
    }
    EXPECT_EQ(titres(), QStringList()) << "a flagged patient is no alert here";
}

TEST_F(FenetresRDV, WhatCannotBeWrittenIsToldAndKept) {
    FrmEditer f(env, reserve(), place, nullptr);
    const QString avant = livre();
    joue(f, q("txtNumPatient=abc;>BtnMettreAJour;txtNumPatient=42"));
    *env.lectureSeule = q("Le carnet est en lecture seule.");
    joue(f, q(">BtnMettreAJour"));
    EXPECT_EQ(titres(), (QStringList{q("Erreur !"), q("Erreur")}));
    EXPECT_EQ(livre(), avant);
    EXPECT_EQ(texte(f, "txtNumPatient"), u"42");
}

TEST_F(FenetresRDV, WhatAnotherDeskDidIsToldAndNeverWrittenOver) {
    const RendezVous rdv = reserve();
    actions.marquePresent(rdv, true);
    actions.marquePresent(rdv, true); // another desk, on what it still shows
    EXPECT_TRUE(livre().endsWith(u"|1")) << "Present is set, not turned over";
    FrmEditer f(env, rdv, place, nullptr);
    joue(f, q("Text4=x"));
    base.execute(SqlText("update RDV set HeureDebut = '11:00:00', HeureFin = '11:30:00', Telephone = '09'"));
    const QString avant = livre();
    joue(f, q(">BtnMettreAJour"));
    const QString dit = cabinet.messages.shown.value(0).text;
    EXPECT_TRUE(dit.contains(q("de 09:00 à 09:30, ROUX Léa, tél. 02 97, non présent."))) << qPrintable(dit);
    EXPECT_TRUE(dit.contains(q("de 11:00 à 11:30, ROUX Léa, tél. 09, présent."))) << qPrintable(dit);
    actions.marquePresent(rdv, false);
    dans<FrmSupprimer>(">BtnOK");
    actions.supprime(rdv, place);
    EXPECT_EQ(titres(), QStringList(3, q("Rendez-vous modifié")));
    EXPECT_EQ(dernier(), RendezVous()) << "nothing was stored here";
    EXPECT_EQ(livre(), avant);
    joue(f, q(">BtnMettreAJour")); // now on the appointment as it is
    EXPECT_EQ(livre(), q("ROUX|Léa|02 97|x|12|2026-03-11|09:00:00|09:30:00|20260311|01|1|1|1"));

    vide();
    joue(f, q(">BtnMettreAJour"));
    EXPECT_EQ(f.rdvEcrit(), RendezVous());
    actions.marquePresent(rdv, true);
    EXPECT_EQ(titres().size(), 2);
    EXPECT_EQ(signale.count(), 4) << "each is to be read again";
}

TEST_F(FenetresRDV, ActionsOpenTheirWindowsAndSayWhatWasWritten) {
    place.ChoixHoraire = 2;
    dans<FrmQuelHoraire>(">Option2;>BtnOK");
    dans<FrmAjouter>("Text1=B;>BtnAjouter");
    actions.ajoute(place);
    const RendezVous rdv = dernier();
    EXPECT_EQ(rdv.HeureDebut, QTime(10, 0));
    dans<FrmEditer>("+zola;!;>BtnAnnuler");
    actions.edite(rdv, place);
    EXPECT_EQ(signale.count(), 0) << "Annuler leaves nothing behind";
    EXPECT_EQ(livre(), q("B||||0|2026-03-11|10:00:00|10:30:00|20260311|01|1|0|0"))
        << "outside the working hours";
    base.execute(SqlText("update RDV set Nom = 'C'"));
    dans<FrmEditer>(">BtnMettreAJour;>BtnAnnuler");
    actions.edite(rdv, place);
    EXPECT_EQ(signale.count(), 1) << "the window showed another name";
    EXPECT_EQ(dernier(), RendezVous()) << "which is to be read, and was not stored here";
    RendezVous montre = rdv;
    montre.Nom = q("C");
    dans<FrmSupprimer>(">BtnOK");
    actions.supprime(montre, place);
    EXPECT_EQ(livre(), QString());
}

TEST_F(FenetresRDV, TabGoesWhereTheEyeGoes) {
    FrmEditer f(env, reserve(), place, nullptr);
    const QString attendu =
        q("TxtPatient TxtPatient1 Grille1 DTPicker1 TextHeureDebut TextHeureFin Text1 Text2 "
          "Text3 Text4 txtNumPatient BtnInit BtnMettreAJour BtnAnnuler");
    f.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
    QStringList vus;
    for (qsizetype i = attendu.count(u' '); i >= 0; --i) {
        vus << f.focusWidget()->objectName();
        QTest::keyClick(f.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(vus.join(u' '), attendu);
    f.setResult(QDialog::Accepted);
    QTest::keyClick(f.findChild<QPushButton *>(q("BtnAnnuler")), Qt::Key_Return);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.result(), QDialog::Rejected) << "Enter presses the button that has the focus";
}

TEST_F(FenetresRDV, UpAndDownMoveTheHours) {
    FrmAjouter f(env, place);
    const auto heures = [&](const char *champ, Qt::Key touche, Qt::KeyboardModifiers avec = {}) {
        QTest::keyClick(&controle<QLineEdit>(f, q(champ)), touche, avec);
        return texte(f, "TextHeureDebut") + u' ' + texte(f, "TextHeureFin");
    };
    EXPECT_EQ(heures("TextHeureFin", Qt::Key_Up), q("10:00 10:45"));
    EXPECT_EQ(heures("TextHeureDebut", Qt::Key_Up), q("10:15 10:45"));
    EXPECT_EQ(heures("TextHeureDebut", Qt::Key_Up, Qt::ControlModifier), q("10:30 11:00"));
    EXPECT_EQ(heures("TextHeureFin", Qt::Key_Down, Qt::ControlModifier), q("10:15 10:45"));
    EXPECT_EQ(heures("TextHeureDebut", Qt::Key_Down), q("10:00 10:45"));
}

TEST_F(FenetresRDV, ADoubleClickBooksOnceAndReachesNothingElse) {
    QPushButton dessous; // the window under the list
    dessous.setGeometry(0, 0, 800, 600);
    QSignalSpy presses(&dessous, &QPushButton::pressed);
    dessous.show();
    FrmAjouter f(env, place);
    f.show();
    controle<QLineEdit>(f, q("TxtPatient")).setText(q("zysman"));
    auto &grille = controle<QTableView>(f, q("Grille1"));
    const QPoint ou = grille.visualRect(grille.model()->index(0, 0)).center();
    const QPoint ecran = grille.viewport()->mapToGlobal(ou);
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, ou);
    QTest::mousePress(&dessous, Qt::LeftButton, {}, dessous.mapFromGlobal(ecran));
    EXPECT_EQ(presses.count(), 0);
    EXPECT_EQ(livre().count(u"ZYSMAN"), 1);
    EXPECT_EQ(titres(), QStringList(q("MESSAGE ALERTE")));
    EXPECT_TRUE(waitUntil([&] {
        QTest::mouseClick(&dessous, Qt::LeftButton, {}, dessous.mapFromGlobal(ecran));
        return presses.count() > 0;
    })) << "a later click is a click";
}

TEST_F(FenetresRDV, ComingBackRefillsOnlyForAnotherPatient) {
    const QString suite = cabinet.fichier(Base::PatientTransmis);
    QFile::rename(suite, suite + u'x');
    FrmAjouter f(env, place);
    const auto reactive = [&] {
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&f, &activation);
    };
    reactive();
    EXPECT_EQ(titres(), QStringList(q("Erreur"))) << "told once: the book is usable without the suite";
    QFile::rename(suite + u'x', suite);
    transmet("NEUF", 8);
    joue(f, q("Text3=02;Text4=avant"));
    reactive();
    EXPECT_EQ(texte(f, "Text1") + texte(f, "Text3") + texte(f, "Text4") + texte(f, "txtNumPatient"),
              u"NEUF8");
    EXPECT_EQ(controle<QLineEdit>(f, q("Text4")).palette().color(QPalette::Text), QColor(Qt::red))
        << "he is flagged";
    joue(f, q(">BtnInit"));
    EXPECT_EQ(texte(f, "txtNumPatient"), QString());
    joue(f, q("Text1=B"));
    reactive();
    EXPECT_EQ(texte(f, "Text1"), u"B");
    EXPECT_NE(controle<QLineEdit>(f, q("Text1")).palette().color(QPalette::Text), QColor(Qt::red));
    controle<QCheckBox>(f, q("Check1")).click();
    EXPECT_FALSE(controle<QLineEdit>(f, q("Text1")).isEnabled());
}

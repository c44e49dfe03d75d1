#include "Lignes.h"
#include "booking/ActionsRDV.h"
#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmJourMois.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "booking/ReservationTables.h"
#include "platform/ui/ChampDate.h"
#include "platform/ui/UpDown.h"
#include "schedule/TrancheHoraire.h"
#include "support/CabinetDEssai.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QThreadPool>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

template <typename T>
T &enfant(const QWidget &dans, const char *nom) {
    return *dans.findChild<T *>(q(nom));
}
QLineEdit &champ(const QWidget &f, const char *nom) {
    return enfant<QLineEdit>(f, nom);
}
QString texte(const QWidget &f, const char *nom) {
    return champ(f, nom).text();
}
/// Pastes over what the field says, and leaves it.
void tape(const QWidget &f, const char *nom, const char *texte) {
    champ(f, nom).selectAll();
    QTest::keyClick(&champ(f, nom), Qt::Key_Delete);
    QGuiApplication::clipboard()->setText(q(texte));
    champ(f, nom).paste();
    emit champ(f, nom).editingFinished();
}
void presse(const QWidget &f, const char *bouton) {
    enfant<QPushButton>(f, bouton).click();
}
/// Gestures: "Text1=ROUX" types, "+zola" walks to the first patient of that name, "!zola" picks him,
/// ">BtnInit" presses.
void joue(const QWidget &f, const char *gestes) {
    for (const QString &geste : q(gestes).split(u';', Qt::SkipEmptyParts)) {
        const QByteArray reste = geste.mid(1).toUtf8();
        if (geste[0] == u'>') {
            presse(f, reste.constData());
            EXPECT_TRUE(reste != "BtnInit" || texte(f, "txtNumPatient").toInt() == 0);
        } else if (geste[0] == u'+' || geste[0] == u'!') {
            champ(f, "TxtPatient").setText(q(reste));
            QTest::keyClick(&champ(f, "TxtPatient"), Qt::Key_Down);
            if (geste[0] == u'!') {
                QTest::keyClick(&champ(f, "TxtPatient"), Qt::Key_Return);
            }
        } else {
            tape(f, geste.section(u'=', 0, 0).toUtf8().constData(),
                 geste.section(u'=', 1).toUtf8().constData());
        }
    }
}
/// Works in the modal window of that kind as soon as it is there.
template <typename T>
void dans(const std::function<void(T &)> &travail) {
    auto *guet = new QTimer(qApp);
    QObject::connect(guet, &QTimer::timeout, guet, [guet, travail] {
        if (auto *fenetre = qobject_cast<T *>(QApplication::activeModalWidget())) {
            guet->stop();
            guet->deleteLater();
            travail(*fenetre);
        }
    });
    guet->start(0);
}

/// Wednesday 10:00 to 10:30, chair 1, on an empty book; two patients, the second one flagged.
class FenetresRDV : public testing::Test {
  protected:
    FenetresRDV() {
        execute(SqlText("delete from RDV"));
        cabinet.ouvre(Base::PatientTransmis).execute(SqlText("delete from LePatient"));
        Database patients = cabinet.ouvre(Base::Patients);
        patients.execute(SqlText("update TabPat set nom = 'ZOLA', PreNom = 'Eva' where cptid = 7"));
        patients.execute(SqlText("update TabPat set nom = 'ZYSMAN', PreNom = 'Luc', RDVNonHonoré = 'O' "
                                 "where cptid = 8"));
    }
    ~FenetresRDV() override { QThreadPool::globalInstance()->waitForDone(); } // an index may be on its way
    void execute(const SqlText &sql) { cabinet.ouvre(Base::RendezVous).execute(sql); }
    void transmet(const QString &nom, qint64 numero) {
        Database suite = cabinet.ouvre(Base::PatientTransmis);
        suite.execute(SqlText("delete from LePatient"));
        suite.insert(q("LePatient"),
                     {{q("NomPatient"), nom}, {q("PrenomPatient"), q("Ana")}, {q("NumPatient"), numero}});
    }
    /// ROUX Léa at 9:00 on chair 1, in each field something of its own.
    RendezVous reserve(const QString &nom = q("ROUX"), QTime debut = QTime(9, 0)) {
        Database base = cabinet.ouvre(Base::RendezVous);
        const auto ref = AjouteRDV(base, {{nom, q("Léa"), q("02 97"), q("contrôle"), q("12"), place.jour,
                                           debut, debut.addSecs(1800)},
                                          place.PraticienCourant,
                                          place.FauteuilCourant});
        return *LitRDV(base, ref.value_or(0));
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
    const QString fin = q("|2026-03-11|10:00:00|10:30:00|20260311|01|1|1|0");
    struct {
        const char *gestes, *champs;
    } const cas[] = {{"", "SUITE|Ana||Bilan (TO 15)|99"},
                     {"Text4=L'examen \"1\"", "SUITE|Ana||L'examen \"1\"|99"},
                     {"Text1=ROUX;Text3=02", "ROUX|Ana|02||0"},
                     {"Text2=", "SUITE||||0"},
                     {">BtnInit;Text1=ROUX", "ROUX||||0"},
                     {"+zola", "ZOLA|Eva|||7"},
                     {"+zola;Text2=Eve", "ZOLA|Eve|||0"},
                     {"+zola;>BtnInit;Text1=B", "B||||0"},
                     {"!zola", "ZOLA|Eva|||7"},
                     {"Text3=0123456789 0123456789 0", "SUITE|Ana|0123456789 012345678|Bilan (TO 15)|99"}};
    transmet(q("SUITE"), 99);
    for (const auto &c : cas) {
        FrmAjouter f(env, place);
        f.show();
        joue(f, c.gestes);
        EXPECT_EQ(f.isVisible(), c.gestes[0] != '!') << "a pick books at once";
        if (f.isVisible()) {
            presse(f, "BtnAjouter");
        }
        EXPECT_EQ(livre(), q(c.champs) + fin) << c.gestes;
        Database base = cabinet.ouvre(Base::RendezVous);
        EXPECT_EQ(LitRDV(base, f.rdvEcrit().RefRDV), f.rdvEcrit()) << c.gestes;
        execute(SqlText("delete from RDV"));
    }
    EXPECT_EQ(titres(), QStringList());
}

TEST_F(FenetresRDV, EditingRewritesWhatWasTouched) {
    const QString jour = q("|2026-03-11|09:00:00|09:30:00|20260311");
    const QString long60(60, u'X'); // wider than its column
    struct {
        const char *gestes;
        QString champs, quand;
    } const cas[] = {{"", long60 + q("|Léa|02 97|a\nb|12"), jour},
                     {"Text3=03", long60 + q("|Léa|03|a\nb|12"), jour},
                     {"Text4=x\ty", long60 + q("|Léa|02 97|x y|12"), jour},
                     {"Text1=DUR", q("DUR|Léa|02 97|a\nb|0"), jour},
                     {"txtNumPatient=42", long60 + q("|Léa|02 97|a\nb|42"), jour},
                     {"!zysman", q("ZYSMAN|Luc|02 97|a\nb|8"), jour},
                     {"+zola;Text1=ZOL", q("ZOL|Eva|02 97|a\nb|0"), jour},
                     {">BtnInit;Text1=A", q("A||||0"), jour},
                     {"DTPicker1=2/12/26;TextHeureDebut=9h15;TextHeureFin=945",
                      long60 + q("|Léa|02 97|a\nb|12"), q("|2026-12-02|09:15:00|09:45:00|20261202")}};
    for (const auto &c : cas) {
        const qint64 ref = reserve().RefRDV;
        execute(SqlText("update RDV set Present = 1, Professionnel = 0, Description = 'a\nb', Nom = ")
                << ::texte(long60));
        Database base = cabinet.ouvre(Base::RendezVous);
        FrmEditer f(env, *LitRDV(base, ref), place, nullptr);
        const QString avant = livre();
        joue(f, c.gestes);
        EXPECT_EQ(texte(f, "txtNumPatient"), c.champs.section(u'|', -1)) << c.gestes;
        EXPECT_EQ(LitDate(texte(f, "DTPicker1")), QDate::fromString(c.quand.mid(1, 10), Qt::ISODate));
        EXPECT_GT(texte(f, "DTPicker1").size(), 15) << "in full";
        EXPECT_EQ(texte(f, "TextHeureFin"), c.quand.mid(21, 5));
        EXPECT_EQ(livre(), avant) << c.gestes << ": not before the button";
        presse(f, "BtnMettreAJour");
        EXPECT_EQ(livre(), c.champs + c.quand + q("|01|1|0|1")) << c.gestes;
        EXPECT_EQ(LitRDV(base, ref), f.rdvEcrit()) << c.gestes;
        execute(SqlText("delete from RDV"));
    }
    EXPECT_EQ(titres(), QStringList()) << "a flagged patient is no alert here";
}

TEST_F(FenetresRDV, WhatCannotBeBookedIsToldAndKept) {
    struct {
        const char *champ, *saisie, *titre, *focus;
    } const cas[] = {{"Text1", "  ", "Erreur de case vide", "Text1"},
                     {"DTPicker1", "31/02/2026", "Erreur !", "DTPicker1"},
                     {"TextHeureDebut", "24:00", "Erreur !", "TextHeureDebut"},
                     {"TextHeureFin", "8", "Erreur !", "TextHeureFin"},
                     {"TextHeureFin", "08:59", "Erreur !", "TextHeureFin"},
                     {"txtNumPatient", "abc", "Erreur !", "txtNumPatient"},
                     {"txtNumPatient", "9999999999", "Erreur !", "txtNumPatient"},
                     {"TextHeureFin", "9:31", "Message", nullptr}};
    const RendezVous rdv = reserve();
    reserve(q("B"), QTime(9, 30));
    const QString avant = livre();
    for (const auto &c : cas) {
        FrmEditer f(env, rdv, place, nullptr);
        f.show();
        tape(f, c.champ, c.saisie);
        presse(f, "BtnMettreAJour");
        EXPECT_EQ(titres(), QStringList(q(c.titre))) << c.champ << c.saisie;
        EXPECT_EQ(livre(), avant);
        EXPECT_TRUE(f.isVisible());
        if (c.focus != nullptr) {
            EXPECT_EQ(texte(f, c.champ).trimmed(), q(c.saisie).trimmed());
            EXPECT_EQ(f.focusWidget()->objectName(), q(c.focus)) << c.saisie;
        }
    }
    place.horaire = {QTime(9, 15), QTime(9, 45)};
    FrmAjouter f(env, place);
    f.show();
    joue(f, "Text1=C;>BtnAjouter");
    *env.lectureSeule = q("Le carnet est en lecture seule.");
    joue(f, "TextHeureDebut=15h;TextHeureFin=16h;>BtnAjouter");
    EXPECT_TRUE(cabinet.messages.shown.value(1).text.contains(*env.lectureSeule));
    EXPECT_EQ(titres(), (QStringList{q("Horaire occupé"), q("Erreur")}));
    EXPECT_EQ(texte(f, "Text1"), u"C");
    EXPECT_EQ(livre(), avant);
}

TEST_F(FenetresRDV, TheArrowsMoveWhatTheyStandBeside) {
    struct {
        const char *fleche, *bouton, *horaire;
    } const cas[] = {{"UpDown1", "Augmenter", "10:15 10:30"}, {"UpDown1", "Diminuer", "09:45 10:30"},
                     {"UpDown2", "Augmenter", "10:00 10:45"}, {"UpDown2", "Diminuer", "10:00 10:15"},
                     {"UpDown3", "Augmenter", "10:15 10:45"}, {"UpDown3", "Diminuer", "09:45 10:15"}};
    for (const auto &c : cas) {
        FrmAjouter f(env, place);
        enfant<QToolButton>(enfant<UpDown>(f, c.fleche), c.bouton).click();
        EXPECT_EQ(texte(f, "TextHeureDebut") + u' ' + texte(f, "TextHeureFin"), q(c.horaire)) << c.fleche;
    }
}

TEST_F(FenetresRDV, WhatAnotherDeskDidIsToldAndNeverWrittenOver) {
    const RendezVous rdv = reserve();
    actions.marquePresent(rdv, true);
    actions.marquePresent(rdv, true); // another desk, on what it still shows
    EXPECT_TRUE(livre().endsWith(u"|1")) << "Present is set, not turned over";
    FrmEditer f(env, rdv, place, nullptr);
    f.show();
    tape(f, "Text4", "x");
    execute(SqlText("update RDV set HeureDebut = '11:00:00', HeureFin = '11:30:00', Telephone = '09'"));
    const QString avant = livre();
    presse(f, "BtnMettreAJour");
    EXPECT_EQ(cabinet.messages.shown.value(0).text,
              q("Ce rendez-vous a été modifié sur un autre poste.\n\nVous aviez : mercredi 11 mars "
                "2026 de 09:00 à 09:30, ROUX Léa, tél. 02 97, non présent.\nIl est maintenant : "
                "mercredi 11 mars 2026 de 11:00 à 11:30, ROUX Léa, tél. 09, présent.\n\n"
                "Rien n'a été enregistré."));
    actions.marquePresent(rdv, false);
    dans<FrmSupprimer>([](FrmSupprimer &s) { presse(s, "BtnOK"); });
    actions.supprime(rdv, place);
    EXPECT_EQ(titres(), QStringList(3, q("Rendez-vous modifié")));
    EXPECT_EQ(dernier().HeureDebut, QTime(11, 0)) << "the window is to be drawn again";
    EXPECT_EQ(livre(), avant);
    presse(f, "BtnMettreAJour"); // now on the appointment as it is
    EXPECT_EQ(livre(), q("ROUX|Léa|02 97|x|12|2026-03-11|09:00:00|09:30:00|20260311|01|1|1|1"));

    execute(SqlText("delete from RDV"));
    signale.clear();
    FrmEditer ouverte(env, rdv, place, nullptr);
    presse(ouverte, "BtnMettreAJour");
    EXPECT_EQ(ouverte.rdvEcrit(), RendezVous());
    actions.edite(rdv, place);
    actions.marquePresent(rdv, true);
    dans<FrmSupprimer>([](FrmSupprimer &s) { presse(s, "BtnOK"); });
    actions.supprime(rdv, place);
    EXPECT_EQ(titres(), (QStringList{q("Erreur !"), q("Erreur !"), {}, q("Rendez-vous déjà supprimé")}));
    EXPECT_EQ(signale.count(), 3);
    EXPECT_EQ(dernier(), RendezVous());
}

TEST_F(FenetresRDV, ActionsOpenTheirWindowsAndSayWhatWasWritten) {
    place.ChoixHoraire = 2;
    for (const char *choix : {"Option1", "Option2"}) {
        dans<FrmQuelHoraire>([choix](FrmQuelHoraire &f) {
            enfant<QRadioButton>(f, choix).click();
            presse(f, "BtnOK");
        });
        dans<FrmAjouter>([](FrmAjouter &f) { joue(f, "Text1=B;>BtnAjouter"); });
        actions.ajoute(place);
        place.horaire = {QTime(11, 0), QTime(11, 30)};
    }
    EXPECT_EQ(livre(), q("B||||0|2026-03-11|10:00:00|10:30:00|20260311|01|1|1|0\n"
                         "B||||0|2026-03-11|11:00:00|11:30:00|20260311|01|1|0|0"));
    const RendezVous rdv = dernier();
    EXPECT_EQ(rdv.HeureDebut, QTime(11, 0));
    signale.clear();
    const QString avant = livre();
    dans<FrmEditer>([](FrmEditer &f) { joue(f, "!zola;>BtnAnnuler"); });
    actions.edite(rdv, place);
    EXPECT_EQ(signale.count(), 0) << "Annuler leaves nothing behind";
    EXPECT_EQ(livre(), avant);
    dans<FrmEditer>([](FrmEditer &f) {
        EXPECT_EQ(texte(f, "Text1"), u"C");
        presse(f, "BtnAnnuler");
    });
    execute(SqlText("update RDV set Nom = 'C' where HeureDebut = '11:00:00'"));
    actions.edite(rdv, place);
    EXPECT_EQ(signale.count(), 1) << "the window showed another name";
    EXPECT_EQ(dernier(), RendezVous()) << "which is to be read, and was not stored here";
    dans<FrmSupprimer>([](FrmSupprimer &f) {
        EXPECT_EQ(enfant<QLabel>(f, "Label17").text() + enfant<QLabel>(f, "Label13").text(),
                  q("mercredi 11 mars 202610:00"));
        presse(f, "BtnOK");
    });
    Database base = cabinet.ouvre(Base::RendezVous);
    actions.supprime(*LitRDV(base, rdv.RefRDV - 1), place);
    EXPECT_TRUE(livre().startsWith(u"C|"));
}

TEST_F(FenetresRDV, TheKeyboardGoesWhereTheEyeGoes) {
    const RendezVous rdv = reserve(QString(5000, u'X'));
    struct {
        std::unique_ptr<QDialog> fenetre;
        const char *ordre;
    } cas[] = {
        {std::make_unique<FrmAjouter>(env, place),
         "Text1 Text2 Text3 Text4 BtnInit Check1 NouveauPatient PlusDeDesciption BtnAjouter BtnAnnuler"},
        {std::make_unique<FrmEditer>(env, rdv, place, nullptr),
         "Text1 Text2 Text3 Text4 txtNumPatient BtnInit BtnMettreAJour BtnAnnuler"}};
    for (auto &[f, ordre] : cas) {
        const QString attendu =
            q("TxtPatient TxtPatient1 Grille1 DTPicker1 TextHeureDebut TextHeureFin ") + q(ordre);
        f->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(f.get()));
        champ(*f, "TxtPatient").setText(q("z"));
        QStringList vus;
        for (qsizetype i = attendu.count(u' '); i >= 0; --i) {
            vus << f->focusWidget()->objectName();
            QTest::keyClick(f->focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(vus.join(u' '), attendu);
        enfant<QTableView>(*f, "Grille1").setFocus();
        QTest::keyClick(f->focusWidget(), Qt::Key_Return); // on a row that nobody chose
        EXPECT_TRUE(f->isVisible());
        EXPECT_EQ(titres(), QStringList());
    }
    const QString avant = livre();
    for (QDialog *f : std::initializer_list<QDialog *>{
             cas[0].fenetre.get(), cas[1].fenetre.get(), new FrmSupprimer(env, rdv, place, &*cas[0].fenetre),
             new FrmQuelHoraire(&*cas[0].fenetre), new FrmJourMois(place.jour, &*cas[0].fenetre)}) {
        f->show();
        EXPECT_LT(f->width(), 1000) << qPrintable(f->objectName());
        QTest::keyClick(f->focusWidget() != nullptr ? f->focusWidget() : f, Qt::Key_Escape);
        EXPECT_FALSE(f->isVisible()) << qPrintable(f->objectName());
    }
    EXPECT_EQ(livre(), avant);
}

TEST_F(FenetresRDV, ADoubleClickBooksOnceAndReachesNothingElse) {
    QPushButton dessous; // the window under the list
    dessous.setGeometry(0, 0, 800, 600);
    QSignalSpy presses(&dessous, &QPushButton::pressed);
    dessous.show();
    FrmAjouter f(env, place);
    f.show();
    champ(f, "TxtPatient").setText(q("zysman"));
    auto &grille = enfant<QTableView>(f, "Grille1");
    const QPoint ou = grille.visualRect(grille.model()->index(0, 0)).center();
    const QPoint ecran = grille.viewport()->mapToGlobal(ou);
    QTest::mouseClick(grille.viewport(), Qt::LeftButton, {}, ou);
    QTest::mousePress(&dessous, Qt::LeftButton, {}, dessous.mapFromGlobal(ecran));
    EXPECT_EQ(presses.count(), 0);
    EXPECT_EQ(livre().count(u"ZYSMAN"), 1);
    EXPECT_EQ(titres(), QStringList(q("MESSAGE ALERTE")));
    EXPECT_EQ(champ(f, "Text1").palette().color(QPalette::Text), QColor(Qt::red));
    EXPECT_TRUE(waitUntil([&] {
        QTest::mouseClick(&dessous, Qt::LeftButton, {}, dessous.mapFromGlobal(ecran));
        return presses.count() > 0;
    })) << "a later click is a click";
}

TEST_F(FenetresRDV, ComingBackRefillsOnlyForAnotherPatient) {
    QFile::rename(cabinet.fichier(Base::PatientTransmis), cabinet.fichier(Base::PatientTransmis) + u'x');
    FrmAjouter f(env, place);
    const auto reactive = [&] {
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&f, &activation);
    };
    reactive();
    EXPECT_EQ(titres(), QStringList(q("Erreur"))) << "told once: the book is usable without the suite";
    QFile::rename(cabinet.fichier(Base::PatientTransmis) + u'x', cabinet.fichier(Base::PatientTransmis));
    transmet(q("NEUF"), 8);
    tape(f, "Text4", "avant");
    reactive();
    EXPECT_EQ(texte(f, "Text1") + texte(f, "Text4") + texte(f, "txtNumPatient"), q("NEUF8"));
    EXPECT_EQ(champ(f, "Text4").palette().color(QPalette::Text), QColor(Qt::red)) << "he is flagged";
    tape(f, "Text1", "B");
    reactive();
    EXPECT_EQ(texte(f, "Text1") + texte(f, "txtNumPatient"), u"B");
    EXPECT_NE(champ(f, "Text1").palette().color(QPalette::Text), QColor(Qt::red));
    enfant<QCheckBox>(f, "Check1").click();
    EXPECT_TRUE(enfant<QPushButton>(f, "BtnPatient").isEnabled());
    EXPECT_FALSE(champ(f, "Text1").isEnabled());
}

TEST_F(FenetresRDV, ADayIsPickedWithTheKeys) {
    FrmAjouter f(env, place);
    f.show();
    auto &jour = enfant<ChampDate>(f, "DTPicker1");
    QTest::keyClick(&jour, Qt::Key_Up);
    EXPECT_EQ(jour.text(), q("jeudi 12 mars 2026"));
    QTest::keyClick(&jour, Qt::Key_Down);
    for (const bool pris : {false, true}) {
        QTest::keyClick(&jour, Qt::Key_Down, Qt::AltModifier);
        auto *calendrier = qobject_cast<QCalendarWidget *>(QApplication::activePopupWidget());
        ASSERT_NE(calendrier, nullptr);
        EXPECT_EQ(calendrier->selectedDate(), place.jour);
        QTest::keyClick(calendrier->focusWidget(), Qt::Key_Right);
        QTest::keyClick(calendrier->focusWidget(), pris ? Qt::Key_Return : Qt::Key_Escape);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(jour.date(), place.jour.addDays(pris ? 1 : 0));
        EXPECT_TRUE(f.isVisible());
    }
}

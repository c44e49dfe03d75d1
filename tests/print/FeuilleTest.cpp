#include "platform/db/DbError.h"
#include "platform/printing/PrintPreview.h"
#include "platform/ui/ChampDate.h"
#include "print/FeuilleTables.h"
#include "print/FrmDateImpression.h"
#include "print/RapportJour.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"
#include "support/Livre.h"
#include "support/RecordingWord.h"

#include <QApplication>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

QTime heure(const QString &texte) {
    return QTime::fromString(texte, q("HH:mm"));
}
FeuilleJour feuille(const QString &debut, const QString &fin, int pas, const QList<RendezVous> &rdvs = {}) {
    Configuration config;
    config.HeureMatDebut = heure(debut);
    config.HeurePMFin = heure(fin);
    config.Intervalle = pas;
    return ComposeFeuille(config, rdvs);
}
/// "09:00-10:00 A, 10:00-10:15 B"; the description is the name in small letters.
QList<RendezVous> rdvs(const QString &texte) {
    QList<RendezVous> liste;
    for (const QString &mot : texte.split(q(", "), Qt::SkipEmptyParts)) {
        RendezVous &rdv = liste.emplaceBack();
        rdv.Nom = mot.section(u' ', 1);
        rdv.Description = rdv.Nom.toLower();
        rdv.HeureDebut = heure(mot.section(u' ', 0, 0).section(u'-', 0, 0));
        rdv.HeureFin = heure(mot.section(u' ', 0, 0).section(u'-', 1));
    }
    return liste;
}
/// Hour, name and description of each slot of the left column, then of the right one.
QStringList creneaux(const QList<LigneFeuille> &lignes) {
    QStringList gauche;
    QStringList droite;
    for (const LigneFeuille &l : lignes) {
        gauche << l.Heure + u' ' + l.NomPatient + l.PrenomPatient;
        droite << l.HeurePM + u' ' + l.NomPatientPM + l.PrenomPatientPM;
    }
    return (gauche + droite).replaceInStrings(q("''  ''  ''  ''"), q("\""));
}
/// The same by texts alone: "hh:nn" is what is advanced, compared and looked up.
QStringList parTextes(const QString &debut, const QString &fin, int pas, const QList<RendezVous> &rdvs) {
    const auto plus = [&](const QString &t, int fois) {
        const int minute = t.left(2).toInt() * 60 + t.right(2).toInt() + fois * pas;
        return q("%1:%2").arg(minute / 60, 2, 10, QChar(u'0')).arg(minute % 60, 2, 10, QChar(u'0'));
    };
    const int lignes = qRound(heure(debut).secsTo(heure(fin)) / 60.0 / pas) / 2 + 1;
    QMap<QString, QStringList> sur; // by hour
    for (const RendezVous &r : rdvs) {
        for (QString t = r.HeureDebut.toString(q("HH:mm")); t < r.HeureFin.toString(q("HH:mm"));
             t = plus(t, 1)) {
            sur[t] = {r.Nom + u' ', r.Description};
        }
    }
    QStringList textes;
    for (int i = 0; i < 2 * lignes; ++i) {
        const QString t = plus(debut, i);
        const QStringList ici = i < lignes || t <= fin ? sur.value(t) : QStringList();
        const bool idem = i % lignes > 0 && !ici.isEmpty() && ici[0] == sur.value(plus(t, -1)).value(0);
        textes << (i < lignes || t <= fin ? t : QString()) + u' ' + (idem ? q("\"") : ici.value(0)) +
                      ici.value(1);
    }
    return textes;
}

} // namespace

TEST(FeuilleJour, Slots) {
    // lines; last left, first and last right hour; right hours that are missing
    for (const QStringList &cas : tableau(R"(
        08:00|18:00|30 | 11|13:00|13:30|18:00|1
        08:00|12:15|15 |  9|10:00|10:15|12:15|0
        08:00|12:25|15 | 10|10:15|10:30|12:15|2
        08:00|18:00|7  | 44|13:01|13:08|17:55|2
        08:00|18:00|50 |  7|13:00|13:50|18:00|1
        20:00|23:59|15 |  9|22:00|22:15|23:45|2)")) {
        QStringList heures = creneaux(feuille(cas[0], cas[1], cas[2].toInt()).lignes);
        const auto lignes = heures.size() / 2;
        const auto vides = heures.removeAll(q(" "));
        const QString vu =
            q("%1|%2|%3|%4|%5").arg(lignes).arg(heures[lignes - 1], heures[lignes], heures.last());
        EXPECT_EQ(vu.arg(vides).remove(u' '), cas.sliced(3).join(u'|'));
    }
    for (const auto &[fin, pas] : {std::pair("18:00", 0), {"18:00", -15}, {"07:00", 15}, {"", 15}}) {
        const FeuilleJour sans = feuille(q("08:00"), q(fin), pas, rdvs(q("09:00-10:00 A")));
        EXPECT_TRUE(sans.lignes.isEmpty() && !sans.empechement.isEmpty()) << fin << pas;
    }
}

TEST(FeuilleJour, Appointments) {
    // 08:00 to 18:00 by 15 minutes, the right column from 13:15: what the sheet shows, what it does not
    for (const QStringList &cas : tableau(R"(
        09:00-10:00 A                | 09:00 A a, 09:15 "a, 09:30 "a, 09:45 "a |
        09:00-09:15 A, 09:15-09:30 A | 09:00 A a, 09:15 "a                     |
        09:00-09:15 A, 09:30-09:45 A | 09:00 A a, 09:30 A a                    |
        12:45-13:45 A                | 12:45 A a, 13:00 "a, 13:15 A a, 13:30 "a|
        07:30-08:30 A                | 08:00 A a, 08:15 "a                     |
        08:00-08:20 A, 08:20-08:40 B | 08:00 A a, 08:15 "a                     | B
        09:10-09:40 A                |                                         | A
        17:30-23:59 A                | 17:30 A a, 17:45 "a, 18:00 "a           |
        17:30-00:00 A, 09:00-09:00 B |                                         | AB
        -09:00 A, 09:00- B           |                                         | AB
        09:00-09:30 A, 09:00-09:15 B | 09:00 B b, 09:15 A a                    | A
        09:00-09:30 A, 09:15-09:45 B | 09:00 A a, 09:15 B b, 09:30 "b          |)")) {
        const FeuilleJour jour = feuille(q("08:00"), q("18:00"), 15, rdvs(cas[0]));
        const QStringList pleins = creneaux(jour.lignes).filter(QRegularExpression(q("\\w$")));
        EXPECT_EQ(pleins.join(q(", ")), cas[1]) << cas[0];
        EXPECT_EQ(TexteSansLigne(jour.sansLigne).remove(QRegularExpression(q("^.*\n|,.*|\n"))), cas[2])
            << cas[0];
    }
    EXPECT_EQ(TexteSansLigne(rdvs(q("09:10-09:40 A, -10:00 B"))),
              q("2 rendez-vous ne tiennent pas sur la grille :\nA, de 09:10 à 09:40\nB, de ? à 10:00"));
    EXPECT_TRUE(TexteSansLigne(QList<RendezVous>(11)).endsWith(q("\n…")));
}

TEST(FeuilleJour, RandomDaysAgreeWithTexts) {
    srand(7);
    const auto entre = [](int de, int a) { return de + rand() % (a - de + 1); };
    const auto minute = [](int m) { return QTime(0, 0).addSecs(60 * qMin(m, 1439)).toString(q("HH:mm")); };
    for (int jour = 0; jour < 200; ++jour) {
        const int pas = QList{5, 7, 10, 15, 20, 30, 50}[entre(0, 6)];
        const QString debut = minute(entre(0, 100) * 5);
        const QString fin = minute(entre(110, 300) * 5);
        QStringList textes;
        for (int i = entre(0, 40); i > 0; --i) {
            const int de = entre(60, 285) * 5;
            textes << minute(de) + u'-' + minute(de + entre(0, 24) * 5) + u' ' + QChar(u'A' + entre(0, 2));
        }
        const QList<RendezVous> liste = rdvs(textes.join(q(", ")));
        ASSERT_EQ(creneaux(feuille(debut, fin, pas, liste).lignes), parTextes(debut, fin, pas, liste));
    }
}

TEST(RapportJour, EveryLineOnceOnSheetsWithTheirHeader) {
    const auto pages = RapportJour(feuille(q("08:00"), q("18:00"), 5).lignes, q("docteur"), q("lundi"));
    ASSERT_EQ(pages.size(), 2);
    QStringList heures;
    for (int p = 0; p < pages.size(); ++p) {
        for (const Page::Text &texte : pages[p].texts) {
            EXPECT_TRUE(texte.roomWidth > 0 && texte.topLeft.x() + texte.roomWidth < 11000) << texte.text;
            heures << texte.text;
        }
        for (const QString &texte : {titreRapport, q("docteur"), q("lundi"), q("Page %1 sur 2").arg(p + 1)}) {
            EXPECT_EQ(heures.removeAll(texte), 1) << texte;
        }
    }
    EXPECT_TRUE(heures.size() == 121 && heures.removeDuplicates() == 0);
}

namespace {

/// Practitioner 1 on Wednesday 2026-03-11, chair 1 from 8 to 18 by 30 minutes, chair 2; and the last sheet.
class FeuilleTest : public testing::Test {
  protected:
    FeuilleTest() {
        env.traitementDeTexte = [this] { return std::make_unique<RecordingWord>(word); };
        env.imprimante = [this](const QList<Page> &pages, const QString &) {
            imprimees = pages;
            return PrintResult{PrintResult::Outcome::Printed, {}};
        };
        livre.config({.intervalle = 30});
        livre.config({.nom = "Cabinet2", .fauteuil = 2});
        livre.rdv({.nom = "  LE NOM D'UN PATIENT BIEN TROP LONG", .fauteuil = 2});
        livre.rdv({.nom = "HORS", .debut = "09:10:00", .fin = "09:40:00"});
        livre.rdv({.nom = "AUTRE", .debut = "11:00:00", .fin = "11:30:00", .praticien = "02"});
        livre.execute(SqlText("insert into Impression (Heure, NomPatient) values ('07:00', 'ANCIEN')"));
        cabinet.ouvre(Base::Parametres).execute(SqlText("update Praticien set Word = 1"));
    }
    /// How many rows the table has, and who is in its third.
    QString impression() const {
        const Records rows = livre.ouvre().query(SqlText("Select NomPatient from Impression"));
        return q("%1 %2").arg(rows.count()).arg(rows.count() > 2 ? rows.at(2, 0).toText() : QString());
    }

    CabinetDEssai cabinet;
    Environnement env{cabinet.environnement()};
    Livre livre{cabinet.fichier(Base::RendezVous)};
    std::shared_ptr<WordRecord> word = std::make_shared<WordRecord>();
    QList<Page> imprimees;
};

} // namespace

TEST_F(FeuilleTest, TheTableIsFilledWholeOrLeftAsItWas) {
    const QDate jour(2026, 3, 11);
    Database base = livre.ouvre();
    EXPECT_EQ(RemplitImpression(base, 1, 1, jour).lignes.size(), 11);
    EXPECT_EQ(impression(), q("11   LE NOM D'UN PATIENT BIEN TROP LONG "));
    livre.execute(SqlText("alter table Impression drop column PrenomPatientPM"));
    EXPECT_THROW(RemplitImpression(base, 1, 1, jour.addDays(1)), DbError);
    EXPECT_EQ(impression(), q("11   LE NOM D'UN PATIENT BIEN TROP LONG "));
    EXPECT_FALSE(RemplitImpression(base, 1, 3, jour).empechement.isEmpty()) << "no such chair";
    EXPECT_EQ(impression(), q("0 "));
}

TEST_F(FeuilleTest, TheDayIsChosenAndPrintedByTheWordProcessor) {
    FrmDateImpression fenetre(env, 1, 1, q("docteur L'HERMITE"));
    fenetre.show();
    EXPECT_EQ(texte(fenetre, "DateJour"), q("11/03/2026"));
    for (const QStringList &cas : tableau(R"(
        DateJour=31/12/2005;>Plus               | 01/01/2006
        DateJour=01/03/2004;>Moins              | 29/02/2004
        DateJour=1/3/26                         | 01/03/2026
        DateJour=;>Plus;>Moins;>CmdImprimer     |
        DateJour=31/02/2005;>Plus;>CmdImprimer  | 31/02/2005)")) {
        joue(fenetre, cas[0]);
        EXPECT_EQ(texte(fenetre, "DateJour"), cas[1]);
    }
    const QString pasValide = q("Erreur !: ") + ChampDate::complaint();
    EXPECT_EQ(cabinet.messages.taken(), pasValide + u'\n' + pasValide);
    EXPECT_EQ(impression(), q("1 "));
    word->failing = 0;
    joue(fenetre, q("DateJour=11/03/2026;>CmdImprimer"));
    EXPECT_TRUE(fenetre.isVisible()) << "with the user's day";
    EXPECT_EQ(cabinet.messages.taken(), q("Erreur: Le traitement de texte s'est arrêté."));
    cabinet.maintenant = QDateTime(QDate(2026, 4, 1), QTime(9, 5, 7));
    joue(fenetre, q(">CmdImprimer"));
    EXPECT_FALSE(fenetre.isVisible());
    word::Verbs fait = word->performed.value(1);
    ASSERT_EQ(fait.size(), 9);
    const QString racine = cabinet.dossier() + q("/Donnees");
    EXPECT_EQ(std::get<word::Reserve>(fait.takeAt(1)).paths[0],
              racine + q("/Word/ImpTavelin01042026090507.doc"));
    const auto cellules = std::get<word::Cells>(fait.takeAt(2)).texts;
    EXPECT_EQ(cellules.size(), 66);
    EXPECT_EQ(cellules[13], q("LE NOM D'UN PATIENT BIEN TR"));
    EXPECT_EQ(fait,
              (word::Verbs{word::Open{racine + q("/Documents/ImpTavelin.doc")}, word::Select{q("DebTableau")},
                           word::TypeIfAny{q("NomDocteur"), q("docteur L'HERMITE")},
                           word::TypeIfAny{q("DateJourImprimé"), q("mercredi 11 mars 2026")}, word::Save{},
                           word::Print{}, word::Close{}}));
    EXPECT_EQ(cabinet.messages.taken(),
              q(": 1 rendez-vous ne tient pas sur la grille : HORS, de 09:10 à 09:40"));
}

TEST_F(FeuilleTest, TheReportIsShownAndPrintedWithoutTheWordProcessor) {
    cabinet.ouvre(Base::Parametres).execute(SqlText("update Praticien set Word = 0"));
    FrmDateImpression fenetre(env, 1, 1, q("docteur"));
    fenetre.show();
    QTimer::singleShot(0, qApp, [&] {
        QWidget *apercu = QApplication::activeModalWidget();
        EXPECT_EQ(apercu->windowTitle(), titreRapport);
        EXPECT_TRUE(!fenetre.isVisible() && cabinet.messages.shown.isEmpty()) << "not before the report";
        controle<QAbstractButton>(*apercu, q("Imprimer")).click();
        apercu->close();
    });
    joue(fenetre, q(">CmdImprimer"));
    EXPECT_TRUE(imprimees.size() == 1 && word->started == 0);
    EXPECT_EQ(cabinet.messages.shown.size(), 1);
}

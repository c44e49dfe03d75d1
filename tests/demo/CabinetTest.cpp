#include "Cabinet.h"
#include "Images.h"
#include "PatientsDemo.h"
#include "platform/db/Database.h"
#include "platform/db/DbError.h"

#include <QDir>
#include <QImage>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QDate mercredi(2025, 3, 12);

OptionsCabinet petit(quint32 graine = 1) {
    return {.graine = graine, .patients = 200, .annees = 1, .rdv = -1, .aujourdhui = mercredi};
}

QString fichier(const QString &dossier, const char *chemin) {
    return dossier + u'/' + QString::fromUtf8(chemin);
}

Records lis(const QString &dossier, const char *chemin, const SqlText &sql) {
    return Database::open(fichier(dossier, chemin)).query(sql);
}

Records lisCarnet(const QString &dossier, const SqlText &sql) {
    return lis(dossier, "Base/Fichiers/Tavelin.mdb", sql);
}

/// Every table of the practice, where the program looks for it and with the fields that it reads or writes.
struct Table {
    const char *fichier;
    SqlLiteral lecture;
    const char *champs;
};
const Table tables[] = {
    {"CheminBelmor.mdb", "Select * from Chemin", "LeChemin CheminBase"},
    {"Base/Fichiers/Tavelin.mdb", "Select * from RDV",
     "RefRDV Nom Prenom Telephone Description NumPatient Date1 HeureDebut HeureFin NumPraticien "
     "Professionnel Present Fauteuil DateInv"},
    {"Base/Fichiers/Tavelin.mdb", "Select * from Config",
     "NomConfig NumPraticien Fauteuil DefaultConfig NbJours LunAffich MarAffich MerAffich JeuAffich "
     "VenAffich "
     "SamAffich DimAffich JourRepos LunGrise MarGrise MerGrise JeuGrise VenGrise SamGrise DimGrise "
     "Intervalle "
     "HeureMatDebut HeureMatFin HeurePMDebut HeurePMFin"},
    {"Base/Fichiers/Tavelin.mdb", "Select * from Impression",
     "Heure NomPatient PrenomPatient HeurePM NomPatientPM PrenomPatientPM"},
    {"Donnees/Fichiers/PatientTavelin.mdb", "Select * from LePatient", "NomPatient PrenomPatient NumPatient"},
    {"Donnees/Fichiers/PatientTavelin.mdb", "Select * from LePraticien", "NumPraticien"},
    {"Donnees/Fichiers/ChangePatient.mdb", "Select * from Carnet", "NumPatient"},
    {"Base/Fichiers/Param.mdb", "Select * from Praticien", "codeprat Titre nom PreNom Word"},
    {"Base/Fichiers/Param.mdb", "Select * from Cabinet", "ville"},
    {"Base/Fichiers/Patient.mdb", "Select * from TabPat",
     "cptid nom PreNom Titre adresse1 adresse2 CodePostal ville telephone Portable Profession telephone1 "
     "NomJF "
     "CAM medecin AdrPar mutuelle DateNais NumeroSS TauxCam TauxMut PenChargeTp Option Filler1 Filler2 cmu "
     "DateDerLg MontantHis RDVNonHonoré"},
    {"Base/Fichiers/ListingPatientsCrees.mdb", "Select * from LesPatients",
     "DateCréationFicheInv DateCréationFiche NumPatient nom PreNom telephone Portable adresse1 adresse2 "
     "CodePostal ville DateNais DateDerLg MontantHis NumeroSS"},
    {"Base/Fichiers/Actes.mdb", "Select * from Actes",
     "NumActe NumPatient AFaire Libellé CodeSecu Coefficient"},
    {"Base/Fichiers/ParamImpression.mdb", "Select * from Parametres", "codeprat NumLigne LgPerso"},
    {"Base/Fichiers/ZeroRDV.mdb", "Select * from RDV",
     "RefRDV Nom Prenom Telephone Description NumPatient Date1 HeureDebut HeureFin NumPraticien "
     "Professionnel Present DateInv"}};

QSet<QString> ensemble(const QStringList &noms) {
    return {noms.begin(), noms.end()};
}

/// All rows of the practice but for its paths.
QStringList contenu(const QString &dossier) {
    QStringList lignes;
    for (const Table &table : std::span(tables).subspan(1)) {
        const Records rangees = lis(dossier, table.fichier, SqlText(table.lecture));
        for (const Record &rangee : rangees) {
            QStringList valeurs;
            for (int i = 0; i < rangees.fields().size(); ++i) {
                valeurs << (rangee.at(i).isNull() ? QStringLiteral("Null") : rangee.at(i).toText());
            }
            lignes << valeurs.join(u'|');
        }
    }
    return lignes;
}

/// Rows whose time is no time, whose key is not their day's, or that overlap the row before.
int fautes(const Records &rdv) {
    QString agenda;
    QTime libre;
    int combien = 0;
    for (const Record &r : rdv) {
        const QTime debut = r[u"HeureDebut"].toTime();
        const QTime fin = r[u"HeureFin"].toTime();
        const QString cle = r[u"DateInv"].toText();
        const QString suivant = r[u"NumPraticien"].toText() + r[u"Fauteuil"].toText() + cle;
        const bool memeAgenda = suivant == agenda;
        combien += !debut.isValid() || fin <= debut || (memeAgenda && debut < libre) ? 1 : 0;
        combien += cle != r[u"Date1"].toText().remove(u'-') ? 1 : 0;
        agenda = suivant;
        libre = fin;
    }
    return combien;
}

const SqlText parAgenda("Select * from RDV order by NumPraticien, Fauteuil, DateInv, HeureDebut");

class CabinetEcrit : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        s_dossier = std::make_unique<QTemporaryDir>();
        s_bilan = ecritCabinet(s_dossier->path(), petit());
    }
    static void TearDownTestSuite() { s_dossier.reset(); }
    static QString dossier() { return s_dossier->path(); }

    static inline std::unique_ptr<QTemporaryDir> s_dossier;
    static inline Bilan s_bilan;
};

TEST_F(CabinetEcrit, EveryTableIsWhereTheProgramReadsIt) {
    for (const Table &table : tables) {
        SCOPED_TRACE(table.champs);
        const Records rangees = lis(dossier(), table.fichier, SqlText(table.lecture));
        EXPECT_EQ(ensemble(rangees.fields()), ensemble(QString::fromUtf8(table.champs).split(u' ')));
    }
}

TEST_F(CabinetEcrit, PathsLeadToTheTwoRoots) {
    const Records chemins = lis(dossier(), "CheminBelmor.mdb", SqlText("Select * from Chemin"));
    ASSERT_EQ(chemins.count(), 1);
    const QDir racine(QDir::fromNativeSeparators(chemins.first()[u"LeChemin"].toText()));
    const QDir base(QDir::fromNativeSeparators(chemins.first()[u"CheminBase"].toText()));
    EXPECT_TRUE(racine.exists(QStringLiteral("Fichiers/PatientTavelin.mdb")));
    EXPECT_TRUE(racine.exists(QStringLiteral("Documents")) && racine.exists(QStringLiteral("Word")));
    EXPECT_TRUE(base.exists(QStringLiteral("Fichiers/Purge")));
}

TEST_F(CabinetEcrit, AppointmentsNeverOverlapAndCarryTheirDayKey) {
    const Records rdv = lisCarnet(dossier(), parAgenda);
    EXPECT_EQ(rdv.count(), s_bilan.rendezVous);
    EXPECT_EQ(fautes(rdv), 0);
}

TEST_F(CabinetEcrit, AppointmentsBelongToThePatientsOfTheFile) {
    QSet<QString> patients;
    const Records fiches =
        lis(dossier(), "Base/Fichiers/Patient.mdb", SqlText("Select cptid, nom, PreNom from TabPat"));
    for (const Record &p : fiches) {
        patients << p.at(0).toText() + p.at(1).toText() + p.at(2).toText();
    }
    EXPECT_EQ(patients.size(), 200);
    const Records rdv = lisCarnet(dossier(), SqlText("Select NumPatient, Nom, Prenom from RDV"));
    for (const Record &r : rdv) {
        ASSERT_TRUE(patients.contains(r.at(0).toText() + r.at(1).toText() + r.at(2).toText()));
    }
    const Records transmis =
        lis(dossier(), "Donnees/Fichiers/PatientTavelin.mdb", SqlText("Select * from LePatient"));
    const Record t = transmis.first();
    const qint64 numero = t[u"NumPatient"].toInteger();
    EXPECT_TRUE(patients.contains(QString::number(numero) + t[u"NomPatient"].toText() +
                                  t[u"PrenomPatient"].toText()));
    const SqlText aFaire = SqlText("Select * from Actes Where AFaire <> 0 and NumPatient = ")
                           << nombre(numero);
    EXPECT_FALSE(lis(dossier(), "Base/Fichiers/Actes.mdb", aFaire).isEmpty());
}

TEST_F(CabinetEcrit, DisplayedDaysAreCountedAndHoldTheAppointments) {
    const Records configs = lisCarnet(dossier(), SqlText("Select * from Config"));
    ASSERT_EQ(configs.count(), 4);
    const int lundi = configs.field(u"LunAffich");
    for (const Record &config : configs) {
        int affiches = 0;
        for (int jour = 1; jour <= 7; ++jour) {
            const qint64 valeur = config.at(lundi + jour - 1).toInteger();
            EXPECT_TRUE(valeur == 0 || valeur == jour);
            affiches += valeur != 0 ? 1 : 0;
        }
        EXPECT_EQ(config[u"NbJours"].toInteger(), affiches);
    }
    const Records rdv = lisCarnet(dossier(), SqlText("Select Date1, NumPraticien, Fauteuil from RDV"));
    for (const Record &r : rdv) {
        const bool samedi = r.at(1).toText() == u"01" && r.at(2).toInteger() == 1;
        ASSERT_LE(r.at(0).toDate().dayOfWeek(), samedi ? 6 : 5);
    }
}

TEST_F(CabinetEcrit, SocialSecurityNumbersFitTheirPatients) {
    const Records fiches = lis(dossier(), "Base/Fichiers/Patient.mdb",
                               SqlText("Select NumeroSS, DateNais from TabPat Where NumeroSS <> ''"));
    EXPECT_GT(fiches.count(), 150);
    for (const Record &fiche : fiches) {
        QString numero = fiche.at(0).toText();
        const QString naissance = fiche.at(1).toText();
        ASSERT_EQ(numero.size(), 15);
        EXPECT_EQ(numero.mid(1, 4), naissance.mid(8, 2) + naissance.mid(3, 2));
        numero.replace(QStringLiteral("2A"), QStringLiteral("19"));
        numero.replace(QStringLiteral("2B"), QStringLiteral("18"));
        EXPECT_EQ((numero.first(13).toLongLong() + numero.last(2).toLongLong()) % 97, 0)
            << qPrintable(numero);
    }
}

TEST_F(CabinetEcrit, PicturesJoinIntoOneStrip) {
    for (const char *couleur : couleursImages) {
        const auto image = [&](const char *forme) {
            const QByteArray nom = QByteArray("Donnees/Images/") + forme + couleur + ".bmp";
            return QImage(fichier(dossier(), nom.constData())).convertToFormat(QImage::Format_RGB32);
        };
        const QImage milieu = image("Mid");
        ASSERT_EQ(milieu.size(), QSize(12, 20)) << couleur;
        const auto rangee = [](const QImage &i, int y) { return i.copy(0, y, i.width(), 1); };
        const QImage droite = rangee(milieu, 0);
        EXPECT_EQ(rangee(milieu, 19), droite);
        EXPECT_EQ(rangee(image("Top"), 19), droite);
        EXPECT_EQ(rangee(image("Low"), 0), droite);
        for (const QImage &bout : {rangee(image("Top"), 0), rangee(image("Low"), 19), rangee(image("Dbl"), 0),
                                   rangee(image("Dbl"), 19)}) {
            ASSERT_FALSE(bout.isNull());
            EXPECT_NE(bout, droite);
        }
    }
}

/// Minutes taken, per thousand, in the half-days that the agenda works in the week of `mercredi`.
qint64 remplissage(const QString &dossier, const char *praticien, int fauteuil, int minutesParSemaine) {
    const Records rdv = lisCarnet(
        dossier, SqlText("Select HeureDebut, HeureFin from RDV Where DateInv >= '20250310' and DateInv <= "
                         "'20250316' and NumPraticien = ")
                     << texte(QString::fromLatin1(praticien)) << " and Fauteuil = " << nombre(fauteuil));
    qint64 minutes = 0;
    for (const Record &r : rdv) {
        minutes += r.at(0).toTime().secsTo(r.at(1).toTime()) / 60;
    }
    return 1000 * minutes / minutesParSemaine;
}

TEST(Cabinet, CurrentWeekIsBusyAndTodayIsUnderWay) {
    for (const quint32 graine : {1U, 2U, 3U}) {
        SCOPED_TRACE(graine);
        const QTemporaryDir dossier;
        ecritCabinet(dossier.path(), petit(graine));
        for (const qint64 taux :
             {remplissage(dossier.path(), "01", 1, 2400), //
              remplissage(dossier.path(), "01", 2, 2700), remplissage(dossier.path(), "02", 0, 2550),
              remplissage(dossier.path(), "03", 0, 2700)}) {
            EXPECT_GE(taux, 700);
            EXPECT_LE(taux, 850);
        }
        const auto combien = [&](const SqlText &sql) { return lisCarnet(dossier.path(), sql).count(); };
        EXPECT_GT(combien(SqlText("Select * from RDV Where DateInv = '20250312' and Present = True and "
                                  "HeureDebut < #10:00# and clng(NumPraticien) = 2")),
                  0);
        EXPECT_GT(combien(SqlText("Select * from RDV Where DateInv = '20250312' and Present = False and "
                                  "HeureDebut < #11:00#")),
                  0);
        EXPECT_GT(combien(SqlText("Select * from RDV Where DateInv = '20250312' and Present = False and "
                                  "HeureDebut > #17:00#")),
                  0);
        EXPECT_EQ(combien(SqlText("Select * from RDV Where DateInv > '20250312' and Present = True")), 0);
    }
}

TEST(Cabinet, SeedDecidesTheContents) {
    const QTemporaryDir un;
    const QTemporaryDir encore;
    const QTemporaryDir autre;
    ecritCabinet(un.path(), petit(7));
    ecritCabinet(encore.path(), petit(7));
    ecritCabinet(autre.path(), petit(8));
    EXPECT_TRUE(contenu(un.path()) == contenu(encore.path()));
    EXPECT_FALSE(contenu(un.path()) == contenu(autre.path()));
}

TEST(Cabinet, ForcedNumberOfAppointmentsIsExact) {
    for (const int voulus : {0, 1, 600, 20'000, 100'000}) {
        SCOPED_TRACE(voulus);
        const QTemporaryDir dossier;
        OptionsCabinet options = petit();
        options.rdv = voulus;
        EXPECT_EQ(ecritCabinet(dossier.path(), options).rendezVous, voulus);
        const Records rdv = lisCarnet(dossier.path(), parAgenda);
        EXPECT_EQ(rdv.count(), voulus);
        EXPECT_EQ(fautes(rdv), 0);
        if (voulus == 100'000) {
            const SqlText semaine("Select * from RDV Where DateInv >= '20250310' and DateInv <= '20250316' "
                                  "and clng(NumPraticien) = 1 and Fauteuil = 1");
            EXPECT_GE(lisCarnet(dossier.path(), semaine).count(), 250);
        }
    }
}

TEST(Cabinet, AnOldBookLacksWhatTheStartUpAdds) {
    const QTemporaryDir dossier;
    OptionsCabinet options = petit();
    options.ancien = true;
    ecritCabinet(dossier.path(), options);
    const Records rdv = lisCarnet(dossier.path(), SqlText("Select * from RDV"));
    EXPECT_EQ(rdv.fields().size(), 12);
    EXPECT_FALSE(rdv.isEmpty());
    EXPECT_FALSE(rdv.fields().contains(QStringLiteral("DateInv")) ||
                 rdv.fields().contains(QStringLiteral("Fauteuil")));
    const Records configs = lisCarnet(dossier.path(), SqlText("Select * from Config"));
    EXPECT_FALSE(configs.fields().contains(QStringLiteral("Fauteuil")));
    EXPECT_EQ(configs.count(), 3); // one for each practitioner: nothing tells chairs apart yet
}

TEST(Cabinet, AFolderThatHoldsSomethingIsLeftAlone) {
    for (const char *present : {"CheminBelmor.mdb", "Base", "Donnees"}) {
        const QTemporaryDir dossier;
        QFile temoin(fichier(dossier.path(), present));
        ASSERT_TRUE(temoin.open(QIODevice::WriteOnly) && temoin.write("x") == 1);
        temoin.close();
        EXPECT_THROW(ecritCabinet(dossier.path(), petit()), ErreurCabinet) << present;
        EXPECT_EQ(QDir(dossier.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                  QStringList{QString::fromLatin1(present)});
        EXPECT_EQ(temoin.size(), 1);
    }
}

TEST(Cabinet, AFailureLeavesNothingThatLooksComplete) {
    const QTemporaryDir dossier;
    const QDir parent(dossier.path());
    ASSERT_TRUE(parent.mkdir(QStringLiteral("CheminBelmor.mdb.part"))); // the last step cannot be done
    EXPECT_THROW(ecritCabinet(dossier.path(), petit()), DbError);
    EXPECT_EQ(parent.entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("CheminBelmor.mdb.part")});

    QFile obstacle(parent.filePath(QStringLiteral("fichier")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    EXPECT_THROW(ecritCabinet(parent.filePath(QStringLiteral("fichier/cabinet")), petit()), ErreurCabinet);
}

TEST(CleSecu, IsTheComplementTo97) {
    EXPECT_EQ(cleSecu(QStringLiteral("1850578006084")), QStringLiteral("91"));
    EXPECT_EQ(cleSecu(QStringLiteral("2600156000023")), QStringLiteral("97"));
    EXPECT_EQ(cleSecu(QStringLiteral("177012A004001")), QStringLiteral("21"));
    EXPECT_EQ(cleSecu(QStringLiteral("177012B004001")), QStringLiteral("48"));
}

} // namespace

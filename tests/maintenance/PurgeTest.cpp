#include "maintenance/PurgeTables.h"
#include "platform/db/DbError.h"
#include "support/Comptes.h"
#include "support/Livre.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

const QDate premierMars(2005, 3, 1);

class PurgeTest : public testing::Test {
  protected:
    PurgeTest() { creeBase(modele, schema(Base::ArchiveVide)); }

    /// "-" is Null.
    qint64 ajoute(const QStringList &rangee) const {
        const auto valeur = [](const QString &mot) { return mot == q("-") ? Value() : Value(mot); };
        return livre.ouvre().insert(q("RDV"), {{q("Nom"), valeur(rangee[0])},
                                               {q("NumPraticien"), valeur(rangee[1])},
                                               {q("Date1"), valeur(rangee[2])},
                                               {q("DateInv"), valeur(rangee[3])},
                                               {q("Description"), q("l'été « 8½ »")},
                                               {q("HeureDebut"), q("1899-12-30 09:15:00")},
                                               {q("NumPatient"), Value()},
                                               {q("Professionnel"), -1},
                                               {q("Fauteuil"), 2}});
    }
    /// To its end; gives how many it moved.
    static int acheve(Purge &purge, Database &carnet, Database &archives) {
        while (!purge.finie()) {
            purge.deplaceLot(carnet, archives);
        }
        return purge.deplaces();
    }

    QTemporaryDir dossier;
    QString modele = dossier.filePath(q("ZeroRDV.mdb"));
    QString archive = dossier.filePath(q("archive.mdb"));
    Livre livre;
};

} // namespace

TEST_F(PurgeTest, MovesTheAppointmentsOfBeforeTheDay) {
    std::vector<qint64> partent;
    for (const QStringList &rangee : tableau(R"(
        VEILLE    | 01  | 2005-02-28 | 20050228 | part
        JOUR      | 01  | 2005-03-01 | 20050301 | reste
        UN        | 1   | 2005-02-28 | 20050228 | part
        DIX       | 010 | 2005-02-28 | 20050228 | reste
        AUTRE     | 02  | 2005-02-28 | 20050228 | reste
        A VENIR   | 01  | 2010-05-05 |          | reste
        SANS CLE  | 01  | 2004-05-05 |          | part
        CLE NULLE | 01  | 2004-05-05 | -        | reste
        FAUSSE    | 01  | 2005-06-01 | 20050101 | reste
        SANS JOUR | 01  | -          | 20050228 | part
        ILLISIBLE | 01  | hier       | 20050228 | part
        COURTE    | 01  | 2005-01-31 | 2005     | part)")) {
        const qint64 ref = ajoute(rangee);
        if (rangee[4] == q("part")) {
            partent.push_back(ref);
        }
    }
    Comptes attenduAuCarnet = comptes(livre.fichier());
    Comptes attenduArchive;
    for (const qint64 ref : partent) {
        attenduArchive[ref] = attenduAuCarnet.take(ref);
    }
    for (const bool avecModele : {true, false}) { // the second time nothing is left to move
        Database carnet = livre.ouvre();
        const QString fichier = archive + QString::number(int(avecModele));
        CreeArchive(avecModele ? modele : dossier.filePath(q("absent.mdb")), fichier);
        Database archives = Database::open(fichier);
        Purge purge(1, premierMars);
        purge.cherche(carnet);
        EXPECT_EQ(acheve(purge, carnet, archives), avecModele ? int(partent.size()) : 0);
        EXPECT_EQ(comptes(fichier), avecModele ? attenduArchive : Comptes());
        EXPECT_EQ(comptes(livre.fichier()), attenduAuCarnet);
        EXPECT_EQ(archives.query(SqlText("Select * from RDV")).fields().join(u' ').toStdString(),
                  "RefRDV Nom Prenom Telephone Description NumPatient Date1 HeureDebut HeureFin "
                  "NumPraticien Professionnel Present DateInv");
    }
}

TEST_F(PurgeTest, TakesTheRowsAsTheyAreWhenTheirLotComes) {
    const qint64 reporte = livre.rdv({.nom = "REPORTE", .jour = "2005-01-05"});
    const qint64 autre = livre.rdv({.nom = "AUTRE", .jour = "2005-01-05"});
    const qint64 change = livre.rdv({.nom = "CHANGE", .jour = "2005-01-05"});
    const qint64 supprime = livre.rdv({.nom = "SUPPRIME", .jour = "2005-01-05"});
    CreeArchive(modele, archive);
    Database carnet = livre.ouvre();
    Database archives = Database::open(archive);
    Purge purge(1, premierMars);
    purge.cherche(carnet);
    livre.execute(SqlText("Update RDV Set Date1 = '2005-03-02', DateInv = '20050302' Where RefRDV = ")
                  << nombre(reporte));
    livre.execute(SqlText("Update RDV Set NumPraticien = '2' Where RefRDV = ") << nombre(autre));
    livre.execute(SqlText("Update RDV Set Nom = 'NOUVEAU' Where RefRDV = ") << nombre(change));
    livre.execute(SqlText("Delete from RDV Where RefRDV = ") << nombre(supprime));
    EXPECT_EQ(acheve(purge, carnet, archives), 1);
    EXPECT_EQ(comptes(livre.fichier()).keys(), (QList<qint64>{reporte, autre}));
    EXPECT_EQ(comptes(archive).keys(), QList<qint64>{change});
    EXPECT_EQ(comptes(archive)[change][1], Value(q("NOUVEAU")));
}

TEST_F(PurgeTest, ALotThatBeginsAnewIsArchivedOnce) {
    for (int i = 0; i < 3; ++i) {
        livre.rdv({.jour = "2005-01-05"});
    }
    const Comptes avant = comptes(livre.fichier());
    CreeArchive(modele, archive);
    Database carnet = Database::open(livre.fichier(), std::chrono::milliseconds(20));
    Database archives = Database::open(archive);
    Purge purge(1, premierMars);
    purge.cherche(carnet);
    bool occupe = false;
    livre.ouvre().forEach(SqlText("Select RefRDV from RDV"), [&](const RowView &) { // a reader: no commit
        if (!occupe) {
            EXPECT_THROW(purge.deplaceLot(carnet, archives), DbError);
            occupe = true;
        }
    });
    EXPECT_EQ(comptes(livre.fichier()), avant);
    EXPECT_EQ(comptes(archive), avant) << "archived before it leaves the book";
    EXPECT_EQ(acheve(purge, carnet, archives), 3);
    EXPECT_EQ(comptes(livre.fichier()), Comptes());
    EXPECT_EQ(comptes(archive), avant);
}

TEST_F(PurgeTest, AnArchiveThatCannotBeMadeLeavesNothing) {
    const std::pair<const char *, std::function<void()>> pannes[] = {
        {"the template has no RDV",
         [&] { Database::open(modele).execute(SqlText("Alter table RDV rename to Autre")); }},
        {"a field is missing", [&] { Database::open(modele).tableDef(q("RDV")).deleteField(q("DateInv")); }},
        {"the template is no database", [&] { QFile::resize(modele, 10); }},
        {"the folder is missing", [&] { archive = dossier.filePath(q("absent/archive.mdb")); }},
        {"the same without a template",
         [&] {
             QFile::remove(modele);
             archive = dossier.filePath(q("absent/archive.mdb"));
         }},
    };
    for (const auto &[nom, casse] : pannes) {
        QFile::remove(modele);
        creeBase(modele, schema(Base::ArchiveVide));
        archive = dossier.filePath(q("archive.mdb"));
        casse();
        EXPECT_THROW(CreeArchive(modele, archive), DbError) << nom;
        EXPECT_FALSE(QFile::exists(archive)) << nom;
    }
    archive = dossier.filePath(q("dite.mdb"));
    CreeArchive(modele, archive);
    EXPECT_THROW(CreeArchive(modele, archive), DbError);
    EXPECT_TRUE(QFile::exists(archive)) << "it was there before";
}

TEST_F(PurgeTest, ALotFollowsTheSpeedOfTheDisk) {
    const int cas[][3] = {{200, 10, 400}, {200, 70, 200}, {1000, 105, 666}, {1000, 9000, 500},
                          {100, 0, 200},  {60, 9000, 50}, {4000, 35, 5000}};
    for (const auto &[lot, ms, suivant] : cas) {
        EXPECT_EQ(LotSuivant(lot, std::chrono::milliseconds(ms)), suivant) << lot << ' ' << ms;
    }
}

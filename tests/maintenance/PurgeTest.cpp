#include "maintenance/PurgeTables.h"
#include "platform/db/DbError.h"
#include "support/Comptes.h"
#include "support/Livre.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

class PurgeTest : public testing::Test {
  protected:
    PurgeTest() { creeBase(modele, schema(Base::ArchiveVide)); }
    void commence() {
        CreeArchive(modele, archive);
        archives = Database::open(archive);
        purge.emplace(1, QDate(2005, 3, 1));
        purge->cherche(carnet);
    }
    /// Gives how many it moved.
    int acheve() {
        while (!purge->finie()) {
            purge->deplaceLot(carnet, *archives, {});
        }
        return purge->deplaces();
    }

    /// What the book's own dialect has no words for.
    static void sqlite(const QString &fichier, const char *sql) {
        sqlite3 *base = nullptr;
        sqlite3_open(fichier.toUtf8().constData(), &base);
        EXPECT_EQ(sqlite3_exec(base, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
        sqlite3_close(base);
    }

    QTemporaryDir dossier;
    QString modele = dossier.filePath(q("ZeroRDV.mdb"));
    QString archive = dossier.filePath(q("archive.mdb"));
    Livre livre;
    Database carnet = Database::open(livre.fichier(), std::chrono::milliseconds(20));
    std::optional<Database> archives;
    std::optional<Purge> purge;
};

} // namespace

TEST_F(PurgeTest, MovesTheAppointmentsOfBeforeTheDay) {
    const QList<qint64> refs = livre.rdvs(R"(
        Description | NumPraticien | Date1      | DateInv
        part        | 01           | 2005-02-28 | 20050228
        part        | 1            | 2005-02-28 | 20050228
        part        | 01           | 2004-05-05 |
        part        | 01           | -          | 20050228
        part        | 01           | hier       | 20050228
        part        | 01           | 2005-01-31 | 2005
        reste       | 01           | 2005-03-01 | 20050301
        reste       | 01           | 2005-02-28 | 20050301
        reste       | 01           | 2005-03-01 | 20050228
        reste       | 010          | 2005-02-28 | 20050228
        reste       | 02           | 2005-02-28 | 20050228
        reste       | 01           | 2010-05-05 |
        reste       | 01           | 2004-05-05 | -)");
    livre.execute(SqlText("update RDV set Nom = 'l''été « 8½ »', HeureDebut = '1899-12-30 09:15:00', "
                          "Professionnel = -1, Fauteuil = 2"));
    Comptes restent = comptes(livre.fichier());
    Comptes partent;
    for (const qint64 ref : refs.first(6)) {
        partent[ref] = restent.take(ref);
    }
    for (const auto &attendus : {partent, Comptes()}) { // the second time nothing is left to move
        commence();
        EXPECT_EQ(acheve(), attendus.size());
        EXPECT_EQ(comptes(archive), attendus);
        EXPECT_EQ(comptes(livre.fichier()), restent);
        EXPECT_EQ(archives->query(SqlText("Select * from RDV")).fields().size(), 13) << "no chair";
        archive += u'2';
        QFile::remove(modele);
    }
}

TEST_F(PurgeTest, TakesTheRowsAsTheyAreWhenTheirLotComes) {
    const QList<qint64> refs = livre.rdvs(R"(
        Nom      | NumPraticien | Date1      | DateInv
        REPORTE  | 01           | 2005-01-05 | 20050105
        AUTRE    | 01           | 2005-01-05 | 20050105
        JOUR     | 01           | 2005-01-05 | 20050105
        CHANGE   | 01           | 2005-01-05 | 20050105
        SUPPRIME | 01           | 2005-01-05 | 20050105)");
    commence();
    livre.execute(SqlText("Update RDV Set Date1 = '2005-03-02', DateInv = '20050302' Where Nom = 'REPORTE'"));
    livre.execute(SqlText("Update RDV Set NumPraticien = '2' Where Nom = 'AUTRE'"));
    livre.execute(SqlText("Update RDV Set Date1 = '2005-03-02' Where Nom = 'JOUR'"));
    livre.execute(SqlText("Update RDV Set Nom = 'NOUVEAU' Where Nom = 'CHANGE'"));
    livre.execute(SqlText("Delete from RDV Where Nom = 'SUPPRIME'"));
    EXPECT_EQ(acheve(), 1);
    EXPECT_EQ(comptes(livre.fichier()).keys(), refs.first(3));
    EXPECT_EQ(comptes(archive).keys(), refs.sliced(3, 1));
    EXPECT_EQ(comptes(archive)[refs[3]][1], Value(q("NOUVEAU")));
}

TEST_F(PurgeTest, ALotThatBeginsAnewIsArchivedOnce) {
    livre.rdv({.jour = "2005-01-05"});
    livre.rdv({.jour = "2005-01-05"});
    const Comptes avant = comptes(livre.fichier());
    commence();
    bool occupe = false;
    livre.ouvre().forEach(SqlText("Select RefRDV from RDV"), [&](const RowView &) { // a reader: no commit
        if (!std::exchange(occupe, true)) {
            EXPECT_THROW(purge->deplaceLot(carnet, *archives, {}), DbError);
        }
    });
    EXPECT_EQ(comptes(livre.fichier()), avant);
    EXPECT_EQ(comptes(archive), avant) << "archived before it leaves the book";
    EXPECT_EQ(acheve(), 2);
    EXPECT_EQ(comptes(livre.fichier()), Comptes());
    EXPECT_EQ(comptes(archive), avant);
}

TEST_F(PurgeTest, AnAbandonedLotIsNotInTheArchive) {
    livre.rdv({.jour = "2005-01-05"});
    livre.rdv({.jour = "2005-01-05"});
    commence();
    bool occupe = false;
    livre.ouvre().forEach(SqlText("Select RefRDV from RDV"), [&](const RowView &) { // a reader: no commit
        if (!std::exchange(occupe, true)) {
            EXPECT_THROW(purge->deplaceLot(carnet, *archives, {}), DbError);
        }
    });
    livre.execute(SqlText("Delete from RDV")); // by another desk
    EXPECT_EQ(purge->enTrop(), 2);
    purge->abandonne(carnet, *archives);
    EXPECT_EQ(comptes(archive), Comptes());
    EXPECT_EQ(purge->deplaces() + purge->enTrop(), 0);
    EXPECT_TRUE(
        BilanPurge(1, 0, 3, archive).endsWith(q("une copie de 3 rendez-vous restés dans le carnet.")));
    EXPECT_TRUE(BilanPurge(0, 2, 0, archive).startsWith(q("Gardez l'archive")));
}

TEST_F(PurgeTest, WhatAnArchiveDoesNotGiveBackStaysInTheBook) {
    livre.rdvs(R"(
        Nom   | Telephone  | NumPraticien | Date1      | DateInv
        UN    | 0612345678 | 01           | 2005-01-05 | 20050105
        DEUX  | 0612345679 | 01           | 2005-01-05 | 20050105)");
    const Comptes avant = comptes(livre.fichier());
    for (const char *piege : {"create trigger piege after insert on RDV begin update RDV set Telephone = "
                              "Telephone + 0; end",
                              "create trigger piege before insert on RDV when new.Nom = 'UN' begin select "
                              "raise(ignore); end"}) {
        sqlite(modele, "drop trigger if exists piege");
        sqlite(modele, piege);
        QFile::remove(archive);
        commence();
        EXPECT_THROW(acheve(), DbError) << piege;
        EXPECT_EQ(comptes(livre.fichier()), avant) << piege;
        EXPECT_EQ(comptes(archive), Comptes()) << piege;
    }
    sqlite(modele,
           "drop trigger piege; create trigger piege before insert on RDV begin delete from RDV; end");
    for (int i = 0; i < premierLot; ++i) {
        livre.rdv({.jour = "2005-01-04"});
    }
    QFile::remove(archive);
    commence();
    EXPECT_THROW(acheve(), DbError) << "the second row pushes the first one out";
    livre.execute(SqlText("Delete from RDV Where DateInv = '20050104'"));
    sqlite(modele, "drop trigger piege");
    sqlite(livre.fichier(), "update RDV set Nom = cast(x'41e9' as text) where Nom = 'UN'");
    QFile::remove(archive);
    commence();
    EXPECT_EQ(acheve(), 1) << "bytes that are no text stay where they are";
}

TEST_F(PurgeTest, TheHistoryHasOneRowForAllItsLots) {
    PrepareJournal(carnet);
    for (int i = 0; i <= premierLot; ++i) {
        livre.rdv({.jour = "2005-01-05"});
    }
    commence();
    purge->deplaceLot(carnet, *archives, {});
    bool occupe = false;
    livre.ouvre().forEach(SqlText("Select RefRDV from RDV"), [&](const RowView &) { // a reader: no commit
        if (!std::exchange(occupe, true)) {
            EXPECT_THROW(purge->deplaceLot(carnet, *archives, {}), DbError);
        }
    });
    const auto nombres = [&] {
        QList<qint64> lus;
        for (const LigneJournal &ligne : JournalDuJour(carnet, QDate(2005, 1, 5), 1)) {
            lus << ligne.ecriture.apres[champNombre].toInteger();
        }
        return lus;
    };
    EXPECT_EQ(nombres(), QList<qint64>{premierLot}) << "what has left the book";
    acheve();
    EXPECT_EQ(nombres(), (QList<qint64>{1, premierLot})) << "another row after a failure";
    for (int i = 0; i <= 3 * premierLot; ++i) {
        livre.rdv({.jour = "2005-01-05"});
    }
    archive += u'2';
    commence();
    EXPECT_EQ(nombres().size() + acheve(), 3 * premierLot + 3);
    EXPECT_EQ(nombres().first(), 3 * premierLot + 1);
    EXPECT_EQ(nombres().size(), 3) << "one purge, one row";
}

TEST_F(PurgeTest, AnArchiveThatCannotBeMadeLeavesNothing) {
    const QString ailleurs = dossier.filePath(q("absent/archive.mdb"));
    EXPECT_THROW(CreeArchive(modele, ailleurs), DbError);
    EXPECT_THROW(CreeArchive(ailleurs, ailleurs), DbError) << "without a template";
    Database::open(modele).tableDef(q("RDV")).deleteField(q("DateInv"));
    EXPECT_THROW(CreeArchive(modele, archive), DbError) << "a field is missing";
    QFile::resize(modele, 10);
    EXPECT_THROW(CreeArchive(modele, archive), DbError) << "no database";
    EXPECT_FALSE(QFile::exists(archive));
    EXPECT_THROW(CreeArchive(archive, modele), DbError);
    EXPECT_TRUE(QFile::exists(modele)) << "it was there before";
}

TEST_F(PurgeTest, ALotFollowsTheSpeedOfTheDisk) {
    const int cas[][3] = {{200, 10, 400}, {1000, 105, 666}, {1000, 9000, 500},
                          {100, 0, 200},  {60, 9000, 50},   {4000, 35, 5000}};
    for (const auto &[lot, ms, suivant] : cas) {
        EXPECT_EQ(LotSuivant(lot, std::chrono::milliseconds(ms)), suivant) << lot << ' ' << ms;
    }
}

#include "start/MiseANiveauTables.h"

#include "booking/ReservationTables.h"
#include "journal/JournalTables.h"

#include "platform/db/DbError.h"
#include "start/Demarrage.h"
#include "support/CabinetDEssai.h"
#include "support/Livre.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

/// A book of the time before day keys and chairs.
class MiseANiveauTest : public testing::Test {
  protected:
    MiseANiveauTest() {
        creeBase(fichier, schema(Base::RendezVous), Forme::Ancienne);
        Database base = Database::open(fichier);
        for (const QDate &jour : {QDate(2004, 12, 31), QDate(2005, 1, 1), QDate()}) {
            base.insert(q("RDV"), {{q("Date1"), Value::date(jour)}});
        }
        base.insert(q("Config"), {{q("NomConfig"), q("Défaut")}});
    }
    std::string metANiveau() {
        Database base = Database::open(fichier);
        return MetANiveau(base).erreur.toStdString();
    }
    /// "day key/chair" of each appointment, then the configuration's chair; "-" for Null.
    std::string champs() {
        Database base = Database::open(fichier);
        const auto dit = [](const Value &v) { return v.isNull() ? q("-") : v.toText(); };
        const Records rows = base.query(SqlText("select * from RDV order by RefRDV"));
        QString texte;
        for (const Record row : rows) {
            texte += dit(row[u"DateInv"]) + u'/' + dit(row[u"Fauteuil"]) + u' ';
        }
        return (texte + dit(base.query(SqlText("select * from Config")).first()[u"Fauteuil"])).toStdString();
    }
    void execute(const SqlText &sql) { Database::open(fichier).execute(sql); }

    QTemporaryDir dossier;
    const QString fichier = dossier.filePath(q("Tavelin.mdb"));
};

} // namespace

TEST_F(MiseANiveauTest, AddsAndFillsTheFieldsOnceAndKeepsWhatIsThere) {
    EXPECT_EQ(metANiveau(), "");
    EXPECT_EQ(champs(), "20041231/0 20050101/0 -/0 0");
    execute(SqlText("update RDV set DateInv = '19990101', Fauteuil = Null where RefRDV = 1"));
    execute(SqlText("update RDV set DateInv = '', Fauteuil = 2 where RefRDV = 2"));
    execute(SqlText("update Config set Fauteuil = Null"));
    EXPECT_EQ(metANiveau(), "");
    EXPECT_EQ(champs(), "19990101/0 20050101/2 -/0 0");
}

TEST_F(MiseANiveauTest, AnUpToDateBookIsOnlyLookedAt) {
    metANiveau();
    execute(SqlText("delete from RDV where Date1 Is Null"));
    Database autre = Database::open(fichier);
    const Transaction ecriture(autre);
    EXPECT_EQ(metANiveau(), "") << "needs no writer's lock while another program writes";
}

TEST_F(MiseANiveauTest, ABookWhoseRowsHaveNoKeyIsNotChanged) {
    execute(SqlText("alter table RDV rename to Ancien"));
    execute(SqlText("create table RDV as select * from Ancien"));
    EXPECT_THROW(metANiveau(), DbError);
    EXPECT_FALSE(Database::open(fichier).tableDef(q("RDV")).hasField(q("DateInv")));
}

TEST_F(MiseANiveauTest, NamesTheTableThatCannotBeChanged) {
    execute(SqlText("drop table Config"));
    execute(SqlText("create view Config as select 1 as NumPraticien"));
    EXPECT_EQ(metANiveau(), "Erreur ajout de champ dans la base Config");
    QFile::setPermissions(fichier, QFile::ReadOwner | QFile::ReadUser);
    EXPECT_EQ(metANiveau(), "Erreur ajout de champ dans la base RDV");
    Database base = Database::open(fichier);
    EXPECT_FALSE(base.tableDef(q("RDV")).hasField(q("DateInv"))) << "nothing is half done";
    EXPECT_EQ(ModifieTable(base.tableDef(q("RDV")), ActionTable::Append, {q("X")}),
              q("TableDef ne peut pas être mis à jour ! Tâche impossible à exécuter."));
}

TEST(Demarrage, ABookThatCannotKeepAHistoryIsUsedWithout) {
    CabinetDEssai cabinet;
    const Environnement &env = cabinet.environnement();
    EXPECT_EQ(Demarre(env).messages, QStringList());
    Database base = cabinet.ouvre(Base::RendezVous);
    EXPECT_TRUE(JournalEstPret(base));
    base.execute(SqlText("drop index JournalParJour"));
    Demarre(env);
    EXPECT_TRUE(JournalEstPret(base)) << "what is missing is added";
    base.execute(SqlText("drop table TavJournal"));
    base.execute(SqlText("create view TavJournal as select 1 as Apres"));
    const Depart depart = Demarre(env);
    ASSERT_EQ(depart.messages.size(), 1);
    EXPECT_TRUE(depart.messages[0].contains(q("historique"))) << depart.messages[0];
    EXPECT_TRUE(depart.premier.has_value());
    const SaisieRDV saisie{q("A"), {}, {}, {}, {}, QDate(2031, 1, 1), QTime(9, 0), QTime(10, 0)};
    EXPECT_EQ(AjouteRDV(base, env.auteur(), {saisie, q("01"), q("1")}).resultat, Ecriture::Fait);
}

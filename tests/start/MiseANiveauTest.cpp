#include "start/MiseANiveauTables.h"

#include "Schema.h"
#include "platform/db/DbError.h"
#include "platform/db/DateInverse.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

class MiseANiveauTest : public testing::Test {
  protected:
    void SetUp() override {
        creeBase(file, schema(Base::RendezVous), Forme::Ancienne);
        Database base = Database::open(file);
        for (const QDate &jour : {QDate(2004, 12, 31), QDate(2005, 1, 1), QDate()}) {
            base.insert(QStringLiteral("RDV"), {{QStringLiteral("Date1"), Value::date(jour)}});
        }
        base.insert(QStringLiteral("Config"),
                    {{QStringLiteral("NomConfig"), Value(QStringLiteral("Défaut"))}});
    }
    Records rdv() { return Database::open(file).query(SqlText("select * from RDV order by RefRDV")); }

    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("Tavelin.mdb"));
};

} // namespace

TEST(DateInverse, TakesCharactersByPosition) {
    EXPECT_EQ(InverseDate(QStringLiteral("25/03/2005")), QStringLiteral("20050325"));
    EXPECT_EQ(InverseDate(QDate(2004, 12, 1)), QStringLiteral("20041201"));
    EXPECT_LT(InverseDate(QDate(2004, 12, 31)), InverseDate(QDate(2005, 1, 1)));
    EXPECT_EQ(InverseDate(QStringLiteral("abc")), QStringLiteral("ab")) << "nothing is checked";
}

TEST(DoubleApostrophe, DoublesEveryOne) {
    EXPECT_EQ(DoubleApostrophe(QStringLiteral("D'ARC")), QStringLiteral("D''ARC"));
    EXPECT_EQ(DoubleApostrophe(QStringLiteral("''")), QStringLiteral("''''"));
    EXPECT_EQ(DoubleApostrophe(QString()), QString());
}

TEST_F(MiseANiveauTest, AddsAndFillsTheFieldsOfAnOlderBook) {
    Database base = Database::open(file);
    EXPECT_EQ(MetANiveau(base), QString());
    const Records rows = rdv();
    ASSERT_EQ(rows.count(), 3);
    EXPECT_EQ(rows[0][u"DateInv"].toText(), QStringLiteral("20041231"));
    EXPECT_EQ(rows[1][u"DateInv"].toText(), QStringLiteral("20050101"));
    EXPECT_TRUE(rows[2][u"DateInv"].isNull()) << "a row without a day has no key";
    for (const Record row : rows) {
        EXPECT_EQ(row[u"Fauteuil"], Value(0));
    }
    EXPECT_EQ(base.query(SqlText("select Fauteuil from Config")).first()[u"Fauteuil"], Value(0));
}

TEST_F(MiseANiveauTest, ASecondRunKeepsWhatIsThereAndFillsWhatIsEmpty) {
    Database base = Database::open(file);
    MetANiveau(base);
    const auto set = [&](qint64 ref, const QString &field, const Value &value) {
        base.update(QStringLiteral("RDV"), QStringLiteral("RefRDV"), ref, {{field, value}});
    };
    set(1, QStringLiteral("DateInv"), Value(QStringLiteral("19990101")));
    set(1, QStringLiteral("Fauteuil"), Value(2));
    set(2, QStringLiteral("DateInv"), Value(QString::fromLatin1("")));
    set(3, QStringLiteral("Fauteuil"), Value());
    EXPECT_EQ(MetANiveau(base), QString());
    const Records rows = rdv();
    EXPECT_EQ(rows[0][u"DateInv"].toText(), QStringLiteral("19990101")) << "even a wrong key stays";
    EXPECT_EQ(rows[0][u"Fauteuil"], Value(2));
    EXPECT_EQ(rows[1][u"DateInv"].toText(), QStringLiteral("20050101"));
    EXPECT_EQ(rows[2][u"Fauteuil"], Value(0));
}

TEST_F(MiseANiveauTest, AnUpToDateBookIsOnlyLookedAt) {
    Database base = Database::open(file);
    MetANiveau(base);
    base.execute(SqlText("delete from RDV where Date1 Is Null"));
    sqlite3 *writer = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &writer), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(MetANiveau(base), QString()) << "needs no writer's lock while another program writes";
    sqlite3_close(writer);
}

TEST_F(MiseANiveauTest, NamesTheTableThatCannotBeWritten) {
    QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup);
    Database base = Database::open(file);
    EXPECT_EQ(MetANiveau(base), QStringLiteral("Erreur ajout de champ dans la base RDV"));
    EXPECT_EQ(ModifieTable(base.tableDef(QStringLiteral("RDV")), ActionTable::Append, {QStringLiteral("X")}),
              QStringLiteral("TableDef ne peut pas être mis à jour ! Tâche impossible à exécuter."));
}

TEST_F(MiseANiveauTest, AConfigThatIsAViewIsNamed) {
    Database base = Database::open(file);
    base.execute(SqlText("drop table Config"));
    base.execute(SqlText("create view Config as select 1 as NumPraticien"));
    EXPECT_EQ(MetANiveau(base), QStringLiteral("Erreur ajout de champ dans la base Config"));
    EXPECT_FALSE(base.tableDef(QStringLiteral("RDV")).hasField(QStringLiteral("DateInv")))
        << "nothing is half done";
}

TEST_F(MiseANiveauTest, ModifieTableAppendsDeletesAndIgnoresWhatIsDone) {
    Database base = Database::open(file);
    const FieldDef champ{QStringLiteral("Essai"), FieldType::Text, 10};
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ModifieTable(base.tableDef(QStringLiteral("RDV")), ActionTable::Append, champ), QString());
        EXPECT_TRUE(base.tableDef(QStringLiteral("RDV")).hasField(champ.name));
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ModifieTable(base.tableDef(QStringLiteral("RDV")), ActionTable::Delete, champ), QString());
        EXPECT_FALSE(base.tableDef(QStringLiteral("RDV")).hasField(champ.name));
    }
}

#include "platform/db/Database.h"
#include "platform/db/DbError.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

const QString table = QStringLiteral("RDV");

class DatabaseTest : public testing::Test {
  protected:
    DatabaseTest() {
        Database base = Database::create(file);
        base.createTable(table, {{QStringLiteral("RefRDV"), FieldType::AutoNumber},
                                 {QStringLiteral("Nom"), FieldType::Text, 50},
                                 {QStringLiteral("Date1"), FieldType::DateTime},
                                 {QStringLiteral("HeureDebut"), FieldType::DateTime},
                                 {QStringLiteral("Present"), FieldType::Boolean}});
    }
    int count() { return Database::open(file).query(SqlText("select * from RDV")).count(); }
    static Fields named(const QString &nom) { return {{QStringLiteral("Nom"), Value(nom)}}; }

    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("Tavelin.mdb"));
};

DbError::Kind kindOf(const std::function<void()> &action, QString *message = nullptr) {
    try {
        action();
    } catch (const DbError &error) {
        if (message != nullptr) {
            *message = error.message();
        }
        return error.kind();
    }
    ADD_FAILURE() << "no DbError";
    return DbError::Kind::Other;
}

} // namespace

TEST_F(DatabaseTest, RowsComeBackAsTheyWereWritten) {
    Database base = Database::open(file);
    const QString hard = QStringLiteral("L'œuvre \"d'Élodie\"\n# * ? [x] 😀 %1 --");
    const qint64 key = base.insert(table, {{QStringLiteral("Nom"), Value(hard)},
                                           {QStringLiteral("Date1"), Value::date(QDate(2026, 3, 1))},
                                           {QStringLiteral("HeureDebut"), Value::time(QTime(9, 5))},
                                           {QStringLiteral("Present"), Value::boolean(true)}});
    base.insert(table, {{QStringLiteral("Nom"), Value()}});
    const Records rows = base.query(SqlText("select * from RDV where Nom = ")
                                    << texte(hard) << "and Date1 = " << dateSql(QDate(2026, 3, 1)));
    ASSERT_EQ(rows.count(), 1);
    EXPECT_EQ(rows.first()[u"refrdv"].toInteger(), key);
    EXPECT_EQ(rows.first()[u"Nom"].toText(), hard);
    EXPECT_EQ(rows.first()[u"Date1"].toDate(), QDate(2026, 3, 1));
    EXPECT_EQ(rows.first()[u"HeureDebut"].toTime(), QTime(9, 5));
    EXPECT_TRUE(rows.first()[u"Present"].toBoolean());

    const Records none = base.query(SqlText("select * from RDV where Nom Is Null"));
    ASSERT_EQ(none.count(), 1);
    EXPECT_FALSE(none.first()[u"Date1"].toDate().isValid());
    EXPECT_FALSE(none.first()[u"HeureDebut"].toTime().isValid());
    EXPECT_FALSE(none.first()[u"Present"].toBoolean());
}

TEST_F(DatabaseTest, TextCannotLeaveItsQuotes) {
    Database base = Database::open(file);
    base.insert(table, named(QStringLiteral("x")));
    for (const QString &nom :
         {QStringLiteral("' or '1'='1"), QStringLiteral("x") + QChar(0) + QStringLiteral("' --"),
          QStringLiteral("\\'"), QStringLiteral("''")}) {
        EXPECT_EQ(base.query(SqlText("select * from RDV where Nom = ") << texte(nom)).count(), 0);
    }
}

TEST_F(DatabaseTest, UpdatesByKeyAndNeverReusesOne) {
    Database base = Database::open(file);
    const qint64 first = base.insert(table, named(QStringLiteral("A")));
    EXPECT_TRUE(base.update(table, QStringLiteral("RefRDV"), first, named(QStringLiteral("B"))));
    EXPECT_FALSE(base.update(table, QStringLiteral("RefRDV"), first + 1, named(QStringLiteral("C"))));
    EXPECT_EQ(base.execute(SqlText("delete from RDV where RefRDV = ") << nombre(first)), 1);
    EXPECT_GT(base.insert(table, named(QStringLiteral("D"))), first);
}

TEST_F(DatabaseTest, TransactionIsWholeOrNothing) {
    Database base = Database::open(file);
    {
        const Transaction undone(base);
        base.insert(table, named(QStringLiteral("A")));
    }
    EXPECT_EQ(count(), 0);
    try {
        Transaction failing(base);
        base.insert(table, named(QStringLiteral("A")));
        base.insert(QStringLiteral("Absente"), named(QStringLiteral("A")));
        failing.commit();
        ADD_FAILURE() << "the second insert passed";
    } catch (const DbError &error) {
        EXPECT_EQ(error.kind(), DbError::Kind::Structure);
    }
    EXPECT_EQ(count(), 0);
    Transaction kept(base);
    base.insert(table, named(QStringLiteral("A")));
    kept.commit();
    EXPECT_EQ(count(), 1);
}

TEST_F(DatabaseTest, SaysInFrenchWhatIsWrongWithAFile) {
    struct Row {
        const char *name;
        QByteArray content;
        DbError::Kind kind;
    };
    const QByteArray whole = [&] {
        QFile f(file);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    }();
    for (const Row &row : {Row{"empty", "", DbError::Kind::UnknownFormat},
                           Row{"text", "Bonjour", DbError::Kind::UnknownFormat},
                           Row{"truncated", whole.first(1500), DbError::Kind::Damaged},
                           Row{"header only", whole.first(16), DbError::Kind::UnknownFormat}}) {
        const QString bad = dir.filePath(QString::fromLatin1(row.name));
        QFile f(bad);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(row.content);
        f.close();
        QString message;
        EXPECT_EQ(kindOf([&] { Database::open(bad).query(SqlText("select * from RDV")); }, &message),
                  row.kind)
            << row.name;
        EXPECT_TRUE(message.startsWith(QStringLiteral("Le fichier « ") + bad)) << message.toStdString();
    }
    EXPECT_EQ(kindOf([&] { Database::open(dir.filePath(QStringLiteral("absent.mdb"))); }),
              DbError::Kind::Missing);
    EXPECT_EQ(kindOf([&] { Database::open(dir.path()); }), DbError::Kind::Other) << "a folder";
    Database base = Database::open(file);
    EXPECT_EQ(kindOf([&] { base.query(SqlText("select * from Absente")); }), DbError::Kind::Structure);
    EXPECT_EQ(kindOf([&] { base.tableDef(QStringLiteral("Absente")); }), DbError::Kind::Structure);
    EXPECT_EQ(kindOf([&] { base.query(SqlText("select * from RDV")).field(u"Absent"); }),
              DbError::Kind::Structure);
    EXPECT_EQ(kindOf([&] { Database::create(file); }), DbError::Kind::Other);
}

TEST_F(DatabaseTest, ReadOnlyFileIsReadAndNotWritten) {
    QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup);
    Database base = Database::open(file);
    EXPECT_EQ(base.query(SqlText("select * from RDV")).count(), 0);
    EXPECT_FALSE(base.tableDef(table).isUpdatable());
    EXPECT_EQ(kindOf([&] { base.insert(table, named(QStringLiteral("A"))); }), DbError::Kind::ReadOnly);
}

TEST_F(DatabaseTest, WaitsForAnotherProgramThenSaysSo) {
    sqlite3 *other = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    Database base = Database::open(file);
    QString message;
    EXPECT_EQ(kindOf([&] { const Transaction t(base); }, &message), DbError::Kind::Locked);
    EXPECT_TRUE(message.contains(QStringLiteral("occupé par un autre programme"))) << message.toStdString();
    sqlite3_close(other);
    Transaction afterwards(base);
    base.insert(table, named(QStringLiteral("A")));
    afterwards.commit();
    EXPECT_EQ(count(), 1);
}

TEST_F(DatabaseTest, FieldsAreAppendedAndDeleted) {
    Database base = Database::open(file);
    TableDef rdv = base.tableDef(table);
    rdv.appendField({QStringLiteral("Fauteuil"), FieldType::Int16, 5});
    EXPECT_TRUE(rdv.hasField(QStringLiteral("fauteuil")));
    EXPECT_EQ(kindOf([&] {
                  rdv.appendField({QStringLiteral("Fauteuil"), FieldType::Int16, 5});
              }),
              DbError::Kind::Other);
    rdv.deleteField(QStringLiteral("Fauteuil"));
    EXPECT_FALSE(rdv.hasField(QStringLiteral("Fauteuil")));
}

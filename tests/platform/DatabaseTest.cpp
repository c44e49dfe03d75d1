#include "platform/db/Database.h"
#include "platform/FakeLocks.h"
#include "platform/db/DbError.h"
#include "platform/db/LockTest.h"
#include "support/Texte.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;
using Kind = DbError::Kind;

const QString table = q("RDV");

class DatabaseTest : public testing::Test {
  protected:
    DatabaseTest() {
        Database base = Database::create(file);
        base.createTable(table, {{q("RefRDV"), FieldType::AutoNumber},
                                 {q("Nom"), FieldType::Text, 50},
                                 {q("Date1"), FieldType::DateTime}});
    }
    void TearDown() override { sqlite3_close(m_other); }

    int count() { return Database::open(file).query(SqlText("select * from RDV")).count(); }
    static Fields named(const QString &nom) { return {{q("Nom"), Value(nom)}}; }
    void add(Database &base, int rows) {
        Transaction all(base);
        for (int i = 0; i < rows; ++i) {
            base.insert(table, named(QString::number(i)));
        }
        all.commit();
    }
    /// Another program, in SQLite's own words.
    void other(const char *sql) {
        ASSERT_TRUE(m_other != nullptr || sqlite3_open(file.toUtf8().constData(), &m_other) == SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(m_other, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(m_other);
    }

    QTemporaryDir dir;
    const QString file = dir.filePath(q("Tavelin.mdb"));

  private:
    sqlite3 *m_other = nullptr;
};

std::pair<Kind, QString> failure(const std::function<void()> &action) {
    try {
        action();
    } catch (const DbError &error) {
        return {error.kind(), error.message()};
    }
    ADD_FAILURE() << "no DbError";
    return {};
}
Kind kindOf(const std::function<void()> &action) {
    return failure(action).first;
}

} // namespace

TEST_F(DatabaseTest, RowsComeBackAsTheyWereWritten) {
    Database base = Database::open(file);
    const QString hard = q("' or '1'='1 \\ \"d'Élodie\"\n# * ? [x] 😀 %1 --") + QChar(0xFFFF);
    const QString withNul = hard + QChar(0) + hard;
    const Value day = Value::date(QDate(2026, 3, 1));
    const qint64 key = base.insert(table, {{q("Nom"), hard}, {q("Date1"), day}});
    base.insert(table, named(withNul));
    base.insert(table, named(withNul));
    const Records found = base.query(SqlText("select * from RDV where Nom = ")
                                     << texte(hard) << "and Date1 = " << dateSql(QDate(2026, 3, 1)));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(found.first()[u"refrdv"].toInteger(), key);
    EXPECT_EQ(base.query(SqlText("select * from RDV where Nom = ") << texte(withNul)).count(), 0);
    const Records all = base.query(SqlText("select Nom, Date1 from RDV order by RefRDV"));
    EXPECT_EQ(all[0].at(0).toText(), hard);
    EXPECT_EQ(all[1].at(0).toText(), withNul);
    EXPECT_EQ(all[2].at(0).toText(), withNul);
    EXPECT_FALSE(all[1].at(1).toDate().isValid());
}

TEST(Value, ReadsWhatOtherProgramsStore) {
    const std::pair<const char *, QTime> cases[] = {{"09:15", {9, 15}},
                                                    {"1899-12-30 09:15:00", {9, 15}},
                                                    {"1899-12-30T09:15:00.400", {9, 15}},
                                                    {"1899-12-30 09:14:59.9996", {9, 15}},
                                                    {"23:59:59.9", {23, 59, 59}},
                                                    {"9h15", {}},
                                                    {"2026-03-11 ", {}},
                                                    {"2026-13-45 09:15", {}},
                                                    {"25:00", {}}};
    for (const auto &[text, time] : cases) {
        EXPECT_EQ(Value(q(text)).toTime(), time) << text;
    }
    EXPECT_EQ(Value(q("2026-03-11 09:15:00")).toDate(), QDate(2026, 3, 11));
}

TEST_F(DatabaseTest, ARowThatPassesByReadsAsOneThatIsKept) {
    other("INSERT INTO RDV (Nom, Date1) VALUES ('Zoé', '2026-03-11'), (' 12 ', '1899-12-30 09:14:59.9996'),"
          "('-7', x'323032362d30332d3131'), (1e20, '2026-03-11é09:15'), (NULL, NULL), ('9h', '1é')");
    Database base = Database::open(file);
    const SqlText sql("select Date1, Nom, RefRDV, RefRDV + 0.5 from RDV order by RefRDV");
    const Records kept = base.query(sql);
    int row = 0;
    base.forEach(sql, [&](const RowView &passing) {
        for (int i = 0; i < 4; ++i) {
            const Value &value = kept.at(row, i);
            EXPECT_EQ(passing.text(i), value.toText()) << row;
            EXPECT_EQ(passing.integer(i), value.toInteger()) << row;
            EXPECT_EQ(passing.boolean(i), value.toBoolean()) << row;
            EXPECT_EQ(passing.date(i), value.toDate()) << row;
            EXPECT_EQ(passing.time(i), value.toTime()) << row;
        }
        ++row;
    });
    EXPECT_EQ(row, 6);
}

TEST_F(DatabaseTest, WritesByKeyNeverReusedWholeOrNotAtAll) {
    Database base = Database::open(file);
    const qint64 first = base.insert(table, named(q("A")));
    EXPECT_TRUE(base.update(table, q("RefRDV"), first, named(q("B"))));
    EXPECT_FALSE(base.update(table, q("RefRDV"), first + 1, named(q("C"))));
    EXPECT_EQ(base.execute(SqlText("delete from RDV where RefRDV = ") << nombre(first)), 1);
    EXPECT_GT(base.insert(table, named(q("D"))), first);
    EXPECT_THROW(
        {
            Transaction failing(base);
            base.insert(table, named(q("A")));
            base.insert(q("Absente"), named(q("A")));
            failing.commit();
        },
        DbError);
    EXPECT_EQ(count(), 1);
}

TEST_F(DatabaseTest, SaysInFrenchWhatIsWrong) {
    QFile good(file);
    ASSERT_TRUE(good.open(QIODevice::ReadOnly));
    const QByteArray whole = good.readAll();
    const auto opened = [&](const QString &name) {
        const QString path = dir.filePath(name);
        const auto [kind, message] =
            failure([&] { Database::open(path).query(SqlText("select * from RDV")); });
        EXPECT_TRUE(message.startsWith(q("Le fichier « ") + path)) << message;
        return kind;
    };
    for (const auto &[content, kind] :
         {std::pair(QByteArray(), Kind::UnknownFormat), std::pair(QByteArray("Bonjour"), Kind::UnknownFormat),
          std::pair(whole.first(1500), Kind::Damaged), std::pair(whole.first(16), Kind::UnknownFormat)}) {
        QFile f(dir.filePath(q("mauvais")));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(content) == content.size() && f.flush());
        EXPECT_EQ(opened(q("mauvais")), kind) << content.size();
    }
    ASSERT_EQ(mkfifo(dir.filePath(q("tuyau")).toUtf8().constData(), 0400), 0);
    EXPECT_EQ(opened(q("tuyau")), Kind::Other);
    EXPECT_EQ(opened(q("absent")), Kind::Missing);
    Database base = Database::open(file);
    const std::pair<const char *, std::function<void()>> faults[] = {
        {"a refusé l'opération", [&] { base.query(SqlText("selec t")); }},
        {"la table « Absente » manque", [&] { base.query(SqlText("select * from Absente")); }},
        {"la table « Absente » manque", [&] { base.tableDef(q("Absente")); }},
        {"le champ « Absent » manque", [&] { base.query(SqlText("select Absent from RDV")); }},
        {"le champ « Absent » manque", [&] {
             base.insert(table, {{q("Absent"), 1}});
         }}};
    for (const auto &[words, action] : faults) {
        EXPECT_TRUE(failure(action).second.endsWith(q(words) + u'.')) << words;
    }
}

TEST_F(DatabaseTest, ReadOnlyFileIsReadAndNotWritten) {
    QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup);
    Database base = Database::open(file);
    EXPECT_EQ(base.query(SqlText("select * from RDV")).count(), 0);
    EXPECT_FALSE(base.tableDef(table).isUpdatable());
    EXPECT_EQ(kindOf([&] { base.insert(table, named(q("A"))); }), Kind::ReadOnly);
    EXPECT_EQ(kindOf([&] { const Transaction t(base); }), Kind::ReadOnly);
}

TEST_F(DatabaseTest, WaitsAsLongAsItMayThenSaysSo) {
    other("BEGIN EXCLUSIVE");
    QElapsedTimer timer;
    timer.start();
    Database hurried = Database::open(file, 50ms);
    EXPECT_EQ(kindOf([&] { const Transaction t(hurried); }), Kind::Locked);
    EXPECT_LT(timer.elapsed(), 4000);
    timer.start();
    Database patient = Database::open(file);
    EXPECT_EQ(kindOf([&] { const Transaction t(patient); }), Kind::Locked);
    EXPECT_GE(timer.elapsed(), 4000);
    other("COMMIT");
    add(hurried, 1);
    EXPECT_EQ(count(), 1);
}

TEST_F(DatabaseTest, ARefusedLockIsNotAnOccupiedFile) {
    Database base = Database::open(file);
    fakeLocks = FakeLocks::Refused;
    EXPECT_EQ(kindOf([&] { const Transaction t(base); }), Kind::LocksRefused);
    fakeLocks = FakeLocks::None;
}

TEST_F(DatabaseTest, ASecondProcessTellsWhetherLocksHold) {
    using Locks = LockTest::Locks;
    const auto tested = [this](const QStringList &more = {}) {
        std::optional<Locks> answer;
        LockTest test;
        test.start(file, QCoreApplication::applicationDirPath() + q("/essaie_verrou"),
                   QStringList(file) + more, [&](Locks locks) { answer = locks; });
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer;
    };
    EXPECT_EQ(tested(), Locks::Hold);
    EXPECT_EQ(tested({q("sans effet")}), Locks::DoNothing);
    other("BEGIN IMMEDIATE");
    EXPECT_EQ(tested(), Locks::Hold);
    other("ROLLBACK");
    QFile::setPermissions(file, QFile::ReadOwner);
    EXPECT_EQ(tested(), Locks::Unknown);
}

TEST_F(DatabaseTest, DamageIsToldByAReadOrByTheCheck) {
    Database base = Database::open(file);
    base.tableDef(table).createIndex({q("ParNom"), SqlText("Nom")});
    add(base, 3000);
    EXPECT_EQ(checkBook(file), QString());
    const qint64 root = base.query(SqlText("select rootpage from sqlite_schema where name = 'ParNom'"))
                            .first()
                            .at(0)
                            .toInteger();
    QFile raw(file);
    ASSERT_TRUE(raw.open(QIODevice::ReadWrite));
    constexpr qint64 pageSize = 4096;
    raw.seek((root - 1) * pageSize + 8); // the page of the greatest names
    const qint64 leaf = (qFromBigEndian<quint32>(raw.read(4).constData()) - 1) * pageSize;
    const auto overwrite = [&](qint64 at, const QByteArray &bytes) {
        raw.seek(leaf + at);
        raw.write(bytes);
        raw.flush();
    };
    const auto read = [&] {
        return Database::open(file).query(SqlText("select Nom from RDV where Nom > '0'"));
    };
    overwrite(3, QByteArray("\0\3", 2)); // three names left: no read can know
    EXPECT_LT(read().count(), 2999);
    EXPECT_TRUE(checkBook(file).contains(q("endommagé")));
    overwrite(0, QByteArray(pageSize, '\0'));
    EXPECT_EQ(kindOf(read), Kind::Damaged);
}

TEST_F(DatabaseTest, AnIndexThatLacksRowsIsFoundByTheCheck) {
    Database base = Database::open(file);
    add(base, 3000);
    other("CREATE INDEX ParNom ON RDV (Nom) WHERE RefRDV <> 7; PRAGMA writable_schema=ON;"
          "UPDATE sqlite_schema SET sql = 'CREATE INDEX ParNom ON RDV (Nom)' WHERE name = 'ParNom'");
    EXPECT_TRUE(checkBook(file).contains(q("endommagé")));
    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_EQ(checkBook(file, stopped.get_token()), QString());
}

#include "platform/db/SqliteStore.h"

#include "platform/db/Database.h"
#include "platform/db/DbError.h"
#include "platform/db/SqliteDefinition.h"
#include "platform/db/SqliteErrors.h"

#include <QDir>
#include <QFileInfo>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace {

constexpr int patience = 5000; // ms, for a file that another program holds

FieldType typeOf(const QString &declared, const QString &standard) {
    const QString type = declared.toUpper();
    const auto has = [&](const char *part) { return type.contains(QLatin1StringView(part)); };
    if (has("INT") || has("BOOL") || has("BIT")) {
        return standard == u"0" ? FieldType::Boolean : FieldType::Int32;
    }
    const bool isReal = has("REAL") || has("FLOA") || has("DOUB") || has("NUMERIC") || has("DECIMAL");
    return isReal ? FieldType::Double : FieldType::Text;
}

bool isNumber(FieldType type) {
    return type != FieldType::Text && type != FieldType::DateTime;
}

/// A folder entry is on the disk when the folder is.
void syncFolder(const QString &folder) {
    const int handle = open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC);
    if (handle >= 0) {
        fsync(handle);
        close(handle);
    }
}

} // namespace

/// A statement that goes with its scope.
class SqliteStore::Statement {
  public:
    explicit Statement(sqlite3_stmt *statement) : m_statement(statement) {}
    ~Statement() { sqlite3_finalize(m_statement); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    operator sqlite3_stmt *() const { return m_statement; }

    QString text(int column) const {
        return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column)),
                                 sqlite3_column_bytes(m_statement, column));
    }

  private:
    sqlite3_stmt *m_statement;
};

std::unique_ptr<TableStore> openFolder(const QString &folder, const QStringList &files) {
    auto store = std::make_unique<SqliteStore>(folder, QString());
    for (const QString &file : files) {
        const QStringList entries = QDir(folder).entryList(QDir::Files | QDir::Hidden);
        for (const QString &entry : entries) {
            if (entry.compare(file, Qt::CaseInsensitive) == 0) {
                store->openFile(file, folder + u'/' + entry);
                break;
            }
        }
    }
    return store;
}

std::unique_ptr<TableStore> createFolder(const QString &folder) {
    return std::make_unique<SqliteStore>(folder, folder + QStringLiteral(".incomplet"));
}

SqliteStore::SqliteStore(QString folder, QString unfinished)
    : m_folder(std::move(folder)), m_unfinished(std::move(unfinished)) {
    if (m_unfinished.isEmpty()) {
        return;
    }
    if (QFileInfo::exists(m_folder)) {
        throw DbError(DbError::Kind::Other, m_folder, QStringLiteral("il existe déjà"));
    }
    QDir(m_unfinished).removeRecursively(); // what a killed program left: nobody knows of it
    if (!QDir().mkpath(m_unfinished)) {
        throw DbError(DbError::Kind::ReadOnly, m_folder);
    }
}

SqliteStore::~SqliteStore() {
    close();
    if (!m_unfinished.isEmpty()) {
        QDir(m_unfinished).removeRecursively();
    }
}

void SqliteStore::close() noexcept {
    sqlite3_finalize(std::exchange(m_insert, nullptr));
    for (const File &file : m_files) {
        sqlite3_close(file.connection);
    }
    m_files.clear();
}

SqliteStore::File SqliteStore::connect(const QString &database, const QString &path) {
    File file{database, path, nullptr};
    const int code =
        sqlite3_open_v2(path.toUtf8().constData(), &file.connection,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    m_files.push_back(file);
    check(file, code);
    sqlite3_busy_timeout(file.connection, patience);
    return file;
}

/// Nobody writes until it is closed. Where nobody may write anyway, reading is enough.
void SqliteStore::openFile(const QString &database, const QString &path) {
    Database::open(path); // says what is wrong with it
    const File file = connect(database, path);
    const bool mayWrite = QFileInfo(path).isWritable() && sqlite3_db_readonly(file.connection, "main") == 0;
    run(file, mayWrite ? "BEGIN IMMEDIATE" : "BEGIN");
}

std::vector<TableShape> SqliteStore::tables() {
    std::vector<TableShape> all;
    for (const File &file : m_files) {
        const Statement names =
            prepare(file, QStringLiteral("SELECT name FROM sqlite_schema WHERE type = 'table' AND "
                                         "name NOT LIKE 'sqlite!_%' ESCAPE '!' ORDER BY rowid"));
        while (step(file, names)) {
            all.push_back(shape(file, names.text(0)));
        }
    }
    return all;
}

TableShape SqliteStore::shape(const File &file, const QString &table) {
    TableShape shape{file.database, table, {}, 0};
    const Statement fields =
        prepare(file, QStringLiteral("SELECT name, type, pk, dflt_value FROM pragma_table_info(%1)")
                          .arg(sqliteName(table)));
    while (step(file, fields)) {
        const bool isKey = sqlite3_column_int(fields, 2) == 1 &&
                           fields.text(1).compare(QStringLiteral("integer"), Qt::CaseInsensitive) == 0;
        shape.fields.push_back(
            {fields.text(0), isKey ? FieldType::AutoNumber : typeOf(fields.text(1), fields.text(3))});
        if (isKey) {
            shape.lastKey = lastKey(file, table, fields.text(0));
        }
    }
    return shape;
}

/// A key that was deleted is not given again, where the file keeps count.
qint64 SqliteStore::lastKey(const File &file, const QString &table, const QString &key) {
    const Statement largest =
        prepare(file, QStringLiteral("SELECT max(%1) FROM %2").arg(sqliteName(key), sqliteName(table)));
    step(file, largest);
    const qint64 held = sqlite3_column_int64(largest, 0);
    const Statement counts =
        prepare(file, QStringLiteral("SELECT 1 FROM sqlite_schema WHERE name = 'sqlite_sequence'"));
    if (!step(file, counts)) {
        return held;
    }
    const Statement given = prepare(file, QStringLiteral("SELECT seq FROM sqlite_sequence WHERE name = '%1'")
                                              .arg(QString(table).replace(u'\'', QStringLiteral("''"))));
    return step(file, given) ? std::max<qint64>(held, sqlite3_column_int64(given, 0)) : held;
}

QStringList SqliteStore::othersThanTables() {
    QStringList names;
    for (const File &file : m_files) {
        const Statement found = prepare(
            file,
            QStringLiteral(
                "SELECT type, name FROM sqlite_schema WHERE type IN ('view', 'trigger') ORDER BY rowid"));
        while (step(file, found)) {
            names << QStringLiteral("%1 : %2 %3")
                         .arg(file.database,
                              found.text(0) == u"view" ? QStringLiteral("vue")
                                                       : QStringLiteral("déclencheur"),
                              found.text(1));
        }
    }
    return names;
}

const SqliteStore::File &SqliteStore::fileOf(const TableShape &table) const {
    for (const File &file : m_files) {
        if (file.database == table.database) {
            return file;
        }
    }
    throw DbError(DbError::Kind::Missing, m_folder + u'/' + table.database);
}

/// The fields in their order, and last the number that names a row.
QString SqliteStore::selection(const TableShape &table) {
    QStringList names;
    for (const FieldDef &field : table.fields) {
        names << sqliteName(field.name);
    }
    return QStringLiteral("SELECT %1, rowid FROM %2 ORDER BY rowid")
        .arg(names.join(u','), sqliteName(table.table));
}

/// Nothing when the value is what the field is for.
std::optional<OddValue> SqliteStore::oddness(sqlite3_stmt *row, int column, const FieldDef &field) {
    const int type = sqlite3_column_type(row, column);
    if (type == SQLITE_NULL) {
        return std::nullopt;
    }
    const bool isText = type == SQLITE_TEXT || type == SQLITE_BLOB;
    bool fits = true;
    bool isUsual = true;
    QUtf8StringView text(reinterpret_cast<const char *>(sqlite3_column_text(row, column)),
                         sqlite3_column_bytes(row, column));
    if (isNumber(field.type)) {
        fits = !isText && (type == SQLITE_INTEGER || field.type == FieldType::Double);
        const qint64 number = sqlite3_column_int64(row, column);
        isUsual = field.type != FieldType::Boolean || (number >= -1 && number <= 1);
    } else if (isText) {
        fits = text.isValidUtf8() && std::ranges::find(text, '\0') == text.end();
        isUsual = field.type != FieldType::DateTime || text.isEmpty() || Value::dateIn(text).isValid() ||
                  Value::timeIn(text).isValid();
    } else {
        isUsual = false; // a number that becomes a text
    }
    constexpr int enough = 40;
    return fits && isUsual ? std::nullopt
                           : std::optional(OddValue{0, field.name, text.toString().left(enough), fits});
}

qint64 SqliteStore::check(const TableShape &table, const std::function<void(const OddValue &)> &visit) {
    const File &file = fileOf(table);
    const Statement rows = prepare(file, selection(table));
    qint64 count = 0;
    for (; step(file, rows); ++count) {
        for (size_t i = 0; i < table.fields.size(); ++i) {
            if (std::optional<OddValue> odd = oddness(rows, int(i), table.fields[i])) {
                odd->row = sqlite3_column_int64(rows, int(table.fields.size()));
                visit(*odd);
            }
        }
    }
    return count;
}

void SqliteStore::read(const TableShape &table, const LineVisitor &visit) {
    const File &file = fileOf(table);
    const Statement rows = prepare(file, selection(table));
    RowLine line;
    while (step(file, rows)) {
        line.clear();
        for (size_t i = 0; i < table.fields.size(); ++i) {
            const int column = int(i);
            const FieldType type = table.fields[i].type;
            if (sqlite3_column_type(rows, column) == SQLITE_NULL) {
                line.addNull();
            } else if (type == FieldType::Double) {
                line.addReal(sqlite3_column_double(rows, column));
            } else if (isNumber(type)) {
                line.addInteger(sqlite3_column_int64(rows, column));
            } else {
                const auto *utf8 = reinterpret_cast<const char *>(sqlite3_column_text(rows, column));
                line.addText({utf8, sqlite3_column_bytes(rows, column)});
            }
        }
        visit(line.bytes());
    }
}

void SqliteStore::beginRows(const TableShape &table) {
    const QString path = m_unfinished + u'/' + table.database;
    if (!QFileInfo::exists(path)) {
        Database::create(path);
        run(connect(table.database, path), "PRAGMA synchronous=EXTRA; BEGIN IMMEDIATE");
    }
    const File &file = fileOf(table);
    QStringList definitions;
    QStringList places;
    for (const FieldDef &field : table.fields) {
        definitions << sqliteDefinition(field);
        places << QStringLiteral("?");
    }
    run(file,
        QStringLiteral("CREATE TABLE %1 (%2)").arg(sqliteName(table.table), definitions.join(u',')).toUtf8());
    const QByteArray insert =
        QStringLiteral("INSERT INTO %1 VALUES (%2)").arg(sqliteName(table.table), places.join(u',')).toUtf8();
    check(file,
          sqlite3_prepare_v2(file.connection, insert.constData(), int(insert.size()), &m_insert, nullptr));
    m_filled = table;
}

void SqliteStore::addRow(const QByteArray &line) {
    const File &file = fileOf(m_filled);
    RowLineReader reader(line);
    for (int place = 1; reader.next(); ++place) {
        const FieldType type = m_filled.fields[size_t(place) - 1].type;
        int code = SQLITE_OK;
        if (reader.isNull()) {
            code = sqlite3_bind_null(m_insert, place);
        } else if (type == FieldType::Double) {
            code = sqlite3_bind_double(m_insert, place, reader.real());
        } else if (isNumber(type)) {
            code = sqlite3_bind_int64(m_insert, place, reader.integer());
        } else {
            code = sqlite3_bind_text(m_insert, place, reader.text().constData(), int(reader.text().size()),
                                     SQLITE_TRANSIENT);
        }
        check(file, code);
    }
    if (const int code = sqlite3_step(m_insert); code != SQLITE_DONE) {
        check(file, code);
    }
    sqlite3_reset(m_insert);
}

void SqliteStore::endRows() {
    sqlite3_finalize(std::exchange(m_insert, nullptr));
    if (m_filled.lastKey > 0) {
        const QString name = QString(m_filled.table).replace(u'\'', QStringLiteral("''"));
        run(fileOf(m_filled), QStringLiteral("DELETE FROM sqlite_sequence WHERE name = '%1';"
                                             "INSERT INTO sqlite_sequence VALUES ('%1', %2)")
                                  .arg(name)
                                  .arg(m_filled.lastKey)
                                  .toUtf8());
    }
}

void SqliteStore::commit() {
    for (const File &file : m_files) {
        run(file, "COMMIT");
    }
    close();
    syncFolder(m_unfinished);
    if (!QDir().rename(m_unfinished, m_folder)) {
        throw DbError(DbError::Kind::ReadOnly, m_folder);
    }
    syncFolder(QFileInfo(m_folder).absolutePath());
    m_unfinished.clear();
    m_isCommitted = true;
}

bool SqliteStore::discard() noexcept {
    return m_isCommitted && QDir(m_folder).removeRecursively();
}

SqliteStore::Statement SqliteStore::prepare(const File &file, const QString &sql) {
    sqlite3_stmt *statement = nullptr;
    const QByteArray utf8 = sql.toUtf8();
    check(file, sqlite3_prepare_v2(file.connection, utf8.constData(), int(utf8.size()), &statement, nullptr));
    return Statement(statement);
}

bool SqliteStore::step(const File &file, sqlite3_stmt *statement) {
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        check(file, code);
    }
    return code == SQLITE_ROW;
}

void SqliteStore::run(const File &file, const QByteArray &sql) {
    check(file, sqlite3_exec(file.connection, sql.constData(), nullptr, nullptr, nullptr));
}

void SqliteStore::check(const File &file, int code) {
    if (code != SQLITE_OK) {
        throw sqliteError(code, file.path, QString::fromUtf8(sqlite3_errmsg(file.connection)));
    }
}

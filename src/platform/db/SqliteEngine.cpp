#include "platform/db/SqliteEngine.h"

#include "platform/db/DbError.h"
#include "platform/db/SqlDialect.h"
#include "platform/db/SqliteDefinition.h"
#include "platform/db/SqliteErrors.h"
#include "platform/db/SqliteFunctions.h"
#include "platform/db/SqliteRow.h"

#include <QFileInfo>
#include <mutex>
#include <sqlite3.h>

namespace {

/// Root may write anything; a file that nobody is allowed to write is read-only for the book all the same.
bool isMarkedReadOnly(const QString &file) {
    const QFileInfo info(file);
    const auto anyWriter = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return !(info.permissions() & anyWriter) || !info.isWritable();
}

/// "name.Table" too.
QString quotedTable(const QString &table) {
    return sqliteName(table).replace(u'.', QStringLiteral("\".\""));
}

/// The engine's text for `sql`. An action sends the same few again and again: a page turned, a week
/// refreshed.
QString native(const QString &sql) {
    constexpr int kept = 100;
    thread_local QHash<QString, QString> known;
    if (known.size() > kept) {
        known.clear();
    }
    QString &text = known[sql];
    if (text.isNull()) {
        text = SqlDialect::sqlite(sql);
    }
    return text;
}

int bindValue(sqlite3_stmt *statement, int parameter, const Value &value) {
    if (value.isNull()) {
        return sqlite3_bind_null(statement, parameter);
    }
    if (const auto *number = std::get_if<qint64>(&value.data())) {
        return sqlite3_bind_int64(statement, parameter, *number);
    }
    if (const auto *real = std::get_if<double>(&value.data())) {
        return sqlite3_bind_double(statement, parameter, *real);
    }
    const QByteArray utf8 = value.toText().toUtf8();
    return sqlite3_bind_text(statement, parameter, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

} // namespace

/// Borrows a prepared statement and hands it back reset, whatever happens in between.
class SqliteEngine::Statement {
  public:
    explicit Statement(sqlite3_stmt *statement) : m_statement(statement) {}
    ~Statement() {
        sqlite3_reset(m_statement);
        sqlite3_clear_bindings(m_statement);
    }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    operator sqlite3_stmt *() const { return m_statement; }

  private:
    sqlite3_stmt *m_statement;
};

std::unique_ptr<SqliteEngine> SqliteEngine::openIfIts(const QString &file, std::chrono::milliseconds wait) {
    const int access = isMarkedReadOnly(file) ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    std::unique_ptr<SqliteEngine> engine(new SqliteEngine(file, access, wait));
    return engine->hasItsHeader() ? std::move(engine) : nullptr;
}

std::unique_ptr<SqliteEngine> SqliteEngine::create(const QString &file) {
    return std::unique_ptr<SqliteEngine>(
        new SqliteEngine(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, std::chrono::seconds(5)));
}

SqliteEngine::SqliteEngine(const QString &file, int openFlags, std::chrono::milliseconds wait)
    : m_file(file) {
    static std::once_flag once;
    std::call_once(once, tellRefusedLocks);
    const int code = sqlite3_open_v2(file.toUtf8().constData(), &m_connection,
                                     openFlags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (code != SQLITE_OK) {
        const QString detail = QString::fromUtf8(sqlite3_errmsg(m_connection));
        sqlite3_close(m_connection);
        throw sqliteError(code, m_file, detail);
    }
    sqlite3_busy_timeout(m_connection, int(wait.count()));
    registerSqliteFunctions(m_connection);
}

sqlite3_file *SqliteEngine::mainFile() {
    sqlite3_file *file = nullptr;
    check(sqlite3_file_control(m_connection, "main", SQLITE_FCNTL_FILE_POINTER, &file));
    return file;
}

/// Read through the connection: closing a file of one's own would drop the locks that this process holds on
/// it.
bool SqliteEngine::hasItsHeader() {
    constexpr QByteArrayView expected("SQLite format 3\0", 16);
    sqlite3_file *file = mainFile();
    QByteArray header(expected.size(), '\0');
    return file->pMethods->xRead(file, header.data(), int(header.size()), 0) == SQLITE_OK &&
           header == expected;
}

SqliteEngine::~SqliteEngine() {
    for (sqlite3_stmt *statement : std::as_const(m_statements)) {
        sqlite3_finalize(statement);
    }
    sqlite3_close(m_connection);
}

Records SqliteEngine::query(const QString &sql) {
    const Statement statement(prepared(native(sql)));
    const int columns = sqlite3_column_count(statement);
    QStringList names;
    names.reserve(columns);
    for (int i = 0; i < columns; ++i) {
        names << QString::fromUtf8(sqlite3_column_name(statement, i));
    }
    Records records(m_file, names);
    int code = sqlite3_step(statement);
    for (int row = 0; code == SQLITE_ROW; code = sqlite3_step(statement), ++row) {
        for (int i = 0; i < columns; ++i) {
            records.append(columnValue(statement, i, row > 0 ? &records.at(row - 1, i) : nullptr));
        }
    }
    if (code != SQLITE_DONE) {
        fail(code);
    }
    return records;
}

void SqliteEngine::forEach(const std::vector<std::pair<QString, RowVisitor>> &queries) {
    for (const auto &[sql, visit] : queries) {
        forEachRow(sql, visit);
    }
}

void SqliteEngine::forEachRow(const QString &sql, const RowVisitor &visit) {
    const Statement statement(prepared(native(sql)));
    const SqliteRow row(statement);
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        visit(row);
    }
    if (code != SQLITE_DONE) {
        fail(code);
    }
}

int SqliteEngine::execute(const QString &sql) {
    run(native(sql), {});
    return sqlite3_changes(m_connection);
}

qint64 SqliteEngine::insert(const QString &table, const Fields &values) {
    QStringList names;
    QStringList places;
    for (const auto &[name, value] : values) {
        names << sqliteName(name);
        places << QStringLiteral("?");
    }
    run(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(quotedTable(table), names.join(u','), places.join(u',')),
        values);
    return sqlite3_last_insert_rowid(m_connection);
}

int SqliteEngine::update(const QString &table, const QString &keyField, qint64 key, const Fields &values) {
    QStringList assignments;
    for (const auto &[name, value] : values) {
        assignments << sqliteName(name) + QStringLiteral(" = ?");
    }
    run(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?")
            .arg(quotedTable(table), assignments.join(u','), SqlDialect::sqlite(keyField)),
        values, &key);
    return sqlite3_changes(m_connection);
}

void SqliteEngine::begin(const QStringList & /*locks*/) {
    if (sqlite3_db_readonly(m_connection, "main") != 0) { // SQLite would begin to read, without a lock
        throw DbError(DbError::Kind::ReadOnly, m_file);
    }
    run(QStringLiteral("BEGIN IMMEDIATE"), {});
}

void SqliteEngine::commit() {
    run(QStringLiteral("COMMIT"), {});
}

void SqliteEngine::rollback() noexcept {
    // Nothing to report: a full disk has often rolled back already.
    sqlite3_exec(m_connection, "ROLLBACK", nullptr, nullptr, nullptr);
}

bool SqliteEngine::isIntact(const std::stop_token &stop) {
    constexpr int stepsBetweenLooks = 50'000;
    sqlite3_file *file = mainFile();
    bool othersWrite = false;
    auto mustEnd = [&] {
        int isReserved = 0;
        file->pMethods->xCheckReservedLock(file, &isReserved);
        othersWrite = isReserved != 0;
        return othersWrite || stop.stop_requested();
    };
    using Look = decltype(mustEnd);
    sqlite3_progress_handler(
        m_connection, stepsBetweenLooks, [](void *look) { return (*static_cast<Look *>(look))() ? 1 : 0; },
        &mustEnd);
    const Statement statement(prepared(QStringLiteral("PRAGMA integrity_check(1)")));
    const int code = sqlite3_step(statement);
    sqlite3_progress_handler(m_connection, 0, nullptr, nullptr);
    if (code == SQLITE_INTERRUPT && othersWrite) {
        throw DbError(DbError::Kind::Locked, m_file);
    }
    if (code != SQLITE_ROW && code != SQLITE_INTERRUPT) {
        fail(code);
    }
    return code == SQLITE_INTERRUPT || columnValue(statement, 0).toText() == QLatin1StringView("ok");
}

/// Asked at every redraw: the schema in memory answers without a statement; a view is found by its fields.
bool SqliteEngine::hasTable(const QString &table) {
    return sqlite3_table_column_metadata(m_connection, nullptr, table.toUtf8().constData(), nullptr, nullptr,
                                         nullptr, nullptr, nullptr, nullptr) == SQLITE_OK ||
           !fieldNames(table).isEmpty();
}

bool SqliteEngine::isUpdatable(const QString &table) {
    return sqlite3_db_readonly(m_connection, "main") == 0 && hasObject(QStringLiteral("table"), table);
}

bool SqliteEngine::isKey(const QString &table, const QString &field) {
    return finds(QStringLiteral("SELECT 1 FROM pragma_table_info(?) WHERE pk = 1 AND lower(type) = 'integer' "
                                "AND lower(name) = lower(?)"),
                 table, field);
}

QStringList SqliteEngine::fieldNames(const QString &table) {
    const Statement statement(prepared(QStringLiteral("SELECT name FROM pragma_table_info(?)")));
    check(bindValue(statement, 1, Value(table)));
    QStringList names;
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        names << columnValue(statement, 0).toText();
    }
    if (code != SQLITE_DONE) {
        fail(code);
    }
    return names;
}

void SqliteEngine::attach(const QString &file, const QString &name) {
    for (const QString &written : {m_file, file}) {
        if (isMarkedReadOnly(written)) {
            throw DbError(DbError::Kind::ReadOnly, written);
        }
    }
    const Statement statement(prepared(QStringLiteral("ATTACH ? AS ") + sqliteName(name)));
    check(bindValue(statement, 1, Value(file)));
    if (const int code = sqlite3_step(statement); code != SQLITE_DONE) {
        throw sqliteError(code, file, QString::fromUtf8(sqlite3_errmsg(m_connection)));
    }
    m_attached[name + u'.'] = file;
    makeDurable(name);
}

void SqliteEngine::createTable(const QString &table, const std::vector<FieldDef> &fields) {
    QStringList definitions;
    for (const FieldDef &field : fields) {
        definitions << sqliteDefinition(field);
    }
    run(QStringLiteral("CREATE TABLE %1 (%2)").arg(sqliteName(table), definitions.join(u',')), {});
}

void SqliteEngine::appendField(const QString &table, const FieldDef &field) {
    run(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2").arg(sqliteName(table), sqliteDefinition(field)), {});
}

void SqliteEngine::deleteField(const QString &table, const QString &field) {
    run(QStringLiteral("ALTER TABLE %1 DROP COLUMN %2").arg(sqliteName(table), sqliteName(field)), {});
}

bool SqliteEngine::hasIndex(const QString &index) {
    return hasObject(QStringLiteral("index"), index);
}

void SqliteEngine::createIndex(const QString &table, const IndexDef &index) {
    QString sql =
        QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
            .arg(sqliteName(index.name), sqliteName(table), SqlDialect::sqlite(index.expressions.text()));
    if (!index.condition.text().isEmpty()) {
        sql += QStringLiteral(" WHERE ") + SqlDialect::sqlite(index.condition.text());
    }
    run(sql, {});
}

bool SqliteEngine::hasObject(const QString &type, const QString &name) {
    return finds(QStringLiteral("SELECT 1 FROM sqlite_schema WHERE type = ? AND lower(name) = lower(?)"),
                 type, name);
}

bool SqliteEngine::finds(const QString &nativeSql, const QString &first, const QString &second) {
    const Statement statement(prepared(nativeSql));
    check(bindValue(statement, 1, Value(first)));
    check(bindValue(statement, 2, Value(second)));
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        fail(code);
    }
    return code == SQLITE_ROW;
}

sqlite3_stmt *SqliteEngine::prepared(const QString &nativeSql) {
    sqlite3_stmt *&statement = m_statements[nativeSql];
    if (statement == nullptr) {
        const QByteArray utf8 = nativeSql.toUtf8();
        check(sqlite3_prepare_v2(m_connection, utf8.constData(), int(utf8.size()), &statement, nullptr));
    }
    return statement;
}

/// Without this a commit may be undone when the power fails seconds later: the journal's removal is not on
/// the disk yet, and the next opening rolls back from it.
void SqliteEngine::makeDurable(const QString &database) {
    const QString pragma = QStringLiteral("PRAGMA %1.synchronous=EXTRA").arg(sqliteName(database));
    check(sqlite3_exec(m_connection, pragma.toUtf8().constData(), nullptr, nullptr, nullptr));
}

void SqliteEngine::run(const QString &nativeSql, const Fields &values, const qint64 *key) {
    if (!m_durable) {
        makeDurable(QStringLiteral("main"));
        m_durable = true;
    }
    const Statement statement(prepared(nativeSql));
    int parameter = 0;
    for (const auto &[name, value] : values) {
        check(bindValue(statement, ++parameter, value));
    }
    if (key != nullptr) {
        check(sqlite3_bind_int64(statement, ++parameter, *key));
    }
    int code = sqlite3_step(statement);
    while (code == SQLITE_ROW) {
        code = sqlite3_step(statement);
    }
    if (code != SQLITE_DONE) {
        fail(code);
    }
}

void SqliteEngine::check(int resultCode) {
    if (resultCode != SQLITE_OK) {
        fail(resultCode);
    }
}

void SqliteEngine::fail(int resultCode) {
    QString english = QString::fromUtf8(sqlite3_errmsg(m_connection));
    for (auto it = m_attached.cbegin(); it != m_attached.cend(); ++it) {
        if (english.contains(it.key())) {
            throw sqliteError(resultCode, it.value(), english.remove(it.key()));
        }
    }
    throw sqliteError(resultCode, m_file, english);
}

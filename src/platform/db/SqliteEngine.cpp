#include "platform/db/SqliteEngine.h"

#include "platform/db/DbError.h"
#include "platform/db/SqlDialect.h"
#include "platform/db/SqliteFunctions.h"

#include <QFileInfo>
#include <sqlite3.h>

namespace {

constexpr int waitForOthersMs = 5000;

/// Root may write anything; a file that nobody is allowed to write is read-only for the book all the same.
bool isMarkedReadOnly(const QString &file) {
    const QFileInfo info(file);
    const auto anyWriter = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return !(info.permissions() & anyWriter) || !info.isWritable();
}

QString quoted(const QString &name) {
    QString inside = name;
    return u'"' + inside.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString typeName(FieldType type) {
    switch (type) {
    case FieldType::AutoNumber:
        return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    case FieldType::Boolean:
        return QStringLiteral("INTEGER DEFAULT 0");
    case FieldType::Int16:
    case FieldType::Int32:
        return QStringLiteral("INTEGER");
    case FieldType::Double:
        return QStringLiteral("REAL");
    case FieldType::DateTime:
    case FieldType::Text:
        break;
    }
    return QStringLiteral("TEXT");
}

Value columnValue(sqlite3_stmt *statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return {qint64{sqlite3_column_int64(statement, column)}};
    case SQLITE_FLOAT:
        return {sqlite3_column_double(statement, column)};
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const auto *utf8 = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return {QString::fromUtf8(utf8, sqlite3_column_bytes(statement, column))};
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

DbError::Kind kindOf(int resultCode) {
    switch (resultCode & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DbError::Kind::Locked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return DbError::Kind::ReadOnly;
    case SQLITE_CORRUPT:
        return DbError::Kind::Damaged;
    case SQLITE_NOTADB:
        return DbError::Kind::UnknownFormat;
    case SQLITE_FULL:
        return DbError::Kind::DiskFull;
    default:
        return DbError::Kind::Other;
    }
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

bool SqliteEngine::recognises(const QByteArray &header) {
    return header == QByteArrayView("SQLite format 3\0", headerSize);
}

std::unique_ptr<SqliteEngine> SqliteEngine::create(const QString &file) {
    return std::unique_ptr<SqliteEngine>(
        new SqliteEngine(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX));
}

SqliteEngine::SqliteEngine(const QString &file)
    : SqliteEngine(file, SQLITE_OPEN_NOMUTEX |
                             (isMarkedReadOnly(file) ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE)) {}

SqliteEngine::SqliteEngine(const QString &file, int openFlags) : m_file(file) {
    const int code = sqlite3_open_v2(file.toUtf8().constData(), &m_connection, openFlags, nullptr);
    if (code != SQLITE_OK) {
        const QString detail = QString::fromUtf8(sqlite3_errmsg(m_connection));
        sqlite3_close(m_connection);
        throw DbError(kindOf(code), m_file, detail);
    }
    sqlite3_extended_result_codes(m_connection, 1);
    sqlite3_busy_timeout(m_connection, waitForOthersMs);
    registerSqliteFunctions(m_connection);
}

SqliteEngine::~SqliteEngine() {
    for (sqlite3_stmt *statement : std::as_const(m_statements)) {
        sqlite3_finalize(statement);
    }
    sqlite3_close(m_connection);
}

Records SqliteEngine::query(const QString &sql) {
    const Statement statement(prepared(SqlDialect::sqlite(sql)));
    const int columns = sqlite3_column_count(statement);
    QStringList names;
    names.reserve(columns);
    for (int i = 0; i < columns; ++i) {
        names << QString::fromUtf8(sqlite3_column_name(statement, i));
    }
    Records records(m_file, names);
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        for (int i = 0; i < columns; ++i) {
            records.append(columnValue(statement, i));
        }
    }
    if (code != SQLITE_DONE) {
        fail(code);
    }
    return records;
}

int SqliteEngine::execute(const QString &sql) {
    run(SqlDialect::sqlite(sql), {});
    return sqlite3_changes(m_connection);
}

qint64 SqliteEngine::insert(const QString &table, const Fields &values) {
    QStringList names;
    QStringList places;
    for (const auto &[name, value] : values) {
        names << quoted(name);
        places << QStringLiteral("?");
    }
    run(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(quoted(table), names.join(u','), places.join(u',')),
        values);
    return sqlite3_last_insert_rowid(m_connection);
}

int SqliteEngine::update(const QString &table, const QString &keyField, qint64 key, const Fields &values) {
    QStringList assignments;
    for (const auto &[name, value] : values) {
        assignments << quoted(name) + QStringLiteral(" = ?");
    }
    run(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?")
            .arg(quoted(table), assignments.join(u','), quoted(keyField)),
        values, &key);
    return sqlite3_changes(m_connection);
}

void SqliteEngine::begin() {
    run(QStringLiteral("BEGIN IMMEDIATE"), {});
}

void SqliteEngine::commit() {
    run(QStringLiteral("COMMIT"), {});
}

void SqliteEngine::rollback() noexcept {
    // Nothing to report: a full disk has often rolled back already.
    sqlite3_exec(m_connection, "ROLLBACK", nullptr, nullptr, nullptr);
}

bool SqliteEngine::hasTable(const QString &table) {
    return !fieldNames(table).isEmpty();
}

bool SqliteEngine::isUpdatable(const QString &table) {
    return sqlite3_db_readonly(m_connection, "main") == 0 && hasObject(QStringLiteral("table"), table);
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

void SqliteEngine::createTable(const QString &table, const std::vector<FieldDef> &fields) {
    QStringList definitions;
    for (const FieldDef &field : fields) {
        definitions << quoted(field.name) + u' ' + typeName(field.type);
    }
    run(QStringLiteral("CREATE TABLE %1 (%2)").arg(quoted(table), definitions.join(u',')), {});
}

void SqliteEngine::appendField(const QString &table, const FieldDef &field) {
    run(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3")
            .arg(quoted(table), quoted(field.name), typeName(field.type)),
        {});
}

void SqliteEngine::deleteField(const QString &table, const QString &field) {
    run(QStringLiteral("ALTER TABLE %1 DROP COLUMN %2").arg(quoted(table), quoted(field)), {});
}

bool SqliteEngine::hasIndex(const QString &index) {
    return hasObject(QStringLiteral("index"), index);
}

void SqliteEngine::createIndex(const QString &table, const IndexDef &index) {
    QString sql = QStringLiteral("CREATE INDEX %1 ON %2 (%3)")
                      .arg(quoted(index.name), quoted(table), SqlDialect::sqlite(index.expressions.text()));
    if (!index.condition.text().isEmpty()) {
        sql += QStringLiteral(" WHERE ") + SqlDialect::sqlite(index.condition.text());
    }
    run(sql, {});
}

bool SqliteEngine::hasObject(const QString &type, const QString &name) {
    const Statement statement(
        prepared(QStringLiteral("SELECT 1 FROM sqlite_schema WHERE type = ? AND lower(name) = lower(?)")));
    check(bindValue(statement, 1, Value(type)));
    check(bindValue(statement, 2, Value(name)));
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

void SqliteEngine::run(const QString &nativeSql, const Fields &values, const qint64 *key) {
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
    const QString detail = QString::fromUtf8(sqlite3_errmsg(m_connection));
    if (detail.startsWith(QLatin1StringView("no such table: "))) {
        throw DbError(DbError::Kind::Structure, m_file,
                      QStringLiteral("la table « %1 » manque").arg(detail.mid(15)));
    }
    if (detail.startsWith(QLatin1StringView("no such column: "))) {
        throw DbError(DbError::Kind::Structure, m_file,
                      QStringLiteral("le champ « %1 » manque").arg(detail.mid(16)));
    }
    throw DbError(kindOf(resultCode), m_file, detail);
}

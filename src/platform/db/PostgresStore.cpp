#include "platform/db/PostgresStore.h"

#include "platform/db/DbError.h"
#include "platform/db/PostgresErrors.h"
#include "platform/db/PostgresSchema.h"
#include "platform/db/SqlDialect.h"
#include "platform/db/SqlTokens.h"

#include <QUuid>
#include <algorithm>
#include <libpq-fe.h>

namespace {

using namespace std::chrono_literals;

/// A line that is cut is found sooner, by the line itself.
constexpr std::chrono::milliseconds patience = 60s;
constexpr qsizetype piece = 65536;

/// Stands behind the file's name in the comment of a schema that no practice works with yet; whose copy it is
/// comes after it.
const QString copyMark = QStringLiteral(", copie ");

/// Fields of tables, with the spelling that they had before they were moved. The engine's own are left out.
constexpr const char *fieldsOfSchemas = R"(
SELECT n.nspname::text, c.relname::text, coalesce(obj_description(c.oid, 'pg_class'), ''), a.attname::text,
    coalesce(col_description(c.oid, a.attnum), ''), format_type(a.atttypid, NULL),
    coalesce(pg_get_expr(d.adbin, d.adrelid), ''), a.attidentity::text,
    coalesce(pg_sequence_last_value(pg_get_serial_sequence(format('%I.%I', n.nspname, c.relname), a.attname)), 0)
FROM pg_class c JOIN pg_namespace n ON n.oid = relnamespace
    JOIN pg_attribute a ON attrelid = c.oid AND attnum > 0 AND NOT attisdropped
    LEFT JOIN pg_attrdef d ON adrelid = c.oid AND adnum = attnum
WHERE n.nspname IN (%1) AND relkind IN ('r', 'p') AND attname NOT IN ('%2', '%3')
ORDER BY array_position(ARRAY[%1], n.nspname::text), c.oid, attnum)";

QString schemaOf(const QString &file) {
    return file.section(u'.', 0, 0).toLower();
}

QString tableName(const TableShape &table) {
    return SqlDialect::postgresName(schemaOf(table.database)) + u'.' + SqlDialect::postgresName(table.table);
}

QString field(const pg_result *result, int row, int column) {
    return QString::fromUtf8(PQgetvalue(result, row, column));
}

FieldType typeOf(const QString &type, const QString &standard, bool isKey) {
    if (isKey) {
        return FieldType::AutoNumber;
    }
    if (type == u"bigint" || type == u"integer" || type == u"smallint") {
        return standard.startsWith(u'0') || standard.startsWith(u'\'') ? FieldType::Boolean
                                                                       : FieldType::Int32;
    }
    const bool isReal = type == u"double precision" || type == u"real" || type == u"numeric";
    return isReal ? FieldType::Double : FieldType::Text;
}

bool hasKey(const TableShape &table) {
    return std::ranges::any_of(table.fields,
                               [](const FieldDef &each) { return each.type == FieldType::AutoNumber; });
}

QString namesOf(const TableShape &table) {
    QStringList names;
    for (const FieldDef &each : table.fields) {
        names << SqlDialect::postgresName(each.name);
    }
    return names.join(u',');
}

/// By the key, or in the order in which rows were added.
QString orderOf(const TableShape &table) {
    for (const FieldDef &each : table.fields) {
        if (each.type == FieldType::AutoNumber) {
            return SqlDialect::postgresName(each.name);
        }
    }
    return rowKeyField;
}

} // namespace

std::unique_ptr<TableStore> openServer(const QString &url, const QStringList &files) {
    auto store = std::make_unique<PostgresStore>(url, files);
    store->lock();
    return store;
}

std::unique_ptr<TableStore> createServer(const QString &url, const QStringList &files) {
    auto store = std::make_unique<PostgresStore>(url, files);
    store->prepare();
    return store;
}

bool isInUse(const QString &url, const QString &file) {
    return PostgresStore(url, {file}).isInUse();
}

PostgresStore::PostgresStore(QString url, QStringList files)
    : m_url(std::move(url)), m_files(std::move(files)),
      m_mark(copyMark + QUuid::createUuid().toString(QUuid::WithoutBraces)) {
    connect();
}

void PostgresStore::connect() {
    PostgresFailure failure;
    m_line = PostgresConnection::connect(ServerLocation::of(m_url), failure);
    if (!m_line) {
        fail(failure);
    }
    // While one side is worked on the other waits, longer than a desk in the middle of a booking may.
    send(QStringLiteral("SET lock_timeout TO '5s'; SET idle_in_transaction_session_timeout TO '10min'"));
}

std::vector<PostgresResult> PostgresStore::send(const QString &sql) {
    PostgresAnswer answer = m_line->run(sql.toUtf8(), patience);
    if (answer.failure) {
        fail(*answer.failure, sql);
    }
    return std::move(answer.results);
}

void PostgresStore::fail(const PostgresFailure &failure, const QString &sql) {
    throw postgresError(failure, m_url, sql);
}

QString PostgresStore::schemaList() const {
    QStringList names;
    for (const QString &file : m_files) {
        names << quotedText(schemaOf(file));
    }
    return names.join(u',');
}

QString PostgresStore::fileOf(const QString &schema) const {
    const auto found = std::ranges::find(m_files, schema, schemaOf);
    return found == m_files.end() ? schema + QStringLiteral(".mdb") : *found;
}

// ---- Reading

void PostgresStore::lock() {
    send(QStringLiteral("BEGIN"));
    QStringList names;
    for (const TableShape &table : tables()) {
        names << tableName(table);
    }
    names.removeDuplicates();
    if (!names.isEmpty()) {
        send(QStringLiteral("LOCK TABLE %1 IN SHARE MODE").arg(names.join(u',')));
    }
}

bool PostgresStore::isInUse() {
    const QString sql =
        QStringLiteral("SELECT coalesce(obj_description(oid, 'pg_namespace'), '') FROM pg_namespace "
                       "WHERE nspname IN (%1)")
            .arg(schemaList());
    const auto results = send(sql);
    if (PQntuples(results.back().get()) == 0) {
        throw DbError(DbError::Kind::Missing, m_url, schemaOf(m_files.first()));
    }
    return !field(results.back().get(), 0, 0).contains(copyMark);
}

std::vector<TableShape> PostgresStore::tables() {
    const auto results = send(QString::fromUtf8(fieldsOfSchemas)
                                  .replace(QStringLiteral("%1"), schemaList())
                                  .replace(QStringLiteral("%2"), rowKeyField)
                                  .replace(QStringLiteral("%3"), oldClashField));
    const pg_result *rows = results.back().get();
    std::vector<TableShape> all;
    QString last;
    for (int row = 0; row < PQntuples(rows); ++row) {
        const auto spelled = [&](int name) {
            const QString before = field(rows, row, name + 1);
            return SqlDialect::postgresName(before) == SqlDialect::postgresName(field(rows, row, name))
                       ? before
                       : field(rows, row, name);
        };
        const QString here = field(rows, row, 0) + u'.' + field(rows, row, 1);
        if (std::exchange(last, here) != here) {
            all.push_back({fileOf(field(rows, row, 0)), spelled(1), {}, 0});
        }
        const FieldType type =
            typeOf(field(rows, row, 5), field(rows, row, 6), !field(rows, row, 7).isEmpty());
        all.back().fields.push_back({spelled(3), type});
        all.back().lastKey = std::max(all.back().lastKey, field(rows, row, 8).toLongLong());
    }
    return all;
}

QStringList PostgresStore::othersThanTables() {
    const auto results =
        send(QStringLiteral("SELECT nspname || ' : vue ' || relname FROM pg_class JOIN pg_namespace n "
                            "ON n.oid = relnamespace WHERE nspname IN (%1) AND relkind IN ('v', 'm') "
                            "ORDER BY 1")
                 .arg(schemaList()));
    QStringList names;
    for (int row = 0; row < PQntuples(results.back().get()); ++row) {
        names << field(results.back().get(), row, 0);
    }
    return names;
}

/// What a server holds a file can hold.
qint64 PostgresStore::check(const TableShape &table,
                            const std::function<void(const OddValue &)> & /*visit*/) {
    const auto counted = send(QStringLiteral("SELECT count(*) FROM ") + tableName(table));
    return field(counted.back().get(), 0, 0).toLongLong();
}

/// A real number is spelled as every store does: the server's own digits differ.
void PostgresStore::read(const TableShape &table, const LineVisitor &visit) {
    const bool hasReals = std::ranges::any_of(
        table.fields, [](const FieldDef &each) { return each.type == FieldType::Double; });
    const auto spelled = [&](const QByteArray &row) {
        RowLine line;
        RowLineReader reader(row);
        for (const FieldDef &each : table.fields) {
            reader.next();
            if (reader.isNull()) {
                line.addNull();
            } else if (each.type == FieldType::Double) {
                line.addReal(reader.real());
            } else {
                line.addText(QUtf8StringView(reader.text()));
            }
        }
        visit(line.bytes());
    };
    const QString sql = QStringLiteral("COPY (SELECT %1 FROM %2 ORDER BY %3) TO STDOUT")
                            .arg(namesOf(table), tableName(table), orderOf(table));
    const auto failure = m_line->copyOut(sql.toUtf8(), hasReals ? LineVisitor(spelled) : visit, patience);
    if (failure) {
        fail(*failure, sql);
    }
}

// ---- Writing

/// Whoever else moves a practice here, or makes its first schema, waits for the end.
void PostgresStore::prepare() {
    send(QStringLiteral("BEGIN; SELECT pg_advisory_xact_lock(hashtextextended('dialecte', 0))"));
    for (const QString &file : std::as_const(m_files)) {
        refuseExisting(schemaOf(file));
    }
    send(QString::fromUtf8(dialectStatements()));
}

void PostgresStore::refuseExisting(const QString &schema) {
    const auto results = send(QString::fromUtf8(PostgresCatalogue::query(schema)));
    const PostgresCatalogue found = PostgresCatalogue::of(results.back().get());
    const auto refuse = [this](DbError::Kind kind, const QString &why) { throw DbError(kind, m_url, why); };
    if (found.serverVersion < oldestPostgres) {
        refuse(DbError::Kind::Other,
               QStringLiteral("le serveur est trop ancien, il faut la version 13 ou plus"));
    }
    if (!found.isUtf8) {
        refuse(DbError::Kind::Other, QStringLiteral("elle n'est pas codée en UTF-8"));
    }
    if (found.dialectVersion > ourDialect) {
        refuse(DbError::Kind::Other, QStringLiteral("un carnet plus récent que celui de ce poste y a écrit"));
    }
    if (found.exists) {
        const bool inUse = isInUse();
        refuse(DbError::Kind::Other,
               inUse ? QStringLiteral("elle contient déjà un carnet (schéma « %1 »)").arg(schema)
                     : QStringLiteral("elle contient un déplacement inachevé (schéma « %1 ») : supprimez-la, "
                                      "créez-en une vide et recommencez")
                           .arg(schema));
    }
}

void PostgresStore::beginRows(const TableShape &table) {
    const QString schema = SqlDialect::postgresName(schemaOf(table.database));
    QString sql;
    if (!m_made.contains(table.database)) {
        sql = QStringLiteral("CREATE SCHEMA %1; COMMENT ON SCHEMA %1 IS %2;")
                  .arg(schema, quotedText(table.database + m_mark));
        m_made << table.database;
    }
    QStringList definitions;
    QString spellings =
        QStringLiteral("COMMENT ON TABLE %1 IS %2;").arg(tableName(table), quotedText(table.table));
    for (const FieldDef &each : table.fields) {
        definitions << postgresDefinition(each);
        spellings += QStringLiteral("COMMENT ON COLUMN %1.%2 IS %3;")
                         .arg(tableName(table), SqlDialect::postgresName(each.name), quotedText(each.name));
    }
    if (!hasKey(table)) {
        definitions << rowKeyField + QStringLiteral(" bigint GENERATED BY DEFAULT AS IDENTITY");
    }
    send(sql + QStringLiteral("CREATE TABLE %1 (%2);").arg(tableName(table), definitions.join(u',')) +
         spellings);
    const QString copy = QStringLiteral("COPY %1 (%2) FROM STDIN").arg(tableName(table), namesOf(table));
    if (const auto failure = m_line->beginCopy(copy.toUtf8(), patience)) {
        fail(*failure, copy);
    }
    m_filled = table;
}

void PostgresStore::addRow(const QByteArray &line) {
    m_rows += line;
    m_rows += '\n';
    if (m_rows.size() >= piece) {
        flush();
    }
}

void PostgresStore::flush() {
    if (const auto failure = m_line->copy(m_rows, patience)) {
        fail(*failure);
    }
    m_rows.resize(0);
}

void PostgresStore::endRows() {
    flush();
    if (const auto failure = m_line->endCopy(patience)) {
        fail(*failure);
    }
    if (hasKey(m_filled) && m_filled.lastKey > 0) {
        send(QStringLiteral("SELECT setval(pg_get_serial_sequence(%1, %2), %3)")
                 .arg(quotedText(tableName(m_filled)), quotedText(orderOf(m_filled)))
                 .arg(m_filled.lastKey));
    }
}

/// The statistics are taken while the rows are still in memory.
void PostgresStore::commit() {
    QStringList schemas;
    for (const TableShape &table : tables()) {
        schemas << tableName(table);
    }
    send(QStringLiteral("ANALYZE %1; COMMIT").arg(schemas.join(u',')));
}

/// The line may have gone with what it was asked last. Whoever comes after waits for the end of that.
void PostgresStore::beginAgain() {
    const QString begin =
        QStringLiteral("BEGIN; SELECT pg_advisory_xact_lock(hashtextextended('dialecte', 0))");
    try {
        send(begin);
    } catch (const DbError &error) {
        if (error.kind() != DbError::Kind::Unreachable) {
            throw;
        }
        connect();
        send(begin);
    }
}

void PostgresStore::declareInUse() {
    beginAgain();
    QString sql;
    for (const QString &file : std::as_const(m_made)) {
        sql += QStringLiteral("COMMENT ON SCHEMA %1 IS %2;")
                   .arg(SqlDialect::postgresName(schemaOf(file)), quotedText(file));
    }
    send(sql + QStringLiteral("COMMIT"));
}

/// Only what bears this store's own mark: another desk may have moved its practice here since.
bool PostgresStore::discard() noexcept {
    try {
        beginAgain();
        const auto found = send(QStringLiteral("SELECT nspname FROM pg_namespace WHERE "
                                               "obj_description(oid, 'pg_namespace') LIKE %1")
                                    .arg(quotedText(u'%' + m_mark)));
        QString sql;
        for (int row = 0; row < PQntuples(found.back().get()); ++row) {
            sql += QStringLiteral("DROP SCHEMA %1 CASCADE;")
                       .arg(SqlDialect::postgresName(field(found.back().get(), row, 0)));
        }
        send(sql + QStringLiteral("COMMIT"));
        return true;
    } catch (const DbError &) { // what happened before is what the user is told
        return false;
    }
}

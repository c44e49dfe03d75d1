#include "platform/db/Database.h"

#include "platform/db/DbError.h"
#include "platform/db/Engine.h"
#include "platform/db/PostgresEngine.h"
#include "platform/db/SqliteEngine.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// The content, not the name, tells which engine reads a file.
std::unique_ptr<Engine> engineFor(const QString &path, std::chrono::milliseconds wait) {
    if (ServerLocation::isOne(path)) {
        return PostgresEngine::open(path, wait);
    }
    const QFileInfo info(path);
    if (!info.exists()) {
        throw DbError(DbError::Kind::Missing, path);
    }
    if (!info.isFile()) { // opening a pipe would wait without end
        throw DbError(DbError::Kind::Other, path, QStringLiteral("ce n'est pas un fichier"));
    }
    if (std::unique_ptr<Engine> sqlite = SqliteEngine::openIfIts(path, wait)) {
        return sqlite;
    }
    throw DbError(DbError::Kind::UnknownFormat, path);
}

} // namespace

Database::Database(QString path, std::unique_ptr<Engine> engine)
    : m_path(std::move(path)), m_engine(std::move(engine)) {}
Database::Database(Database &&) noexcept = default;
Database &Database::operator=(Database &&) noexcept = default;
Database::~Database() = default;

Database Database::open(const QString &path, std::chrono::milliseconds wait) {
    return {path, engineFor(path, wait)};
}

Database Database::create(const QString &path) {
    if (ServerLocation::isOne(path)) {
        return {path, PostgresEngine::create(path)};
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) { // at once: another may be about to create it
        throw DbError(DbError::Kind::Other, path,
                      file.exists() ? QStringLiteral("il existe déjà")
                                    : QStringLiteral("il ne peut pas être créé"));
    }
    file.close();
    return {path, SqliteEngine::create(path)};
}

Records Database::query(const SqlText &sql) {
    return m_engine->query(sql.text());
}

void Database::forEach(const SqlText &sql, const RowVisitor &visit) {
    m_engine->forEach({{sql.text(), visit}});
}

void Database::forEach(const std::vector<std::pair<SqlText, RowVisitor>> &queries) {
    std::vector<std::pair<QString, RowVisitor>> texts;
    texts.reserve(queries.size());
    for (const auto &[sql, visit] : queries) {
        texts.emplace_back(sql.text(), visit);
    }
    m_engine->forEach(texts);
}

int Database::execute(const SqlText &sql) {
    return m_engine->execute(sql.text());
}

qint64 Database::insert(const QString &table, const Fields &values) {
    return m_engine->insert(table, values);
}

void Database::append(const QString &table, const Fields &values) {
    m_engine->append(table, values);
}

bool Database::update(const QString &table, const QString &keyField, qint64 key, const Fields &values) {
    return m_engine->update(table, keyField, key, values) > 0;
}

bool Database::hasTable(const QString &table) {
    return m_engine->hasTable(table);
}

TableDef Database::tableDef(const QString &table) {
    if (!m_engine->hasTable(table)) {
        throw DbError(DbError::Kind::Structure, m_path, QStringLiteral("la table « %1 » manque").arg(table));
    }
    return {*m_engine, table};
}

TableDef Database::completedTable(const QString &table, const std::vector<FieldDef> &fields) {
    if (!hasTable(table)) {
        createTable(table, fields);
    }
    TableDef def = tableDef(table);
    for (const FieldDef &field : fields) {
        if (!def.hasField(field.name)) {
            def.appendField(field);
        }
    }
    return def;
}

void Database::createTable(const QString &table, const std::vector<FieldDef> &fields) {
    m_engine->createTable(table, fields);
}

void Database::attach(const Database &other, const QString &name) {
    m_engine->attach(other.m_path, name);
}

bool Database::wasWritten(const QString &writing) {
    return m_engine->wasWritten(writing);
}

QString placeLabel(const QString &location) {
    return ServerLocation::isOne(location) ? ServerLocation::of(location).label() : QString();
}

QString Database::whyReadOnly() {
    return m_engine->whyReadOnly();
}

QString checkBook(const QString &path, const std::stop_token &stop) {
    if (ServerLocation::isOne(path)) { // who keeps the server checks what it keeps
        return {};
    }
    constexpr int attempts = 100;
    for (int i = 0; i < attempts && !stop.stop_requested(); ++i) {
        try {
            const bool intact = Database::open(path).m_engine->isIntact(stop);
            return intact ? QString() : DbError(DbError::Kind::Damaged, path).message();
        } catch (const DbError &error) {
            if (error.kind() != DbError::Kind::Locked) { // one that is away for a moment is not damaged
                return error.kind() == DbError::Kind::Damaged ? error.message() : QString();
            }
        }
    }
    return {};
}

Transaction::Transaction(Database &database) : m_engine(database.m_engine.get()) {
    m_engine->begin({});
}

/// In one order for everybody, or two could each wait for what the other has.
Transaction::Transaction(Database &database, QStringList locks) : m_engine(database.m_engine.get()) {
    locks.sort();
    locks.removeDuplicates();
    m_engine->begin(locks);
}

Transaction::~Transaction() {
    if (m_open) {
        m_engine->rollback();
    }
}

void Transaction::commit() {
    m_engine->commit();
    m_open = false;
}

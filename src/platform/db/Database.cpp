#include "platform/db/Database.h"

#include "platform/db/DbError.h"
#include "platform/db/Engine.h"
#include "platform/db/SqliteEngine.h"

#include <QFile>

namespace {

/// The content, not the name, tells which engine reads a file.
std::unique_ptr<Engine> engineFor(const QString &path) {
    QFile file(path);
    if (!file.exists()) {
        throw DbError(DbError::Kind::Missing, path);
    }
    if (!file.open(QIODevice::ReadOnly)) {
        throw DbError(DbError::Kind::Other, path, QStringLiteral("il ne peut pas être lu"));
    }
    if (SqliteEngine::recognises(file.read(SqliteEngine::headerSize))) {
        return std::make_unique<SqliteEngine>(path);
    }
    throw DbError(DbError::Kind::UnknownFormat, path);
}

} // namespace

Database::Database(QString path, std::unique_ptr<Engine> engine)
    : m_path(std::move(path)), m_engine(std::move(engine)) {}
Database::Database(Database &&) noexcept = default;
Database &Database::operator=(Database &&) noexcept = default;
Database::~Database() = default;

Database Database::open(const QString &path) {
    return {path, engineFor(path)};
}

Database Database::create(const QString &path) {
    if (QFile::exists(path)) {
        throw DbError(DbError::Kind::Other, path, QStringLiteral("il existe déjà"));
    }
    return {path, SqliteEngine::create(path)};
}

Records Database::query(const SqlText &sql) {
    return m_engine->query(sql.text());
}

int Database::execute(const SqlText &sql) {
    return m_engine->execute(sql.text());
}

qint64 Database::insert(const QString &table, const Fields &values) {
    return m_engine->insert(table, values);
}

bool Database::update(const QString &table, const QString &keyField, qint64 key, const Fields &values) {
    return m_engine->update(table, keyField, key, values) > 0;
}

TableDef Database::tableDef(const QString &table) {
    if (!m_engine->hasTable(table)) {
        throw DbError(DbError::Kind::Structure, m_path, QStringLiteral("la table « %1 » manque").arg(table));
    }
    return {*m_engine, table};
}

void Database::createTable(const QString &table, const std::vector<FieldDef> &fields) {
    m_engine->createTable(table, fields);
}

Transaction::Transaction(Database &database) : m_engine(database.m_engine.get()) {
    m_engine->begin();
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

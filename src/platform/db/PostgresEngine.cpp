#include "platform/db/PostgresEngine.h"

#include "platform/db/Attente.h"
#include "platform/db/PostgresErrors.h"
#include "platform/db/PostgresPool.h"
#include "platform/db/PostgresRow.h"
#include "platform/db/SqlDialect.h"
#include "platform/db/SqlTokens.h"

#include <QUuid>
#include <libpq-fe.h>

namespace {

using namespace std::chrono_literals;

/// A server that says nothing for so long is gone: the line's own signs of life take as long.
constexpr std::chrono::milliseconds patience = 8s;
constexpr std::chrono::milliseconds patienceForTables = 15min;
constexpr std::chrono::milliseconds beyondALock = 3s;

/// The engine's text for `sql`. An action sends the same few again and again.
QString native(const QString &sql) {
    constexpr int kept = 100;
    thread_local QHash<QString, QString> known;
    if (known.size() > kept) {
        known.clear();
    }
    QString &text = known[sql];
    if (text.isNull()) {
        text = SqlDialect::postgres(sql);
    }
    return text;
}

QString literal(const Value &value) {
    constexpr int digits = 17;
    if (value.isNull()) {
        return QStringLiteral("NULL");
    }
    if (const auto *number = std::get_if<qint64>(&value.data())) {
        return QString::number(*number);
    }
    if (const auto *real = std::get_if<double>(&value.data())) {
        return quotedText(QString::number(*real, 'g', digits));
    }
    return quotedText(value.toText().remove(QChar(0))); // which the server refuses
}

int rowsTouched(pg_result *result) {
    return QByteArray(PQcmdTuples(result)).toInt();
}

QString lock(const QString &function, const QString &name) {
    return QStringLiteral("SELECT pg_advisory_xact_lock%1(hashtextextended(%2, 0))")
        .arg(function, quotedText(name));
}

} // namespace

PostgresEngine::PostgresEngine(const QString &location, std::chrono::milliseconds wait)
    : m_location(location), m_place(ServerLocation::of(location)), m_wait(wait) {}

std::unique_ptr<PostgresEngine> PostgresEngine::open(const QString &location,
                                                     std::chrono::milliseconds wait) {
    std::unique_ptr<PostgresEngine> engine(new PostgresEngine(location, wait));
    engine->verify();
    return engine;
}

PostgresEngine::~PostgresEngine() {
    rollback();
}

std::shared_ptr<PostgresConnection> PostgresEngine::connection() {
    if (m_transaction) {
        return m_transaction;
    }
    PostgresFailure failure;
    std::shared_ptr<PostgresConnection> line = takeConnection(m_place, failure);
    if (!line) {
        fail(failure);
    }
    return line;
}

/// What every statement of this engine is run under. One lock is waited for at a time, never without end.
QByteArray PostgresEngine::settings() const {
    return QStringLiteral("SET search_path TO %1, dialecte; SET lock_timeout TO %2;")
        .arg(SqlDialect::postgresName(m_place.schema))
        .arg(std::max<qint64>(m_wait.count(), 1))
        .toUtf8();
}

/// No round trip is spent on settings, where somebody else's hold, nor on what a transaction has put off.
PostgresAnswer PostgresEngine::answerOf(PostgresConnection &line, const QString &native) {
    constexpr ptrdiff_t ofSettings = 2;
    const QByteArray wanted = settings();
    const bool areSet = line.settings == wanted;
    const QStringList ahead = &line == m_transaction.get() ? std::exchange(m_ahead, {}) : QStringList();
    QByteArray before = areSet ? QByteArray() : wanted;
    for (const QString &statement : ahead) {
        before += statement.toUtf8() + ';';
    }
    const auto limit = m_changesTables ? patienceForTables : std::max(patience, m_wait + beyondALock);
    PostgresAnswer answer = line.run(before + native.toUtf8(), limit);
    if (answer.failure) {
        line.settings.clear(); // what a transaction set goes with it
        answer.failure->position -= int(QString::fromUtf8(before).size());
    } else {
        line.settings = wanted;
        const ptrdiff_t others = ahead.size() + (areSet ? 0 : ofSettings);
        answer.results.erase(answer.results.begin(), answer.results.begin() + others);
    }
    return answer;
}

std::vector<PostgresResult> PostgresEngine::send(const QString &native) {
    const std::shared_ptr<PostgresConnection> line = connection();
    PostgresAnswer answer = answerOf(*line, native);
    if (answer.failure) {
        fail(*answer.failure, native);
    }
    return std::move(answer.results);
}

void PostgresEngine::fail(const PostgresFailure &failure, const QString &native) {
    throw postgresError(failure, m_location, native);
}

Records PostgresEngine::query(const QString &sql) {
    return recordsOf(send(native(sql)).back().get(), m_location);
}

void PostgresEngine::forEach(const std::vector<std::pair<QString, RowVisitor>> &queries) {
    QStringList texts;
    if (queries.empty()) {
        return;
    }
    for (const auto &[sql, visit] : queries) {
        texts << native(sql);
    }
    const std::vector<PostgresResult> results = send(texts.join(QStringLiteral("; ")));
    for (size_t i = 0; i < queries.size(); ++i) {
        PostgresRow row(results[i].get());
        for (int at = 0; at < PQntuples(results[i].get()); ++at) {
            row.moveTo(at);
            queries[i].second(row);
        }
    }
}

int PostgresEngine::execute(const QString &sql) {
    return rowsTouched(send(native(sql)).back().get());
}

QString PostgresEngine::tableName(const QString &table) const {
    const QString alias = table.section(u'.', 0, -2);
    const QString name = SqlDialect::postgresName(table.section(u'.', -1));
    return alias.isEmpty() ? name : SqlDialect::postgresName(m_attached.value(alias, alias)) + u'.' + name;
}

QString PostgresEngine::insertion(const QString &table, const Fields &values) const {
    QStringList names;
    QStringList literals;
    for (const auto &[name, value] : values) {
        names << SqlDialect::postgresName(name);
        literals << literal(value);
    }
    return QStringLiteral("INSERT INTO ") + tableName(table) + QStringLiteral(" (") + names.join(u',') +
           QStringLiteral(") VALUES (") + literals.join(u',') + u')';
}

void PostgresEngine::append(const QString &table, const Fields &values) {
    if (m_transaction) {
        m_ahead << insertion(table, values);
    } else {
        insert(table, values);
    }
}

qint64 PostgresEngine::insert(const QString &table, const Fields &values) {
    const QString key = keyOf(table);
    const QString sql = insertion(table, values);
    const auto results = send(key.isEmpty() ? sql : sql + QStringLiteral(" RETURNING ") + key);
    return key.isEmpty() ? 0 : QByteArray(PQgetvalue(results.back().get(), 0, 0)).toLongLong();
}

int PostgresEngine::update(const QString &table, const QString &keyField, qint64 key, const Fields &values) {
    QStringList assignments;
    for (const auto &[name, value] : values) {
        assignments << SqlDialect::postgresName(name) + QStringLiteral(" = ") + literal(value);
    }
    const QString sql = QStringLiteral("UPDATE ") + tableName(table) + QStringLiteral(" SET ") +
                        assignments.join(u',') + QStringLiteral(" WHERE ") +
                        SqlDialect::postgresName(keyField) + QStringLiteral(" = ") + QString::number(key);
    return rowsTouched(send(sql).back().get());
}

QString PostgresEngine::whyReadOnly() {
    const PostgresCatalogue &found = known(m_place.schema);
    if (found.dialectVersion > ourDialect) {
        return QStringLiteral(
            "Ce poste a un carnet trop ancien pour y écrire : installez-y celui des autres postes.");
    }
    return found.isWritable
               ? QString()
               : QStringLiteral("Cet utilisateur n'a que le droit de lire le carnet, ou le serveur est "
                                "une copie de secours.");
}

void PostgresEngine::refuseIfReadOnly() {
    const PostgresCatalogue found = known(m_place.schema);
    if (found.dialectVersion > ourDialect) {
        throw DbError(DbError::Kind::ReadOnly, m_location, whyReadOnly());
    }
    if (!found.isWritable) {
        throw DbError(DbError::Kind::ReadOnly, m_location);
    }
}

/// The locks come first, in statements of their own: what is asked after them sees what their last owner
/// wrote. Who takes all of them may be about to change tables, and looks at them anew when he has waited.
void PostgresEngine::begin(const QStringList &locks) {
    refuseIfReadOnly();
    m_transaction = connection();
    m_writing = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_catalogue = locks.isEmpty() ? std::nullopt : knownCatalogue(m_place);
    m_ahead = {QStringLiteral("BEGIN"),
               lock(locks.isEmpty() ? QString() : QStringLiteral("_shared"), m_place.schema)};
    for (const QString &name : locks) {
        m_ahead << lock({}, m_place.schema + u'|' + name);
    }
}

/// The transaction's key goes with it, so that it can be found out whether it came to be.
void PostgresEngine::commit() {
    QString sql = QStringLiteral("INSERT INTO dialecte.ecritures (cle) VALUES ('%1');").arg(m_writing);
    if (!std::exchange(m_transaction->hasTidied, true)) {
        sql +=
            QStringLiteral("DELETE FROM dialecte.ecritures WHERE cle IN (SELECT cle FROM dialecte.ecritures "
                           "WHERE quand < now() - interval '2 days' FOR UPDATE SKIP LOCKED);");
    }
    const PostgresAnswer answer = answerOf(*m_transaction, sql + QStringLiteral("COMMIT"));
    if (answer.failure && !answer.failure->lost) {
        fail(*answer.failure, sql);
    }
    release();
    if (answer.failure && !settlesCommit(*answer.failure)) {
        fail(*answer.failure);
    }
}

void PostgresEngine::rollback() noexcept {
    const bool begun = !m_ahead.contains(QStringLiteral("BEGIN"));
    if (m_transaction && begun && m_transaction->isAlive()) {
        m_transaction->run("ROLLBACK", patience);
        m_transaction->settings.clear();
    }
    if (m_changesTables) {
        forgetCatalogues(m_place.url);
    }
    release();
}

void PostgresEngine::release() {
    m_transaction.reset();
    m_ahead.clear();
    m_changesTables = false;
    m_catalogue.reset();
}

/// True when the commit whose answer was lost was made. Throws when that cannot be found out now.
bool PostgresEngine::settlesCommit(const PostgresFailure &failure) {
    constexpr std::chrono::milliseconds betweenTries = 200ms;
    const QDeadlineTimer end(patience);
    do {
        try {
            return wasWritten(m_writing);
        } catch (const DbError &error) {
            if (error.kind() != DbError::Kind::Unreachable && error.kind() != DbError::Kind::Locked) {
                break;
            }
        }
        attends(-1, false, false, betweenTries);
    } while (!end.hasExpired());
    throw DbError::unknownOutcome(m_location, m_writing, failure.english.trimmed());
}

/// Writes the key itself: a transaction that is still under way with it is waited for, and one that never
/// came cannot come any more.
bool PostgresEngine::wasWritten(const QString &writing) {
    const auto results = send(QStringLiteral("INSERT INTO dialecte.ecritures (cle) VALUES (%1) "
                                             "ON CONFLICT DO NOTHING")
                                  .arg(quotedText(writing)));
    return rowsTouched(results.back().get()) == 0;
}

/// Who keeps the server checks what it keeps.
bool PostgresEngine::isIntact(const std::stop_token & /*stop*/) {
    return true;
}

void PostgresEngine::attach(const QString &file, const QString &name) {
    const ServerLocation other = ServerLocation::of(file);
    if (!ServerLocation::isOne(file) || other.url != m_place.url) {
        throw DbError(DbError::Kind::Other, m_location,
                      QStringLiteral("« %1 » n'est pas sur le même serveur").arg(file));
    }
    if (!known(other.schema).isWritable) {
        throw DbError(DbError::Kind::ReadOnly, file);
    }
    m_attached[name] = other.schema;
}

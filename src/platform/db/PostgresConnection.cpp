#include "platform/db/PostgresConnection.h"

#include "platform/db/Attente.h"
#include "platform/db/PostgresConnecting.h"

#include <atomic>
#include <libpq-fe.h>

namespace {

std::atomic<qint64> trips = 0;

std::chrono::milliseconds left(const QDeadlineTimer &limit) {
    return std::chrono::milliseconds(limit.remainingTime());
}

bool failed(const pg_result *result) {
    switch (PQresultStatus(result)) {
    case PGRES_COMMAND_OK:
    case PGRES_TUPLES_OK:
    case PGRES_EMPTY_QUERY:
        return false;
    default:
        return true;
    }
}

} // namespace

PostgresFailure failureOf(const pg_result *result) {
    const QByteArray position = PQresultErrorField(result, PG_DIAG_STATEMENT_POSITION);
    return {PQresultErrorField(result, PG_DIAG_SQLSTATE), PQresultErrorMessage(result), position.toInt()};
}

void ForgetsResult::operator()(pg_result *result) const {
    PQclear(result);
}

std::shared_ptr<PostgresConnection> PostgresConnection::connect(const ServerLocation &place,
                                                                PostgresFailure &failure) {
    pg_conn *made = connectToServer(place, failure);
    if (made == nullptr) {
        return nullptr;
    }
    PQsetnonblocking(made, 1);
    std::shared_ptr<PostgresConnection> connection(new PostgresConnection(made));
    const auto hear = [](void *listener, const pg_result *notice) {
        const QByteArray severity = PQresultErrorField(notice, PG_DIAG_SEVERITY_NONLOCALIZED);
        if (severity == "FATAL" || severity == "PANIC") {
            static_cast<PostgresConnection *>(listener)->m_dismissed = true;
        }
    };
    PQsetNoticeReceiver(made, hear, connection.get());
    return connection;
}

PostgresConnection::~PostgresConnection() {
    PQfinish(m_connection);
}

/// A server that shut down has said so, and then closed the line: each is read by itself.
bool PostgresConnection::isAlive() {
    if (PQstatus(m_connection) != CONNECTION_OK || PQconsumeInput(m_connection) != 1) {
        return false;
    }
    PQisBusy(m_connection); // looks at what has come
    return !m_dismissed && PQstatus(m_connection) == CONNECTION_OK;
}

PostgresAnswer PostgresConnection::run(const QByteArray &sql, std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    PostgresAnswer answer;
    if (m_busy) { // by what happened while it was waited for: the answers would be taken for one another
        answer.failure = {{}, "another command is in progress"};
        return answer;
    }
    ++trips;
    m_busy = true;
    if (PQsendQuery(m_connection, sql.constData()) != 1 || !flush(end)) {
        answer.failure = lost();
    } else {
        collect(answer, end);
    }
    m_busy = false;
    return answer;
}

/// What the server says meanwhile is read, or it would stop reading.
bool PostgresConnection::flush(const QDeadlineTimer &limit) {
    for (;;) {
        const int rest = PQflush(m_connection);
        if (rest <= 0) {
            return rest == 0;
        }
        if (!attends(PQsocket(m_connection), true, true, left(limit)) || PQconsumeInput(m_connection) != 1) {
            return false;
        }
    }
}

bool PostgresConnection::hasAnswer(const QDeadlineTimer &limit) {
    while (PQisBusy(m_connection) == 1) {
        if (!attends(PQsocket(m_connection), true, false, left(limit)) || PQconsumeInput(m_connection) != 1) {
            return false;
        }
    }
    return true;
}

void PostgresConnection::collect(PostgresAnswer &answer, const QDeadlineTimer &limit) {
    for (;;) {
        if (!hasAnswer(limit)) {
            const QByteArray silent = limit.hasExpired() ? "timeout expired" : QByteArray();
            answer.failure = lost(silent);
            return;
        }
        PostgresResult result(PQgetResult(m_connection));
        if (!result) {
            break;
        }
        if (!failed(result.get())) {
            answer.results.push_back(std::move(result));
        } else if (!answer.failure) {
            answer.failure = failureOf(result.get());
        }
    }
    if (PQstatus(m_connection) != CONNECTION_OK) { // the server may have said why
        const QByteArray state = answer.failure ? answer.failure->state : QByteArray();
        answer.failure = lost();
        answer.failure->state = state;
    }
}

PostgresFailure PostgresConnection::lost(const QByteArray &why) {
    PostgresFailure failure{{}, why.isEmpty() ? QByteArray(PQerrorMessage(m_connection)) : why, 0, true};
    PQfinish(std::exchange(m_connection, nullptr)); // an answer that came later would be taken for another's
    return failure;
}

std::optional<QStringList> PostgresConnection::notices() {
    if (PQconsumeInput(m_connection) != 1 || PQstatus(m_connection) != CONNECTION_OK) {
        return std::nullopt;
    }
    QStringList told;
    while (PGnotify *notice = PQnotifies(m_connection)) {
        told << QString::fromUtf8(notice->extra);
        PQfreemem(notice);
    }
    return told;
}

int PostgresConnection::socket() const {
    return PQsocket(m_connection);
}

qint64 PostgresConnection::roundTrips() {
    return trips;
}

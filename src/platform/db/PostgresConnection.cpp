#include "platform/db/PostgresConnection.h"

#include "platform/db/Attente.h"
#include "platform/db/PostgresConnecting.h"

#include <QHash>
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
    PQsetNoticeProcessor(
        made, [](void *, const char *) {}, nullptr);
    return std::shared_ptr<PostgresConnection>(new PostgresConnection(made));
}

PostgresConnection::~PostgresConnection() {
    PQfinish(m_connection);
}

bool PostgresConnection::isAlive() {
    // A server that shut down has said so, or closed the line: that is there to be read.
    return PQstatus(m_connection) == CONNECTION_OK && PQconsumeInput(m_connection) == 1 &&
           PQstatus(m_connection) == CONNECTION_OK && PQtransactionStatus(m_connection) != PQTRANS_UNKNOWN;
}

PostgresAnswer PostgresConnection::run(const QByteArray &sql, std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    PostgresAnswer answer;
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

qint64 PostgresConnection::roundTrips() {
    return trips;
}

std::shared_ptr<PostgresConnection> freeConnection(const ServerLocation &place, PostgresFailure &failure) {
    thread_local QHash<QString, QList<std::shared_ptr<PostgresConnection>>> kept;
    QList<std::shared_ptr<PostgresConnection>> &ours = kept[place.url];
    ours.removeIf([](const auto &each) { return !each->isBusy() && !each->isAlive(); });
    for (const auto &each : std::as_const(ours)) {
        if (!each->isBusy() && each->owner == nullptr) {
            return each;
        }
    }
    std::shared_ptr<PostgresConnection> made = PostgresConnection::connect(place, failure);
    if (made) { // others may have come while it was made
        kept[place.url].append(made);
    }
    return made;
}

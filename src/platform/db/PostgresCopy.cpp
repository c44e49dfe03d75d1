// What PostgresConnection does with rows by the thousand.
#include "platform/db/Attente.h"
#include "platform/db/PostgresConnection.h"

#include <libpq-fe.h>

std::optional<PostgresFailure> PostgresConnection::starts(const QByteArray &sql, int expected,
                                                          std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    m_busy = true;
    if (PQsendQuery(m_connection, sql.constData()) != 1 || !flush(end) || !hasAnswer(end)) {
        m_busy = false;
        return lost();
    }
    const PostgresResult result(PQgetResult(m_connection));
    if (PQresultStatus(result.get()) == ExecStatusType(expected)) {
        return std::nullopt;
    }
    PostgresFailure failure = failureOf(result.get());
    PostgresAnswer rest;
    collect(rest, end);
    m_busy = false;
    return rest.failure && rest.failure->lost ? rest.failure : failure;
}

std::optional<PostgresFailure> PostgresConnection::beginCopy(const QByteArray &sql,
                                                             std::chrono::milliseconds limit) {
    return starts(sql, PGRES_COPY_IN, limit);
}

/// What the server could not take yet is waited for: nothing piles up here.
std::optional<PostgresFailure> PostgresConnection::copy(const QByteArray &bytes,
                                                        std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    for (;;) {
        const int taken = PQputCopyData(m_connection, bytes.constData(), int(bytes.size()));
        if (taken < 0 || !flush(end)) {
            m_busy = false;
            return lost();
        }
        if (taken == 1) {
            return std::nullopt;
        }
    }
}

std::optional<PostgresFailure> PostgresConnection::endCopy(std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    PostgresAnswer answer;
    if (PQputCopyEnd(m_connection, nullptr) != 1 || !flush(end)) {
        answer.failure = lost();
    } else {
        collect(answer, end);
    }
    m_busy = false;
    return answer.failure;
}

std::optional<PostgresFailure>
PostgresConnection::copyOut(const QByteArray &sql, const std::function<void(const QByteArray &)> &visit,
                            std::chrono::milliseconds limit) {
    if (auto failure = starts(sql, PGRES_COPY_OUT, limit)) {
        return failure;
    }
    for (;;) {
        char *row = nullptr;
        const int size = PQgetCopyData(m_connection, &row, 1);
        if (size > 0) {
            const std::unique_ptr<char, decltype(&PQfreemem)> buffer(row, PQfreemem);
            visit(QByteArray::fromRawData(row, size - 1)); // with its line break
        } else if (size < 0) {
            break;
        } else if (!attends(PQsocket(m_connection), true, false, limit) ||
                   PQconsumeInput(m_connection) != 1) {
            m_busy = false;
            return lost();
        }
    }
    PostgresAnswer answer;
    collect(answer, QDeadlineTimer(limit));
    m_busy = false;
    return answer.failure;
}

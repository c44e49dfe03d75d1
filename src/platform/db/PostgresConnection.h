#pragma once

#include "platform/db/ServerLocation.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct pg_conn;
struct pg_result;

struct ForgetsResult {
    void operator()(pg_result *result) const;
};
using PostgresResult = std::unique_ptr<pg_result, ForgetsResult>;

/// What a server or the way to it refused, in its own words.
struct PostgresFailure {
    QByteArray state; ///< SQLSTATE; empty when it came from the line, not from the server
    QByteArray english;
    int position = 0;  ///< of the fault in what was sent, in characters from 1; 0: unknown
    bool lost = false; ///< the connection is gone: nobody knows what became of what was sent
};

PostgresFailure failureOf(const pg_result *result);

/// What one statement after the other gave, up to the first that failed.
struct PostgresAnswer {
    std::vector<PostgresResult> results;
    std::optional<PostgresFailure> failure;
};

/// One connection to a server, waited for by attends() alone. One user at a time has it.
class PostgresConnection {
  public:
    /// Nothing when that fails, which `failure` tells.
    static std::shared_ptr<PostgresConnection> connect(const ServerLocation &place, PostgresFailure &failure);
    ~PostgresConnection();
    PostgresConnection(const PostgresConnection &) = delete;
    PostgresConnection &operator=(const PostgresConnection &) = delete;

    /// Sends statements parted by ";" and waits for all of them: one round trip. A server that says nothing
    /// for `limit` counts as lost. Refused while it waits already.
    PostgresAnswer run(const QByteArray &sql, std::chrono::milliseconds limit);
    /// "COPY … FROM STDIN" sends rows from then on, in the server's own text, until endCopy().
    std::optional<PostgresFailure> beginCopy(const QByteArray &sql, std::chrono::milliseconds limit);
    std::optional<PostgresFailure> copy(const QByteArray &bytes, std::chrono::milliseconds limit);
    std::optional<PostgresFailure> endCopy(std::chrono::milliseconds limit);
    /// "COPY … TO STDOUT" shows each row, without its line break. A visitor that throws leaves the connection
    /// of no use.
    std::optional<PostgresFailure> copyOut(const QByteArray &sql,
                                           const std::function<void(const QByteArray &)> &visit,
                                           std::chrono::milliseconds limit);
    /// Whether the line still stands, as far as can be seen without asking the server.
    bool isAlive();

    /// What was told to whoever listens; nothing when the line is gone.
    std::optional<QStringList> notices();
    int socket() const;

    /// What was set for the statements that follow; empty: unknown.
    QByteArray settings;
    bool hasTidied = false; ///< old keys of transactions, once a connection

    /// How often this program has waited for an answer of a server, connecting apart.
    static qint64 roundTrips();

  private:
    explicit PostgresConnection(pg_conn *connection) : m_connection(connection) {}
    bool flush(const QDeadlineTimer &limit);
    bool hasAnswer(const QDeadlineTimer &limit);
    std::optional<PostgresFailure> starts(const QByteArray &sql, int expected,
                                          std::chrono::milliseconds limit);
    void collect(PostgresAnswer &answer, const QDeadlineTimer &limit);
    PostgresFailure lost(const QByteArray &why = {});

    pg_conn *m_connection;
    bool m_busy = false;
    bool m_dismissed = false; ///< by a server that is about to close the line
};

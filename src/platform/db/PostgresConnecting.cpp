#include "platform/db/PostgresConnecting.h"

#include "platform/db/Attente.h"
#include "platform/db/PostgresLibrary.h"

#include <QDir>
#include <QFileInfo>
#include <libpq-fe.h>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int secondsToConnect = 5;

using Parameters = std::vector<std::pair<QByteArray, QByteArray>>;

/// A line that a laptop lost in its sleep is found within eight seconds, whether something was on its way
/// (tcp_user_timeout) or the server was being waited for (keepalives; they are a packet each).
Parameters parametersOf(const ServerLocation &place) {
    Parameters parameters{
        {"dbname", place.url.toUtf8()},
        {"application_name", "tavelin"},
        {"client_encoding", "UTF8"},
        {"tcp_user_timeout", "8000"},
        {"keepalives_idle", "3"},
        {"keepalives_interval", "2"},
        {"keepalives_count", "2"},
        {"options", "-c standard_conforming_strings=on -c DateStyle=ISO -c client_min_messages=warning "
                    "-c default_transaction_isolation=read\\ committed "
                    "-c idle_in_transaction_session_timeout=20s"}};
    if (!place.isOnThisMachine()) {
        parameters.emplace_back("sslmode", "verify-full");
    }
    return parameters;
}

int secondsFor(const ServerLocation &place) {
    const int wanted = place.parameter(QStringLiteral("connect_timeout")).toInt();
    return wanted > 0 ? qMin(wanted, secondsToConnect) : secondsToConnect;
}

/// Both may be left by the other: whoever comes last closes.
struct Attempt {
    Attempt() : done(eventfd(0, EFD_CLOEXEC)) {}
    ~Attempt() {
        PQfinish(made);
        close(done);
    }
    Attempt(const Attempt &) = delete;
    Attempt &operator=(const Attempt &) = delete;

    const int done; ///< can be read once the thread has come to its end
    std::mutex mutex;
    pg_conn *made = nullptr;
};

/// Its errors then say their SQLSTATE, which no function gives of a connection that failed.
pg_conn *begun(const Parameters &parameters) {
    std::vector<const char *> names;
    std::vector<const char *> values;
    for (const auto &[name, value] : parameters) {
        names.push_back(name.constData());
        values.push_back(value.constData());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    pg_conn *made = PQconnectStartParams(names.data(), values.data(), 1);
    PQsetErrorVerbosity(made, PQERRORS_VERBOSE);
    return made;
}

void connects(Attempt &attempt, const Parameters &parameters, std::chrono::seconds limit) {
    const QDeadlineTimer end(limit);
    pg_conn *made = begun(parameters);
    PostgresPollingStatusType step = PGRES_POLLING_WRITING;
    while (PQstatus(made) != CONNECTION_BAD && step != PGRES_POLLING_OK && step != PGRES_POLLING_FAILED &&
           !end.hasExpired()) {
        pollfd socket{PQsocket(made), short(step == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
        poll(&socket, 1, int(end.remainingTime()));
        step = PQconnectPoll(made);
    }
    const std::scoped_lock lock(attempt.mutex);
    attempt.made = made;
    eventfd_write(attempt.done, 1);
}

/// "FATAL:  28P01: …": the state stands behind the word, whatever language that is in.
QByteArray stateIn(const QByteArray &english) {
    constexpr qsizetype length = 5;
    for (qsizetype at = english.indexOf(":  "); at >= 0; at = english.indexOf(":  ", at + 1)) {
        const QByteArray state = english.mid(at + 3, length);
        if (english.mid(at + 3 + length, 1) == ":" && state.toUpper() == state && !state.contains(' ')) {
            return state;
        }
    }
    return {};
}

/// Whoever may read another's password file would be that other; the library passes over such a file without
/// a word to the user.
QString readableByOthers(const ServerLocation &place) {
    QString file = place.parameter(QStringLiteral("passfile"));
    if (file.isEmpty()) {
        file = QFile::decodeName(qgetenv("PGPASSFILE"));
    }
    if (file.isEmpty()) {
        file = QDir::homePath() + QStringLiteral("/.pgpass");
    }
    const QFileInfo info(file);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    return info.isFile() && (info.permissions() & others) ? file : QString();
}

/// What is wrong with the location itself; empty when nothing is.
QByteArray refusedBeforehand(const ServerLocation &place) {
    if (place.holdsPassword()) {
        return "password in location";
    }
    if (!postgresLibraryLoads()) {
        return "no client library";
    }
    const QString mode = place.parameter(QStringLiteral("sslmode"));
    if (!place.isOnThisMachine() && !mode.isEmpty() && mode != u"verify-full") {
        return "weak sslmode";
    }
    const QString file = readableByOthers(place);
    return file.isEmpty() ? QByteArray() : "password file readable by others: " + file.toUtf8();
}

} // namespace

pg_conn *connectToServer(const ServerLocation &place, PostgresFailure &failure) {
    if (const QByteArray refused = refusedBeforehand(place); !refused.isEmpty()) {
        failure = {{}, refused, 0, false};
        return nullptr;
    }
    const std::chrono::seconds limit(secondsFor(place));
    const auto attempt = std::make_shared<Attempt>();
    std::thread([attempt, parameters = parametersOf(place), limit] {
        connects(*attempt, parameters, limit);
    }).detach();
    const bool ended = attends(attempt->done, true, false, limit + std::chrono::milliseconds(100));
    const std::scoped_lock lock(attempt->mutex);
    if (!ended || attempt->made == nullptr) {
        failure = {{}, "timeout expired", 0, true};
        return nullptr;
    }
    if (PQstatus(attempt->made) != CONNECTION_OK) {
        const QByteArray english = PQerrorMessage(attempt->made);
        const bool silent = PQstatus(attempt->made) != CONNECTION_BAD;
        failure = {stateIn(english), silent ? "timeout expired" : english, 0, true};
        return nullptr;
    }
    return std::exchange(attempt->made, nullptr);
}

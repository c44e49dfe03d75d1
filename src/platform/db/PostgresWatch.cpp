#include "platform/db/PostgresWatch.h"

#include "platform/db/Attente.h"
#include "platform/db/PostgresErrors.h"
#include "platform/db/PostgresPool.h"
#include "platform/db/SqlDialect.h"

#include <array>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

// A line that went dead without a word is found after both.
constexpr milliseconds betweenSignsOfLife = 3s;
constexpr milliseconds patience = 4s;
constexpr milliseconds firstPause = 100ms;
constexpr milliseconds longestPause = 3s;

/// The plain wait, which ends at once when `ended` can be read.
bool waitsUnless(int ended, int socket, bool read, bool write, milliseconds limit) {
    std::array<pollfd, 2> waited{
        {{socket, short((read ? POLLIN : 0) | (write ? POLLOUT : 0)), 0}, {ended, POLLIN, 0}}};
    poll(waited.data(), waited.size(), int(std::max<milliseconds::rep>(limit.count(), 0)));
    return waited[0].revents != 0;
}

/// A server that answers, but has no room for the watch, may still be read.
bool isOutOfReach(const PostgresFailure &failure) {
    return !failure.state.startsWith("53");
}

} // namespace

PostgresWatch::PostgresWatch(const QString &location, WatchTells tells)
    : m_location(location), m_place(ServerLocation::of(location)), m_tells(std::move(tells)),
      m_ended(eventfd(0, EFD_CLOEXEC)), m_thread([this](const std::stop_token &stop) { run(stop); }) {}

PostgresWatch::~PostgresWatch() {
    m_thread.request_stop();
    eventfd_write(m_ended, 1);
    m_thread.join();
    close(m_ended);
}

void PostgresWatch::tell(std::function<void()> what) {
    QMetaObject::invokeMethod(&m_here, std::move(what), Qt::QueuedConnection);
}

void PostgresWatch::run(const std::stop_token &stop) {
    setAttente([this](int socket, bool read, bool write, milliseconds limit) {
        return waitsUnless(m_ended, socket, read, write, limit);
    });
    milliseconds pause = firstPause;
    bool wasLost = false;
    while (!stop.stop_requested()) {
        PostgresFailure failure;
        const auto line = PostgresConnection::connect(m_place, failure);
        if (line) {
            const QByteArray channel = SqlDialect::postgresName(m_place.schema).toUtf8();
            failure = line->run("LISTEN " + channel, patience).failure.value_or(PostgresFailure());
        }
        if (line && failure.english.isEmpty()) {
            pause = firstPause;
            tell([this, wasLost] {
                if (wasLost) { // as dead as the watch's own was, but nobody has noticed
                    forgetConnections(m_place.url);
                }
                m_tells.touch({});
            });
            listen(*line, stop);
            failure = {{}, "listening ended", 0, true};
        }
        if (isOutOfReach(failure) && !stop.stop_requested()) {
            tell([this, failure] { m_tells.touch(postgresError(failure, m_location)); });
        }
        wasLost = true;
        attends(-1, false, false, pause);
        pause = std::min(2 * pause, longestPause);
    }
}

/// Until the line is lost.
void PostgresWatch::listen(PostgresConnection &line, const std::stop_token &stop) {
    while (!stop.stop_requested()) {
        const bool speaks = attends(line.socket(), true, false, betweenSignsOfLife);
        if (stop.stop_requested() || (!speaks && line.run("SELECT 1", patience).failure)) {
            return;
        }
        const std::optional<QStringList> notices = line.notices();
        if (!notices) {
            return;
        }
        if (!notices->isEmpty()) {
            tell([this, told = *notices] { m_tells.changed(told); });
        }
    }
}

#include "platform/db/LockTest.h"

#include "platform/db/Database.h"
#include "platform/db/DbError.h"
#include "platform/db/ServerLocation.h"

#include <QTimer>
#include <cstdio>

namespace {

constexpr int patienceMs = 500;
constexpr char ready = 'p';
constexpr char taken = 't';
constexpr char refused = 'r';

void say(char word) {
    std::putchar(word);
    std::fflush(stdout);
}

} // namespace

void LockTest::start(const QString &path, const QString &program, const QStringList &arguments,
                     std::function<void(Locks)> tell) {
    m_tell = std::move(tell);
    if (ServerLocation::isOne(path)) { // its locks are one program's
        QTimer::singleShot(0, this, [this] { finish(Locks::Hold); });
        return;
    }
    // Queued: compare() reads from the process itself.
    connect(
        &m_other, &QProcess::readyReadStandardOutput, this, [this, path] { compare(path); },
        Qt::QueuedConnection);
    connect(&m_other, &QProcess::errorOccurred, this, [this] { finish(Locks::Unknown); });
    connect(&m_other, &QProcess::finished, this, [this] { finish(Locks::Unknown); });
    QTimer::singleShot(patienceMs, this, [this] { finish(Locks::Unknown); });
    m_other.start(program, arguments);
}

LockTest::~LockTest() {
    m_tell = nullptr;
    disconnect(&m_other, nullptr, this, nullptr);
    m_other.kill();
    m_other.waitForFinished(patienceMs);
}

void LockTest::compare(const QString &path) {
    disconnect(&m_other, &QProcess::readyReadStandardOutput, this, nullptr);
    Locks locks = Locks::Unknown;
    try {
        Database book = Database::open(path, std::chrono::milliseconds(0));
        const Transaction lock(book);
        m_other.readAllStandardOutput();
        m_other.write("\n");
        if (m_other.waitForReadyRead(patienceMs)) {
            const QByteArray answer = m_other.readAllStandardOutput();
            locks = answer.startsWith(taken)     ? Locks::DoNothing
                    : answer.startsWith(refused) ? Locks::Hold
                                                 : Locks::Unknown;
        }
    } catch (const DbError &error) {
        // Somebody else has it: that locks hold is seen.
        locks = error.kind() == DbError::Kind::Locked ? Locks::Hold : Locks::Unknown;
    }
    finish(locks);
}

void LockTest::finish(Locks locks) {
    if (const auto tell = std::exchange(m_tell, nullptr)) {
        tell(locks);
    }
}

int tryLock(const QString &path) {
    try {
        Database book = Database::open(path, std::chrono::milliseconds(0));
        say(ready);
        std::getchar();
        const Transaction lock(book);
        say(taken);
    } catch (const DbError &error) {
        if (error.kind() != DbError::Kind::Locked) {
            return 1;
        }
        say(refused);
    }
    return 0;
}

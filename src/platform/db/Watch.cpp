#include "platform/db/Watch.h"

#include "platform/db/PostgresWatch.h"
#include "platform/db/SqliteEngine.h"

#include <QFileInfo>
#include <QTimer>

namespace {

/// A file's own count of its changes.
class FileWatch : public Watch {
  public:
    FileWatch(QString path, std::chrono::milliseconds rhythm, WatchTells tells)
        : m_path(std::move(path)), m_tells(std::move(tells)), m_seen(SqliteEngine::changesOf(m_path)) {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        if (rhythm.count() > 0) {
            m_timer.start(rhythm);
        }
    }
    void catchUp() override { m_seen = SqliteEngine::changesOf(m_path); }

  private:
    void look() {
        const std::optional<quint32> now = SqliteEngine::changesOf(m_path);
        if (now && std::exchange(m_seen, now) != now) { // one that is away is missed when it is read
            m_tells.changed({});
        }
    }

    QString m_path;
    WatchTells m_tells;
    std::optional<quint32> m_seen;
    QTimer m_timer;
};

} // namespace

std::unique_ptr<Watch> Watch::start(const QString &location, std::chrono::milliseconds rhythm,
                                    WatchTells tells) {
    if (ServerLocation::isOne(location)) {
        return std::make_unique<PostgresWatch>(location, std::move(tells));
    }
    return std::make_unique<FileWatch>(location, rhythm, std::move(tells));
}

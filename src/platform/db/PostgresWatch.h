#pragma once

#include "platform/db/PostgresConnection.h"
#include "platform/db/Watch.h"

#include <QObject>
#include <thread>

/// Listens to what the triggers of PostgresEngine::createNotice() say.
class PostgresWatch : public Watch {
  public:
    PostgresWatch(const QString &location, WatchTells tells);
    ~PostgresWatch() override;
    void catchUp() override {} // what was told before is read by whoever was told

  private:
    void run(const std::stop_token &stop);
    void listen(PostgresConnection &line, const std::stop_token &stop);
    void tell(std::function<void()> what);

    QString m_location;
    ServerLocation m_place;
    WatchTells m_tells;
    QObject m_here; ///< in the thread that is told
    int m_ended;    ///< can be read once the watch is to end
    std::jthread m_thread;
};

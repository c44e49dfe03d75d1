#pragma once

#include "platform/db/DbError.h"

#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

/// What a Watch tells, always from the event loop of the thread that made it.
struct WatchTells {
    /// Somebody, perhaps this program, has written. The texts are those of NoticeDef; none: anything may have
    /// changed.
    std::function<void(const QStringList &notices)> changed;
    /// Nothing: what is written will be told from now on; what was written before is to be read. Else why
    /// nothing can be read until the next call.
    std::function<void(const std::optional<DbError> &lost)> touch;
};

/// Looks out for what is written into a database, for as long as it lives. A server tells it at once, on a
/// connection of its own in a thread of its own, which is made again when it is lost. A file is looked at
/// every `rhythm` (0: never), where it counts its changes: no lock, and nothing stays open; nothing is told
/// of touch.
class Watch {
  public:
    /// `location` is as for Database::open(), and need not be there.
    static std::unique_ptr<Watch> start(const QString &location, std::chrono::milliseconds rhythm,
                                        WatchTells tells);
    Watch() = default;
    virtual ~Watch() = default;
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    /// All that was written until now is going to be read: it need not be told.
    virtual void catchUp() = 0;
};

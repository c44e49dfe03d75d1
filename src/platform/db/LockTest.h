#pragma once

#include <QProcess>
#include <functional>

/// Finds out whether the folder of a book keeps two programs from writing at once, which some network folders
/// promise and do not do. A second process is started, and once it is ready this one takes the writer's lock
/// for about a millisecond, in which the other tries for it. Nothing is written; the test never waits longer
/// than 500 ms, and only start() and that millisecond are spent in the caller's thread.
/// It sees the locks of this machine: a folder that keeps its locks to each machine passes.
class LockTest : public QObject {
  public:
    enum class Locks {
        Hold,
        DoNothing, ///< both processes got the lock
        Unknown    ///< no answer, or a book that cannot be written: its first write tells more
    };

    /// `program` with `arguments` must call tryLock() on the same book. `tell` is called once, from the event
    /// loop, unless the test is destroyed first.
    void start(const QString &path, const QString &program, const QStringList &arguments,
               std::function<void(Locks)> tell);
    ~LockTest() override;

  private:
    void compare(const QString &path);
    void finish(Locks locks);

    QProcess m_other;
    std::function<void(Locks)> m_tell;
};

/// What the second process does, on its standard input and output; gives its exit code.
int tryLock(const QString &path);

#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

bool waitUntil(const std::function<bool()> &condition, std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    QTimer pulse; // wakes the loop to look again when nothing else does
    pulse.start(std::chrono::milliseconds(5));
    while (!condition()) {
        if (end.hasExpired()) {
            return condition();
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

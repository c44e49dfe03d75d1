#pragma once

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QTimer>
#include <cstdlib>
#include <unistd.h>

/// Ends the process, without any clearing up, as soon as the first painting inside the widget named GrilleRDV
/// is on the screen.
class PremierDessin : public QObject {
  public:
    explicit PremierDessin(QCoreApplication *application) : QObject(application) {
        constexpr unsigned patienceSecondes = 60; // it may be waiting for somebody to answer a message
        alarm(patienceSecondes);
        application->installEventFilter(this);
    }

    bool eventFilter(QObject *objet, QEvent *evenement) override {
        if (evenement->type() == QEvent::Paint && objet->objectName() == u"FrmEntree") {
            // The whole window is painted and flushed before the event loop comes back to timers.
            QTimer::singleShot(0, this, [] {
                QCursor::pos(); // the display answers after what it was told before
                std::_Exit(0);
            });
        }
        return false;
    }
};

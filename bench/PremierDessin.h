#pragma once

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <unistd.h>

/// Ends the process, without any clearing up, as soon as the first painting of a widget is on the screen.
class PremierDessin : public QObject {
  public:
    PremierDessin(std::function<bool(const QObject *)> attendu, QCoreApplication *application)
        : QObject(application), m_attendu(std::move(attendu)) {
        constexpr unsigned patienceSecondes = 60; // it may be waiting for somebody to answer a message
        alarm(patienceSecondes);
        application->installEventFilter(this);
    }

    bool eventFilter(QObject *objet, QEvent *evenement) override {
        if (evenement->type() == QEvent::Paint && m_attendu(objet)) {
            // The whole window is painted and flushed before the event loop comes back to timers.
            QTimer::singleShot(0, this, [] {
                QGuiApplication::sync(); // the display has it, too
                std::_Exit(0);
            });
        }
        return false;
    }

  private:
    std::function<bool(const QObject *)> m_attendu;
};

#pragma once

#include <QCursor>
#include <QGuiApplication>

/// The hourglass pointer for as long as it lives.
class Sablier {
  public:
    Sablier() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Sablier() { QGuiApplication::restoreOverrideCursor(); }
    Sablier(const Sablier &) = delete;
    Sablier &operator=(const Sablier &) = delete;
};

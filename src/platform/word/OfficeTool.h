#pragma once

#include "platform/word/OfficeFolder.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <memory>

/// The helper program that drives the office, while it runs. It ends, and takes the office and what that left
/// along, as soon as its input does.
class OfficeTool : public QObject {
  public:
    /// Where it lies; no such file: no word processor is installed.
    static QString file();

    /// What an office needs to find files with accents whatever the machine's locale.
    static QProcessEnvironment environment();

    OfficeTool();
    /// Ends it, within a limit.
    ~OfficeTool() override;

    QProcess process;

    /// Waits for its end, events being handled.
    void end();
    /// Leaves it to end by itself: nobody waits.
    static void letGo(std::unique_ptr<OfficeTool> tool);

  private:
    OfficeFolder m_folder;
};

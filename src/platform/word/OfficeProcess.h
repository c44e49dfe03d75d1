#pragma once

#include "platform/word/WordProcessor.h"

#include <chrono>
#include <functional>

class OfficeTool;
class QJsonObject;

/// LibreOffice, without a window, in a process of its own that another program of ours drives: whether it
/// crashes or hangs, this one goes on.
class OfficeProcess : public WordProcessor {
  public:
    /// How long it may take to start, and to make one document.
    struct Limits {
        std::chrono::milliseconds start{30'000};
        std::chrono::milliseconds document{60'000};
    };

    /// Starts it, and does not wait for it. `hasPrinter` is asked before a document that is to be printed.
    /// Throws WordError where none is installed.
    explicit OfficeProcess(std::function<bool()> hasPrinter);
    OfficeProcess(std::function<bool()> hasPrinter, Limits limits);
    /// Nobody waits for its end.
    ~OfficeProcess() override;

    WordDocument perform(const word::Verbs &verbs) override;
    void cancel() override;
    void show(const QString &path) override;

  private:
    void ready();
    QJsonObject answer(std::chrono::milliseconds limit, const QString &late);
    [[noreturn]] void giveUp(const QString &why);

    std::function<bool()> m_hasPrinter;
    Limits m_limits;
    std::unique_ptr<OfficeTool> m_tool;
    QString m_reserved;     ///< the name that the running document keeps free
    bool m_started = false; ///< it has said so
    bool m_cancelled = false;
    std::function<void()> m_wake; ///< ends the waiting of answer()
};

#pragma once

#include "platform/printing/Page.h"

#include <functional>
#include <optional>

class QWidget;

/// What became of a document.
struct PrintResult {
    enum class Outcome { Printed, NoPrinter, Refused };
    Outcome outcome = Outcome::NoPrinter;
    QString printer; ///< the name of the one that took or refused it
};

/// Whatever prints: a test puts its own in place of the system's.
using Printer = std::function<PrintResult(const QList<Page> &pages, const QString &title)>;

/// On the system's default printer, without any dialog.
PrintResult printOnDefaultPrinter(const QList<Page> &pages, const QString &title);

/// Whether there is one.
bool hasDefaultPrinter();

/// Asks for a printer, or a file to print into; nothing when that is cancelled.
std::optional<Printer> choosePrinter(QWidget *parent);

#include "platform/printing/Printer.h"

#include "platform/printing/PageDrawing.h"

#include <QPrinter>
#include <QPrinterInfo>

PrintResult printOnDefaultPrinter(const QList<Page> &pages, const QString &title) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        return {};
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(title);
    const bool taken = drawPages(printer, pages) && printer.printerState() != QPrinter::Error &&
                       printer.printerState() != QPrinter::Aborted;
    return {taken ? PrintResult::Outcome::Printed : PrintResult::Outcome::Refused, info.printerName()};
}

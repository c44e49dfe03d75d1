#include "platform/printing/Printer.h"

#include "platform/printing/PageDrawing.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

PrintResult printOn(QPrinter &printer, const QList<Page> &pages, const QString &title) {
    printer.setDocName(title);
    const bool taken = drawPages(printer, pages) && printer.printerState() != QPrinter::Error &&
                       printer.printerState() != QPrinter::Aborted;
    const QString file = printer.outputFileName();
    return {taken ? PrintResult::Outcome::Printed : PrintResult::Outcome::Refused,
            file.isEmpty() ? printer.printerName() : file};
}

} // namespace

PrintResult printOnDefaultPrinter(const QList<Page> &pages, const QString &title) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        return {};
    }
    QPrinter printer(info, QPrinter::HighResolution);
    return printOn(printer, pages, title);
}

std::optional<Printer> choosePrinter(QWidget *parent) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageSize(QPageSize(QPageSize::A4));
    if (QPrintDialog(printer.get(), parent).exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return
        [printer](const QList<Page> &pages, const QString &title) { return printOn(*printer, pages, title); };
}

bool hasDefaultPrinter() {
    return !QPrinterInfo::defaultPrinter().isNull();
}

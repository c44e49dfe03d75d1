#include "platform/printing/PageDrawing.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace {

constexpr int twipsPerInch = 1440;
constexpr int twipsPerPoint = 20;
constexpr qreal unbounded = 1e6; // twips

QPen penOf(int thickness) {
    return {Qt::black, qreal(thickness), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

/// Where a tab goes from `x`; past the last stop it is a blank.
qreal afterTab(const QList<int> &tabs, qreal x, qreal blank) {
    const auto stop = std::ranges::find_if(tabs, [x](int tab) { return tab > x; });
    return stop != tabs.end() ? *stop : x + blank;
}

/// Smaller, down to three quarters, as far as that makes the text fit.
QFont fontOf(const Page::Text &text, const QPaintDevice *device) {
    constexpr qreal least = 0.75;
    QFont font(text.family);
    const int size = text.points * twipsPerPoint; // the painter's unit is a twip
    font.setPixelSize(size);
    font.setBold(text.bold);
    const qreal needed = QFontMetricsF(font, device).horizontalAdvance(text.text);
    if (text.roomWidth > 0 && needed > text.roomWidth) {
        font.setPixelSize(int(size * std::max(text.roomWidth / needed, least)));
    }
    return font;
}

void drawText(QPainter &painter, const Page::Text &text) {
    const QFont font = fontOf(text, painter.device());
    painter.setFont(font);
    painter.setPen(Qt::black);
    const QFontMetricsF metrics(font, painter.device());
    const QStringList pieces = text.text.split(u'\t');
    qreal x = 0;
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        if (i > 0) {
            x = afterTab(text.tabs, x, metrics.horizontalAdvance(u' '));
        }
        const qreal room = text.roomWidth > 0 ? std::max(text.roomWidth - x, 0.0) : unbounded;
        const QString shown = metrics.elidedText(pieces[i], Qt::ElideRight, room);
        painter.drawText(QPointF(text.topLeft) + QPointF(x, metrics.ascent()), shown);
        x += metrics.horizontalAdvance(shown);
    }
}

} // namespace

void drawPage(QPainter &painter, const Page &page) {
    const QPaintDevice &device = *painter.device();
    painter.save();
    painter.scale(qreal(device.logicalDpiX()) / twipsPerInch, qreal(device.logicalDpiY()) / twipsPerInch);
    for (const Page::Rectangle &rectangle : page.rectangles) {
        painter.setPen(penOf(rectangle.thickness));
        painter.setBrush(rectangle.fill == 0 ? QBrush(Qt::NoBrush) : QColor::fromRgba(rectangle.fill));
        painter.drawRect(QRectF(rectangle.area.topLeft(), rectangle.area.size()));
    }
    for (const Page::Line &line : page.lines) {
        painter.setPen(penOf(line.thickness));
        painter.drawLine(line.between);
    }
    for (const Page::Text &text : page.texts) {
        drawText(painter, text);
    }
    painter.restore();
}

bool drawPages(QPagedPaintDevice &device, const QList<Page> &pages) {
    QPainter painter;
    bool taken = painter.begin(&device);
    for (qsizetype i = 0; i < pages.size() && taken; ++i) {
        taken = i == 0 || device.newPage();
        if (taken) {
            drawPage(painter, pages[i]);
        }
    }
    return taken && painter.end();
}

QByteArray pdfOf(const QList<Page> &pages, const QString &title) {
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setTitle(title);
    return drawPages(writer, pages) ? pdf.data() : QByteArray();
}

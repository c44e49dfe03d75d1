#include "platform/ui/TextCache.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr QChar ellipsis(0x2026);
constexpr int most = 4000; // texts: several weeks

/// The one line of `layout`, as long as it comes.
QTextLine layLong(QTextLayout &layout) {
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line;
}

/// A line that ends in an ellipsis where the width ends.
QString cut(const QString &text, const QFont &font, int width) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    const QTextLine line = layLong(layout);
    if (line.naturalTextWidth() <= width) {
        return text;
    }
    const double room = width - QFontMetricsF(font).horizontalAdvance(ellipsis);
    return text.left(std::max(line.xToCursor(room, QTextLine::CursorOnCharacter), 0)) + ellipsis;
}

/// Where the last of `lines` lines begins; -1 when there are fewer.
int lastLine(const QString &text, const QFont &font, int width, int lines) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    int start = -1;
    layout.beginLayout();
    for (int i = 0; i < lines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            start = -1;
            break;
        }
        line.setLineWidth(width);
        start = line.textStart();
    }
    layout.endLayout();
    return start;
}

} // namespace

TextCache::TextCache() = default;
TextCache::~TextCache() = default;

void TextCache::clear() {
    m_laid.clear();
}

const TextCache::Laid &TextCache::lay(const QString &text, const QFont &font, int kind, int width, int lines,
                                      int step) {
    const Key key{text, kind, width, lines};
    const auto known = m_laid.constFind(key);
    if (known != m_laid.constEnd()) {
        return *known;
    }
    if (m_laid.size() >= most) {
        m_laid.clear();
    }
    QString shown = text;
    shown.replace(QChar::LineFeed, QChar::Space);
    const int last = lines > 1 ? lastLine(shown, font, width, lines) : 0;
    if (last >= 0) {
        shown = shown.left(last) + cut(shown.mid(last), font, width);
    }
    Laid laid{std::make_shared<QTextLayout>(shown, font), {}};
    QTextOption option;
    option.setWrapMode(lines > 1 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    laid.layout->setTextOption(option);
    laid.layout->setCacheEnabled(true);
    laid.layout->beginLayout();
    for (int i = 0; i < lines; ++i) {
        QTextLine line = laid.layout->createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(lines > 1 ? width + 1 : 1e6);
        line.setPosition(QPointF(0, i * step));
        laid.size = QSizeF(std::max(laid.size.width(), line.naturalTextWidth()), i * step + line.height());
    }
    laid.layout->endLayout();
    return *m_laid.insert(key, laid);
}

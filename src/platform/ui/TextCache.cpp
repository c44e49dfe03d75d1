#include "platform/ui/TextCache.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr QChar ellipsis(0x2026);
constexpr int most = 4000; // texts: several weeks
constexpr double endless = 1e6;

/// Lays the text of `layout` out; gives where its last line begins when it is not shown whole, else -1.
int lay(QTextLayout &layout, QSizeF &size, int width, int lines, int step) {
    QTextOption option;
    option.setWrapMode(lines > 1 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    size = QSizeF();
    QTextLine line;
    layout.beginLayout();
    for (int i = 0; i < lines; ++i) {
        const QTextLine next = layout.createLine();
        if (!next.isValid()) {
            break;
        }
        line = next;
        line.setLineWidth(lines > 1 ? width + 1 : endless);
        line.setPosition(QPointF(0, i * step));
        size = QSizeF(std::max(size.width(), line.naturalTextWidth()), i * step + line.height());
    }
    layout.endLayout();
    const bool whole = !line.isValid() || (line.textStart() + line.textLength() >= layout.text().size() &&
                                           size.width() <= width + 1);
    return whole ? -1 : line.textStart();
}

/// A line that ends in an ellipsis where the width ends.
QString cut(const QString &text, const QFont &font, int width) {
    QTextLayout layout(text, font);
    QSizeF size;
    if (lay(layout, size, width, 1, 0) < 0) {
        return text;
    }
    const double room = width - QFontMetricsF(font).horizontalAdvance(ellipsis);
    return text.left(std::max(layout.lineAt(0).xToCursor(room, QTextLine::CursorOnCharacter), 0)) + ellipsis;
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
    Laid laid{std::make_shared<QTextLayout>(shown, font), {}};
    const int last = ::lay(*laid.layout, laid.size, width, lines, step);
    if (last >= 0) { // most texts fit, and are laid out once
        laid.layout->clearLayout();
        laid.layout->setText(shown.left(last) + cut(shown.mid(last), font, width));
        ::lay(*laid.layout, laid.size, width, lines, step);
    }
    return *m_laid.insert(key, laid);
}

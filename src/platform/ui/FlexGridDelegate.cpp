#include "platform/ui/FlexGridDelegate.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

constexpr int fontHeight = 16; // of the font that the sizes were made for
constexpr int leastRow = 15;
constexpr int secondLine = 14;
constexpr int tintedHeader = 28;
constexpr int classicHeader = 22;
constexpr int headerEdge = 4;

/// Strokes at 45°, which meet from tile to tile.
QPixmap hatching(const QColor &ground, const QColor &stroke) {
    constexpr int tile = 8;
    QImage image(tile, tile, QImage::Format_RGB32);
    image.fill(ground);
    for (int i = 0; i < tile; ++i) {
        image.setPixelColor(i, tile - 1 - i, stroke);
    }
    return QPixmap::fromImage(image);
}

bool isFullHour(const QString &label) {
    return label.endsWith(QStringLiteral(":00"));
}

} // namespace

void FlexGridDelegate::setAspect(const Aspect &aspect, const QFont &font) {
    m_aspect = aspect;
    m_fonts.fill(font);
    m_fonts[Bold].setWeight(QFont::DemiBold);
    constexpr double second = 11.0 / 12.0;
    if (font.pixelSize() > 0) {
        m_fonts[Small].setPixelSize(int(font.pixelSize() * second));
    } else {
        m_fonts[Small].setPointSizeF(font.pointSizeF() * second);
    }
    m_scale = double(QFontMetrics(font).height()) / fontHeight;
    m_lineStep = aspect.contemporaine() ? std::max(QFontMetrics(m_fonts[Small]).height(), scaled(secondLine))
                                        : QFontMetrics(font).height();
    m_hatching = hatching(aspect.hachure, aspect.hachure2);
    m_texts.clear();
    m_drawn.clear();
}

int FlexGridDelegate::leastRowHeight() const {
    return std::max(leastRow, scaled(leastRow));
}

int FlexGridDelegate::headerHeight() const {
    const int height = m_aspect.contemporaine() ? tintedHeader : classicHeader;
    return std::max(height, scaled(height));
}

QColor FlexGridDelegate::labelColor(const FlexGridModel &model) const {
    const QColor stated = model.cell(1, 0).back;
    return m_aspect.contemporaine() || !stated.isValid() ? m_aspect.fond : stated;
}

int FlexGridDelegate::write(QPainter &painter, const QRect &rect, const QString &text, Font font,
                            Qt::Alignment alignment, int lines) const {
    constexpr int least = 4; // less shows no letter
    if (text.isEmpty() || rect.width() < least) {
        return 0;
    }
    const TextCache::Laid &laid =
        m_texts.lay(text, m_fonts[size_t(font)], font, rect.width(), lines, m_lineStep);
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, alignment, laid.size.toSize(), rect);
    constexpr int usual = 2; // a line may be a little higher than its row
    const bool beyond =
        laid.size.width() > rect.width() + usual || laid.size.height() > rect.height() + usual;
    if (beyond) { // another script's font, or joined signs
        painter.save();
        painter.setClipRect(rect, Qt::IntersectClip);
    }
    laid.layout->draw(&painter, place.topLeft());
    if (beyond) {
        painter.restore();
    }
    return int(laid.size.width() + 1);
}

// ---- Cells

void FlexGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const {
    if (index.row() == 0) { // the header shows it
        painter->fillRect(option.rect, m_aspect.fond);
    } else if (m_aspect.contemporaine()) {
        paintTintedCell(*painter, option.rect, index);
    } else {
        paintClassicCell(*painter, option.rect, index, option.palette.color(QPalette::Text));
    }
}

void FlexGridDelegate::paintClassicCell(QPainter &painter, const QRect &rect, const QModelIndex &index,
                                        const QColor &text) const {
    const auto &model = static_cast<const FlexGridModel &>(*index.model());
    const FlexCell &cell = model.cell(index.row(), index.column());
    painter.fillRect(rect, cell.back.isValid() ? cell.back : m_aspect.feuille);
    if (cell.block < 0 || model.cell(index.row() + 1, index.column()).block != cell.block) {
        painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, m_aspect.trait);
    }
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), m_aspect.trait);
    if (!cell.picture.isNull()) {
        paintPicture(painter, QRect(rect.topLeft(), QSize(cell.picture.width(), rect.height())),
                     cell.picture);
    }
    if (cell.block < 0 && !cell.text.isEmpty()) {
        painter.setPen(cell.fore.isValid() ? cell.fore : text);
        const bool fits = QFontMetrics(m_fonts[Plain]).horizontalAdvance(cell.text) < rect.width();
        write(painter, rect.adjusted(0, 0, -1, 0), cell.text,
              fits || cell.use != FlexUse::Label ? Plain : Small, cell.alignment);
    }
}

/// Stretched over the height of its cell.
void FlexGridDelegate::paintPicture(QPainter &painter, const QRect &rect, const QImage &picture) const {
    const auto stretch = [&](QPainter &drawing) {
        drawing.setRenderHint(QPainter::SmoothPixmapTransform);
        drawing.drawImage(QRect(QPoint(0, 0), rect.size()), picture);
    };
    constexpr int half = 32; // bits
    const auto which = quint64(picture.cacheKey());
    painter.drawPixmap(rect.topLeft(),
                       drawnOnce(painter, {uint(which >> half), uint(which)}, rect.size(), stretch));
}

void FlexGridDelegate::paintTintedCell(QPainter &painter, const QRect &rect, const QModelIndex &index) const {
    const auto &model = static_cast<const FlexGridModel &>(*index.model());
    const FlexCell &cell = model.cell(index.row(), index.column());
    if (cell.use == FlexUse::Label) {
        const bool full = isFullHour(cell.text);
        painter.fillRect(rect, m_aspect.fond);
        painter.setPen(full ? m_aspect.encre : m_aspect.encre3);
        const bool bold = full && QFontMetrics(m_fonts[Bold]).horizontalAdvance(cell.text) < rect.width();
        write(painter, rect, cell.text, bold ? Bold : Small, cell.alignment);
    } else if (cell.use == FlexUse::Shut) {
        painter.drawTiledPixmap(rect, m_hatching, rect.topLeft());
    } else {
        painter.fillRect(rect, index.column() == model.today() ? m_aspect.jourDit : m_aspect.feuille);
        const bool hourEnds = isFullHour(model.cell(index.row() + 1, 0).text);
        painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1,
                         hourEnds ? m_aspect.trait : m_aspect.trait2);
    }
    if (cell.use != FlexUse::Label || index.column() == 0) {
        painter.fillRect(rect.right(), rect.top(), 1, rect.height(), m_aspect.trait);
    }
}

// ---- The header

void FlexGridDelegate::paintHeader(QPainter &painter, const QRect &rect, const FlexGridModel &model,
                                   int col) const {
    if (m_aspect.contemporaine()) {
        paintTintedHeader(painter, rect, model, col);
        return;
    }
    const FlexCell &cell = model.cell(0, col);
    const bool today = col == model.today();
    painter.fillRect(rect, cell.back.isValid() ? cell.back : m_aspect.feuille);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, m_aspect.trait);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), m_aspect.trait);
    painter.setPen(QPen(cell.fore.isValid() ? cell.fore : m_aspect.encre, 2));
    if (today) {
        painter.setBrush(Qt::NoBrush); // no bold here: a font that nothing else needs at the start
        painter.drawRect(rect.adjusted(1, 1, -2, -2));
    }
    write(painter, rect.adjusted(2, 0, -3, 0), cell.text, Plain, cell.alignment);
}

void FlexGridDelegate::paintTintedHeader(QPainter &painter, const QRect &rect, const FlexGridModel &model,
                                         int col) const {
    const FlexCell &cell = model.cell(0, col);
    const int day = model.day(col);
    painter.fillRect(rect, m_aspect.fond);
    const QRect text = rect.adjusted(0, 0, -1, -headerEdge);
    if (day == 0) {
        painter.setPen(m_aspect.encre3);
        write(painter, text, cell.text, Plain, Qt::AlignCenter);
        return;
    }
    painter.fillRect(rect.left(), rect.bottom() - headerEdge + 1, rect.width() - 1, headerEdge,
                     m_aspect.jours[size_t(day)].bord);
    painter.setPen(m_aspect.encre);
    if (col == model.today()) {
        constexpr int padding = 10;
        const int width = QFontMetrics(m_fonts[Bold]).horizontalAdvance(cell.text) + 2 * padding;
        const QRect pill =
            QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
                                QSize(std::min(width, text.width()), text.height() - headerEdge), text);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_aspect.encre);
        painter.drawRoundedRect(pill, pill.height() / 2.0, pill.height() / 2.0);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(m_aspect.feuille);
    }
    write(painter, text, cell.text, Bold, Qt::AlignCenter);
}

// The blocks of a flex grid, as its delegate paints them.
#include "platform/ui/FlexGridDelegate.h"

#include "platform/ui/DatesFr.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int radius = 4;
constexpr int classicIndent = 20; // of the text, past the picture and the mark
constexpr int tintedIndent = 22;
constexpr int laneIndent = 11;
constexpr int edge = 6;
constexpr int arrivedEdge = 18;
constexpr int markSize = 12;
constexpr int nameLine = 15; // pixels
constexpr int outlineWidth = 2;

/// Inside the edges of `rect`; a pen takes ten times as long.
void paintBorder(QPainter &painter, const QRect &rect, const QColor &color) {
    painter.fillRect(rect.left(), rect.top(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, color);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height(), color);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), color);
}

} // namespace

void FlexGridDelegate::paintBlock(QPainter &painter, const QRect &rect, const FlexGridModel &model,
                                  int block) const {
    if (m_aspect.contemporaine()) {
        paintTintedBlock(painter, rect, model.blocks()[size_t(block)]);
    } else {
        paintClassicBlock(painter, rect, model, block);
    }
}

QRect FlexGridDelegate::laneRect(const QRect &cells, const FlexBlock &block) const {
    if (!m_aspect.contemporaine()) {
        return cells.adjusted(0, 0, -1, -1);
    }
    const QRect inside = cells.adjusted(1, 0, -2, -1);
    const int left = inside.width() * block.lane / block.lanes;
    const int right = inside.width() * (block.lane + 1) / block.lanes;
    const int gap = block.lane + 1 < block.lanes ? 1 : 0;
    return {inside.left() + left, inside.top(), std::max(right - left - gap, 1), inside.height()};
}

const QPixmap &FlexGridDelegate::drawnOnce(const QPainter &painter, const QList<uint> &key, QSize size,
                                           const std::function<void(QPainter &)> &draw) const {
    const qreal scale = painter.device()->devicePixelRatioF();
    const QList<uint> whole = key + QList{uint(size.width()), uint(size.height()), uint(scale * 100)};
    const auto known = m_drawn.constFind(whole);
    if (known != m_drawn.constEnd()) {
        return *known;
    }
    constexpr int most = 1000; // heights change while a window is pulled larger
    if (m_drawn.size() >= most) {
        m_drawn.clear();
    }
    QPixmap picture(size * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter drawing(&picture);
    drawing.setRenderHint(QPainter::Antialiasing);
    draw(drawing);
    drawing.end();
    return *m_drawn.insert(whole, picture);
}

/// A check for who came, a dial for who is late: one man in twelve does not see red.
void FlexGridDelegate::paintMark(QPainter &painter, const QPoint &corner, int size, Mark mark,
                                 const QColor &color, const QColor &ground) const {
    const auto draw = [&](QPainter &drawing) {
        constexpr double grid = 16; // the marks are drawn on 16 × 16
        drawing.scale(size / grid, size / grid);
        if (ground.isValid()) {
            drawing.setPen(Qt::NoPen);
            drawing.setBrush(ground);
            drawing.drawEllipse(QRectF(0, 0, grid, grid));
            constexpr double margin = 1.2;
            drawing.translate(margin, margin);
            drawing.scale(1 - 2 * margin / grid, 1 - 2 * margin / grid);
        }
        drawing.setBrush(Qt::NoBrush);
        if (mark == Mark::Check) {
            drawing.setPen(QPen(color, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const QPointF points[] = {{3, 8.5}, {6.2, 12}, {13, 4.5}};
            drawing.drawPolyline(points, 3);
        } else if (mark == Mark::Pin) {
            drawing.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const QPointF head[] = {{5, 2}, {11, 2}, {10, 7}, {12, 10}, {4, 10}, {6, 7}, {5, 2}};
            drawing.drawPolyline(head, 7);
            drawing.drawLine(QPointF(8, 10), QPointF(8, 14.5));
        } else {
            drawing.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap));
            drawing.drawEllipse(QPointF(8, 8), 6.4, 6.4);
            drawing.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
            drawing.drawLine(QPointF(8, 4.4), QPointF(8, 8.6));
            drawing.drawPoint(QPointF(8, 11.4));
        }
    };
    painter.drawPixmap(corner,
                       drawnOnce(painter, {uint(mark), color.rgba(), ground.isValid() ? ground.rgba() : 0},
                                 QSize(size, size), draw));
}

// ---- Classique

/// The cells have their colours and pictures already: a border, the mark and the text come over them.
void FlexGridDelegate::paintClassicBlock(QPainter &painter, const QRect &rect, const FlexGridModel &model,
                                         int place) const {
    const FlexBlock &block = model.blocks()[size_t(place)];
    const auto [first, last] = model.ownRows(place);
    const FlexCell &cell = model.cell(first, block.col);
    constexpr double darker = 0.35;
    paintBorder(painter, rect, cell.back.isValid() ? Melange(Qt::black, cell.back, darker) : m_aspect.encre3);
    if (first != block.first) {
        return; // the row that has its text is another's
    }
    if (block.late && cell.back.isValid()) { // red is not read on grey
        painter.fillRect(rect.adjusted(cell.picture.width(), 1, -1, -1), m_aspect.feuille);
    }
    if (block.present || block.late) {
        const int size = std::min(scaled(markSize + 2), rect.height() - 2);
        paintMark(painter, rect.topLeft() + QPoint(2, 1), size, block.present ? Mark::Check : Mark::Dial,
                  block.present ? m_aspect.encre : m_aspect.alerte, m_aspect.feuille);
    }
    const int beside = block.pinned && (block.present || block.late) ? scaled(markSize + 2) : 0;
    if (block.pinned) {
        const int size = std::min(scaled(markSize + 2), rect.height() - 2);
        paintMark(painter, rect.topLeft() + QPoint(2 + beside, 1), size, Mark::Pin, m_aspect.encre,
                  m_aspect.feuille);
    }
    QString text = block.caption();
    const int lines = last > first ? std::max((rect.height() - 3) / m_lineStep, 1) : 1;
    if (lines > 1) { // on a line of its own the name says more
        text.prepend(DatesFr::heure(block.start) + u' ');
    }
    painter.setPen(cell.fore.isValid() ? cell.fore : m_aspect.encre);
    const int left = std::max(scaled(classicIndent), cell.picture.width()) + beside;
    const int above = rect.height() > 2 * m_lineStep ? 2 : 0; // the outline leaves the accents alone
    write(painter, rect.adjusted(left, above, -3, 0), text, Plain,
          Qt::AlignLeft | (last > first ? Qt::AlignTop : Qt::AlignVCenter), lines);
}

// ---- Contemporaine

/// Straight parts are filled, corners copied from a frame that was drawn once.
void FlexGridDelegate::paintFrame(QPainter &painter, const QRect &rect, const Frame &frame) const {
    constexpr int corner = radius + 1;
    const int left = frame.solid + corner;
    const QSize whole(left + corner, 2 * corner);
    const QPixmap &model =
        drawnOnce(painter, {uint(frame.solid), frame.edge.rgba(), frame.tint.rgba(), frame.contour.rgba()},
                  whole, [&](QPainter &drawing) {
                      const QRectF all(QPointF(0, 0), QSizeF(whole));
                      QPainterPath shape;
                      shape.addRoundedRect(all, radius, radius);
                      drawing.setClipPath(shape);
                      drawing.fillRect(all, frame.tint);
                      drawing.fillRect(QRectF(0, 0, frame.solid, all.height()), frame.edge);
                      drawing.setClipping(false);
                      drawing.setPen(frame.contour);
                      drawing.drawRoundedRect(all.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
                  });
    painter.fillRect(rect.adjusted(left, 0, -corner, 0), frame.tint);
    painter.fillRect(rect.adjusted(frame.solid, corner, 0, -corner), frame.tint);
    painter.fillRect(rect.left(), rect.top() + corner, frame.solid, rect.height() - 2 * corner, frame.edge);
    for (const int y : {rect.top(), rect.bottom()}) {
        painter.fillRect(rect.left() + left, y, rect.width() - whole.width(), 1, frame.contour);
    }
    for (const int x : {rect.left(), rect.right()}) {
        painter.fillRect(x, rect.top() + corner, 1, rect.height() - whole.height(), frame.contour);
    }
    const qreal scale = model.devicePixelRatio();
    const auto copy = [&](const QPoint &to, const QRectF &from) {
        painter.drawPixmap(QRectF(to, from.size()), model,
                           QRectF(from.topLeft() * scale, from.size() * scale));
    };
    const int right = rect.right() + 1 - corner;
    const int bottom = rect.bottom() + 1 - corner;
    copy(rect.topLeft(), QRectF(0, 0, left, corner));
    copy({right, rect.top()}, QRectF(left, 0, corner, corner));
    copy({rect.left(), bottom}, QRectF(0, corner, left, corner));
    copy({right, bottom}, QRectF(left, corner, corner, corner));
}

void FlexGridDelegate::paintTintedBlock(QPainter &painter, const QRect &rect, const FlexBlock &block) const {
    const CouleursDuJour &day = m_aspect.jours[size_t(block.day)];
    const int solid = std::min(scaled(block.present ? arrivedEdge : edge), rect.width() / 2);
    const Frame frame{day.bord, block.late ? m_aspect.fondAlerte : (block.past ? day.passe : day.teinte),
                      block.late ? m_aspect.bordAlerte : day.contour, solid};
    const bool cut = block.cutAbove || block.cutBelow;
    const QSize least(solid + 2 * (radius + 1), 2 * (radius + 1));
    if (!cut && rect.width() >= least.width() && rect.height() >= least.height()) {
        paintFrame(painter, rect, frame);
    } else { // square: it goes on beyond the grid, or has no room for corners
        painter.fillRect(rect, frame.tint);
        painter.fillRect(rect.left(), rect.top(), solid, rect.height(), frame.edge);
        paintBorder(painter, rect, frame.contour);
    }
    painter.setPen(QPen(m_aspect.encre3, 1, Qt::DashLine));
    for (const auto &[beyond, y] :
         {std::pair(block.cutAbove, rect.top()), std::pair(block.cutBelow, rect.bottom())}) {
        if (beyond) {
            painter.drawLine(rect.left(), y, rect.right(), y);
        }
    }
    const int size = std::min(scaled(markSize), rect.height());
    if (block.present) {
        paintMark(painter, rect.topLeft() + QPoint((solid - size) / 2, 2), size, Mark::Check, day.coche);
    } else if (block.late) {
        paintMark(painter, rect.topLeft() + QPoint(solid + 2, 1), size, Mark::Dial, m_aspect.alerte);
    }
    const int beside = block.pinned && (block.present || block.late) ? size + 2 : 0;
    if (block.pinned) {
        const int left = block.present ? solid + 2 : solid + 2 + beside;
        paintMark(painter, rect.topLeft() + QPoint(left, 1), size, Mark::Pin, m_aspect.encre2);
    }
    const bool narrow = block.lanes > 1 && !block.present && !block.late && !block.pinned;
    const int indent = scaled(narrow ? laneIndent : tintedIndent) + beside;
    paintTintedText(painter, rect.adjusted(indent, 0, -5, 0), block);
}

/// Name, hours, description: one below the other as far as they fit.
void FlexGridDelegate::paintTintedText(QPainter &painter, const QRect &rect, const FlexBlock &block) const {
    const int needed = std::max(scaled(nameLine), QFontMetrics(m_fonts[Bold]).height() - 1);
    const int lines = (rect.height() - needed) / m_lineStep;
    const int written = std::min(lines, block.detail.isEmpty() ? 1 : 2);
    const int spare = rect.height() - needed - written * m_lineStep;
    // the outline leaves the accents of capitals alone
    const int above = lines < 1 ? 0 : std::min(spare / 2, outlineWidth);
    const QRect name(rect.left(), rect.top() + above, rect.width(), lines < 1 ? rect.height() : needed);
    painter.setPen(block.late ? m_aspect.alerte : (block.past ? m_aspect.encre2 : m_aspect.encre));
    const int width = write(painter, name, block.name, block.past ? Plain : Bold);
    painter.setPen(m_aspect.encre2);
    if (lines < 1) {
        const QRect rest = name.adjusted(width + radius, 0, 0, 0);
        if (rest.width() > 2 * rect.height()) { // less says nothing
            write(painter, rest, block.detail, Small);
        }
        return;
    }
    QRect line(rect.left(), name.bottom(), rect.width(), m_lineStep);
    if (lines == 1) {
        const QString behind = block.detail.isEmpty() ? QString() : QStringLiteral(" · ") + block.detail;
        write(painter, line, block.hours() + behind, Small);
        return;
    }
    write(painter, line, block.hours(), Small);
    line.moveTop(line.top() + m_lineStep);
    line.setBottom(rect.bottom());
    write(painter, line, block.detail, Small, Qt::AlignLeft | Qt::AlignTop,
          std::max(line.height() / m_lineStep, 1));
}

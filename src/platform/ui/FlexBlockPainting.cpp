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

/// A check for who came, a dial for who is late: one man in twelve does not see red.
void FlexGridDelegate::paintMark(QPainter &painter, const QRectF &place, Mark mark,
                                 const QColor &color) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    constexpr double grid = 16; // the marks are drawn on 16 × 16
    painter.scale(place.width() / grid, place.height() / grid);
    painter.setBrush(Qt::NoBrush);
    if (mark == Mark::Check) {
        painter.setPen(QPen(color, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF points[] = {{3, 8.5}, {6.2, 12}, {13, 4.5}};
        painter.drawPolyline(points, 3);
    } else {
        painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap));
        painter.drawEllipse(QPointF(8, 8), 6.4, 6.4);
        painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(8, 4.4), QPointF(8, 8.6));
        painter.drawPoint(QPointF(8, 11.4));
    }
    painter.restore();
}

// ---- Classique

/// The cells have their colours and pictures already: a border, the mark and the text come over them.
void FlexGridDelegate::paintClassicBlock(QPainter &painter, const QRect &rect, const FlexGridModel &model,
                                         int place) const {
    const FlexBlock &block = model.blocks()[size_t(place)];
    const auto [first, last] = model.ownRows(place);
    const FlexCell &cell = model.cell(first, block.col);
    constexpr double darker = 0.35;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(cell.back.isValid() ? Melange(Qt::black, cell.back, darker) : m_aspect.encre3);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    if (first != block.first) {
        return; // the row that has its text is another's
    }
    if (block.present || block.late) {
        const int size = std::min(scaled(markSize + 2), rect.height() - 2);
        const QRectF disc(rect.left() + 2, rect.top() + 1, size, size);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_aspect.feuille);
        painter.drawEllipse(disc);
        painter.setRenderHint(QPainter::Antialiasing, false);
        paintMark(painter, disc.adjusted(1, 1, -1, -1), block.present ? Mark::Check : Mark::Dial,
                  block.present ? m_aspect.encre : m_aspect.alerte);
    }
    QString text = block.name;
    if (!block.detail.isEmpty()) {
        text += QStringLiteral("  [") + block.detail + u']';
    }
    const int lines = last > first ? std::max((rect.height() - 3) / lineStep(), 1) : 1;
    if (last > first) {
        text.prepend(DatesFr::heure(block.start) + u' ');
    }
    painter.setPen(cell.fore.isValid() ? cell.fore : m_aspect.encre);
    const int left = std::max(scaled(classicIndent), cell.picture.width());
    const int above = rect.height() > 2 * lineStep() ? 2 : 0; // the outline leaves the accents alone
    write(painter, rect.adjusted(left, above, -3, 0), text, Plain,
          Qt::AlignLeft | (last > first ? Qt::AlignTop : Qt::AlignVCenter), lines);
}

// ---- Contemporaine

void FlexGridDelegate::paintTintedBlock(QPainter &painter, const QRect &rect, const FlexBlock &block) const {
    const CouleursDuJour &day = m_aspect.jours[size_t(block.day)];
    const bool cut = block.cutAbove || block.cutBelow;
    const double round = cut ? 0 : radius;
    const int solid = std::min(scaled(block.present ? arrivedEdge : edge), rect.width());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(day.bord);
    painter.drawRoundedRect(QRectF(rect.left(), rect.top(), solid + radius, rect.height()), round, round);
    painter.setBrush(block.late ? m_aspect.fondAlerte : (block.past ? day.passe : day.teinte));
    QPainterPath tint;
    tint.setFillRule(Qt::WindingFill);
    tint.addRoundedRect(QRectF(rect).adjusted(solid, 0, 0, 0), round, round);
    tint.addRect(QRectF(rect.left() + solid, rect.top(), radius, rect.height()));
    painter.drawPath(tint);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(block.late ? m_aspect.bordAlerte : day.contour);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), round, round);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (cut) {
        painter.setPen(QPen(m_aspect.encre3, 1, Qt::DashLine));
        const int y = block.cutAbove ? rect.top() : rect.bottom();
        painter.drawLine(rect.left(), y, rect.right(), y);
    }
    const int size = std::min(scaled(markSize), rect.height());
    if (block.present) {
        paintMark(painter, QRectF(rect.left() + (solid - size) / 2.0, rect.top() + 2, size, size),
                  Mark::Check, day.coche);
    } else if (block.late) {
        paintMark(painter, QRectF(rect.left() + solid + 2, rect.top() + 1, size, size), Mark::Dial,
                  m_aspect.alerte);
    }
    const bool narrow = block.lanes > 1 && !block.present && !block.late;
    paintTintedText(painter, rect.adjusted(scaled(narrow ? laneIndent : tintedIndent), 0, -5, 0), block);
}

/// Name, hours, description: one below the other as far as they fit.
void FlexGridDelegate::paintTintedText(QPainter &painter, const QRect &rect, const FlexBlock &block) const {
    const int needed = scaled(nameLine);
    const int lines = (rect.height() - needed) / lineStep();
    const int spare = rect.height() - needed - std::min(lines, 2) * lineStep();
    // the outline leaves the accents of capitals alone
    const int above = lines < 1 ? 0 : std::min(spare / 2, outlineWidth);
    const QRect name(rect.left(), rect.top() + above, rect.width(), lines < 1 ? rect.height() : needed);
    painter.setPen(block.late ? m_aspect.alerte : (block.past ? m_aspect.encre2 : m_aspect.encre));
    const int width = write(painter, name, block.name, block.past ? Plain : Bold);
    painter.setPen(m_aspect.encre2);
    if (lines < 1) {
        write(painter, name.adjusted(width + radius, 0, 0, 0), block.detail, Small);
        return;
    }
    QRect line(rect.left(), name.bottom(), rect.width(), lineStep());
    if (lines == 1) {
        const QString behind = block.detail.isEmpty() ? QString() : QStringLiteral(" · ") + block.detail;
        write(painter, line, block.hours() + behind, Small);
        return;
    }
    write(painter, line, block.hours(), Small);
    line.moveTop(line.top() + lineStep());
    line.setBottom(rect.bottom());
    write(painter, line, block.detail, Small, Qt::AlignLeft | Qt::AlignTop,
          std::max(line.height() / lineStep(), 1));
}

#include "platform/ui/FlexMarks.h"

#include <QFontInfo>
#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int halo = 1;
constexpr int outlineWidth = 2;
constexpr int radius = 5;
constexpr int indent = 20; // of a text in a free slot
constexpr int arrow = 5;   // before the line of the hour
constexpr int nowEnd = 7;  // what is left of that line on a block

QFont bold(QFont font) {
    font.setBold(true);
    return font;
}

QFont smaller(QFont font) {
    constexpr double second = 11.0 / 12.0;
    font.pixelSize() > 0 ? font.setPixelSize(int(font.pixelSize() * second))
                         : font.setPointSizeF(font.pointSizeF() * second);
    return font;
}

/// Less where the column is narrow.
int indentIn(const QRect &slot) {
    constexpr int part = 8;
    return std::min(indent, slot.width() / part);
}

/// What drawing these marks may touch.
QRect outlineArea(const FlexMarks &m) {
    return m.outline.isNull() ? QRect() : m.outline.adjusted(-1 - halo, -1 - halo, halo, halo);
}
QRect ghostArea(const FlexGhost &g) {
    return g.place.isNull() ? QRect() : g.place.adjusted(-2, -2, 2, 2);
}
QRect nowArea(const FlexMarks &m) {
    return m.nowLine.isNull() ? m.nowLabels
                              : m.nowLabels.united(m.nowLine.adjusted(-arrow, -arrow, 0, arrow));
}

} // namespace

QFont fitted(QFont font, const QString &text, int width) {
    constexpr double step = 0.5; // points; digits are rounded to pixels each
    double size = QFontInfo(font).pointSizeF();
    for (int needed = QFontMetrics(font).horizontalAdvance(text); needed > width && size > 1;
         needed = QFontMetrics(font).horizontalAdvance(text)) {
        size = std::max(std::min(size * std::max(width, 0) / needed, size - step), 1.0);
        font.setPointSizeF(size);
    }
    return font;
}

FlexMarksLayer::FlexMarksLayer(QWidget *viewport) : QWidget(viewport) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void FlexMarksLayer::setAspect(const Aspect &aspect, const QColor &labels) {
    m_aspect = aspect;
    m_labels = labels;
    update();
}

void FlexMarksLayer::setMarks(const FlexMarks &marks) {
    if (marks == m_marks) {
        return;
    }
    const FlexMarks before = std::exchange(m_marks, marks);
    const auto changed = [this](bool same, const QRect &from, const QRect &to) {
        if (!same) {
            update(QRegion(from) + to);
        }
    };
    const bool sameOutline = before.outline == marks.outline && before.hours == marks.hours &&
                             before.length == marks.length && before.free == marks.free &&
                             before.focused == marks.focused;
    changed(sameOutline, outlineArea(before), outlineArea(marks));
    changed(before.hover == marks.hover && before.hoverText == marks.hoverText, before.hover, marks.hover);
    changed(before.nowLine == marks.nowLine && before.nowPill == marks.nowPill &&
                before.nowText == marks.nowText && before.nowOnBlock == marks.nowOnBlock,
            nowArea(before), nowArea(marks));
    changed(before.taken == marks.taken, before.taken, marks.taken);
    changed(before.ghost == marks.ghost, ghostArea(before.ghost), ghostArea(marks.ghost));
    changed(before.ghost == marks.ghost, before.ghost.labels, marks.ghost.labels);
    changed(before.hint == marks.hint && before.hintText == marks.hintText, before.hint, marks.hint);
}

void FlexMarksLayer::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.setRenderHint(QPainter::Antialiasing);
    paintHover(painter);
    paintNow(painter);
    paintOutline(painter);
    paintTaken(painter);
    paintGhost(painter);
    paintHint(painter);
}

void FlexMarksLayer::paintHover(QPainter &painter) const {
    if (m_marks.hover.isNull()) {
        return;
    }
    constexpr double border = 0.35;
    const QRect frame = m_marks.hover.adjusted(1, 0, -2, -1);
    painter.setPen(Melange(m_aspect.accent, m_aspect.feuille, border));
    painter.setBrush(m_aspect.survol);
    painter.drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), radius - 1, radius - 1);
    painter.setPen(m_aspect.encre2);
    const QRect text = frame.adjusted(indentIn(frame), 0, -2, 0);
    painter.setFont(fitted(smaller(font()), m_marks.hoverText, text.width()));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, m_marks.hoverText);
}

void FlexMarksLayer::paintOutline(QPainter &painter) const {
    if (m_marks.outline.isNull()) {
        return;
    }
    const QColor accent = m_marks.focused ? m_aspect.accent : m_aspect.encre3;
    // over the gap and the contour of what it surrounds: the text keeps its place
    const QRectF frame = QRectF(m_marks.outline).adjusted(-1, -1, 0, 0);
    painter.setBrush(m_marks.free ? QBrush(m_aspect.choix) : QBrush(Qt::NoBrush));
    painter.setPen(QPen(m_aspect.feuille, halo));
    constexpr double half = 0.5;
    painter.drawRoundedRect(frame.adjusted(-half, -half, half, half), radius, radius);
    painter.setBrush(Qt::NoBrush);
    if (!m_aspect.contemporaine()) { // seen on a solid block of the same blue too
        constexpr double inner = outlineWidth + half;
        painter.drawRoundedRect(frame.adjusted(inner, inner, -inner, -inner), radius - 2, radius - 2);
    }
    painter.setPen(QPen(accent, outlineWidth));
    painter.drawRoundedRect(frame.adjusted(1, 1, -1, -1), radius, radius);
    m_marks.free ? paintFree(painter) : paintChip(painter);
}

/// The hours of a free range, and its length where that has room beside them.
void FlexMarksLayer::paintFree(QPainter &painter) const {
    const QRect text = m_marks.outline.adjusted(indentIn(m_marks.outline), 0, -radius, 0);
    const QFont large = fitted(bold(font()), m_marks.hours, text.width());
    const QFontMetrics metrics(large);
    const QRect line(text.left(), text.top(), text.width(),
                     m_marks.oneRow ? text.height() : metrics.height() + outlineWidth);
    painter.setPen(m_marks.focused ? m_aspect.accent : m_aspect.encre3);
    painter.setFont(large);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, m_marks.hours);
    constexpr int gap = 8;
    const QRect rest = line.adjusted(metrics.horizontalAdvance(m_marks.hours) + gap, 0, 0, 0);
    if (QFontMetrics(font()).horizontalAdvance(m_marks.length) <= rest.width()) {
        painter.setFont(font());
        painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, m_marks.length);
    }
}

/// The hours of an appointment: on the line where it writes them, or at the right where it has no such line.
void FlexMarksLayer::paintChip(QPainter &painter) const {
    if (m_marks.hours.isEmpty()) {
        return;
    }
    constexpr int padding = 5;
    const QFont usual = smaller(font()); // as wide as the hours that the chip stands on
    const QFont small = fitted(m_aspect.contemporaine() ? usual : bold(usual), m_marks.hours,
                               m_marks.outline.width() - 2 * (padding + outlineWidth));
    const QFontMetrics metrics(small);
    const QSize size(metrics.horizontalAdvance(m_marks.hours) + 2 * padding, metrics.height() - 1);
    const QRect inside = m_marks.outline.adjusted(outlineWidth, outlineWidth, -outlineWidth, -outlineWidth);
    QRect chip(QPoint(inside.right() - size.width() + 1, inside.bottom() - size.height() + 1), size);
    const int name = QFontMetrics(font()).height();
    const bool below = inside.height() >= name + size.height();
    if (!below && inside.width() < 2 * size.width()) {
        return; // the name says more
    }
    if (!below) {
        chip.moveTop(inside.top());
        chip.setBottom(inside.bottom());
    } else if (m_aspect.contemporaine()) {
        chip.moveTopLeft(inside.topLeft() + QPoint(indent - 4, name - 2));
    }
    chip.moveRight(std::min(chip.right(), inside.right()));
    chip = chip.intersected(inside);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_marks.focused ? m_aspect.accent : m_aspect.encre3);
    painter.drawRoundedRect(chip, 3, 3);
    painter.setPen(m_marks.focused ? m_aspect.surAccent : m_aspect.feuille);
    painter.setFont(small);
    painter.drawText(chip, Qt::AlignCenter, m_marks.hours);
}

void FlexMarksLayer::paintNow(QPainter &painter) const {
    const QRect &line = m_marks.nowLine;
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_aspect.encre);
    if (!line.isNull()) {
        QRegion drawn(line);
        if (m_marks.nowOnBlock) { // no name is struck through
            drawn -= line.adjusted(nowEnd, 0, -nowEnd, 0);
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
        for (const QRect &part : drawn) {
            painter.fillRect(part.adjusted(0, -halo, 0, halo), m_aspect.feuille);
            painter.fillRect(part, m_aspect.encre);
        }
        painter.setRenderHint(QPainter::Antialiasing);
        const QPointF tip(line.left() + 2, line.top() + 1);
        painter.drawPolygon(QPolygonF{tip, tip + QPointF(-arrow, -arrow), tip + QPointF(-arrow, arrow)});
    }
    if (m_marks.nowPill.isNull()) {
        return;
    }
    painter.fillRect(m_marks.nowLabels, m_labels);
    painter.drawRoundedRect(m_marks.nowPill, m_marks.nowPill.height() / 2.0, m_marks.nowPill.height() / 2.0);
    painter.setPen(m_aspect.feuille);
    const QFont large = m_aspect.contemporaine() ? bold(font()) : font(); // see the header of the day
    painter.setFont(fitted(large, m_marks.nowText, m_marks.nowPill.width() - 2));
    painter.drawText(m_marks.nowPill, Qt::AlignCenter, m_marks.nowText);
}

// ---- What is dragged

/// The block stays where it is, pale, until it is dropped.
void FlexMarksLayer::paintTaken(QPainter &painter) const {
    if (m_marks.taken.isNull()) {
        return;
    }
    constexpr int veil = 150;
    QColor pale = m_aspect.feuille;
    pale.setAlpha(veil);
    painter.setBrush(pale);
    painter.setPen(QPen(m_aspect.encre2, 1, Qt::DashLine));
    painter.drawRoundedRect(QRectF(m_marks.taken).adjusted(0.5, 0.5, -0.5, -0.5), radius - 1, radius - 1);
}

void FlexMarksLayer::paintGhost(QPainter &painter) const {
    const FlexGhost &ghost = m_marks.ghost;
    if (ghost.place.isNull()) {
        return;
    }
    const QColor edge = ghost.refused ? m_aspect.bordAlerte : m_aspect.accent;
    painter.setBrush(ghost.refused ? m_aspect.refus : m_aspect.fantome);
    painter.setPen(QPen(edge, outlineWidth, ghost.refused ? Qt::DashLine : Qt::SolidLine));
    painter.drawRoundedRect(QRectF(ghost.place), radius, radius);
    paintGhostText(painter, ghost.place.adjusted(radius + 4, 1, -radius, -1));
    paintGhostLabels(painter);
}

/// One line where there is room for no more: the hours keep their place then.
void FlexMarksLayer::paintGhostText(QPainter &painter, const QRect &inside) const {
    const FlexGhost &ghost = m_marks.ghost;
    const QFont name = bold(font());
    const QFont text = smaller(font());
    const QFontMetrics nameMetrics(name);
    const QFontMetrics textMetrics(text);
    const bool twoLines = inside.height() >= nameMetrics.height() + textMetrics.height();
    constexpr int gap = 6;
    const int width = std::min(textMetrics.horizontalAdvance(ghost.text), inside.width());
    QRect first = inside;
    QRect second = inside;
    if (twoLines) {
        first.setHeight(nameMetrics.height());
        second.setTop(first.bottom());
        second.setHeight(textMetrics.height());
    } else {
        second.setLeft(inside.right() - width);
        first.setRight(second.left() - gap);
    }
    painter.setPen(ghost.refused ? m_aspect.alerte : m_aspect.encre);
    painter.setFont(text);
    painter.drawText(second, Qt::AlignLeft | Qt::AlignVCenter,
                     textMetrics.elidedText(ghost.text, Qt::ElideRight, second.width()));
    painter.setFont(name);
    painter.drawText(first, Qt::AlignLeft | Qt::AlignVCenter,
                     nameMetrics.elidedText(ghost.name, Qt::ElideRight, first.width()));
}

void FlexMarksLayer::paintGhostLabels(QPainter &painter) const {
    const FlexGhost &ghost = m_marks.ghost;
    const QFont hours = bold(smaller(font()));
    const int line = QFontMetrics(hours).height();
    painter.setPen(Qt::NoPen);
    painter.setBrush(ghost.refused ? m_aspect.alerte : m_aspect.accent);
    painter.drawRoundedRect(ghost.labels, 3, 3);
    painter.setPen(m_aspect.surAccent);
    painter.setFont(hours);
    const bool both = ghost.labels.height() >= 2 * line;
    painter.drawText(ghost.labels, Qt::AlignCenter, both ? ghost.from + u'\n' + ghost.to : ghost.from);
}

void FlexMarksLayer::paintHint(QPainter &painter) const {
    if (m_marks.hint.isNull()) {
        return;
    }
    painter.setBrush(m_aspect.feuille);
    painter.setPen(m_aspect.accent);
    painter.drawRoundedRect(QRectF(m_marks.hint).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.setPen(m_aspect.encre);
    painter.setFont(bold(font()));
    painter.drawText(m_marks.hint, Qt::AlignCenter, m_marks.hintText);
}

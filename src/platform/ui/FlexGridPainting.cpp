// How a flex grid is drawn: cells, then blocks, then the marks of its layer.
#include "platform/ui/FlexGrid.h"

#include "platform/ui/FlexGridDelegate.h"
#include "platform/ui/FlexMarks.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

void FlexGrid::setAspect(const Aspect &aspect) {
    m_painting->setAspect(aspect, font());
    m_layer->setAspect(aspect, m_painting->labelColor(m_cells));
    horizontalHeader()->setFixedHeight(headerHeight());
    updateGeometries();
    fitRows();
    forgetPicture();
    horizontalHeader()->viewport()->update();
}

// ---- Cells and blocks

void FlexGrid::forgetPicture() {
    m_pictureFresh = false;
    viewport()->update();
    placeMarks();
    emit moved();
}

void FlexGrid::paintEvent(QPaintEvent *event) {
    QPainter painter(viewport());
    m_painted = true;
    if (!m_keepsPicture) {
        paintAll(painter, event->rect());
        return;
    }
    const qreal scale = viewport()->devicePixelRatioF();
    const QSize size = viewport()->size() * scale;
    if (!m_pictureFresh || m_picture.size() != size) {
        m_picture = QPixmap(size);
        m_picture.setDevicePixelRatio(scale);
        QPainter drawing(&m_picture);
        drawing.setFont(font());
        paintAll(drawing, viewport()->rect());
        m_pictureFresh = true;
    }
    for (const QRect &part : event->region()) {
        painter.drawPixmap(part.topLeft(), m_picture,
                           QRectF(part.topLeft() * scale, part.size() * scale).toRect());
    }
}

void FlexGrid::paintAll(QPainter &painter, const QRect &rect) const {
    for (const QRect &bare : QRegion(rect) - cellsRect({0, 0, m_cells.rows() - 1, m_cells.cols() - 1})) {
        painter.fillRect(bare, m_painting->aspect().feuille);
    }
    paintCells(painter, rect);
    for (size_t i = 0; i < m_cells.blocks().size(); ++i) {
        const QRect place = blockRectAt(int(i));
        if (place.intersects(rect)) {
            m_painting->paintBlock(painter, place, m_cells, int(i));
        }
    }
    if (!accessibleDescription().isEmpty()) {
        constexpr int margin = 20;
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignCenter | Qt::TextWordWrap, accessibleDescription());
    }
}

/// The rows and columns that `rect` touches.
void FlexGrid::paintCells(QPainter &painter, const QRect &rect) const {
    const int first = rowAt(rect.top());
    if (first < 0) {
        return;
    }
    QStyleOptionViewItem option;
    option.palette = palette();
    for (int row = first; row < m_cells.rows() && rowViewportPosition(row) <= rect.bottom(); ++row) {
        for (int col = 0; col < m_cells.cols(); ++col) {
            option.rect = QRect(columnViewportPosition(col), rowViewportPosition(row), columnWidth(col),
                                rowHeight(row));
            if (option.rect.intersects(rect)) {
                itemDelegate()->paint(&painter, option, m_cells.index(row, col));
            }
        }
    }
}

// ---- Where things are

QRect FlexGrid::cellsRect(const Corners &c) const {
    const auto [top, bottom] = std::minmax(c.row, c.rowSel);
    const auto [left, right] = std::minmax(c.col, c.colSel);
    const int y = rowViewportPosition(std::max(top, 1));
    const int x = columnViewportPosition(left);
    return {x, y, columnViewportPosition(right) + columnWidth(right) - x,
            rowViewportPosition(bottom) + rowHeight(bottom) - y};
}

QRect FlexGrid::blockRectAt(int place) const {
    const FlexBlock &block = m_cells.blocks()[size_t(place)];
    const auto [first, last] =
        m_painting->aspect().contemporaine() ? std::pair(block.first, block.last) : m_cells.ownRows(place);
    return first > last ? QRect()
                        : m_painting->laneRect(cellsRect({first, block.col, last, block.col}), block);
}

QRect FlexGrid::blockRect(qint64 id) const {
    const auto found = std::ranges::find(m_cells.blocks(), id, &FlexBlock::id);
    return found == m_cells.blocks().end()
               ? QRect()
               : blockRectAt(int(found - m_cells.blocks().begin())).intersected(viewport()->rect());
}

QRect FlexGrid::outlineRect() const {
    return m_layer->marks().outline.intersected(viewport()->rect());
}

QRect FlexGrid::wholeRect(const FlexBlock &block) const {
    return m_painting->laneRect(cellsRect({block.first, block.col, block.last, block.col}), block);
}

int FlexGrid::blockAt(const QPoint &position) const {
    for (int i = 0; i < int(m_cells.blocks().size()); ++i) {
        if (blockRectAt(i).contains(position)) {
            return i;
        }
    }
    return -1;
}

qint64 FlexGrid::besideAt(const QPoint &position) const {
    const int place = m_painting->aspect().contemporaine() ? blockAt(position) : -1;
    const FlexBlock *block = place < 0 ? nullptr : &m_cells.blocks()[size_t(place)];
    return block != nullptr && block->lanes > 1 ? block->id : 0;
}

bool FlexGrid::isOutlined(const QPoint &position) const {
    const qint64 meant = besideAt(position);
    return selectionModel()->isSelected(indexAt(position)) && (meant == 0 || meant == m_outlineText.block);
}

// ---- Marks

void FlexGrid::placeMarks() {
    FlexMarks marks;
    placeOutline(marks);
    placeNow(marks);
    placeHand(marks);
    if (m_hover.isValid()) {
        marks.hover = visualRect(m_hover);
        marks.hoverText = QStringLiteral("+ ") + m_cells.cell(m_hover.row(), 0).text;
    }
    m_layer->setMarks(marks);
}

void FlexGrid::moveMarks() {
    const FlexMarks before = m_layer->marks();
    placeMarks();
    m_keepsPicture = m_keepsPicture || (m_painted && before != m_layer->marks());
}

bool FlexGrid::holdsText(const Corners &c) const {
    const auto [top, bottom] = std::minmax(c.row, c.rowSel);
    const auto [left, right] = std::minmax(c.col, c.colSel);
    for (int row = top; row <= bottom; ++row) {
        for (int col = left; col <= right; ++col) {
            if (!m_cells.cell(row, col).text.isEmpty()) {
                return true;
            }
        }
    }
    return false;
}

void FlexGrid::placeOutline(FlexMarks &marks) const {
    const bool taken = m_taken != 0 && m_taken == m_outlineText.block;
    if (!m_outline || m_cells.rows() == 0 || taken) {
        return;
    }
    const auto &blocks = m_cells.blocks();
    const auto block = std::ranges::find(blocks, m_outlineText.block, &FlexBlock::id);
    const bool meant = m_outlineText.block != 0 && block != blocks.end();
    marks.outline = cellsRect(*m_outline);
    if (meant && block->lanes > 1 && m_painting->aspect().contemporaine()) {
        marks.outline = m_painting->laneRect(marks.outline, *block).adjusted(-1, 0, 1, 1);
    }
    marks.hours = m_outlineText.hours;
    marks.length = m_outlineText.length;
    marks.free = m_outlineText.block == 0 && !holdsText(*m_outline);
    marks.oneRow = m_outline->row == m_outline->rowSel;
    marks.focused = hasFocus();
}

void FlexGrid::placeNow(FlexMarks &marks) const {
    if (!m_now || *m_now < 1 || *m_now >= m_cells.rows()) {
        return;
    }
    const int row = int(*m_now);
    const int y = rowViewportPosition(row) + int((*m_now - row) * rowHeight(row)) - 1;
    const int x = columnViewportPosition(0);
    const QSize pill(std::min(fontMetrics().horizontalAdvance(QStringLiteral("00:00000")), columnWidth(0)),
                     fontMetrics().height() + 1);
    marks.nowPill = QRect(QPoint(x + (columnWidth(0) - pill.width()) / 2, y + 1 - pill.height() / 2), pill);
    const int above = std::max(rowAt(std::max(marks.nowPill.top(), 0)), 1);
    const int below = rowAt(marks.nowPill.bottom());
    marks.nowLabels = cellsRect({above, 0, below < 0 ? m_cells.rows() - 1 : below, 0}).adjusted(0, 0, -1, -1);
    marks.nowLabels = marks.nowLabels.united(marks.nowPill);
    marks.nowText = m_nowHour;
    if (const int today = m_cells.today(); today > 0) {
        marks.nowLine = QRect(columnViewportPosition(today), y, columnWidth(today) - 1, 2);
        marks.nowOnBlock = m_cells.cell(row, today).block >= 0;
    }
}

void FlexGrid::showNow(std::optional<double> rows, const QString &hour) {
    m_now = rows;
    m_nowHour = hour;
    moveMarks();
}

void FlexGrid::hoverAt(const QPoint &position) {
    const int place = blockAt(position);
    const int seen = seenAt(position);
    const bool edge = m_movable && seen >= 0 && isEdge(m_cells.blocks()[size_t(seen)], position);
    showHand(edge ? std::optional(Qt::SizeVerCursor) : std::nullopt);
    const qint64 under = place < 0 ? 0 : m_cells.blocks()[size_t(place)].id;
    if (under != m_under) {
        m_under = under;
        askCard(0);
    }
    if (under != 0) {
        m_rest.start(); // from the last move
    } else {
        m_rest.stop();
    }
    const QModelIndex cell = place < 0 ? indexAt(position) : QModelIndex();
    const bool slot = cell.isValid() && m_selectable.contains(cell.column(), cell.row());
    m_hover = slot && m_cells.cell(cell.row(), cell.column()).use == FlexUse::Slot ? cell : QModelIndex();
    moveMarks();
}

void FlexGrid::leave() {
    m_rest.stop();
    m_hover = QModelIndex();
    if (std::exchange(m_under, 0) != 0) {
        askCard(0);
    }
    moveMarks();
}

// ---- What moves or recolours everything

void FlexGrid::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    m_layer->move(0, 0); // the viewport has moved its children along
    forgetPicture();
}

void FlexGrid::focusInEvent(QFocusEvent *event) {
    QTableView::focusInEvent(event);
    moveMarks();
    // after Qt has said that the table has the keys
    QMetaObject::invokeMethod(this, &FlexGrid::sayOutlined, Qt::QueuedConnection);
}

/// As an arrow key does: who comes back from a dialog has to hear what keys act on.
void FlexGrid::sayOutlined() {
    if (m_outline && hasFocus() && QAccessible::isActive()) {
        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(this);
        const QAccessibleInterface *cell = table->tableInterface()->cellAt(m_outline->row, m_outline->col);
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(table->indexOfChild(cell));
        QAccessible::updateAccessibility(&event);
    }
}

void FlexGrid::focusOutEvent(QFocusEvent *event) {
    QTableView::focusOutEvent(event);
    letGo(); // a message, a menu or another window has the user now
    moveMarks();
}

void FlexGrid::changeEvent(QEvent *event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange ||
        event->type() == QEvent::StyleChange) {
        setAspect(AspectDe(m_painting->aspect().presentation, palette()));
    }
}

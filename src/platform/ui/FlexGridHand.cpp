// A block of a flex grid that is taken with the mouse.
#include "platform/ui/FlexGrid.h"

#include "platform/ui/FlexGridDelegate.h"
#include "platform/ui/FlexMarks.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>

namespace {

constexpr int edgeHeight = 5;

} // namespace

// ---- What is asked for

/// In the stated look the last block of a cell covers it; it may part another in two.
int FlexGrid::seenAt(const QPoint &position) const {
    const QModelIndex under = indexAt(position);
    return m_painting->aspect().contemporaine() ? blockAt(position)
                                                : m_cells.cell(under.row(), under.column()).block;
}

qint64 FlexGrid::seenBlock(const QPoint &position) const {
    const int place = seenAt(position);
    return place < 0 ? 0 : m_cells.blocks()[size_t(place)].id;
}

bool FlexGrid::isEdge(const FlexBlock &block, const QPoint &position) const {
    return !block.cutBelow && position.y() > wholeRect(block).bottom() - edgeHeight;
}

/// The outlined one of several that share the place, else the one that is seen.
void FlexGrid::takeBlock(const QPoint &position) {
    if (!m_movable || !isDragging()) {
        return;
    }
    const auto &blocks = m_cells.blocks();
    auto block = std::ranges::find(blocks, m_outlineText.block, &FlexBlock::id);
    if (block == blocks.end() || !wholeRect(*block).contains(position)) {
        block = blocks.begin() + seenAt(position);
    }
    const QPoint start = viewport()->mapToGlobal(position);
    m_hand = Hand{block->id, isEdge(*block, position), start, start};
}

void FlexGrid::moveHand(const QMouseEvent &event) {
    m_hand->last = event.globalPosition().toPoint();
    if (!m_hand->moving) {
        if ((m_hand->last - m_hand->start).manhattanLength() < QApplication::startDragDistance()) {
            return;
        }
        m_hand->moving = true;
        emit blockTaken(m_hand->block, m_hand->edge, m_hand->start);
    }
    const QPoint position = event.position().toPoint();
    if (handMoves() && slotsRect().contains(QPoint(m_hand->last.x(), slotsRect().center().y()))) {
        const QPoint cell = nearestCell(position);
        scrollTo(m_cells.index(cell.y(), cell.x()));
    }
    if (handMoves()) {
        emit blockMoved(m_hand->last, event.modifiers().testFlag(Qt::ControlModifier));
    }
}

void FlexGrid::dropHand(const QMouseEvent &event) {
    const bool moving = handMoves();
    m_hand.reset();
    if (moving) {
        emit blockDropped(event.globalPosition().toPoint(), event.modifiers().testFlag(Qt::ControlModifier));
    }
}

void FlexGrid::letGo() {
    const bool moving = handMoves();
    m_hand.reset();
    if (moving) {
        m_dragging = false;
        emit blockLetGo();
    }
}

void FlexGrid::endDrag() {
    m_dragging = false;
    letGo();
}

void FlexGrid::hideEvent(QHideEvent *event) {
    QTableView::hideEvent(event);
    endDrag();
}

/// Keys that the window's actions have are the grid's as long as something is in hand.
bool FlexGrid::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride && handMoves()) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

bool FlexGrid::handKey(const QKeyEvent &event) {
    if (!handMoves()) {
        return false;
    }
    if (event.key() == Qt::Key_Escape) {
        endDrag();
    } else if (event.key() == Qt::Key_Control) {
        emit blockMoved(m_hand->last, event.type() == QEvent::KeyPress);
    }
    return true;
}

void FlexGrid::keyReleaseEvent(QKeyEvent *event) {
    if (!handKey(*event)) {
        QTableView::keyReleaseEvent(event);
    }
}

std::optional<FlexGrid::Spot> FlexGrid::spotAt(const QPoint &globalPosition) const {
    const QPoint position = viewport()->mapFromGlobal(globalPosition);
    const int row = rowAt(position.y());
    const int col = columnAt(position.x());
    if (!viewport()->rect().contains(position) || row < 0 || col < 0) {
        return std::nullopt;
    }
    return Spot{row + double(position.y() - rowViewportPosition(row)) / rowHeight(row), col};
}

QRect FlexGrid::slotsRect() const {
    const QRect columns = cellsRect({1, m_selectable.left(), 1, m_selectable.right()});
    const QRect inside(columns.left(), 0, columns.width(), viewport()->height());
    return {viewport()->mapToGlobal(inside.topLeft()), inside.size()};
}

// ---- What is shown of it

void FlexGrid::showGhost(const std::optional<Ghost> &ghost) {
    m_ghost = ghost;
    moveMarks();
}

void FlexGrid::showTaken(qint64 block) {
    m_taken = block;
    moveMarks();
}

void FlexGrid::showHint(const QString &text, Qt::Edge side) {
    m_hint = text;
    m_hintSide = side;
    moveMarks();
}

void FlexGrid::showHand(std::optional<Qt::CursorShape> shape) {
    if (!shape) {
        viewport()->unsetCursor();
    } else if (viewport()->cursor().shape() != *shape) {
        viewport()->setCursor(*shape);
    }
}

void FlexGrid::placeHand(FlexMarks &marks) const {
    const auto taken = std::ranges::find(m_cells.blocks(), m_taken, &FlexBlock::id);
    if (m_taken != 0 && taken != m_cells.blocks().end()) {
        marks.taken = wholeRect(*taken);
    }
    if (m_ghost) {
        const Corners &c = m_ghost->cells;
        marks.ghost = {cellsRect(c),    cellsRect({c.row, 0, c.rowSel, 0}).adjusted(1, 0, -2, -1),
                       m_ghost->name,   m_ghost->text,
                       m_ghost->from,   m_ghost->to,
                       m_ghost->refused};
        marks.ghost.place.adjust(1, 0, -2, -1);
    }
    if (!m_hint.isEmpty()) {
        constexpr int padding = 12;
        QFont bold = font();
        bold.setBold(true);
        const QRect columns = cellsRect({1, m_selectable.left(), 1, m_selectable.right()});
        const QSize size(QFontMetrics(bold).horizontalAdvance(m_hint) + 2 * padding,
                         fontMetrics().height() + 2 * padding);
        marks.hint =
            QRect(QPoint(columns.left() + padding, (viewport()->height() - size.height()) / 2), size);
        if (m_hintSide == Qt::RightEdge) {
            marks.hint.moveRight(columns.right() - padding);
        }
        marks.hintText = m_hint;
    }
}

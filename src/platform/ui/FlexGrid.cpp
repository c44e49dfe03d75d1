#include "platform/ui/FlexGrid.h"

#include "platform/ui/FlexGridDelegate.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

/// Shows row 0 of the grid and lets it be clicked.
class FlexHeader : public QHeaderView {
  public:
    explicit FlexHeader(FlexGrid &grid) : QHeaderView(Qt::Horizontal, &grid), m_grid(grid) {
        setSectionResizeMode(QHeaderView::Fixed);
        setMinimumSectionSize(1);
    }

  protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override {
        paintFlexCell(*painter, rect, m_grid.cells().cell(0, section), palette(), false);
    }
    void mousePressEvent(QMouseEvent *event) override {
        const int col = logicalIndexAt(event->position().toPoint());
        if (event->button() == Qt::LeftButton && col >= 0) {
            m_grid.select(0, col, 0, col);
        }
    }
    void mouseReleaseEvent(QMouseEvent *event) override {
        emit m_grid.buttonReleased(event->button(), event->globalPosition().toPoint());
    }
    void mouseMoveEvent(QMouseEvent *event) override { event->accept(); }

  private:
    FlexGrid &m_grid;
};

FlexGrid::FlexGrid(QWidget *parent) : QTableView(parent) {
    setModel(&m_cells);
    setItemDelegate(new FlexGridDelegate(this));
    setHorizontalHeader(new FlexHeader(*this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setFixedHeight(leastRowHeight() + 4);
    setShowGrid(false); // the delegate draws the lines, under the pictures
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setTabKeyNavigation(false);
    setAutoScroll(false); // a redraw keeps the rows in sight
    setWordWrap(false);
    setCornerButtonEnabled(false);

    connect(&m_cells, &QAbstractItemModel::modelReset, this, &FlexGrid::afterReset);
}

void FlexGrid::setRow(int row) {
    if (row != m_row) {
        select(row, m_col, row, m_col);
    }
}

void FlexGrid::setCol(int col) {
    if (col != m_col) {
        select(m_row, col, m_row, col);
    }
}

void FlexGrid::setRowSel(int row) {
    select(m_row, m_col, row, m_colSel);
}

void FlexGrid::setColSel(int col) {
    select(m_row, m_col, m_rowSel, col);
}

void FlexGrid::showAtTop(int row) {
    executeDelayedItemsLayout(); // right after a redraw the scroll bar still has the old range
    updateGeometries();
    scrollTo(m_cells.index(row, 0), QAbstractItemView::PositionAtTop);
}

void FlexGrid::select(int row, int col, int rowSel, int colSel) {
    change(row, col, rowSel, colSel, false);
}

void FlexGrid::change(int row, int col, int rowSel, int colSel, bool startsDrag) {
    const bool same = row == m_row && col == m_col && rowSel == m_rowSel && colSel == m_colSel;
    if (same) {
        return;
    }
    if (row != m_row || col != m_col) {
        m_dragging = startsDrag; // a handler that moves the beginning ends the drag
    }
    m_row = row;
    m_col = col;
    m_rowSel = rowSel;
    m_colSel = colSel;
    showSelection();
    emit selectionChanging();
}

void FlexGrid::showSelection() {
    const QModelIndex first = m_cells.index(std::min(m_row, m_rowSel), std::min(m_col, m_colSel));
    const QModelIndex last = m_cells.index(std::max(m_row, m_rowSel), std::max(m_col, m_colSel));
    if (!first.isValid() || !last.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(m_cells.index(m_row, m_col), QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void FlexGrid::afterReset() {
    if (m_cells.rows() > 0) {
        setRowHidden(0, true); // the header shows it
    }
    fitRows();
    const int lastRow = std::max(m_cells.rows() - 1, 1);
    const int lastCol = std::max(m_cells.cols() - 1, 1);
    m_row = std::clamp(m_row, 0, lastRow);
    m_rowSel = std::clamp(m_rowSel, 0, lastRow);
    m_col = std::clamp(m_col, 0, lastCol);
    m_colSel = std::clamp(m_colSel, 0, lastCol);
    showSelection();
}

int FlexGrid::leastRowHeight() const {
    return fontMetrics().height() + 4;
}

void FlexGrid::fitRows() {
    const int rowsBelowHeader = std::max(m_cells.rows() - 1, 1);
    const int least = leastRowHeight();
    verticalHeader()->setDefaultSectionSize(
        std::clamp(viewport()->height() / rowsBelowHeader, least, 2 * least));
}

void FlexGrid::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    fitRows();
}

QPoint FlexGrid::nearestCell(const QPoint &position) const {
    const QRect inside = viewport()->rect().adjusted(0, 0, -1, -1);
    const int x = std::clamp(position.x(), inside.left(), std::max(inside.right(), 0));
    const int y = std::clamp(position.y(), inside.top(), std::max(inside.bottom(), 0));
    const int row = rowAt(y);
    const int col = columnAt(x);
    return {col >= 0 ? col : m_cells.cols() - 1, row >= 0 ? row : m_cells.rows() - 1};
}

void FlexGrid::mousePressEvent(QMouseEvent *event) {
    setFocus(Qt::MouseFocusReason);
    const QModelIndex under = indexAt(event->position().toPoint());
    if (!under.isValid()) {
        return;
    }
    const bool inSelection = selectionModel()->isSelected(under);
    if (event->button() == Qt::LeftButton) {
        m_dragging = true;
        const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
        change(extend ? m_row : under.row(), extend ? m_col : under.column(), under.row(), under.column(),
               true);
    } else if (event->button() == Qt::RightButton && !inSelection) {
        select(under.row(), under.column(), under.row(), under.column());
    }
}

void FlexGrid::mouseMoveEvent(QMouseEvent *event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        m_dragging = false; // the release went to a message box
    }
    if (!m_dragging) {
        return;
    }
    const QPoint cell = nearestCell(event->position().toPoint());
    scrollTo(m_cells.index(cell.y(), cell.x()));
    select(m_row, m_col, cell.y(), cell.x());
}

void FlexGrid::mouseReleaseEvent(QMouseEvent *event) {
    m_dragging = false;
    if (event->button() == Qt::LeftButton) {
        emit clicked();
    }
    emit buttonReleased(event->button(), event->globalPosition().toPoint());
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event) {
    const QModelIndex under = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && under.isValid()) {
        emit activatedSelection();
    }
}

void FlexGrid::keyPressEvent(QKeyEvent *event) {
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
    case Qt::Key_Up:
        moveBy(-1, 0, extend);
        break;
    case Qt::Key_Down:
        moveBy(1, 0, extend);
        break;
    case Qt::Key_Left:
        moveBy(0, -1, false);
        break;
    case Qt::Key_Right:
        moveBy(0, 1, false);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit activatedSelection();
        break;
    default:
        event->ignore(); // shortcuts and the window's own keys
    }
}

void FlexGrid::moveBy(int rows, int cols, bool extend) {
    const QRect &area = m_keyboardArea;
    if (area.isEmpty()) {
        return;
    }
    // From a block of several rows, Down leaves it by its end and Up by its beginning.
    const int from = extend ? m_rowSel : (rows > 0 ? std::max(m_row, m_rowSel) : std::min(m_row, m_rowSel));
    const int row = std::clamp(from + rows, area.top(), area.bottom());
    const int col = std::clamp(m_col + cols, area.left(), area.right());
    select(extend ? m_row : row, col, row, col);
    scrollTo(m_cells.index(m_rowSel, m_colSel));
}

void FlexGrid::wheelEvent(QWheelEvent *event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->ignore(); // the window zooms
        return;
    }
    QTableView::wheelEvent(event);
}

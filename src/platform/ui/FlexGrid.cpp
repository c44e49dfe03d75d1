#include "platform/ui/FlexGrid.h"

#include "platform/ui/FlexGridDelegate.h"
#include "platform/ui/FlexMarks.h"
#include "platform/ui/PlainTip.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

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
        m_grid.painting().paintHeader(*painter, rect, m_grid.cells(), section);
    }
    void mousePressEvent(QMouseEvent *event) override {
        const int col = logicalIndexAt(event->position().toPoint());
        if (event->button() == Qt::LeftButton && col >= 0) {
            emit m_grid.selectionAsked({0, col, 0, col}, FlexGrid::Gesture::Press, 0);
        }
    }
    void mouseReleaseEvent(QMouseEvent *event) override {
        if (event->button() == Qt::RightButton) {
            emit m_grid.contextMenuAsked(event->globalPosition().toPoint());
        }
    }
    void mouseMoveEvent(QMouseEvent *event) override { event->accept(); }
    /// The base class would measure the captions in bold, with a font that nothing else needs.
    QSize sectionSizeFromContents(int) const override { return {1, m_grid.headerHeight()}; }

  private:
    FlexGrid &m_grid;
};

FlexGrid::FlexGrid(QWidget *parent)
    : QTableView(parent), m_painting(new FlexGridDelegate(this)), m_layer(new FlexMarksLayer(viewport())) {
    constexpr int rest = 300; // ms
    setHorizontalHeader(new FlexHeader(*this));
    setModel(&m_cells);
    setItemDelegate(m_painting);
    setAspect(AspectDe(Presentation::Classique, palette()));
    viewport()->setMouseTracking(true);
    m_rest.setSingleShot(true);
    m_rest.setInterval(rest);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    setShowGrid(false); // the delegate draws the lines, under the pictures
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setTabKeyNavigation(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setAutoScroll(false); // a redraw keeps the rows in sight
    setWordWrap(false);

    connect(&m_cells, &QAbstractItemModel::modelReset, this, &FlexGrid::afterReset);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::forgetPicture);
    connect(verticalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::forgetPicture);
    connect(&m_rest, &QTimer::timeout, this, [this] { askCard(m_under); });
}

void FlexGrid::showAtTop(int row) {
    settleRows();
    scrollTo(m_cells.index(row, 0), QAbstractItemView::PositionAtTop);
}

void FlexGrid::showOutlined() {
    if (m_outline) {
        settleRows();
        scrollTo(m_cells.index(m_outline->rowSel, m_outline->colSel));
        scrollTo(m_cells.index(m_outline->row, m_outline->col));
    }
}

/// Right after a redraw the scroll bar still has the old range.
void FlexGrid::settleRows() {
    executeDelayedItemsLayout();
    updateGeometries();
}

void FlexGrid::showOutline(const std::optional<Corners> &corners, const OutlineText &text) {
    m_outline = corners;
    m_outlineText = text;
    const Corners c = corners.value_or(Corners{-1, -1, -1, -1});
    const QModelIndex first = m_cells.index(std::min(c.row, c.rowSel), std::min(c.col, c.colSel));
    const QModelIndex last = m_cells.index(std::max(c.row, c.rowSel), std::max(c.col, c.colSel));
    if (!first.isValid() || !last.isValid()) {
        selectionModel()->clear();
    } else {
        selectionModel()->setCurrentIndex(m_cells.index(c.row, c.col), QItemSelectionModel::NoUpdate);
        selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    }
    moveMarks();
}

/// A message box that a press brings up takes the release away.
bool FlexGrid::isDragging() const {
    return m_dragging && QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
}

void FlexGrid::afterReset() {
    if (m_cells.rows() > 0) {
        setRowHidden(0, true); // the header shows it
    }
    m_hover = QModelIndex();
    m_ghost.reset(); // its cells are others now
    m_layer->setAspect(m_painting->aspect(), m_painting->labelColor(m_cells));
    fitRows();
    forgetPicture();
}

int FlexGrid::leastRowHeight() const {
    return m_painting->leastRowHeight();
}

int FlexGrid::headerHeight() const {
    return m_painting->headerHeight();
}

void FlexGrid::setTimeScale(const std::optional<TimeScale> &scale) {
    m_scale = scale;
    setVerticalScrollMode(scale ? QAbstractItemView::ScrollPerPixel : QAbstractItemView::ScrollPerItem);
}

/// Above the first row of a grid that begins later than its neighbour, row 0 keeps the place free.
void FlexGrid::fitRowsToScale() {
    const int least = leastRowHeight();
    const double pixels =
        std::max(viewport()->height() / double(m_scale->whole), least / double(m_scale->leastStep));
    const auto top = [pixels](int minutes) { return qRound(minutes * pixels); };
    const int last = m_cells.rows() - 1;
    setRowHidden(0, m_scale->before == 0);
    if (m_scale->before > 0) {
        verticalHeader()->resizeSection(0, top(m_scale->before));
    }
    for (int row = 1; row <= last; ++row) {
        const int from = m_scale->before + (row - 1) * m_scale->step;
        const int to = row == last ? m_scale->whole : from + m_scale->step;
        verticalHeader()->resizeSection(row, top(to) - top(from));
    }
    verticalScrollBar()->setSingleStep(least);
}

void FlexGrid::fitRows() {
    if (m_scale && m_cells.rows() > 1) {
        fitRowsToScale();
        return;
    }
    const int rowsBelowHeader = std::max(m_cells.rows() - 1, 1);
    verticalHeader()->setDefaultSectionSize(
        std::max(viewport()->height() / rowsBelowHeader, leastRowHeight()));
}

void FlexGrid::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    m_layer->setGeometry(viewport()->rect());
    fitRows();
    forgetPicture();
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
    if (m_hand) {
        m_unheard |= event->button();
        return;
    }
    setFocus(Qt::MouseFocusReason);
    leave();
    askCard(0);
    const QPoint position = event->position().toPoint();
    const QModelIndex under = indexAt(position);
    if (!under.isValid()) {
        return;
    }
    if (event->button() == Qt::LeftButton) {
        const bool extend = event->modifiers().testFlag(Qt::ShiftModifier) && m_outline;
        m_anchor = extend ? QPoint(m_outline->col, m_outline->row) : QPoint(under.column(), under.row());
        m_lastDragged = QPoint(under.column(), under.row());
        m_dragging = true;
        const qint64 seen = extend ? 0 : seenBlock(position);
        emit selectionAsked({m_anchor.y(), m_anchor.x(), under.row(), under.column()},
                            extend ? Gesture::Drag : Gesture::Press, extend ? 0 : besideAt(position));
        if (seen != 0 && seen == seenBlock(position)) { // the press may have brought another picture
            takeBlock(position);
        }
    } else if (event->button() == Qt::RightButton && !isOutlined(position)) {
        emit selectionAsked({under.row(), under.column(), under.row(), under.column()}, Gesture::RightPress,
                            besideAt(position));
    }
}

void FlexGrid::mouseMoveEvent(QMouseEvent *event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        endDrag();
        hoverAt(event->position().toPoint());
        return;
    }
    if (m_hand) {
        moveHand(*event);
        return;
    }
    if (!m_dragging) { // what was in hand is let go, and the button still pressed
        return;
    }
    const QPoint cell = nearestCell(event->position().toPoint());
    if (m_lastDragged == cell) {
        return;
    }
    m_lastDragged = cell;
    scrollTo(m_cells.index(cell.y(), cell.x()));
    emit selectionAsked({m_anchor.y(), m_anchor.x(), cell.y(), cell.x()}, Gesture::Drag, 0);
}

void FlexGrid::mouseReleaseEvent(QMouseEvent *event) {
    if (m_unheard.testFlag(event->button())) {
        m_unheard.setFlag(event->button(), false);
        return;
    }
    m_dragging = false;
    if (m_hand) {
        dropHand(*event);
    } else if (event->button() == Qt::RightButton) {
        emit contextMenuAsked(event->globalPosition().toPoint());
    }
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event) {
    if (m_hand) {
        m_unheard |= event->button();
        return;
    }
    if (event->button() == Qt::LeftButton && isOutlined(event->position().toPoint())) {
        emit opened(true);
    }
}

bool FlexGrid::arrowKey(int key, bool extend) {
    switch (key) {
    case Qt::Key_Up:
        moveBy(-1, 0, extend);
        return true;
    case Qt::Key_Down:
        moveBy(1, 0, extend);
        return true;
    case Qt::Key_Left:
        moveBy(0, -1, false);
        return true;
    case Qt::Key_Right:
        moveBy(0, 1, false);
        return true;
    default:
        return false;
    }
}

void FlexGrid::keyPressEvent(QKeyEvent *event) {
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    if (handKey(*event) || arrowKey(event->key(), extend)) {
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_outline) {
            emit opened(false);
        }
        break;
    case Qt::Key_Space:
        askCard(m_outlineText.block);
        break;
    case Qt::Key_Escape:
        event->setAccepted(m_card != 0); // a dialog closes where no card does
        askCard(0);
        break;
    case Qt::Key_Menu:
        emit contextMenuAsked(menuPosition());
        break;
    case Qt::Key_F10:
        if (extend) {
            emit contextMenuAsked(menuPosition());
            break;
        }
        [[fallthrough]];
    default:
        event->ignore(); // shortcuts and the window's own keys
    }
}

QPoint FlexGrid::menuPosition() const {
    const QRect inside = viewport()->rect();
    const QRect under =
        m_outline ? visualRect(m_cells.index(m_outline->rowSel, m_outline->colSel)).intersected(inside)
                  : QRect();
    return viewport()->mapToGlobal(under.isEmpty() ? inside.center() : under.bottomLeft());
}

void FlexGrid::moveBy(int rows, int cols, bool extend) {
    const QRect &area = m_selectable;
    if (area.isEmpty()) {
        return;
    }
    askCard(0);
    const Corners from =
        m_outline.value_or(Corners{area.top() - 1, area.left(), area.top() - 1, area.left()});
    // From a block of several rows, Down leaves it by its end and Up by its beginning.
    const int leaving = rows > 0 ? std::max(from.row, from.rowSel) : std::min(from.row, from.rowSel);
    const int row = std::clamp((extend ? from.rowSel : leaving) + rows, area.top(), area.bottom());
    const int col = std::clamp(from.col + cols, area.left(), area.right());
    emit selectionAsked({extend ? from.row : row, col, row, col}, Gesture::Key, 0);
    if (m_outline) {
        scrollTo(m_cells.index(m_outline->rowSel, m_outline->colSel));
    }
}

void FlexGrid::wheelEvent(QWheelEvent *event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->ignore(); // the window zooms
        return;
    }
    QTableView::wheelEvent(event);
}

void FlexGrid::askCard(qint64 block) {
    m_card = block;
    if (block != 0) { // it says more
        QToolTip::hideText();
    }
    emit cardAsked(block);
}

bool FlexGrid::viewportEvent(QEvent *event) {
    if (event->type() == QEvent::Leave) {
        leave();
    }
    if (event->type() != QEvent::ToolTip) {
        return QTableView::viewportEvent(event);
    }
    const auto &help = static_cast<QHelpEvent &>(*event);
    const bool over = !m_toolTip.isEmpty() && isOutlined(help.pos()) && m_card == 0;
    // as rich text, so that long lines wrap; what the data says stays plain
    QToolTip::showText(help.globalPos(), over ? plainTip(m_toolTip) : QString(), viewport());
    return true;
}

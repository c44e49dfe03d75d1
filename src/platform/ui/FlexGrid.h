#pragma once

#include "platform/ui/Aspect.h"
#include "platform/ui/FlexGridModel.h"

#include <QPixmap>
#include <QTableView>
#include <QTimer>
#include <optional>

class FlexGridDelegate;
class FlexMarksLayer;
struct FlexMarks;

/// A grid of cells, of blocks that lie over them, and of marks that move over both: outline, hover, the hour.
/// Once a mark has moved, cells and blocks are kept as a picture, so that no mark ever repaints them. What
/// the user does with mouse and keys asks for a selection; what is outlined is shown by whoever answers, and
/// is nobody's gesture. Row 0 is the header: it stays in sight, and a click on it asks for a selection like
/// any cell.
class FlexGrid : public QTableView {
    Q_OBJECT
  public:
    /// Two corners: where a selection begins and where it ends.
    struct Corners {
        int row = 0;
        int col = 0;
        int rowSel = 0;
        int colSel = 0;

        friend bool operator==(const Corners &, const Corners &) = default;
    };
    enum class Gesture { Press, RightPress, Drag, Key };
    /// A place between the cells: rows from the top of row 0, and a column.
    struct Spot {
        double row = 0;
        int col = 0;
    };
    /// What is dragged, on the cells where it would go.
    struct Ghost {
        Corners cells;
        QString name;
        QString text;
        QString from; ///< its hours
        QString to;
        bool refused = false;
    };
    /// A scale of time that several grids share, in minutes.
    struct TimeScale {
        int before = 0;    ///< from the scale's beginning to the first row
        int step = 1;      ///< what a row lasts
        int whole = 1;     ///< the scale's length; the last row reaches to its end
        int leastStep = 1; ///< the shortest step among the grids
    };

    explicit FlexGrid(QWidget *parent = nullptr);

    FlexGridModel &cells() { return m_cells; }
    const FlexGridModel &cells() const { return m_cells; }

    void setAspect(const Aspect &aspect);

    /// What is said of the outlined cells: their hours, and of a free range its length too.
    struct OutlineText {
        QString hours;
        QString length;
        qint64 block; ///< the block that is meant; 0: the cells are free
    };
    /// Outlines these cells, or none.
    void showOutline(const std::optional<Corners> &corners, const OutlineText &text = OutlineText{{}, {}, 0});
    const std::optional<Corners> &outline() const { return m_outline; }
    /// The line of the hour in today's column: so many rows below the header, 1 being the top of row 1. None
    /// where the hour lies outside the grid or another day is shown.
    void showNow(std::optional<double> rows, const QString &hour);
    /// Plain text shown while the pointer rests on the outlined cells.
    void setOutlineToolTip(const QString &text) { m_toolTip = text; }
    /// The block of that key in viewport pixels; null where there is none, or it is scrolled away.
    QRect blockRect(qint64 id) const;
    /// The outlined cells in viewport pixels; null where there are none, or they are scrolled away.
    QRect outlineRect() const;
    /// Said in the middle of a grid that has no rows to show.
    void setPlaceholder(const QString &text) { setAccessibleDescription(text); }
    /// From the next drawing on, rows are as high as they last: grids of one scale and one height show an
    /// hour at the same height. None: rows share the height.
    void setTimeScale(const std::optional<TimeScale> &scale);
    bool hasTimeScale() const { return m_scale.has_value(); }
    /// The cells that the arrow keys reach: columns and rows as x and y.
    void setSelectableArea(const QRect &cells) { m_selectable = cells; }

    /// True from the press of the left button in a cell to its release.
    bool isDragging() const;
    /// A message box takes the release away. What is in hand is let go.
    void endDrag();

    /// Blocks can be taken with the mouse, by their lower edge too. Where not, a drag selects.
    void setBlocksMovable(bool movable) { m_movable = movable; }
    /// What lies there; nothing beyond the cells that are seen.
    std::optional<Spot> spotAt(const QPoint &globalPosition) const;
    /// Where the selectable columns are seen on the screen.
    QRect slotsRect() const;
    void showGhost(const std::optional<Ghost> &ghost);
    /// This block is in hand; 0: none is.
    void showTaken(qint64 block);
    /// Said at the left or the right of the slots; empty: nothing is.
    void showHint(const QString &text, Qt::Edge side);
    /// A pointer for what the hand is about to do; none: the grid's own.
    void showHand(std::optional<Qt::CursorShape> shape);
    /// What a row of text needs, in pixels; the header.
    int leastRowHeight() const;
    int headerHeight() const;
    const FlexGridDelegate &painting() const { return *m_painting; }
    /// Scrolls so that `row` comes to the top of the shown rows.
    void showAtTop(int row);
    /// Scrolls as little as brings the outlined cells into sight, the first of them in any case.
    void showOutlined();

  signals:
    /// `block`: the one that is pressed, where it stands beside others; else 0.
    void selectionAsked(const FlexGrid::Corners &corners, FlexGrid::Gesture gesture, qint64 block);
    /// Enter, or a double click on the outlined cells.
    void opened(bool byMouse);
    void contextMenuAsked(const QPoint &globalPosition);
    /// The pointer has rested on this block, or Space was pressed while it was outlined; 0: the pointer has
    /// left it, or Escape was pressed.
    void cardAsked(qint64 block);
    /// A block was pressed at `position` and moved: it is in hand, by its lower edge or whole, until it is
    /// dropped or let go. Meanwhile keys and other buttons do nothing. Positions are the screen's.
    void blockTaken(qint64 block, bool byEdge, const QPoint &position);
    void blockMoved(const QPoint &position, bool withCtrl);
    void blockDropped(const QPoint &position, bool withCtrl);
    /// By Escape, or by what has taken the mouse away.
    void blockLetGo();
    /// Rows or columns have moved under what stands over the grid.
    void moved();

  protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

  private:
    /// A block under the pressed button.
    struct Hand {
        qint64 block = 0;
        bool edge = false;
        QPoint start; ///< on the screen, as are the others
        QPoint last;
        bool moving = false; ///< far enough to be meant
    };

    void afterReset();
    /// Rows share the whole height as long as their text fits: a large screen gives blocks more lines. Below
    /// that they scroll.
    void fitRows();
    void fitRowsToScale();
    void settleRows();

    // Painting
    void paintAll(QPainter &painter, const QRect &rect) const;
    void paintCells(QPainter &painter, const QRect &rect) const;
    /// The picture is out of date.
    void forgetPicture();
    /// Marks from what is known now.
    void placeMarks();
    void placeOutline(FlexMarks &marks) const;
    void placeNow(FlexMarks &marks) const;
    void placeHand(FlexMarks &marks) const;
    /// A mark alone has moved.
    void moveMarks();
    QRect cellsRect(const Corners &corners) const;
    bool holdsText(const Corners &corners) const;
    QRect blockRectAt(int place) const;
    int blockAt(const QPoint &position) const;
    int seenAt(const QPoint &position) const;
    qint64 seenBlock(const QPoint &position) const;
    /// Its rows and lane, whoever covers it.
    QRect wholeRect(const FlexBlock &block) const;
    bool isEdge(const FlexBlock &block, const QPoint &position) const;

    // What is in hand
    void takeBlock(const QPoint &position);
    void moveHand(const QMouseEvent &event);
    void dropHand(const QMouseEvent &event);
    void letGo();
    bool handKey(const QKeyEvent &event);
    bool handMoves() const { return m_hand && m_hand->moving; }

    void hoverAt(const QPoint &position);
    void leave();

    /// The cell under `position` of the viewport; outside, the nearest one.
    QPoint nearestCell(const QPoint &position) const;
    /// The block at `position` when others stand beside it, so that the pointer means this one; else 0.
    qint64 besideAt(const QPoint &position) const;
    bool isOutlined(const QPoint &position) const;
    void askCard(qint64 block);
    /// Whether the key was one that moves the selection.
    bool arrowKey(int key, bool extend);
    /// Where a menu that was asked for by a key comes up: under what is outlined.
    QPoint menuPosition() const;
    void sayOutlined();
    void moveBy(int rows, int cols, bool extend);

    FlexGridModel m_cells;
    std::optional<Corners> m_outline;
    std::optional<TimeScale> m_scale;
    QPoint m_anchor;      ///< column and row where the drag began
    QPoint m_lastDragged; ///< and where it is: a move within a cell asks for nothing
    bool m_dragging = false;
    QRect m_selectable;
    QString m_toolTip;

    FlexGridDelegate *m_painting;
    FlexMarksLayer *m_layer;
    OutlineText m_outlineText{{}, {}, 0};
    std::optional<double> m_now;
    QString m_nowHour;
    QModelIndex m_hover;
    QTimer m_rest;
    qint64 m_under = 0; ///< block under the pointer
    qint64 m_card = 0;  ///< block whose card was asked for
    std::optional<Hand> m_hand;
    Qt::MouseButtons m_unheard; ///< pressed while something was in hand: their release does nothing
    bool m_movable = false;
    std::optional<Ghost> m_ghost;
    qint64 m_taken = 0;
    QString m_hint;
    Qt::Edge m_hintSide = Qt::LeftEdge;
    QPixmap m_picture;
    bool m_painted = false;
    bool m_keepsPicture = false; ///< from the first mark that moves
    bool m_pictureFresh = false;
};

#pragma once

#include "platform/ui/FlexGridModel.h"

#include <QTableView>
#include <optional>

/// A grid of cells with an outline. What the user does with mouse and keys asks for a selection; what is
/// outlined is shown by whoever answers, and is nobody's gesture. Row 0 is the header: it stays in sight, and
/// a click on it asks for a selection like any cell.
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

    /// Outlines these cells, or none.
    void showOutline(const std::optional<Corners> &corners);
    const std::optional<Corners> &outline() const { return m_outline; }
    /// Plain text shown while the pointer rests on the outlined cells.
    void setOutlineToolTip(const QString &text) { m_toolTip = text; }
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
    /// A message box takes the release away.
    void endDrag() { m_dragging = false; }
    /// What a row of text needs, in pixels.
    int leastRowHeight() const;
    /// Scrolls so that `row` comes to the top of the shown rows.
    void showAtTop(int row);
    /// Scrolls as little as brings the outlined cells into sight, the first of them in any case.
    void showOutlined();

  signals:
    void selectionAsked(const FlexGrid::Corners &corners, FlexGrid::Gesture gesture);
    /// Enter, or a double click on the outlined cells.
    void opened(bool byMouse);
    void contextMenuAsked(const QPoint &globalPosition);

  protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;

  private:
    void afterReset();
    /// Rows share the height, between the least that their text needs and twice that.
    void fitRows();
    void fitRowsToScale();
    void settleRows();
    void paintFrame();
    /// The cell under `position` of the viewport; outside, the nearest one.
    QPoint nearestCell(const QPoint &position) const;
    bool isOutlined(const QModelIndex &index) const { return selectionModel()->isSelected(index); }
    /// Where a menu that was asked for by a key comes up: under what is outlined.
    QPoint menuPosition() const;
    void moveBy(int rows, int cols, bool extend);

    FlexGridModel m_cells;
    std::optional<Corners> m_outline;
    std::optional<TimeScale> m_scale;
    QPoint m_anchor;      ///< column and row where the drag began
    QPoint m_lastDragged; ///< and where it is: a move within a cell asks for nothing
    bool m_dragging = false;
    QRect m_selectable;
    QString m_toolTip;
};

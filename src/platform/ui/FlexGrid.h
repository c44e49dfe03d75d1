#pragma once

#include "platform/ui/FlexGridModel.h"

#include <QTableView>

/// A grid of cells with a selection given by two corners, as the book's handlers expect it:
/// (row, col), where the selection began, and (rowSel, colSel), where it ends.
/// - Setting row or col to a new value collapses the selection on that cell; setting rowSel or colSel extends
///   it; setting any of them to the value that it has does nothing at all.
/// - selectionChanging() is raised exactly when a value changed, also for a change made by its own handler.
/// Row 0 is the header: it stays in sight, and a click on it selects it like any cell.
class FlexGrid : public QTableView {
    Q_OBJECT
  public:
    explicit FlexGrid(QWidget *parent = nullptr);

    FlexGridModel &cells() { return m_cells; }
    const FlexGridModel &cells() const { return m_cells; }

    int row() const { return m_row; }
    int col() const { return m_col; }
    int rowSel() const { return m_rowSel; }
    int colSel() const { return m_colSel; }
    void setRow(int row);
    void setCol(int col);
    void setRowSel(int row);
    void setColSel(int col);
    /// Both corners at once: one change, or none.
    void select(int row, int col, int rowSel, int colSel);
    /// The cells that the arrow keys reach: columns and rows as x and y.
    void setKeyboardArea(const QRect &cells) { m_keyboardArea = cells; }

    /// True from the press of the left button in a cell to its release, or until a handler moves the
    /// beginning of the selection, which ends the drag.
    bool isDragging() const { return m_dragging; }
    /// Scrolls so that `row` comes to the top of the shown rows.
    void showAtTop(int row);

  signals:
    void selectionChanging();
    void clicked();
    /// Double click, or Enter, on the selection.
    void activatedSelection();
    void buttonReleased(Qt::MouseButton button, const QPoint &globalPosition);

  protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

  private:
    /// The one place where the selection changes.
    void change(int row, int col, int rowSel, int colSel, bool startsDrag);
    void showSelection();
    void afterReset();
    int leastRowHeight() const;
    /// Rows share the height, between the least that their text needs and twice that.
    void fitRows();
    /// The cell under `position` of the viewport; outside, the nearest one.
    QPoint nearestCell(const QPoint &position) const;
    void moveBy(int rows, int cols, bool extend);

    FlexGridModel m_cells;
    int m_row = 0; ///< 0: nothing but the hidden header row, until somebody selects
    int m_col = 0;
    int m_rowSel = 0;
    int m_colSel = 0;
    bool m_dragging = false;
    QRect m_keyboardArea;
};

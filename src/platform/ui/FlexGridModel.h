#pragma once

#include "platform/ui/FlexBlock.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QImage>

#include <functional>
#include <vector>

/// What a cell is for: looks that have colours of their own ask for it.
enum class FlexUse { Slot, Label, Shut };

/// What one cell of a flex grid holds. An invalid colour stands for the system's window or text colour.
struct FlexCell {
    QString text;
    QColor back;
    QColor fore;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    QImage picture;
    FlexUse use = FlexUse::Slot;
    int block = -1; ///< place of the block that the cell shows a row of; the last of several

    friend bool operator==(const FlexCell &, const FlexCell &) = default;
};

/// The cells of a flex grid, row 0 being its header. Writing happens between beginWriting() and endWriting(),
/// which raises one reset for everything; indices outside the grid are ignored on writing and read as an
/// empty cell.
class FlexGridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void beginWriting();
    void endWriting();

    /// Empties every cell and sets the size; negative counts are 0.
    void clear(int rows, int cols);
    /// Empties every cell, keeps the size.
    void clear() { clear(m_rows, m_cols); }
    int rows() const { return m_rows; }
    int cols() const { return m_cols; }
    const FlexCell &cell(int row, int col) const;
    /// What a cell says: the caption of the block that begins there, past the place of its picture, or its
    /// own.
    QString text(int row, int col) const;
    /// The cell to write to; outside the grid, a cell that nobody sees.
    FlexCell &at(int row, int col);

    /// Draws a block over its rows; cells that it covers know it.
    void addBlock(const FlexBlock &block);
    const std::vector<FlexBlock> &blocks() const { return m_blocks; }
    /// The rows of a block that no later one covers, first and last; none when the first is greater.
    std::pair<int, int> ownRows(int block) const;

    /// The weekday of a column, and the column of today (-1: none): looks mark them.
    void setDay(int col, int day);
    int day(int col) const { return col >= 0 && size_t(col) < m_days.size() ? m_days[size_t(col)] : 0; }
    void setToday(int col) { m_today = col; }
    int today() const { return m_today; }

    /// What is read aloud of a cell, asked for when somebody listens; empty: its text.
    using Spoken = std::function<QString(int row, int col)>;
    void setSpoken(const Spoken &spoken) { m_spoken = spoken; }

    /// The FlexBlock that a cell shows a row of; nothing elsewhere.
    static constexpr int BlockRole = Qt::UserRole;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    /// The horizontal header shows row 0, so that it stays in sight while the rest scrolls.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    bool contains(int row, int col) const { return row >= 0 && row < m_rows && col >= 0 && col < m_cols; }

    int m_rows = 0;
    int m_cols = 0;
    std::vector<FlexCell> m_cells;
    FlexCell m_outside;
    std::vector<FlexBlock> m_blocks;
    std::vector<int> m_days;
    int m_today = -1;
    Spoken m_spoken;
};

/// Groups all the writing of one drawing into one reset.
class FlexGridWriting {
  public:
    explicit FlexGridWriting(FlexGridModel &model) : m_model(model) { m_model.beginWriting(); }
    ~FlexGridWriting() { m_model.endWriting(); }
    FlexGridWriting(const FlexGridWriting &) = delete;
    FlexGridWriting &operator=(const FlexGridWriting &) = delete;

  private:
    FlexGridModel &m_model;
};

/// The colour of a Windows colour value 0x00BBGGRR.
constexpr QRgb couleurWindows(unsigned value) {
    return qRgb(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

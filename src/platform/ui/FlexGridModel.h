#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QImage>
#include <vector>

/// What one cell of a flex grid holds. An invalid colour stands for the system's window or text colour.
struct FlexCell {
    QString text;
    QColor back;
    QColor fore;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    QImage picture;

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
    /// The cell to write to; outside the grid, a cell that nobody sees.
    FlexCell &at(int row, int col);

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

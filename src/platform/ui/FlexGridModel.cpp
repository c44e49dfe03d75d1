#include "platform/ui/FlexGridModel.h"

#include <algorithm>

void FlexGridModel::beginWriting() {
    beginResetModel();
}

void FlexGridModel::endWriting() {
    endResetModel();
}

void FlexGridModel::clear(int rows, int cols) {
    m_rows = std::max(rows, 0);
    m_cols = std::max(cols, 0);
    m_cells.assign(size_t(m_rows) * size_t(m_cols), FlexCell());
}

const FlexCell &FlexGridModel::cell(int row, int col) const {
    static const FlexCell empty;
    return contains(row, col) ? m_cells[size_t(row) * size_t(m_cols) + size_t(col)] : empty;
}

FlexCell &FlexGridModel::at(int row, int col) {
    return contains(row, col) ? m_cells[size_t(row) * size_t(m_cols) + size_t(col)] : m_outside;
}

int FlexGridModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : m_rows;
}

int FlexGridModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : m_cols;
}

QVariant FlexGridModel::data(const QModelIndex &index, int role) const {
    const FlexCell &found = cell(index.row(), index.column());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return found.text;
    case Qt::TextAlignmentRole:
        return int(found.alignment);
    case Qt::BackgroundRole:
        return found.back.isValid() ? QVariant(found.back) : QVariant();
    case Qt::ForegroundRole:
        return found.fore.isValid() ? QVariant(found.fore) : QVariant();
    default:
        return {};
    }
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return orientation == Qt::Horizontal ? data(index(0, section), role) : QVariant();
}

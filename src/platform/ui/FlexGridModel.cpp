#include "platform/ui/FlexGridModel.h"

#include <algorithm>

void FlexGridModel::beginWriting() {
    beginResetModel();
}

void FlexGridModel::endWriting() {
    shareLanes(m_blocks);
    endResetModel();
}

void FlexGridModel::clear(int rows, int cols) {
    m_rows = std::max(rows, 0);
    m_cols = std::max(cols, 0);
    m_cells.assign(size_t(m_rows) * size_t(m_cols), FlexCell());
    m_blocks.clear();
    m_days.assign(size_t(m_cols), 0);
    m_today = -1;
    m_spoken = nullptr;
}

void FlexGridModel::addBlock(const FlexBlock &block) {
    for (int row = block.first; row <= block.last; ++row) {
        at(row, block.col).block = int(m_blocks.size());
    }
    m_blocks.push_back(block);
}

std::pair<int, int> FlexGridModel::ownRows(int block) const {
    const FlexBlock &b = m_blocks[size_t(block)];
    int first = b.first;
    while (first <= b.last && cell(first, b.col).block != block) {
        ++first;
    }
    int last = first;
    while (last <= b.last && cell(last, b.col).block == block) {
        ++last;
    }
    return {first, last - 1};
}

void FlexGridModel::setDay(int col, int day) {
    if (col >= 0 && size_t(col) < m_days.size()) {
        m_days[size_t(col)] = day;
    }
}

const FlexCell &FlexGridModel::cell(int row, int col) const {
    static const FlexCell empty;
    return contains(row, col) ? m_cells[size_t(row) * size_t(m_cols) + size_t(col)] : empty;
}

QString FlexGridModel::text(int row, int col) const {
    const FlexCell &found = cell(row, col);
    if (found.block >= 0) {
        const FlexBlock &block = m_blocks[size_t(found.block)];
        return block.first == row ? QStringLiteral("  ") + block.caption() : QString();
    }
    return found.text;
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
        return text(index.row(), index.column());
    case Qt::AccessibleTextRole: {
        const QString spoken = m_spoken ? m_spoken(index.row(), index.column()) : QString();
        return spoken.isEmpty() ? text(index.row(), index.column()) : spoken;
    }
    case BlockRole:
        return found.block >= 0 ? QVariant::fromValue(m_blocks[size_t(found.block)]) : QVariant();
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

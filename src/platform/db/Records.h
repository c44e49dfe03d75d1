#pragma once

#include "platform/db/Value.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

/// Values to write, by field name.
using Fields = std::vector<std::pair<QString, Value>>;

class Records;

/// One row of a Records; valid as long as the Records is.
class Record {
  public:
    Record(const Records &records, int row) : m_records(&records), m_row(row) {}
    /// Throws DbError (Structure) when the result has no such field; letter case is ignored.
    const Value &operator[](QStringView field) const;
    const Value &at(int field) const;

  private:
    const Records *m_records;
    int m_row;
};

/// The row that Database::forEach is at, its fields by their place among those asked for; gone with the next.
/// Each function gives what that of Value does.
class RowView {
  public:
    virtual QString text(int field) const = 0;
    virtual qint64 integer(int field) const = 0;
    virtual QDate date(int field) const = 0;
    virtual QTime time(int field) const = 0;
    bool boolean(int field) const { return integer(field) != 0; }

  protected:
    ~RowView() = default;
};

using RowVisitor = std::function<void(const RowView &)>;

/// The result of a query, read whole into memory, so that nothing stays open behind it.
class Records {
  public:
    Records(QString file, QStringList fields)
        : m_file(std::move(file)), m_fields(std::move(fields)), m_columns(int(m_fields.size())) {}

    bool isEmpty() const { return m_blocks.empty(); }
    int count() const {
        return isEmpty() ? 0
                         : rowsPerBlock * int(m_blocks.size() - 1) + int(m_blocks.back().size()) / m_columns;
    }
    const QStringList &fields() const { return m_fields; }
    /// Position of a field, letter case ignored; throws DbError (Structure) when there is none.
    int field(QStringView name) const;
    Record operator[](int row) const { return {*this, row}; }
    Record first() const { return {*this, 0}; }
    const Value &at(int row, int field) const {
        return m_blocks[size_t(row / rowsPerBlock)]
                       [size_t(row % rowsPerBlock) * size_t(m_columns) + size_t(field)];
    }

    /// For engines: values arrive row by row, field by field.
    void append(Value value) {
        const size_t valuesPerBlock = size_t(rowsPerBlock) * size_t(m_columns);
        if (m_blocks.empty() || m_blocks.back().size() == valuesPerBlock) {
            m_blocks.emplace_back().reserve(valuesPerBlock);
        }
        m_blocks.back().push_back(std::move(value));
    }

    class Iterator {
      public:
        Iterator(const Records &records, int row) : m_records(&records), m_row(row) {}
        Record operator*() const { return {*m_records, m_row}; }
        Iterator &operator++() {
            ++m_row;
            return *this;
        }
        bool operator!=(const Iterator &other) const { return m_row != other.m_row; }

      private:
        const Records *m_records;
        int m_row;
    };
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, count()}; }

  private:
    static constexpr int rowsPerBlock = 64;

    QString m_file;
    QStringList m_fields;
    int m_columns;
    std::vector<std::vector<Value>> m_blocks; ///< one vector that grows would move a week's values twice
};

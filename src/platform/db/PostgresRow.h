#pragma once

#include "platform/db/Records.h"

struct pg_result;

/// One field of a row of `result`. `above` is as for SQLite's rows.
Value columnValue(const pg_result *result, int row, int column, const Value *above = nullptr);

/// A row of a result, read from the library's own buffers.
class PostgresRow final : public RowView {
  public:
    explicit PostgresRow(const pg_result *result) : m_result(result) {}
    virtual ~PostgresRow() = default;
    PostgresRow(const PostgresRow &) = delete;
    PostgresRow &operator=(const PostgresRow &) = delete;

    void moveTo(int row) { m_row = row; }
    QString text(int field) const override;
    qint64 integer(int field) const override;
    QDate date(int field) const override;
    QTime time(int field) const override;

  private:
    const pg_result *m_result;
    int m_row = 0;
};

/// All rows of a result. `file` is for their errors.
Records recordsOf(const pg_result *result, const QString &file);

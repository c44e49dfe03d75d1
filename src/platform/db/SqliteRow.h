#pragma once

#include "platform/db/Records.h"

struct sqlite3_stmt;

/// One field of the row that `statement` is at. `above` is the same column's value in the row before: days
/// and numbers repeat, and a text that does is shared.
Value columnValue(sqlite3_stmt *statement, int column, const Value *above = nullptr);

/// The row that a statement is at, read from the engine's own buffers.
class SqliteRow final : public RowView {
  public:
    explicit SqliteRow(sqlite3_stmt *statement) : m_statement(statement) {}
    virtual ~SqliteRow() = default;
    SqliteRow(const SqliteRow &) = delete;
    SqliteRow &operator=(const SqliteRow &) = delete;

    QString text(int field) const override;
    qint64 integer(int field) const override;
    QDate date(int field) const override;
    QTime time(int field) const override;

  private:
    sqlite3_stmt *m_statement;
};

#pragma once

#include "platform/db/SqlText.h"

#include <QString>
#include <vector>

class Engine;

/// Field types, numbered as the desktop engine numbers them.
enum class FieldType {
    Boolean = 1,
    Int16 = 3,
    Int32 = 4,
    Double = 7,
    DateTime = 8, ///< a date ("YYYY-MM-DD") or a time of day ("HH:MM:SS")
    Text = 10,
    AutoNumber = 100 ///< key that the database assigns and never gives twice
};

struct FieldDef {
    QString name;
    FieldType type = FieldType::Text;
    int size = 0; ///< characters of a text, informative
};

/// An index that a hot query needs: its expressions, and the condition of the rows in it (empty: all rows).
struct IndexDef {
    QString name;
    SqlText expressions;
    SqlText condition = SqlText("");
};

/// Rows that are the same in all of `same` may not overlap in `range`: the net below what the rules look for.
struct ExclusionDef {
    QString name;
    SqlText same;
    SqlText range;
    QString key; ///< of the table
    /// A day as text, yyyy-mm-dd first. Held are rows from a week ago on, and in any case the `newest`: what
    /// is past is not booked, and an index of this kind over 500,000 rows takes half a minute to make.
    SqlText day;
    qint64 newest = 20'000;
};

/// What is told of a row that was added, changed or deleted, as it was and as it is: one text, which Watch
/// gives to whoever looks out.
struct NoticeDef {
    QString name;
    SqlText text;
};

/// A table's definition in an open database; lives no longer than the database.
class TableDef {
  public:
    TableDef(Engine &engine, QString name) : m_engine(&engine), m_name(std::move(name)) {}

    /// False for a table of a file that cannot be written, and for a view or a linked table.
    bool isUpdatable() const;
    /// Whether `field` is the key that the database itself gives to each row, never to two.
    bool isKey(const QString &field) const;
    bool hasField(const QString &field) const;
    /// Throws DbError when the field exists already, or nothing can be written.
    void appendField(const FieldDef &field);
    /// Throws DbError when there is no such field, or nothing can be written.
    void deleteField(const QString &field);
    bool hasIndex(const QString &index) const;
    /// An engine without indexes of its own does nothing.
    void createIndex(const IndexDef &index);
    /// True for an engine that needs none, since it lets one program write at a time.
    bool hasExclusion(const QString &exclusion) const;
    /// Gives the keys of rows that overlap another already; these stay as they are.
    std::vector<qint64> createExclusion(const ExclusionDef &exclusion);
    /// True for an engine whose files are looked at instead.
    bool hasNotice(const QString &notice) const;
    void createNotice(const NoticeDef &notice);

  private:
    Engine *m_engine;
    QString m_name;
};

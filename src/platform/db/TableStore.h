#pragma once

#include "platform/db/RowLine.h"
#include "platform/db/TableDef.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

/// A table as any store can make it.
struct TableShape {
    QString database; ///< the catalogue's file, "Tavelin.mdb"
    QString table;
    std::vector<FieldDef> fields;
    qint64 lastKey = 0; ///< the largest that was ever given; 0: none, or no key of that kind
};

/// A value that is not what its field is for.
struct OddValue {
    qint64 row = 0; ///< the row's key, or its place among the others
    QString field;
    QString value;
    bool isKept = true; ///< false: no other store could hold it
};

/// Is shown each row in turn. What it throws ends the reading.
using LineVisitor = std::function<void(const QByteArray &line)>;

/// All databases of a practice at once, for moving them elsewhere: in one transaction, and nobody else writes
/// meanwhile. Every function throws DbError.
class TableStore {
  public:
    TableStore() = default;
    virtual ~TableStore() = default;
    TableStore(const TableStore &) = delete;
    TableStore &operator=(const TableStore &) = delete;

    /// In the order of the catalogue.
    virtual std::vector<TableShape> tables() = 0;
    /// What is no table of its own, and stays behind: "Tavelin.mdb : vue Jour".
    virtual QStringList othersThanTables() = 0;
    /// Goes through a table, shows what is odd in it, and gives how many rows it has.
    virtual qint64 check(const TableShape &table, const std::function<void(const OddValue &)> &visit) = 0;
    /// Shows every row, in the order of its key or in which it was added.
    virtual void read(const TableShape &table, const LineVisitor &visit) = 0;

    /// Makes a table, its database first where it is not there. addRow() fills it until endRows().
    virtual void beginRows(const TableShape &table) = 0;
    virtual void addRow(const QByteArray &line) = 0;
    virtual void endRows() = 0;
    /// Everything that was made comes to be. Without it nothing does.
    virtual void commit() = 0;

    /// From here on the practice works with what was committed; until then it is marked as a copy.
    virtual void declareInUse() {}
    /// Takes away what was committed and is not in use. False when it could not.
    virtual bool discard() noexcept = 0;
};

/// The files of `files` that exist in `folder` (a real one), for reading. Each is kept from being written.
std::unique_ptr<TableStore> openFolder(const QString &folder, const QStringList &files);
/// A folder that does not exist yet; it comes to be with the commit.
std::unique_ptr<TableStore> createFolder(const QString &folder);
/// The schemas of a server's database that `files` name, for reading. Their tables are kept from being
/// written.
std::unique_ptr<TableStore> openServer(const QString &url, const QStringList &files);
/// A database of a server that has none of these schemas, and that nobody else moves a practice to.
std::unique_ptr<TableStore> createServer(const QString &url, const QStringList &files);
/// Whether a database holds the schema of `file` and a move to it came to its end. Throws DbError.
bool isInUse(const QString &url, const QString &file);

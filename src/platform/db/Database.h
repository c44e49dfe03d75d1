#pragma once

#include "platform/db/Records.h"
#include "platform/db/SqlText.h"
#include "platform/db/TableDef.h"

#include <chrono>
#include <memory>
#include <stop_token>

class Engine;

/// One open database. Opened by a user action, closed at its end (by its destructor); nothing stays open.
/// Every function throws DbError.
class Database {
  public:
    /// Opens an existing database: a file, whose content decides the engine, or a server's
    /// ("postgresql://…"). Waits at most `wait` each time that another workstation is in the way.
    static Database open(const QString &path, std::chrono::milliseconds wait = std::chrono::seconds(5));
    /// Creates an empty database; an existing one is refused.
    static Database create(const QString &path);

    Database(Database &&) noexcept;
    Database &operator=(Database &&) noexcept;
    ~Database();

    /// Runs a query and reads its result whole.
    Records query(const SqlText &sql);
    /// Runs a query and shows its rows one by one, none of them kept: for the many that are made into
    /// something else. `visit` leaves this database alone.
    void forEach(const SqlText &sql, const RowVisitor &visit);
    /// The same for several, which a server is asked for in one go.
    void forEach(const std::vector<std::pair<SqlText, RowVisitor>> &queries);
    /// Runs a statement that changes rows or tables; gives the number of rows touched.
    int execute(const SqlText &sql);
    /// Adds one row; gives the key that the database assigned (0 where the table has no such key).
    qint64 insert(const QString &table, const Fields &values);
    /// The same without its key. In a transaction a server is told with the next statement, or the commit,
    /// and that is then what throws.
    void append(const QString &table, const Fields &values);
    /// Changes the row whose `keyField` is `key`; false when there is no such row.
    bool update(const QString &table, const QString &keyField, qint64 key, const Fields &values);

    bool hasTable(const QString &table);
    /// Throws Structure when there is no such table.
    TableDef tableDef(const QString &table);
    /// The same of a table of our own: made where it is missing, with the fields that it lacks appended.
    TableDef completedTable(const QString &table, const std::vector<FieldDef> &fields);
    void createTable(const QString &table, const std::vector<FieldDef> &fields);
    /// Brings the tables of `other` in under `name`: written "name.Table", they are in the transactions of
    /// this database, which then last in both files or in neither. Not while a transaction is open; every
    /// workstation must know the folder under the same path. Throws ReadOnly when `other` is.
    void attach(const Database &other, const QString &name);
    /// Whether the transaction that a DbError of the kind UnknownOutcome named was committed after all. Once
    /// the answer is no, it stays no.
    bool wasWritten(const QString &writing);
    /// Why this user may read what a server keeps, but not write, as a French sentence; else empty.
    QString whyReadOnly();
    const QString &path() const { return m_path; }

  private:
    friend class Transaction;
    friend QString checkBook(const QString &path, const std::stop_token &stop);
    Database(QString path, std::unique_ptr<Engine> engine);

    QString m_path;
    std::unique_ptr<Engine> m_engine;
};

/// Where a database lives, as a status bar says it: "serveur cabinet"; nothing for a file.
QString placeLabel(const QString &location);

/// Reads all of a book and compares its indexes with its tables: what a damaged index leaves out is not
/// missed by any query. Gives a French sentence about the damage, else an empty text; also when `stop` ended
/// it, or when other workstations write all the time. 500,000 appointments take about 0.7 s; for a thread of
/// its own.
QString checkBook(const QString &path, const std::stop_token &stop = {});

/// A writing transaction that is undone unless it was committed. It holds the writer's lock from its start; a
/// server's, from the first statement in it, which is then what waits for others.
class Transaction {
  public:
    explicit Transaction(Database &database);
    /// For what concerns certain things alone, named by `locks`: a database that can let several write leaves
    /// out only those that name one of them, or nothing.
    Transaction(Database &database, QStringList locks);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit();

  private:
    Engine *m_engine;
    bool m_open = true;
};

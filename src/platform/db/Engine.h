#pragma once

#include "platform/db/Records.h"
#include "platform/db/TableDef.h"

#include <QString>
#include <stop_token>

/// What a database engine must do for Database. SQL arrives in the book's dialect; each engine translates.
/// Every function throws DbError. An engine that only reads refuses the writing half with Kind::ReadOnly.
class Engine {
  public:
    Engine() = default;
    virtual ~Engine() = default;
    Engine(const Engine &) = delete;
    Engine &operator=(const Engine &) = delete;

    virtual Records query(const QString &sql) = 0;
    /// One query after the other, each row shown to its visitor; asked of a server at once.
    virtual void forEach(const std::vector<std::pair<QString, RowVisitor>> &queries) = 0;
    /// Runs a statement that returns no rows; gives the number of rows touched.
    virtual int execute(const QString &sql) = 0;
    /// Adds one row; gives the key that the database assigned (0 where the table has no such key).
    virtual qint64 insert(const QString &table, const Fields &values) = 0;
    /// Adds one row whose key nobody asks for: it may be sent with the next statement, which then fails in
    /// its place.
    virtual void append(const QString &table, const Fields &values) { insert(table, values); }
    /// Changes the row whose `keyField` is `key`; gives the number of rows touched.
    virtual int update(const QString &table, const QString &keyField, qint64 key, const Fields &values) = 0;

    /// Takes the writer's lock, at once or in front of the first statement inside: what is read there stays
    /// true until commit. An engine that can let several write leaves out only those who ask for one of the
    /// same `locks`, or for none.
    virtual void begin(const QStringList &locks) = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;
    /// Whether the transaction that UnknownOutcome named was committed after all. From then on it cannot be.
    virtual bool wasWritten(const QString & /*writing*/) { return false; }

    /// Whether everything in the file is where it belongs; true when `stop` ended the search. Throws Locked
    /// as soon as another workstation writes, so as not to hold it up.
    virtual bool isIntact(const std::stop_token &stop) = 0;

    /// Why this user may read but not write, as a French sentence; empty where he may, or where that is not
    /// the user's affair.
    virtual QString whyReadOnly() { return {}; }
    virtual bool hasTable(const QString &table) = 0;
    virtual bool isUpdatable(const QString &table) = 0;
    virtual bool isKey(const QString &table, const QString &field) = 0;
    virtual QStringList fieldNames(const QString &table) = 0;
    virtual void attach(const QString &file, const QString &name) = 0;
    virtual void createTable(const QString &table, const std::vector<FieldDef> &fields) = 0;
    virtual void appendField(const QString &table, const FieldDef &field) = 0;
    virtual void deleteField(const QString &table, const QString &field) = 0;
    virtual bool hasIndex(const QString &index) = 0;
    virtual void createIndex(const QString &table, const IndexDef &index) = 0;
    /// An engine that lets one program write at a time needs no exclusions, and has them all.
    virtual bool hasExclusion(const QString & /*exclusion*/) { return true; }
    /// Gives the keys of the rows that overlap an earlier one already, and may go on doing so.
    virtual std::vector<qint64> createExclusion(const QString & /*table*/,
                                                const ExclusionDef & /*exclusion*/) {
        return {};
    }
    /// An engine whose files count their own changes needs no notices, and has them all.
    virtual bool hasNotice(const QString & /*notice*/) { return true; }
    virtual void createNotice(const QString & /*table*/, const NoticeDef & /*notice*/) {}
};

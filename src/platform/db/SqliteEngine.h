#pragma once

#include "platform/db/Engine.h"

#include <QHash>
#include <chrono>

struct sqlite3;
struct sqlite3_file;
struct sqlite3_stmt;

/// SQLite behind Engine, straight on its C interface: the extended error codes, the functions and the
/// collation that the book's SQL needs are out of reach of a generic SQL module, and start-up stays short.
class SqliteEngine : public Engine {
  public:
    /// Null for a file of another format.
    static std::unique_ptr<SqliteEngine> openIfIts(const QString &file, std::chrono::milliseconds wait);
    static std::unique_ptr<SqliteEngine> create(const QString &file);

    /// How often `file` was written, as it counts itself; nothing when it cannot be read. Takes no lock.
    static std::optional<quint32> changesOf(const QString &file);

    ~SqliteEngine() override;

    Records query(const QString &sql) override;
    void forEach(const std::vector<std::pair<QString, RowVisitor>> &queries) override;
    int execute(const QString &sql) override;
    qint64 insert(const QString &table, const Fields &values) override;
    int update(const QString &table, const QString &keyField, qint64 key, const Fields &values) override;
    void begin(const QStringList &locks) override;
    void commit() override;
    void rollback() noexcept override;
    bool isIntact(const std::stop_token &stop) override;
    bool hasTable(const QString &table) override;
    bool isUpdatable(const QString &table) override;
    bool isKey(const QString &table, const QString &field) override;
    QStringList fieldNames(const QString &table) override;
    void attach(const QString &file, const QString &name) override;
    void createTable(const QString &table, const std::vector<FieldDef> &fields) override;
    void appendField(const QString &table, const FieldDef &field) override;
    void deleteField(const QString &table, const QString &field) override;
    bool hasIndex(const QString &index) override;
    void createIndex(const QString &table, const IndexDef &index) override;

  private:
    class Statement;
    SqliteEngine(const QString &file, int openFlags, std::chrono::milliseconds wait);
    void forEachRow(const QString &sql, const RowVisitor &visit);
    sqlite3_file *mainFile();
    bool hasItsHeader();
    void makeDurable(const QString &database);

    /// The prepared statement for `nativeSql`, made once per connection: a bulk load runs one text many
    /// times.
    sqlite3_stmt *prepared(const QString &nativeSql);
    /// Binds `values` from parameter 1 on, then `key` when given, and runs the statement to its end.
    void run(const QString &nativeSql, const Fields &values, const qint64 *key = nullptr);
    /// Whether the schema has an object of that type and name, letter case ignored.
    bool hasObject(const QString &type, const QString &name);
    /// Whether a query that takes two texts gives a row.
    bool finds(const QString &nativeSql, const QString &first, const QString &second);
    void check(int resultCode);
    [[noreturn]] void fail(int resultCode);

    QString m_file;
    sqlite3 *m_connection = nullptr;
    QHash<QString, QString> m_attached; ///< "name." as the SQL writes it: the file
    bool m_durable = false;             ///< its commits wait for the disk; only a writer needs them to
    QHash<QString, sqlite3_stmt *> m_statements;
};

#pragma once

#include "platform/db/TableStore.h"

#include <optional>

struct sqlite3;
struct sqlite3_stmt;

/// The databases of a folder, a file each.
class SqliteStore : public TableStore {
  public:
    /// `unfinished`: where what is made stands until the commit; empty for reading.
    SqliteStore(QString folder, QString unfinished);
    ~SqliteStore() override;
    void openFile(const QString &database, const QString &path);

    std::vector<TableShape> tables() override;
    QStringList othersThanTables() override;
    qint64 check(const TableShape &table, const std::function<void(const OddValue &)> &visit) override;
    void read(const TableShape &table, const LineVisitor &visit) override;
    void beginRows(const TableShape &table) override;
    void addRow(const QByteArray &line) override;
    void endRows() override;
    void commit() override;
    bool discard() noexcept override;

  private:
    class Statement;
    struct File {
        QString database;
        QString path;
        sqlite3 *connection = nullptr;
    };

    File connect(const QString &database, const QString &path);
    void close() noexcept;
    const File &fileOf(const TableShape &table) const;
    static TableShape shape(const File &file, const QString &table);
    static qint64 lastKey(const File &file, const QString &table, const QString &key);
    static QString selection(const TableShape &table);
    static std::optional<OddValue> oddness(sqlite3_stmt *row, int column, const FieldDef &field);
    static Statement prepare(const File &file, const QString &sql);
    static bool step(const File &file, sqlite3_stmt *statement);
    static void run(const File &file, const QByteArray &sql);
    static void check(const File &file, int code);

    QString m_folder;
    QString m_unfinished;
    bool m_isCommitted = false;
    std::vector<File> m_files;
    TableShape m_filled; ///< the table that addRow() fills
    sqlite3_stmt *m_insert = nullptr;
};

#pragma once

#include "platform/db/PostgresConnection.h"
#include "platform/db/TableStore.h"

/// The schemas of a database, on a connection of their own and in one transaction.
class PostgresStore : public TableStore {
  public:
    PostgresStore(QString url, QStringList files);

    /// For reading: nobody writes to their tables from then on.
    void lock();
    /// For writing: refuses a database that has one of them, or is none for a book.
    void prepare();
    bool isInUse();

    std::vector<TableShape> tables() override;
    QStringList othersThanTables() override;
    qint64 check(const TableShape &table, const std::function<void(const OddValue &)> &visit) override;
    void read(const TableShape &table, const LineVisitor &visit) override;
    void beginRows(const TableShape &table) override;
    void addRow(const QByteArray &line) override;
    void endRows() override;
    void commit() override;
    void declareInUse() override;
    bool discard() noexcept override;

  private:
    void connect();
    void beginAgain();
    std::vector<PostgresResult> send(const QString &sql);
    void refuseExisting(const QString &schema);
    void flush();
    [[noreturn]] void fail(const PostgresFailure &failure, const QString &sql = {});
    QString schemaList() const;
    QString fileOf(const QString &schema) const;

    QString m_url;
    QStringList m_files;
    std::shared_ptr<PostgresConnection> m_line;
    QString m_mark;
    QStringList m_made; ///< files whose schemas this store has made
    TableShape m_filled;
    QByteArray m_rows; ///< of it, not sent yet
};

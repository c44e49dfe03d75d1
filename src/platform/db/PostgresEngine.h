#pragma once

#include "platform/db/Engine.h"
#include "platform/db/PostgresConnection.h"
#include "platform/db/PostgresSchema.h"

/// A schema of a PostgreSQL database behind Engine, on the server's own C library. It borrows a
/// connection for each statement and keeps it while a transaction is open, so that none is left idle in one.
/// All waiting is bounded and goes through attends().
class PostgresEngine : public Engine {
  public:
    /// `location` is as ServerLocation says. A lock is waited for as long as `wait`.
    static std::unique_ptr<PostgresEngine> open(const QString &location, std::chrono::milliseconds wait);
    /// Makes the schema, and what all schemas of the database need.
    static std::unique_ptr<PostgresEngine> create(const QString &location);

    ~PostgresEngine() override;

    Records query(const QString &sql) override;
    void forEach(const std::vector<std::pair<QString, RowVisitor>> &queries) override;
    int execute(const QString &sql) override;
    qint64 insert(const QString &table, const Fields &values) override;
    void append(const QString &table, const Fields &values) override;
    int update(const QString &table, const QString &keyField, qint64 key, const Fields &values) override;
    void begin(const QStringList &locks) override;
    void commit() override;
    void rollback() noexcept override;
    bool wasWritten(const QString &writing) override;
    bool isIntact(const std::stop_token &stop) override;
    QString whyReadOnly() override;
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
    bool hasExclusion(const QString &exclusion) override;
    std::vector<qint64> createExclusion(const QString &table, const ExclusionDef &exclusion) override;
    bool hasNotice(const QString &notice) override;
    void createNotice(const QString &table, const NoticeDef &notice) override;

  private:
    PostgresEngine(const QString &location, std::chrono::milliseconds wait);

    std::shared_ptr<PostgresConnection> connection();
    /// Sends statements parted by ";", all of them in one round trip. Throws what the server says.
    std::vector<PostgresResult> send(const QString &native);
    PostgresAnswer answerOf(PostgresConnection &line, const QString &native);
    QByteArray settings() const;
    QString insertion(const QString &table, const Fields &values) const;
    void changesTables(const QString &native);
    /// What this schema holds, read once by each user of it and again where it may have changed.
    const PostgresCatalogue &catalogue();
    /// What a schema of the database held when this program looked last.
    PostgresCatalogue known(const QString &schema);
    PostgresCatalogue read(const QString &schema);
    void verify();
    QString tableName(const QString &table) const;
    QString keyOf(const QString &table);
    void refuseIfReadOnly();
    void release();
    bool settlesCommit(const PostgresFailure &failure);
    [[noreturn]] void fail(const PostgresFailure &failure, const QString &native = {});

    QString m_location;
    ServerLocation m_place;
    std::chrono::milliseconds m_wait;
    std::shared_ptr<PostgresConnection> m_transaction; ///< kept while one is open
    QString m_writing;                                 ///< its key
    QStringList m_ahead; ///< statements of it that travel in front of the next: nobody waits for their answer
    bool m_changesTables = false; ///< an index of a large book takes its time
    std::optional<PostgresCatalogue> m_catalogue;
    QHash<QString, QString> m_attached; ///< the name that the SQL writes: the schema
};

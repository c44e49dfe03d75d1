#pragma once

#include "platform/db/TableDef.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QStringList>

struct pg_result;

/// What a schema holds, its names as the server has them.
struct PostgresCatalogue {
    struct Table {
        QStringList fields; ///< without those that the engine keeps for itself
        QString key;        ///< that the server assigns; empty: none
        bool isUpdatable = false;
    };

    bool exists = false;
    bool isReadable = false; ///< by this user
    bool isUtf8 = false;
    int serverVersion = 0;   ///< 150000: 15
    int dialectVersion = 0;  ///< of the functions in "dialecte"; 0: there are none
    bool isWritable = false; ///< by this user, on this server
    QHash<QString, Table> tables;
    QSet<QString> indexes;
    QSet<QString> constraints; ///< and triggers

    /// One statement; `result` is what it gives.
    static QByteArray query(const QString &schema);
    static PostgresCatalogue of(const pg_result *result);
};

constexpr int oldestPostgres = 130000; ///< "anycompatible"
constexpr int ourDialect = 1;

/// Fields that the engine adds to tables of its own accord: what CleLigne asks for, and the mark of a row
/// that an exclusion lets stand.
inline const QString rowKeyField = QStringLiteral("cleligne");
inline const QString oldClashField = QStringLiteral("chevauche");

/// Statements that make everything the book's SQL needs on the server, as far as it is not there. For the
/// owner of the database; within a transaction.
QByteArray dialectStatements();
/// A field in a statement that makes a table.
QString postgresDefinition(const FieldDef &field);

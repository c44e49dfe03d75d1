#include "platform/db/SqliteDefinition.h"

namespace {

QString typeName(FieldType type) {
    switch (type) {
    case FieldType::AutoNumber:
        return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    case FieldType::Boolean:
        return QStringLiteral("INTEGER DEFAULT 0");
    case FieldType::Int16:
    case FieldType::Int32:
        return QStringLiteral("INTEGER");
    case FieldType::Double:
        return QStringLiteral("REAL");
    case FieldType::DateTime:
    case FieldType::Text:
        break;
    }
    return QStringLiteral("TEXT");
}

} // namespace

QString sqliteName(const QString &name) {
    QString inside = name;
    return u'"' + inside.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString sqliteDefinition(const FieldDef &field) {
    return sqliteName(field.name) + u' ' + typeName(field.type);
}

#include "platform/db/SqliteRow.h"

#include <QAnyStringView>
#include <optional>
#include <sqlite3.h>

namespace {

QUtf8StringView utf8Of(sqlite3_value *value) {
    const auto *utf8 = reinterpret_cast<const char *>(sqlite3_value_text(value)); // first: it may convert
    return {utf8, sqlite3_value_bytes(value)};
}

/// The bytes of a text; nothing for a number or Null.
std::optional<QUtf8StringView> storedText(sqlite3_stmt *statement, int column) {
    sqlite3_value *value = sqlite3_column_value(statement, column);
    const int type = sqlite3_value_type(value);
    return type == SQLITE_TEXT || type == SQLITE_BLOB ? std::optional(utf8Of(value)) : std::nullopt;
}

} // namespace

Value columnValue(sqlite3_stmt *statement, int column, const Value *above) {
    sqlite3_value *value = sqlite3_column_value(statement, column);
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return {qint64{sqlite3_value_int64(value)}};
    case SQLITE_FLOAT:
        return {sqlite3_value_double(value)};
    case SQLITE_NULL:
        return {};
    default:
        break;
    }
    const QUtf8StringView text = utf8Of(value);
    const auto *known = above != nullptr ? std::get_if<QString>(&above->data()) : nullptr;
    return {known != nullptr && QAnyStringView(*known) == text ? *known : text.toString()};
}

QString SqliteRow::text(int field) const {
    const auto utf8 = storedText(m_statement, field);
    return utf8 ? utf8->toString() : columnValue(m_statement, field).toText();
}

qint64 SqliteRow::integer(int field) const {
    const auto utf8 = storedText(m_statement, field);
    return utf8 ? Value::integerIn(*utf8) : columnValue(m_statement, field).toInteger();
}

QDate SqliteRow::date(int field) const {
    const auto utf8 = storedText(m_statement, field);
    return utf8 ? Value::dateIn(*utf8) : QDate();
}

QTime SqliteRow::time(int field) const {
    const auto utf8 = storedText(m_statement, field);
    return utf8 ? Value::timeIn(*utf8) : QTime();
}

#include "platform/db/PostgresRow.h"

#include "platform/db/PostgresSchema.h"

#include <QAnyStringView>
#include <libpq-fe.h>

namespace {

// Types by the numbers that every server gives them.
constexpr Oid boolean = 16;
constexpr Oid int8 = 20;
constexpr Oid int2 = 21;
constexpr Oid int4 = 23;
constexpr Oid float4 = 700;
constexpr Oid float8 = 701;
constexpr Oid numeric = 1700;

QUtf8StringView utf8Of(const pg_result *result, int row, int column) {
    return {PQgetvalue(result, row, column), PQgetlength(result, row, column)};
}

bool isText(const pg_result *result, int column) {
    switch (PQftype(result, column)) {
    case boolean:
    case int8:
    case int2:
    case int4:
    case float4:
    case float8:
    case numeric:
        return false;
    default:
        return true;
    }
}

} // namespace

Value columnValue(const pg_result *result, int row, int column, const Value *above) {
    if (PQgetisnull(result, row, column) == 1) {
        return {};
    }
    const QUtf8StringView text = utf8Of(result, row, column);
    switch (PQftype(result, column)) {
    case boolean:
        return Value::boolean(text.front() == 't');
    case int8:
    case int2:
    case int4:
        return {Value::integerIn(text)};
    case float4:
    case float8:
    case numeric:
        return {QByteArray(text.data(), text.size()).toDouble()};
    default:
        break;
    }
    const auto *known = above != nullptr ? std::get_if<QString>(&above->data()) : nullptr;
    return {known != nullptr && QAnyStringView(*known) == text ? *known : text.toString()};
}

QString PostgresRow::text(int field) const {
    return isText(m_result, field) ? utf8Of(m_result, m_row, field).toString()
                                   : columnValue(m_result, m_row, field).toText();
}

qint64 PostgresRow::integer(int field) const {
    return isText(m_result, field) ? Value::integerIn(utf8Of(m_result, m_row, field))
                                   : columnValue(m_result, m_row, field).toInteger();
}

QDate PostgresRow::date(int field) const {
    return isText(m_result, field) ? Value::dateIn(utf8Of(m_result, m_row, field)) : QDate();
}

QTime PostgresRow::time(int field) const {
    return isText(m_result, field) ? Value::timeIn(utf8Of(m_result, m_row, field)) : QTime();
}

/// Without the mark that the engine keeps for itself: "select *" gives what the book's other engine gives.
Records recordsOf(const pg_result *result, const QString &file) {
    QStringList names;
    std::vector<int> columns;
    for (int i = 0; i < PQnfields(result); ++i) {
        if (const QString name = QString::fromUtf8(PQfname(result, i)); name != oldClashField) {
            names << name;
            columns.push_back(i);
        }
    }
    Records records(file, names);
    for (int row = 0; row < PQntuples(result); ++row) {
        for (int at = 0; at < names.size(); ++at) {
            const Value *above = row > 0 ? &records.at(row - 1, at) : nullptr;
            records.append(columnValue(result, row, columns[size_t(at)], above));
        }
    }
    return records;
}

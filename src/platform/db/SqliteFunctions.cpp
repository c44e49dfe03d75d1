#include "platform/db/SqliteFunctions.h"

#include "platform/db/LikePattern.h"
#include "platform/db/TextOrder.h"
#include "platform/db/Value.h"

#include <QStringView>
#include <sqlite3.h>

namespace {

QStringView textOf(sqlite3_value *value) {
    // Conversion first: the length is that of the form last asked for.
    const auto *text = static_cast<const char16_t *>(sqlite3_value_text16(value));
    return {text, sqlite3_value_bytes16(value) / int(sizeof(char16_t))};
}

bool isNull(sqlite3_value *value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void giveText(sqlite3_context *context, QStringView text) {
    sqlite3_result_text16(context, text.utf16(), int(text.size()) * int(sizeof(char16_t)), SQLITE_TRANSIENT);
}

/// "x like y" arrives as like(y, x). No result set means Null.
void like(sqlite3_context *context, int, sqlite3_value **arguments) {
    if (!isNull(arguments[0]) && !isNull(arguments[1])) {
        sqlite3_result_int(context, matchesLike(textOf(arguments[0]), textOf(arguments[1])) ? 1 : 0);
    }
}

void ucase(sqlite3_context *context, int, sqlite3_value **arguments) {
    if (!isNull(arguments[0])) {
        giveText(context, textOf(arguments[0]).toString().toUpper());
    }
}

void cstr(sqlite3_context *context, int, sqlite3_value **arguments) {
    constexpr int dateLength = 10;
    const QString text = isNull(arguments[0]) ? QStringLiteral("") : textOf(arguments[0]).toString();
    const QDate date = text.size() == dateLength ? Value(text).toDate() : QDate();
    giveText(context, date.isValid() ? date.toString(QStringLiteral("dd/MM/yyyy")) : text);
}

/// Straight on the stored bytes: asking for UTF-16 would convert both texts at every comparison of a sort.
int collate(void *, int leftBytes, const void *left, int rightBytes, const void *right) {
    return compareTexts({static_cast<const char *>(left), leftBytes},
                        {static_cast<const char *>(right), rightBytes});
}

} // namespace

void registerSqliteFunctions(sqlite3 *connection) {
    const auto add = [connection](const char *name, int arguments, auto function) {
        sqlite3_create_function_v2(connection, name, arguments, SQLITE_UTF16 | SQLITE_DETERMINISTIC, nullptr,
                                   function, nullptr, nullptr, nullptr);
    };
    add("like", 2, like);
    add("ucase", 1, ucase);
    add("cstr", 1, cstr);
    sqlite3_create_collation_v2(connection, "TEXTE", SQLITE_UTF8, nullptr, collate, nullptr);
}

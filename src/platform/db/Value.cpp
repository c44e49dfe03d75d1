#include "platform/db/Value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

std::optional<qint64> integerOf(const Value &value) {
    const auto &data = value.data();
    if (const auto *number = std::get_if<qint64>(&data)) {
        return *number;
    }
    if (const auto *real = std::get_if<double>(&data)) {
        return std::llround(*real);
    }
    if (const auto *text = std::get_if<QString>(&data)) {
        bool ok = false;
        const qint64 number = text->trimmed().toLongLong(&ok);
        if (ok) {
            return number;
        }
    }
    return std::nullopt;
}

int digitOf(QChar c) {
    return c.unicode() < 0x80 ? c.unicode() - u'0' : c.digitValue();
}

/// Two digits of `text` at `at`, or -1.
template <typename Text>
int twoDigits(Text text, int at) {
    if (at + 2 > text.size() || !QChar(text[at]).isDigit() || !QChar(text[at + 1]).isDigit()) {
        return -1;
    }
    return digitOf(text[at]) * 10 + digitOf(text[at + 1]);
}

template <typename Text>
QDate dateOf(Text text) {
    if (text.size() < 10 || text[4] != u'-' || text[7] != u'-') {
        return {};
    }
    const int century = twoDigits(text, 0);
    const int year = twoDigits(text, 2);
    if (century < 0 || year < 0) {
        return {};
    }
    return QDate(century * 100 + year, twoDigits(text, 5), twoDigits(text, 8));
}

template <typename Text>
QTime timeOf(Text text) {
    const bool withDate = text.size() > 10 && text[4] == u'-' && dateOf(text).isValid();
    const int at = withDate ? 11 : 0;
    if (text.size() < at + 5 || text[at + 2] != u':') {
        return {};
    }
    const bool withSeconds = text.size() >= at + 8 && text[at + 5] == u':';
    const QTime time(twoDigits(text, at), twoDigits(text, at + 3), withSeconds ? twoDigits(text, at + 6) : 0);
    // A time that another program computed may end in .999: it is the second that begins.
    const bool roundUp = withSeconds && text.size() > at + 9 && text[at + 9] >= u'5';
    return roundUp && time < QTime(23, 59, 59) ? time.addSecs(1) : time;
}

/// What `read` makes of `text`, which is only converted when a byte is not a character.
template <typename Read>
auto readUtf8(QUtf8StringView text, Read read) {
    const bool isAscii = std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
    return isAscii ? read(QLatin1StringView(text.data(), text.size())) : read(QStringView(text.toString()));
}

} // namespace

Value Value::date(QDate d) {
    return d.isValid() ? Value(d.toString(Qt::ISODate)) : Value();
}

Value Value::time(QTime t) {
    return t.isValid() ? Value(t.toString(QStringLiteral("HH:mm:ss"))) : Value();
}

QString Value::toText() const {
    if (const auto *text = std::get_if<QString>(&m_data)) {
        return *text;
    }
    if (const auto *number = std::get_if<qint64>(&m_data)) {
        return QString::number(*number);
    }
    if (const auto *real = std::get_if<double>(&m_data)) {
        return QString::number(*real, 'g', 15);
    }
    return {};
}

qint64 Value::toInteger() const {
    return integerOf(*this).value_or(0);
}

bool Value::isNumeric() const {
    return integerOf(*this).has_value();
}

QDate Value::toDate() const {
    const auto *text = std::get_if<QString>(&m_data);
    return text != nullptr ? dateOf(QStringView(*text)) : QDate();
}

QTime Value::toTime() const {
    const auto *text = std::get_if<QString>(&m_data);
    return text != nullptr ? timeOf(QStringView(*text)) : QTime();
}

qint64 Value::integerIn(QUtf8StringView text) {
    qint64 number = 0;
    const char *end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && read == end ? number : Value(text.toString()).toInteger();
}

QDate Value::dateIn(QUtf8StringView text) {
    return readUtf8(text, [](auto characters) { return dateOf(characters); });
}

QTime Value::timeIn(QUtf8StringView text) {
    return readUtf8(text, [](auto characters) { return timeOf(characters); });
}

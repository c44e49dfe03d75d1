#pragma once

#include <QDate>
#include <QString>
#include <QTime>
#include <QUtf8StringView>
#include <variant>

/// One field of one row as an engine stores it: nothing (Null), a whole number, a real number or a text.
/// Dates are stored as "YYYY-MM-DD", times of day as "HH:MM:SS", Booleans as 0 or 1 (others write -1: any
/// number but 0 is true).
class Value {
  public:
    Value() = default;
    Value(qint64 number) : m_data(number) {}
    Value(int number) : m_data(qint64{number}) {}
    Value(double number) : m_data(number) {}
    Value(QString text) : m_data(std::move(text)) {}
    static Value boolean(bool b) { return Value(b ? 1 : 0); }
    static Value date(QDate d);
    static Value time(QTime t);

    bool isNull() const { return std::holds_alternative<std::monostate>(m_data); }
    /// Null gives the empty text.
    QString toText() const;
    /// The whole number held, or spelled by the text; 0 for Null and for any other text.
    qint64 toInteger() const;
    /// Whether toInteger() reads a number rather than falling back on 0.
    bool isNumeric() const;
    bool toBoolean() const { return toInteger() != 0; }
    /// Invalid for Null and for a text that is no date (a time part is ignored).
    QDate toDate() const;
    /// Invalid for Null and for a text that is no time of day; "HH:MM" and "HH:MM:SS" are, to the nearest
    /// second, also behind a date ("1899-12-30 09:15:00").
    QTime toTime() const;

    // What a Value of that text gives, read from the bytes of an engine.
    static qint64 integerIn(QUtf8StringView text);
    static QDate dateIn(QUtf8StringView text);
    static QTime timeIn(QUtf8StringView text);

    friend bool operator==(const Value &, const Value &) = default;

    const std::variant<std::monostate, qint64, double, QString> &data() const { return m_data; }

  private:
    std::variant<std::monostate, qint64, double, QString> m_data;
};

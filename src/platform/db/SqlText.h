#pragma once

#include <QDate>
#include <QString>
#include <QTime>

/// A piece of SQL that stands in the source code: only a compile-time text converts to it.
class SqlLiteral {
  public:
    consteval SqlLiteral(const char *utf8) : m_utf8(utf8) {}
    QString text() const { return QString::fromUtf8(m_utf8); }

  private:
    const char *m_utf8;
};

/// A value already written as SQL; made by the four functions below and by nothing else.
class SqlValue {
  public:
    const QString &text() const { return m_text; }

  private:
    explicit SqlValue(QString text) : m_text(std::move(text)) {}
    QString m_text;

    friend SqlValue texte(const QString &);
    friend SqlValue nombre(qint64);
    friend SqlValue dateSql(QDate);
    friend SqlValue heureSql(QTime);
};

/// `value` between single quotes, its own quotes doubled.
SqlValue texte(const QString &value);
/// Plain decimal digits.
SqlValue nombre(qint64 value);
/// #MM dd yyyy#
SqlValue dateSql(QDate value);
/// #HH:MM:SS#
SqlValue heureSql(QTime value);

/// `text` with every single quote doubled.
QString DoubleApostrophe(const QString &text);

/// SQL text in the book's one dialect: `SqlText("Select * from RDV Where RefRDV = ") << nombre(ref)`.
/// Text from the user enters through texte() only; a QString does not convert.
class SqlText {
  public:
    explicit SqlText(SqlLiteral literal) : m_text(literal.text()) {}

    SqlText &operator<<(SqlLiteral literal) {
        m_text += literal.text();
        return *this;
    }
    SqlText &operator<<(const SqlValue &value) {
        m_text += value.text();
        return *this;
    }
    SqlText &operator<<(const SqlText &other) {
        m_text += other.m_text;
        return *this;
    }
    const QString &text() const { return m_text; }

  private:
    QString m_text;
};

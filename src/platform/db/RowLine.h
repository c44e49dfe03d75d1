#pragma once

#include <QByteArray>
#include <QUtf8StringView>

/// A row on its way from one store to another: its fields parted by tabulators, "\N" for Null, the backslash
/// and what would end a field or a line escaped; no line break at the end. The same values make the same
/// line, whatever store they come from.
class RowLine {
  public:
    void clear();
    void addNull();
    void addText(QUtf8StringView text);
    void addInteger(qint64 number);
    /// The shortest digits that give the number back.
    void addReal(double number);
    const QByteArray &bytes() const { return m_bytes; }

  private:
    void part();

    QByteArray m_bytes;
    bool m_isEmpty = true;
};

/// The fields of a line, one after the other.
class RowLineReader {
  public:
    explicit RowLineReader(const QByteArray &line) : m_line(line) {}

    /// Goes on to the next field; false where there is none.
    bool next();
    bool isNull() const { return m_isNull; }
    /// The field's own text, nothing escaped any more.
    const QByteArray &text() const { return m_text; }
    qint64 integer() const { return m_text.toLongLong(); }
    double real() const;

  private:
    const QByteArray &m_line;
    qsizetype m_at = 0;
    QByteArray m_text;
    bool m_isNull = false;
};

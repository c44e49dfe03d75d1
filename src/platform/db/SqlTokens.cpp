#include "platform/db/SqlTokens.h"

#include <QDate>
#include <QStringView>
#include <QTime>

namespace {

using Kind = SqlToken::Kind;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// SQLite's own idea of a bare name: whatever is beyond ASCII belongs to it.
bool startsWord(QChar c) {
    return c.isLetter() || c == u'_' || (c.unicode() > 0x7F && !c.isSpace());
}

bool continuesWord(QChar c) {
    return startsWord(c) || isDigit(c) || c == u'$';
}

/// The literal for the inside of a #…#, empty when it is neither a date nor a time.
QString dateOrTime(QStringView inside) {
    const auto literal = [](const auto &value, QStringView format) {
        return value.isValid() ? quotedText(value.toString(format)) : QString();
    };
    switch (inside.size()) {
    case 5:
        return literal(QTime::fromString(inside.toString(), QStringLiteral("HH:mm")), u"HH:mm:ss");
    case 8:
        return literal(QTime::fromString(inside.toString(), QStringLiteral("HH:mm:ss")), u"HH:mm:ss");
    case 10:
        return literal(QDate::fromString(inside.toString(), QStringLiteral("MM dd yyyy")), u"yyyy-MM-dd");
    default:
        return {};
    }
}

class Tokeniser {
  public:
    explicit Tokeniser(QStringView sql) : m_sql(sql) {}

    std::vector<SqlToken> tokens() {
        std::vector<SqlToken> found;
        for (;;) {
            const qsizetype start = m_at;
            takeWhile([](QChar c) { return c.isSpace(); });
            if (m_at == m_sql.size()) {
                return found;
            }
            const bool blankBefore = m_at > start;
            found.push_back(next());
            found.back().blankBefore = blankBefore;
        }
    }

  private:
    QChar charAt(qsizetype at) const { return at < m_sql.size() ? m_sql[at] : QChar(); }

    QString take(qsizetype length) {
        m_at += length;
        return m_sql.sliced(m_at - length, length).toString();
    }

    template <typename Condition>
    QString takeWhile(Condition condition) {
        qsizetype end = m_at;
        while (end < m_sql.size() && condition(m_sql[end])) {
            ++end;
        }
        return take(end - m_at);
    }

    SqlToken next() {
        const QChar c = m_sql[m_at];
        if (c == u'\'' || c == u'"') {
            return textLiteral(c);
        }
        if (c == u'[' || c == u'#') {
            return enclosed(c);
        }
        if (isDigit(c) || (c == u'.' && isDigit(charAt(m_at + 1)))) {
            return {Kind::Number, number()};
        }
        if (startsWord(c)) {
            return {Kind::Word, takeWhile(continuesWord)};
        }
        const bool isPair = (c == u'<' && (charAt(m_at + 1) == u'=' || charAt(m_at + 1) == u'>')) ||
                            (c == u'>' && charAt(m_at + 1) == u'=');
        const bool isKnown = QStringView(u"=<>&+-*/(),.;").contains(c);
        return {isKnown ? Kind::Symbol : Kind::Other, take(isPair ? 2 : 1)};
    }

    /// The engine would read "…" as a name first: both quotes of the dialect become single ones.
    SqlToken textLiteral(QChar quote) {
        QString inside;
        for (qsizetype at = m_at + 1; at < m_sql.size(); ++at) {
            if (m_sql[at] == quote && charAt(++at) != quote) {
                m_at = at;
                return {Kind::Literal, quotedText(inside)};
            }
            inside += m_sql[at];
        }
        return {Kind::Other, take(m_sql.size() - m_at)}; // never closed: the engine says so
    }

    SqlToken enclosed(QChar opening) {
        const qsizetype end = m_sql.indexOf(opening == u'[' ? u']' : u'#', m_at + 1);
        if (end > 0 && opening == u'[') {
            return {Kind::Name, take(end + 1 - m_at)};
        }
        if (end > 0) {
            const QString literal = dateOrTime(m_sql.sliced(m_at + 1, end - m_at - 1));
            if (!literal.isEmpty()) {
                m_at = end + 1;
                return {Kind::Literal, literal};
            }
        }
        return {Kind::Other, take(1)};
    }

    QString number() {
        QString digits = takeWhile([](QChar c) { return isDigit(c) || c == u'.'; });
        const QChar sign = charAt(m_at + 1);
        const qsizetype exponent = m_at + (sign == u'-' || sign == u'+' ? 2 : 1);
        if (charAt(m_at).toUpper() == u'E' && isDigit(charAt(exponent))) {
            digits += take(exponent - m_at);
            digits += takeWhile(isDigit);
        }
        return digits;
    }

    QStringView m_sql;
    qsizetype m_at = 0;
};

} // namespace

std::vector<SqlToken> tokensOf(const QString &sql) {
    return Tokeniser(sql).tokens();
}

QString quotedText(QString text) {
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

#include "platform/db/SqlDialect.h"

#include <QDate>
#include <QStringView>
#include <QTime>
#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

enum class Kind {
    Word, ///< keyword, function or bare name
    Name, ///< [name]
    Number,
    Literal, ///< a text, date or time between single quotes, ready for SQLite
    Symbol,
    Other ///< not of the dialect: keeps its place against its neighbours
};

struct Token {
    Kind kind;
    QString text;
    bool blankBefore = true;

    bool is(QStringView symbol) const { return kind == Kind::Symbol && text == symbol; }
    bool isWord(QStringView word) const {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
};

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

QString quoted(QString text) {
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

/// The SQLite literal for the inside of a #…#, empty when it is neither a date nor a time.
QString dateOrTime(QStringView inside) {
    const auto literal = [](const auto &value, QStringView format) {
        return value.isValid() ? quoted(value.toString(format)) : QString();
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

    std::vector<Token> tokens() {
        std::vector<Token> found;
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

    Token next() {
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
    Token textLiteral(QChar quote) {
        QString inside;
        for (qsizetype at = m_at + 1; at < m_sql.size(); ++at) {
            if (m_sql[at] == quote && charAt(++at) != quote) {
                m_at = at;
                return {Kind::Literal, quoted(inside)};
            }
            inside += m_sql[at];
        }
        return {Kind::Other, take(m_sql.size() - m_at)}; // never closed: the engine says so
    }

    Token enclosed(QChar opening) {
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

/// A function of the dialect that SQLite writes otherwise: its name there, and what ends its arguments.
struct Call {
    QStringView dialect;
    QStringView native;
    QStringView ending;
};

constexpr std::array<Call, 6> calls{{{u"clng", u"CAST", u" AS INTEGER"},
                                     {u"cint", u"CAST", u" AS INTEGER"},
                                     {u"str", u"CAST", u" AS TEXT"},
                                     {u"InverseDate", u"replace(substr", u", 1, 10), '-', ''"},
                                     {u"TexteTri", u"", u" COLLATE TEXTE"},
                                     {u"TexteIndex", u"", u" COLLATE NOCASE"}}};

const Call *callNamed(const Token &function) {
    const auto *found =
        std::ranges::find_if(calls, [&](const Call &call) { return function.isWord(call.dialect); });
    return found != calls.end() ? found : nullptr;
}

bool isComparison(const Token &token) {
    static const QStringList symbols = {QStringLiteral("="),  QStringLiteral("<>"), QStringLiteral("<"),
                                        QStringLiteral("<="), QStringLiteral(">"),  QStringLiteral(">=")};
    return token.kind == Kind::Symbol && symbols.contains(token.text);
}

class Translator {
  public:
    explicit Translator(std::vector<Token> tokens) : m_tokens(std::move(tokens)) {}

    QString text() {
        for (size_t i = 0; i < m_tokens.size(); ++i) {
            translate(i);
        }
        return m_text;
    }

  private:
    void translate(size_t i) {
        turnComparisonWithTrue(i, i + 1);
        turnComparisonWithTrue(i + 1, i);
        switch (m_tokens[i].kind) {
        case Kind::Word:
            word(i);
            break;
        case Kind::Literal:
            put(m_tokens[i]);
            if (isComparedText(i)) {
                put({Kind::Word, QStringLiteral("COLLATE TEXTE")});
            }
            break;
        case Kind::Symbol:
            symbol(m_tokens[i]);
            break;
        default:
            put(m_tokens[i]);
        }
    }

    void word(size_t i) {
        Token token = m_tokens[i];
        if (token.isWord(u"set") && m_parentheses.empty()) {
            m_assigning = m_tokens.front().isWord(u"update");
        } else if (token.isWord(u"where") && m_parentheses.empty()) {
            m_assigning = false;
        }
        const Call *call = callNamed(token);
        if (call != nullptr && i + 1 < m_tokens.size() && m_tokens[i + 1].is(u"(")) {
            m_pendingEnding = call->ending;
            token.text = call->native.toString();
        } else if (token.isWord(u"true")) {
            token.text = QStringLiteral("1");
        } else if (token.isWord(u"false")) {
            token.text = QStringLiteral("0");
        }
        put(token);
    }

    /// "x = True" and "True = x": any number but 0 is true, so the comparison is turned over and made with 0.
    void turnComparisonWithTrue(size_t at, size_t truth) {
        const bool inside = at < m_tokens.size() && truth < m_tokens.size() && !isAssigned();
        if (!inside || !m_tokens[truth].isWord(u"true")) {
            return;
        }
        Token &comparison = m_tokens[at];
        if (comparison.is(u"=") || comparison.is(u"<>")) {
            comparison.text = comparison.is(u"=") ? QStringLiteral("<>") : QStringLiteral("=");
            m_tokens[truth] = {Kind::Number, QStringLiteral("0")};
        }
    }

    void symbol(Token token) {
        if (token.is(u"(")) {
            m_parentheses.push_back(std::exchange(m_pendingEnding, {}));
        } else if (token.is(u")") && !m_parentheses.empty()) {
            m_text += m_parentheses.back();
            m_parentheses.pop_back();
        } else if (token.is(u"&")) {
            token.text = QStringLiteral("||");
        }
        put(token);
    }

    bool isAssigned() const { return m_assigning && m_parentheses.empty(); }

    /// A literal that has upper and lower case, compared rather than assigned.
    bool isComparedText(size_t i) const {
        const bool compared = (i > 0 && isComparison(m_tokens[i - 1])) ||
                              (i + 1 < m_tokens.size() && isComparison(m_tokens[i + 1]));
        return compared && !isAssigned() && m_tokens[i].text.toLower() != m_tokens[i].text.toUpper();
    }

    void put(const Token &token) {
        if (needsBlank(token)) {
            m_text += u' ';
        }
        m_text += token.text;
        m_last = token;
    }

    bool needsBlank(const Token &token) const {
        const bool clings = token.is(u")") || token.is(u",") || token.is(u";") || token.is(u".");
        if (m_text.isEmpty() || clings || m_last.is(u"(") || m_last.is(u".")) {
            return false;
        }
        const bool opensList = token.is(u"(") && (m_last.kind == Kind::Word || m_last.kind == Kind::Name);
        if (opensList || token.kind == Kind::Other || m_last.kind == Kind::Other) {
            return token.blankBefore;
        }
        return true;
    }

    std::vector<Token> m_tokens;
    std::vector<QStringView> m_parentheses; ///< for each one open: what stands before its end, or nothing
    QStringView m_pendingEnding;
    bool m_assigning = false; ///< between SET and WHERE of an UPDATE
    QString m_text;
    Token m_last{Kind::Other, {}};
};

} // namespace

QString SqlDialect::sqlite(const QString &sql) {
    return Translator(Tokeniser(sql).tokens()).text();
}

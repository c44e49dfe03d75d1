#include "platform/db/SqlDialect.h"

#include "platform/db/SqlTranslation.h"

#include <algorithm>
#include <array>

namespace {

using Kind = SqlToken::Kind;

SqlToken word(const QString &text) {
    return {Kind::Word, text};
}

/// One character that stands for itself in a regular expression, or in the [] of one.
QString plain(QChar c) {
    return QStringLiteral("\\^$.|?*+()[]{}-&~").contains(c) ? QStringLiteral("\\") + c : QString(c);
}

/// The inside of a […]: its first "!" is a "^", a "-" between two characters is a range.
QString set(QStringView inside) {
    const bool negated = inside.size() > 1 && inside.front() == u'!';
    QString text = negated ? QStringLiteral("[^") : QStringLiteral("[");
    for (qsizetype i = negated ? 1 : 0; i < inside.size(); ++i) {
        const bool isRange = inside[i] == u'-' && i > (negated ? 1 : 0) && i + 1 < inside.size();
        text += isRange ? QStringLiteral("-") : plain(inside[i]);
    }
    return text + u']';
}

/// The regular expression of a pattern of "like": what LikePattern understands.
QString regularExpression(QStringView pattern) {
    QString text = QStringLiteral("^");
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        const qsizetype end = c == u'[' ? pattern.indexOf(u']', i) : -1;
        if (end > i + 1) {
            text += set(pattern.sliced(i + 1, end - i - 1));
            i = end;
        } else if (end > 0) { // nothing is in an empty set
            text += QStringLiteral("(?!$|.)");
            i = end;
        } else {
            text += c == u'*'   ? QStringLiteral(".*")
                    : c == u'?' ? QStringLiteral(".")
                    : c == u'#' ? QStringLiteral("[0-9]")
                                : plain(c);
        }
    }
    return text + u'$';
}

/// "x like 'y'", whose letter case counts for nothing in any alphabet.
void turnLikes(std::vector<SqlToken> &tokens) {
    for (size_t i = 1; i + 1 < tokens.size(); ++i) {
        const bool isWhole = i + 2 == tokens.size() || !tokens[i + 2].is(u"&");
        if (!tokens[i].isWord(u"like") || tokens[i + 1].kind != Kind::Literal || !isWhole) {
            continue;
        }
        const bool negated = tokens[i - 1].isWord(u"not");
        const QString matches = QStringLiteral("COLLATE \"und-x-icu\" ");
        tokens[i] = word(matches + (negated ? QStringLiteral("!~*") : QStringLiteral("~*")));
        QString pattern = tokens[i + 1].text.sliced(1).chopped(1);
        pattern.replace(QStringLiteral("''"), QStringLiteral("'"));
        tokens[i + 1] = {Kind::Other, quotedText(regularExpression(pattern))};
        if (negated) {
            tokens.erase(tokens.begin() + ptrdiff_t(i) - 1);
            --i;
        }
    }
}

/// As lower() has them in the order of bytes.
QString folded(QString text) {
    for (QChar &c : text) {
        c = c >= u'A' && c <= u'Z' ? QChar(c.unicode() - u'A' + u'a') : c;
    }
    return text;
}

/// What a TexteIndex(…) is compared with, one text or the list behind "in", in the same small letters.
void turnIndexedTexts(std::vector<SqlToken> &tokens) {
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].isWord(u"TexteIndex")) {
            continue;
        }
        if (i > 1 && tokens[i - 2].kind == Kind::Literal) {
            tokens[i - 2].text = folded(tokens[i - 2].text);
        }
        int depth = 0;
        do {
            ++i;
            depth += i < tokens.size() && tokens[i].is(u"(") ? 1 : 0;
            depth -= i < tokens.size() && tokens[i].is(u")") ? 1 : 0;
        } while (i < tokens.size() && depth > 0);
        const bool isList = i + 1 < tokens.size() && tokens[i + 1].isWord(u"in");
        for (size_t at = i + 2; at < tokens.size() && (at == i + 2 || isList) && !tokens[at].is(u")"); ++at) {
            if (tokens[at].kind == Kind::Literal) {
                tokens[at].text = folded(tokens[at].text);
            }
        }
    }
}

/// [Name] becomes a name as it was created: its unaccented letters are small ones.
void turnNames(std::vector<SqlToken> &tokens) {
    for (SqlToken &token : tokens) {
        if (token.kind == Kind::Name) {
            const QString name = SqlDialect::postgresName(token.text.sliced(1).chopped(1));
            token.text = name.startsWith(u'"') ? name : u'"' + name + u'"'; // which may be a word of SQL, too
        }
    }
}

/// Says of each term of an "order by" where Null stands: before everything, as it is smaller.
class NullsFirst {
  public:
    NullsFirst(const std::vector<SqlToken> &tokens, bool isList) : m_tokens(tokens), m_inOrder(isList) {}

    std::vector<SqlToken> done() {
        for (size_t i = 0; i < m_tokens.size(); ++i) {
            if (m_inOrder && m_depth == m_orderDepth && endsTerm(m_tokens[i])) {
                term();
                m_inOrder = m_tokens[i].is(u",");
            }
            m_depth += m_tokens[i].is(u"(") ? 1 : 0;
            m_depth -= m_tokens[i].is(u")") ? 1 : 0;
            m_done.push_back(m_tokens[i]);
            if (m_tokens[i].isWord(u"by") && i > 0 && m_tokens[i - 1].isWord(u"order")) {
                m_inOrder = true;
                m_orderDepth = m_depth;
            }
        }
        if (m_inOrder) {
            term();
        }
        return std::move(m_done);
    }

  private:
    static bool endsTerm(const SqlToken &token) {
        return token.is(u",") || token.is(u")") || token.is(u";") || token.isWord(u"limit");
    }
    void term() {
        m_done.push_back(word(m_done.back().isWord(u"desc") ? QStringLiteral("nulls last")
                                                            : QStringLiteral("nulls first")));
    }

    const std::vector<SqlToken> &m_tokens;
    std::vector<SqlToken> m_done;
    bool m_inOrder;
    int m_depth = 0;
    int m_orderDepth = 0;
};

QString written(const QString &sql, bool isList) {
    static constexpr std::array<SqlCall, 5> calls{{{u"cint", u"clng", u""},
                                                   {u"str", u"CAST", u" AS text"},
                                                   {u"InverseDate", u"replace(substr", u", 1, 10), '-', ''"},
                                                   {u"TexteTri", u"tri", u""},
                                                   {u"TexteIndex", u"lower", u" COLLATE \"C\""}}};
    static constexpr SqlGrammar grammar{calls, u"COLLATE dialecte.texte", u"cleligne", true};
    std::vector<SqlToken> tokens = tokensOf(sql);
    turnLikes(tokens);
    turnIndexedTexts(tokens);
    turnNames(tokens);
    return translated(NullsFirst(tokens, isList).done(), grammar);
}

} // namespace

QString SqlDialect::postgres(const QString &sql) {
    return written(sql, false);
}

QString SqlDialect::postgresOrder(const QString &terms) {
    return written(terms, true);
}

QString SqlDialect::postgresName(const QString &name) {
    const bool isBare = !name.isEmpty() && !(name[0] >= u'0' && name[0] <= u'9') &&
                        std::ranges::all_of(name, [](QChar c) { return c.isLetterOrNumber() || c == u'_'; });
    QString small = folded(name);
    return isBare ? small : u'"' + small.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

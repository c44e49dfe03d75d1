#include "platform/db/SqlTranslation.h"

#include <QStringList>
#include <algorithm>
#include <utility>

namespace {

using Kind = SqlToken::Kind;

bool isComparison(const SqlToken &token) {
    static const QStringList symbols = {QStringLiteral("="),  QStringLiteral("<>"), QStringLiteral("<"),
                                        QStringLiteral("<="), QStringLiteral(">"),  QStringLiteral(">=")};
    return token.kind == Kind::Symbol && symbols.contains(token.text);
}

class Translator {
  public:
    Translator(std::vector<SqlToken> tokens, const SqlGrammar &grammar)
        : m_tokens(std::move(tokens)), m_grammar(grammar) {}

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
                put({Kind::Word, m_grammar.textOrder.toString()});
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
        SqlToken token = m_tokens[i];
        if (token.isWord(u"set") && m_parentheses.empty()) {
            m_assigning = m_tokens.front().isWord(u"update");
        } else if (token.isWord(u"where") && m_parentheses.empty()) {
            m_assigning = false;
        }
        const SqlCall *call = callNamed(token);
        if (call != nullptr && i + 1 < m_tokens.size() && m_tokens[i + 1].is(u"(")) {
            m_pendingEnding = call->ending;
            token.text = call->native.toString();
        } else if (token.isWord(u"true")) {
            token.text = QStringLiteral("1");
        } else if (token.isWord(u"false")) {
            token.text = QStringLiteral("0");
        } else if (token.isWord(u"CleLigne")) {
            token.text = m_grammar.rowKey.toString();
        }
        put(token);
    }

    /// "x = True" and "True = x": any number but 0 is true, so the comparison is turned over and made with 0.
    void turnComparisonWithTrue(size_t at, size_t truth) {
        const bool inside = at < m_tokens.size() && truth < m_tokens.size() && !isAssigned();
        if (!inside || !m_tokens[truth].isWord(u"true")) {
            return;
        }
        SqlToken &comparison = m_tokens[at];
        if (comparison.is(u"=") || comparison.is(u"<>")) {
            comparison.text = comparison.is(u"=") ? QStringLiteral("<>") : QStringLiteral("=");
            m_tokens[truth] = {Kind::Number, QStringLiteral("0")};
        }
    }

    void symbol(SqlToken token) {
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
        return compared && !isAssigned() && m_tokens[i].text.toLower() != m_tokens[i].text.toUpper() &&
               !(m_grammar.orderIsSaidOnce && hasItsOrder(i));
    }

    const SqlCall *callNamed(const SqlToken &function) const {
        const auto found = std::ranges::find_if(
            m_grammar.calls, [&](const SqlCall &call) { return function.isWord(call.dialect); });
        return found != m_grammar.calls.end() ? &*found : nullptr;
    }

    /// Whether the other side of the comparison with the literal at `i` is a TexteIndex(…).
    bool hasItsOrder(size_t i) const {
        if (i + 2 < m_tokens.size() && isComparison(m_tokens[i + 1])) {
            return m_tokens[i + 2].isWord(textIndex);
        }
        if (i < 2 || !isComparison(m_tokens[i - 1]) || !m_tokens[i - 2].is(u")")) {
            return false;
        }
        int open = 0;
        for (size_t at = i - 2; at > 0; --at) {
            open += m_tokens[at].is(u")") ? 1 : 0;
            open -= m_tokens[at].is(u"(") ? 1 : 0;
            if (open == 0) {
                return m_tokens[at - 1].isWord(textIndex);
            }
        }
        return false;
    }

    void put(const SqlToken &token) {
        if (needsBlank(token)) {
            m_text += u' ';
        }
        m_text += token.text;
        m_last = token;
    }

    bool needsBlank(const SqlToken &token) const {
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

    static constexpr QStringView textIndex = u"TexteIndex";

    std::vector<SqlToken> m_tokens;
    const SqlGrammar &m_grammar;
    std::vector<QStringView> m_parentheses; ///< for each one open: what stands before its end, or nothing
    QStringView m_pendingEnding;
    bool m_assigning = false; ///< between SET and WHERE of an UPDATE
    QString m_text;
    SqlToken m_last{Kind::Other, {}};
};

} // namespace

QString translated(std::vector<SqlToken> tokens, const SqlGrammar &grammar) {
    return Translator(std::move(tokens), grammar).text();
}

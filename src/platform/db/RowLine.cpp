#include "platform/db/RowLine.h"

#include <array>
#include <charconv>

namespace {

/// What stands behind the backslash for `c`; 0 for a character that stands for itself.
char letterFor(char c) {
    switch (c) {
    case '\\':
        return '\\';
    case '\t':
        return 't';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    default:
        return 0;
    }
}

char meaningOf(char letter) {
    switch (letter) {
    case 't':
        return '\t';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

} // namespace

void RowLine::clear() {
    m_bytes.resize(0);
    m_isEmpty = true;
}

void RowLine::part() {
    if (!m_isEmpty) {
        m_bytes += '\t';
    }
    m_isEmpty = false;
}

void RowLine::addNull() {
    part();
    m_bytes += "\\N";
}

void RowLine::addText(QUtf8StringView text) {
    part();
    const char *plain = text.data();
    const char *end = plain + text.size();
    for (const char *at = plain; at != end; ++at) {
        if (const char letter = letterFor(*at); letter != 0) {
            m_bytes.append(plain, at - plain).append('\\').append(letter);
            plain = at + 1;
        }
    }
    m_bytes.append(plain, end - plain);
}

void RowLine::addInteger(qint64 number) {
    part();
    m_bytes += QByteArray::number(number);
}

void RowLine::addReal(double number) {
    constexpr int enough = 32;
    part();
    std::array<char, enough> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    m_bytes.append(digits.data(), end - digits.data());
}

bool RowLineReader::next() {
    if (m_at > m_line.size()) {
        return false;
    }
    m_text.resize(0);
    m_isNull = QByteArrayView(m_line).sliced(m_at).startsWith("\\N");
    for (; m_at < m_line.size() && m_line[m_at] != '\t'; ++m_at) {
        if (m_line[m_at] == '\\' && m_at + 1 < m_line.size()) {
            m_text += meaningOf(m_line[++m_at]);
        } else {
            m_text += m_line[m_at];
        }
    }
    ++m_at;
    return true;
}

double RowLineReader::real() const {
    double number = 0;
    std::from_chars(m_text.data(), m_text.data() + m_text.size(), number);
    return number;
}

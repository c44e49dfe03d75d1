#include "platform/db/LikePattern.h"

#include <QChar>

namespace {

/// The character at `at`, its letter case removed; `at` moves behind it.
char32_t takeFolded(QStringView text, qsizetype &at) {
    const QChar first = text[at++];
    if (first.isHighSurrogate() && at < text.size() && text[at].isLowSurrogate()) {
        return QChar::toCaseFolded(QChar::surrogateToUcs4(first, text[at++]));
    }
    return QChar::toCaseFolded(char32_t{first.unicode()});
}

/// Whether `wanted` is in the inside of a […]; a - that stands first or last is a plain character.
bool isInSet(QStringView set, char32_t wanted) {
    // "[!]" holds the exclamation mark itself.
    const bool negated = set.size() > 1 && set.front() == u'!';
    qsizetype at = negated ? 1 : 0;
    while (at < set.size()) {
        const char32_t low = takeFolded(set, at);
        char32_t high = low;
        if (at + 1 < set.size() && set[at] == u'-') {
            ++at;
            high = takeFolded(set, at);
        }
        if (low <= wanted && wanted <= high) {
            return !negated;
        }
    }
    return negated;
}

/// Whether the piece of `pattern` at `at` (anything but a *) accepts `wanted`; `at` moves behind the piece.
bool takePiece(QStringView pattern, qsizetype &at, char32_t wanted) {
    switch (pattern[at].unicode()) {
    case u'?':
        ++at;
        return true;
    case u'#':
        ++at;
        return wanted >= U'0' && wanted <= U'9';
    case u'[': {
        const qsizetype end = pattern.indexOf(u']', at);
        if (end >= 0) {
            const QStringView set = pattern.sliced(at + 1, end - at - 1);
            at = end + 1;
            return isInSet(set, wanted);
        }
        break;
    }
    default:
        break;
    }
    return takeFolded(pattern, at) == wanted;
}

} // namespace

bool matchesLike(QStringView pattern, QStringView text) {
    qsizetype inPattern = 0;
    qsizetype inText = 0;
    // Only the last * ever needs another try: what an earlier one took can only be given to this one.
    qsizetype retryPattern = -1;
    qsizetype retryText = 0;
    while (inText < text.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == u'*') {
            retryPattern = ++inPattern;
            retryText = inText;
            if (inPattern == pattern.size()) {
                return true;
            }
            continue;
        }
        if (inPattern < pattern.size() && takePiece(pattern, inPattern, takeFolded(text, inText))) {
            continue;
        }
        if (retryPattern < 0) {
            return false;
        }
        takeFolded(text, retryText);
        inText = retryText;
        inPattern = retryPattern;
    }
    while (inPattern < pattern.size() && pattern[inPattern] == u'*') {
        ++inPattern;
    }
    return inPattern == pattern.size();
}

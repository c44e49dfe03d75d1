#include "platform/db/TextOrder.h"

#include <QString>

namespace {

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

/// A letter without its accents.
QChar withoutAccents(QChar c) {
    while (c.decompositionTag() == QChar::Canonical) {
        c = c.decomposition().front();
    }
    return c;
}

/// What counts first: letters in lower case, without accents, a ligature as its two letters.
QString letters(const QString &text) {
    QString key;
    key.reserve(text.size());
    for (const QChar c : text) {
        const QChar letter = withoutAccents(c.toCaseFolded());
        if (letter == u'œ') {
            key += QLatin1StringView("oe");
        } else if (letter == u'æ') {
            key += QLatin1StringView("ae");
        } else if (!letter.isMark()) {
            key += letter;
        }
    }
    return key;
}

} // namespace

int compareTexts(QByteArrayView left, QByteArrayView right) {
    const qsizetype shorter = qMin(left.size(), right.size());
    qsizetype at = 0;
    // Nearly every pair ends here: a sort of ten thousand names compares them a quarter of a million times.
    while (at < shorter && isAscii(left[at]) && lowered(left[at]) == lowered(right[at])) {
        ++at;
    }
    const bool leftPlain = at == left.size() || isAscii(left[at]);
    const bool rightPlain = at == right.size() || isAscii(right[at]);
    if (leftPlain && rightPlain) {
        return at < shorter ? lowered(left[at]) - lowered(right[at])
                            : (left.size() > right.size()) - (left.size() < right.size());
    }
    const QString leftRest = QString::fromUtf8(left.sliced(at));
    const QString rightRest = QString::fromUtf8(right.sliced(at));
    const int byLetters = letters(leftRest).compare(letters(rightRest));
    return byLetters != 0 ? byLetters : leftRest.compare(rightRest, Qt::CaseInsensitive);
}

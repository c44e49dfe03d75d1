#pragma once

#include <QString>

/// A tool tip that shows `text` as it is, line breaks included: what looks like HTML in it is text.
inline QString plainTip(const QString &text) {
    constexpr int longest = 400; // characters: more would be taller than the screen
    return text.isEmpty()
               ? text
               : QStringLiteral("<span>%1</span>")
                     .arg(text.left(longest).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

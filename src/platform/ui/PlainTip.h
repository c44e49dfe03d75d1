#pragma once

#include <QString>

/// A tool tip that shows `text` as it is: what looks like HTML in it is text, and a line break is a blank, or
/// many of them would be taller than the screen.
inline QString plainTip(const QString &text) {
    constexpr int longest = 400; // characters: more would be taller than the screen
    return text.isEmpty() ? text : QStringLiteral("<span>%1</span>").arg(text.left(longest).toHtmlEscaped());
}

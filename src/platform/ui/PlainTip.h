#pragma once

#include <QString>

/// A tool tip that shows `text` as it is, line breaks included: what looks like HTML in it is text.
inline QString plainTip(const QString &text) {
    return text.isEmpty() ? text
                          : QStringLiteral("<span>%1</span>")
                                .arg(text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

#pragma once

#include <QString>

/// A typed or pasted text as a record keeps it: one line, without surrounding blanks. A tab or a line break
/// that came with a paste becomes a blank.
inline QString TexteSaisi(QString texte) {
    for (QChar &c : texte) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator) {
            c = u' ';
        }
    }
    return texte.trimmed();
}

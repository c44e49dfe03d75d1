#pragma once

#include <QString>

/// A typed or pasted text as one line: a tab or a line break that came with a paste becomes a blank.
inline QString UneLigne(QString texte) {
    for (QChar &c : texte) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator) {
            c = u' ';
        }
    }
    return texte;
}

/// The same without surrounding blanks, as a record keeps it.
inline QString TexteSaisi(const QString &texte) {
    return UneLigne(texte).trimmed();
}

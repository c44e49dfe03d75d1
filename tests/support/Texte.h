#pragma once

#include <QStringList>
#include <ostream>

/// Short ways to write texts in tests.

inline std::ostream &operator<<(std::ostream &sortie, const QString &texte) {
    return sortie << texte.toStdString();
}
inline void PrintTo(const QString &texte, std::ostream *sortie) {
    *sortie << texte;
}

inline QString q(const char *texte) {
    return QString::fromUtf8(texte);
}

/// The rows of a table drawn as text, one a line, cells parted by "|".
inline QList<QStringList> tableau(const char *texte) {
    QList<QStringList> rangees;
    for (const QString &ligne : q(texte).split(u'\n', Qt::SkipEmptyParts)) {
        rangees << ligne.split(u'|');
        for (QString &cellule : rangees.last()) {
            cellule = cellule.trimmed();
        }
    }
    return rangees;
}

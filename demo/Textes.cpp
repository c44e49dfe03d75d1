#include "Textes.h"

#include <QFile>
#include <map>

namespace {

std::map<QString, QStringList> lit() {
    std::map<QString, QStringList> listes;
    QFile fichier(QStringLiteral(":/demo/textes.txt"));
    if (!fichier.open(QIODevice::ReadOnly)) {
        return listes;
    }
    QString titre;
    for (const QString &ligne : QString::fromUtf8(fichier.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (ligne.startsWith(u'[')) {
            titre = ligne.sliced(1).chopped(1);
        } else {
            listes[titre] += ligne.split(QStringLiteral("; "));
        }
    }
    return listes;
}

} // namespace

const QStringList &textes(const QString &titre) {
    static const std::map<QString, QStringList> listes = lit();
    return listes.at(titre);
}

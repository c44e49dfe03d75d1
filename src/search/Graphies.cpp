#include "search/Graphies.h"

QStringList Graphies(const QString &texte) {
    constexpr char16_t horsAscii = 0x80;
    constexpr qsizetype assez = 64; // six accented letters
    const QString majuscules = texte.toUpper();
    QStringList graphies{majuscules};
    for (qsizetype i = 0; i < majuscules.size() && graphies.size() <= assez; ++i) {
        const QChar minuscule = majuscules[i].toLower();
        if (majuscules[i].unicode() < horsAscii || minuscule == majuscules[i]) {
            continue;
        }
        for (QString autre : QStringList(graphies)) {
            autre[i] = minuscule;
            graphies << autre;
        }
    }
    return graphies.size() <= assez ? graphies : QStringList();
}

#include "search/Graphies.h"

QStringList Graphies(const QString &texte) {
    constexpr char16_t horsAscii = 0x80;
    constexpr qsizetype assez = 64; // six accented letters
    QStringList graphies{texte};
    for (qsizetype i = 0; i < texte.size() && graphies.size() <= assez; ++i) {
        const QChar lettre = texte[i];
        if (lettre.unicode() < horsAscii || lettre.toUpper() == lettre.toLower()) {
            continue;
        }
        for (QString autre : QStringList(graphies)) {
            autre[i] = lettre == lettre.toUpper() ? lettre.toLower() : lettre.toUpper();
            graphies << autre;
        }
    }
    return graphies.size() <= assez ? graphies : QStringList();
}

#include "search/Graphies.h"

QStringList Graphies(const QString &texte) {
    constexpr char16_t horsAscii = 0x80;
    constexpr qsizetype assez = 64; // six accented letters
    QStringList graphies{QString()};
    for (const QChar lettre : texte) {
        const QChar majuscule = lettre.toUpper();
        const QChar autre = majuscule == lettre ? lettre.toLower() : majuscule;
        const QStringList debuts = graphies;
        for (QString &graphie : graphies) {
            graphie += lettre.unicode() < horsAscii ? majuscule : lettre;
        }
        if (lettre.unicode() >= horsAscii && autre != lettre) {
            for (const QString &debut : debuts) {
                graphies << debut + autre;
            }
        }
        if (graphies.size() > assez) {
            return {};
        }
    }
    return graphies;
}

#include "maintenance/ReglesPurge.h"

#include <QDir>

#include <algorithm>

int LotSuivant(int lot, std::chrono::milliseconds duree) {
    constexpr int plusPetit = 20;
    constexpr int plusGrand = 8000;
    constexpr qint64 dureeVoulue = 90; // ms
    const qint64 proportionnel = lot * dureeVoulue / std::max<qint64>(duree.count(), 1);
    return int(std::clamp<qint64>(std::min<qint64>(proportionnel, lot * 2LL), plusPetit, plusGrand));
}

bool EstAnterieur(QDate Date1, QDate jour) {
    return !Date1.isValid() || Date1 < jour;
}

QString NomArchive(const QString &saisi) {
    const QString extension = QStringLiteral(".mdb");
    return saisi.endsWith(extension, Qt::CaseInsensitive) ? saisi : saisi + extension;
}

QString BilanPurge(int deplaces, const QString &archive) {
    if (deplaces == 0) {
        return QStringLiteral("Aucun rendez-vous n'a été déplacé : tous sont restés dans le carnet.");
    }
    const QString combien = deplaces == 1 ? QStringLiteral("1 rendez-vous a été déplacé")
                                          : QStringLiteral("%1 rendez-vous ont été déplacés").arg(deplaces);
    return combien + QStringLiteral(" dans l'archive « %1 », les autres sont restés dans le carnet.")
                         .arg(QDir::toNativeSeparators(archive));
}

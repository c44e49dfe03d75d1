#include "maintenance/ReglesPurge.h"

#include <QDir>

#include <algorithm>

int LotSuivant(int lot, std::chrono::milliseconds duree) {
    constexpr int plusPetit = 50;
    constexpr int plusGrand = 5000;
    constexpr double dureeVoulue = 70; // ms; the worst of them takes twice as long
    const double facteur = dureeVoulue / std::max(double(duree.count()), 1.0);
    // one moment in which the disk is slow says little about the next
    return std::clamp(int(lot * std::clamp(facteur, 0.5, 2.0)), plusPetit, plusGrand);
}

bool EstAnterieur(QDate Date1, QDate jour) {
    return !Date1.isValid() || Date1 < jour;
}

QString NomArchive(const QString &saisi) {
    const QString extension = QStringLiteral(".mdb");
    return saisi.endsWith(extension, Qt::CaseInsensitive) ? saisi : saisi + extension;
}

QString BilanPurge(int deplaces, int incertains, int enTrop, const QString &archive) {
    const QString fichier = QDir::toNativeSeparators(archive);
    QStringList phrases;
    if (deplaces > 0) {
        phrases << (deplaces == 1 ? QStringLiteral("1 rendez-vous a été déplacé")
                                  : QStringLiteral("%1 rendez-vous ont été déplacés").arg(deplaces)) +
                       QStringLiteral(" dans l'archive « %1 »").arg(fichier) +
                       (incertains > 0 ? QStringLiteral(".")
                                       : QStringLiteral(", les autres sont restés dans le carnet."));
    } else if (incertains == 0) {
        phrases << QStringLiteral("Aucun rendez-vous n'a été déplacé : tous sont restés dans le carnet.");
    }
    if (incertains > 0) {
        phrases << QStringLiteral("Gardez l'archive « %1 » : elle contient aussi %2 rendez-vous dont on ne "
                                  "sait pas s'ils sont encore dans le carnet.")
                       .arg(fichier)
                       .arg(incertains);
    }
    if (enTrop > 0) {
        phrases << QStringLiteral("L'archive « %1 » n'a pas pu être remise en ordre : elle garde peut-être "
                                  "aussi une copie de %2 rendez-vous restés dans le carnet.")
                       .arg(fichier)
                       .arg(enTrop);
    }
    return phrases.join(u'\n');
}

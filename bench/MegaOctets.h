#pragma once

#include <QFile>

/// The figure of a line such as "VmRSS:  1234 kB" in /proc/`processus`/`fichier`, in megabytes; 0 without
/// one.
inline double megaOctets(const QString &processus, const QString &fichier, const QByteArray &champ) {
    QFile etat(QStringLiteral("/proc/%1/%2").arg(processus, fichier));
    if (!etat.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray &ligne : etat.readAll().split('\n')) {
        if (ligne.startsWith(champ + ':')) {
            return ligne.simplified().split(' ').at(1).toDouble() / 1024;
        }
    }
    return 0;
}

#pragma once

#include "Mesure.h"

#include <QCoreApplication>
#include <QProcess>

/// Starts a program built beside this one. The process ends at the latest with the object.
inline void lance(QProcess &processus, const QString &programme, const QStringList &arguments) {
    processus.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processus.start(QCoreApplication::applicationDirPath() + u'/' + programme, arguments);
}

/// The same to its end; gives what it printed.
inline QString execute(const QString &programme, const QStringList &arguments) {
    constexpr int patience = 120'000;
    QProcess processus;
    lance(processus, programme, arguments);
    if (!processus.waitForFinished(patience) || processus.exitStatus() != QProcess::NormalExit ||
        processus.exitCode() != 0) {
        throw MesureImpossible(QStringLiteral("%1 échoue").arg(programme));
    }
    return QString::fromLocal8Bit(processus.readAllStandardOutput());
}

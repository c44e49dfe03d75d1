#include "SavedFile.h"

#include "platform/word/WordProcessor.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

std::mutex halfWritten;

namespace {

[[noreturn]] void refuse(const QFileDevice &file, const QString &path) {
    throw WordError(QStringLiteral("Le document « %1 » ne peut pas être écrit : %2.")
                        .arg(QDir::toNativeSeparators(path), reasonOf(file, path)));
}

} // namespace

QString reasonOf(const QFileDevice &file, const QString &path) {
    constexpr qsizetype longestName = 255; // bytes, on all usual disks
    const QFileInfo wanted(path);
    const QFileInfo folder(wanted.path());
    if (QFile::encodeName(wanted.fileName()).size() > longestName) {
        return QStringLiteral("son nom est trop long");
    }
    if (!folder.exists()) {
        return QStringLiteral("son dossier est introuvable");
    }
    const bool closed = !folder.isWritable() || (wanted.exists() && !wanted.isWritable());
    return closed || file.error() == QFileDevice::PermissionsError
               ? QStringLiteral("l'accès est refusé")
               : QStringLiteral("le disque est plein ou en panne");
}

void replaceFile(const QString &made, const QString &path) {
    const std::scoped_lock whole(halfWritten);
    QFile source(made);
    if (!source.open(QIODevice::ReadOnly) || source.size() == 0) {
        throw WordError(QStringLiteral("Le traitement de texte n'a rien enregistré pour « %1 ».")
                            .arg(QDir::toNativeSeparators(path)));
    }
    const QByteArray content = source.readAll();
    QSaveFile target(path);
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size() || !target.commit()) {
        refuse(target, path);
    }
}

QString addFile(const QString &made, const QString &path) {
    const QFileInfo wanted(path);
    const QString start = wanted.path() + u'/' + wanted.completeBaseName();
    for (int rank = 1;; ++rank) {
        const QString name =
            start + (rank > 1 ? QStringLiteral("_%1").arg(rank) : QString()) + u'.' + wanted.suffix();
        QFile mine(name);
        if (mine.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            try {
                replaceFile(made, name);
            } catch (const WordError &) {
                QFile::remove(name);
                throw;
            }
            return name;
        }
        if (!mine.exists()) {
            refuse(mine, name);
        }
    }
}

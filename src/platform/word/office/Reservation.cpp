#include "Reservation.h"

#include "SavedFile.h"
#include "platform/word/WordProcessor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString reserved; // behind halfWritten

[[noreturn]] void refuse(const QString &path, const QString &why) {
    throw WordError(QStringLiteral("Le document « %1 » ne peut pas être écrit : %2.")
                        .arg(QDir::toNativeSeparators(path), why));
}

} // namespace

QString Reservation::take(const QStringList &paths) {
    const std::scoped_lock whole(halfWritten);
    const QDir folder = QFileInfo(paths.value(0)).dir();
    if (!folder.exists() && !QDir().mkdir(folder.path())) {
        refuse(folder.path(), QStringLiteral("le dossier ne peut pas être créé"));
    }
    for (const QString &path : paths) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            reserved = path;
            return path;
        }
        if (!file.exists()) {
            refuse(path, reasonOf(file, path));
        }
    }
    refuse(paths.value(0), QStringLiteral("ce nom et les suivants sont déjà pris"));
}

void Reservation::remove() {
    if (!reserved.isEmpty() && QFileInfo(reserved).size() == 0) {
        QFile::remove(reserved);
    }
    reserved.clear();
}

void Reservation::giveBack() {
    const std::scoped_lock whole(halfWritten);
    remove();
}

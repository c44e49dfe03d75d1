#include "platform/word/OfficeFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QUrl>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

/// The pipe by which an office finds that its profile is in use already.
QString profilePipe(const QString &profile) {
    const QString url = QString::fromUtf8(QUrl::fromLocalFile(profile).toEncoded());
    const QByteArray utf16(reinterpret_cast<const char *>(url.utf16()),
                           url.size() * qsizetype(sizeof(char16_t)));
    QString name = QStringLiteral("SingleOfficeIPC_");
    for (const char byte : QCryptographicHash::hash(utf16, QCryptographicHash::Md5)) {
        name += QString::number(static_cast<unsigned char>(byte), 16); // no leading zero, as the office does
    }
    return name;
}

} // namespace

QString OfficeFolder::pipe() const {
    return QDir(path).dirName();
}

void OfficeFolder::remove() const {
    QDir(path).removeRecursively();
#ifdef Q_OS_UNIX
    for (const QString &name : {pipe(), profilePipe(profile())}) {
        QFile::remove(QStringLiteral("/tmp/OSL_PIPE_%1_%2").arg(getuid()).arg(name));
    }
#endif
}

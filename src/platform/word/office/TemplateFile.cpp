#include "TemplateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QByteArray compound = QByteArray::fromHex("d0cf11e0a1b11ae1"); // .doc
const QByteArray archive("PK\x03\x04");                              // .odt, .docx

} // namespace

QString refusedTemplate(const QString &path) {
    const QString name = QDir::toNativeSeparators(path);
    const QFileInfo info(path);
    if (!info.exists()) {
        return QStringLiteral("Le modèle « %1 » est introuvable.").arg(name);
    }
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) {
        return QStringLiteral("Le modèle « %1 » ne peut pas être lu.").arg(name);
    }
    const QByteArray start = file.read(compound.size());
    if (start.isEmpty()) {
        return QStringLiteral("Le modèle « %1 » est vide.").arg(name);
    }
    if (!start.startsWith(compound) && !start.startsWith(archive)) {
        return QStringLiteral("Le modèle « %1 » n'est pas un document de traitement de texte.").arg(name);
    }
    return {};
}

#include "platform/files/StoredPaths.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The entry of `folder` that is `name`, letter case ignored; an exact one wins.
QString entryOf(const QString &folder, const QString &name) {
    if (QFileInfo::exists(folder + u'/' + name)) {
        return name;
    }
    const QStringList entries = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    for (const QString &entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) {
            return entry;
        }
    }
    return name;
}

} // namespace

bool StoredPaths::addDrives(const QString &entries) {
    QMap<QChar, QString> drives = m_drives;
    for (const QString &entry : entries.split(u';', Qt::SkipEmptyParts)) {
        const bool wellFormed = entry.size() > 2 && entry[0].isLetter() && entry[1] == u'=';
        if (!wellFormed) {
            return false;
        }
        drives[entry[0].toUpper()] = QDir::fromNativeSeparators(entry.mid(2));
    }
    m_drives = drives;
    return true;
}

bool StoredPaths::isPath(const QString &stored) {
    return stored.indexOf(QStringLiteral("://")) < 2; // a single letter is a drive
}

QString StoredPaths::real(const QString &stored) const {
    if (!isPath(stored)) {
        return stored;
    }
    QString path = stored;
    path.replace(u'\\', u'/');
    const bool hasDrive = path.size() >= 2 && path[1] == u':';
    if (hasDrive && m_drives.contains(path[0].toUpper())) {
        path = m_drives[path[0].toUpper()] + u'/' + path.mid(2);
    }
    if (QFileInfo::exists(path)) {
        return QDir::cleanPath(path);
    }
    QString found = path.startsWith(u'/') ? QStringLiteral("/") : QString();
    for (const QString &component : path.split(u'/', Qt::SkipEmptyParts)) {
        const QString entry = entryOf(found.isEmpty() ? QStringLiteral(".") : found, component);
        found += (found.isEmpty() || found.endsWith(u'/')) ? entry : u'/' + entry;
    }
    return found;
}

QString StoredPaths::realDatabase(const QString &stored) const {
    const qsizetype lastSeparator = std::max(stored.lastIndexOf(u'\\'), stored.lastIndexOf(u'/'));
    const bool hasExtension = stored.indexOf(u'.', lastSeparator + 1) >= 0;
    return real(hasExtension ? stored : stored + QStringLiteral(".mdb"));
}

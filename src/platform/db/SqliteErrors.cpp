#include "platform/db/SqliteErrors.h"

#include <cerrno>
#include <cstdarg>
#include <sqlite3.h>

namespace {

bool isRefusedLock(int resultCode) {
    switch (resultCode) {
    case SQLITE_IOERR_LOCK:
    case SQLITE_IOERR_RDLOCK:
    case SQLITE_IOERR_UNLOCK:
    case SQLITE_IOERR_CHECKRESERVEDLOCK:
    case SQLITE_PROTOCOL:
    case SQLITE_PERM:
        return true;
    default:
        return false;
    }
}

bool isDamage(int resultCode) {
    return resultCode == SQLITE_IOERR_SHORT_READ || resultCode == SQLITE_IOERR_CORRUPTFS ||
           resultCode == SQLITE_IOERR_DATA || (resultCode & 0xFF) == SQLITE_CORRUPT;
}

DbError::Kind kindOf(int resultCode) {
    if (isRefusedLock(resultCode)) {
        return DbError::Kind::LocksRefused;
    }
    if (isDamage(resultCode)) {
        return DbError::Kind::Damaged;
    }
    switch (resultCode & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DbError::Kind::Locked;
    case SQLITE_READONLY:
        return DbError::Kind::ReadOnly;
    case SQLITE_NOTADB:
        return DbError::Kind::UnknownFormat;
    case SQLITE_FULL:
        return DbError::Kind::DiskFull;
    default:
        return DbError::Kind::Other;
    }
}

QString precisionOf(int resultCode) {
    switch (resultCode & 0xFF) {
    case SQLITE_CANTOPEN:
        return QStringLiteral("le fichier ou son dossier ne peut pas être ouvert");
    case SQLITE_READONLY: // its sentence says it
        return {};
    case SQLITE_IOERR:
        return QStringLiteral("une lecture ou une écriture sur le disque a échoué");
    default:
        return QStringLiteral("la base de données a refusé l'opération");
    }
}

/// What the structure lacks, in French; empty when the message says something else.
QString missingPart(const QString &english) {
    static const QString column = QStringLiteral(" has no column named ");
    const auto afterColon = [&](QLatin1StringView start, const QString &french) {
        return english.startsWith(start) ? french.arg(english.mid(start.size())) : QString();
    };
    const QString field = QStringLiteral("le champ « %1 » manque");
    if (const qsizetype at = english.indexOf(column); at > 0) {
        return field.arg(english.mid(at + column.size()));
    }
    const QString table =
        afterColon(QLatin1StringView("no such table: "), QStringLiteral("la table « %1 » manque"));
    return table.isEmpty() ? afterColon(QLatin1StringView("no such column: "), field) : table;
}

using LockCall = int (*)(int, int, ...);
LockCall systemCall = nullptr;

int callTellingRefusals(int file, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    const int result = systemCall(file, command, argument);
    if (result != 0 && errno == ENOLCK) {
        errno = EOPNOTSUPP;
    }
    return result;
}

} // namespace

DbError sqliteError(int resultCode, const QString &file, const QString &english) {
    const QString missing = missingPart(english);
    const QByteArray technical = QByteArray::number(resultCode) + ", " + english.toUtf8();
    if (!missing.isEmpty()) {
        return {DbError::Kind::Structure, file, missing, technical};
    }
    return {kindOf(resultCode), file, precisionOf(resultCode), technical};
}

void tellRefusedLocks() {
    sqlite3_vfs *files = sqlite3_vfs_find(nullptr);
    systemCall = reinterpret_cast<LockCall>(files->xGetSystemCall(files, "fcntl"));
    files->xSetSystemCall(files, "fcntl", reinterpret_cast<sqlite3_syscall_ptr>(callTellingRefusals));
}

#include "platform/db/DbError.h"

#include <QDir>

namespace {

QString quotedName(const QString &file) {
    return QStringLiteral("« %1 »").arg(QDir::toNativeSeparators(file));
}

/// What is wrong, a clause without its full stop.
QString clause(DbError::Kind kind, const QString &file, const QString &precision) {
    const QString name = quotedName(file);
    switch (kind) {
    case DbError::Kind::Missing:
        return QStringLiteral("le fichier %1 est introuvable").arg(name);
    case DbError::Kind::UnknownFormat:
        return QStringLiteral("le fichier %1 n'est pas une base de données d'un format connu").arg(name);
    case DbError::Kind::ReadOnly:
        return precision.isEmpty()
                   ? QStringLiteral("le fichier %1 ou son dossier est protégé en écriture").arg(name)
                   : QStringLiteral("le fichier %1 est ouvert en lecture seule").arg(name);
    case DbError::Kind::Locked:
        return QStringLiteral("le fichier %1 est occupé par un autre programme").arg(name);
    case DbError::Kind::LocksRefused:
        return QStringLiteral("le dossier du fichier %1 ne permet pas de verrouiller les fichiers").arg(name);
    case DbError::Kind::Damaged:
        return QStringLiteral("le fichier %1 est endommagé ou incomplet").arg(name);
    case DbError::Kind::DiskFull:
        return QStringLiteral("le disque du fichier %1 est plein").arg(name);
    case DbError::Kind::Structure:
        return QStringLiteral("le fichier %1 n'a pas la structure attendue : %2").arg(name, precision);
    case DbError::Kind::Other:
        break;
    }
    return QStringLiteral("le fichier %1 ne peut pas être utilisé : %2").arg(name, precision);
}

/// What is wrong, and what it means for the action that failed of it.
QString sentence(DbError::Kind kind, const QString &file, const QString &precision) {
    QString wrong = clause(kind, file, precision);
    wrong[0] = wrong[0].toUpper();
    switch (kind) {
    case DbError::Kind::ReadOnly:
        return precision.isEmpty() ? wrong + QStringLiteral(" : rien n'a été enregistré.")
                                   : wrong + QStringLiteral(", rien n'a été enregistré. ") + precision;
    case DbError::Kind::Locked:
        return wrong + QStringLiteral(". Rien n'a été enregistré ; réessayez dans un instant.");
    case DbError::Kind::LocksRefused:
        return wrong +
               QStringLiteral(" : rien n'a été enregistré. Prévenez la personne qui s'occupe du réseau.");
    case DbError::Kind::Damaged:
        return wrong +
               QStringLiteral(". Ne l'utilisez plus avant de l'avoir remplacé par sa dernière sauvegarde.");
    case DbError::Kind::DiskFull:
        return QStringLiteral("Le disque est plein : rien n'a été enregistré dans le fichier %1.")
            .arg(quotedName(file));
    default:
        return wrong + u'.';
    }
}

} // namespace

DbError::DbError(Kind kind, QString file, const QString &precision, const QByteArray &technical)
    : m_kind(kind), m_file(std::move(file)), m_cause(clause(kind, m_file, precision) + u'.'),
      m_message(sentence(kind, m_file, precision)),
      m_what(m_message.toUtf8() + (technical.isEmpty() ? "" : " [" + technical + "]")) {}

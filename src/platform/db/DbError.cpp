#include "platform/db/DbError.h"

#include "platform/db/ServerLocation.h"

#include <QDir>

namespace {

QString quotedName(const QString &file) {
    return QStringLiteral("« %1 »").arg(QDir::toNativeSeparators(file));
}

/// What is wrong with what a server keeps, a clause without its full stop.
QString serverClause(DbError::Kind kind, const QString &location, const QString &precision) {
    const ServerLocation place = ServerLocation::of(location);
    const QString base = place.databaseName();
    const QString server = place.serverName();
    switch (kind) {
    case DbError::Kind::Missing:
        return precision.isEmpty() ? base + QStringLiteral(" est introuvable")
                                   : base + QStringLiteral(" n'a pas de « %1 »").arg(precision);
    case DbError::Kind::ReadOnly:
        return base + QStringLiteral(" n'est ouverte qu'en lecture");
    case DbError::Kind::Locked:
        return base + QStringLiteral(" est occupée par un autre poste");
    case DbError::Kind::Damaged:
        return base + QStringLiteral(" est endommagée");
    case DbError::Kind::DiskFull:
        return QStringLiteral("le disque de %1 est plein").arg(base);
    case DbError::Kind::Structure:
        return base + QStringLiteral(" n'a pas la structure attendue : ") + precision;
    case DbError::Kind::Conflict:
        return base + QStringLiteral(" a déjà un rendez-vous à cette place");
    case DbError::Kind::Unreachable:
    case DbError::Kind::Refused:
        return server + u' ' + precision;
    case DbError::Kind::UnknownOutcome:
        return server + QStringLiteral(" n'a pas confirmé l'enregistrement");
    default:
        break;
    }
    return base + QStringLiteral(" ne peut pas être utilisée : ") + precision;
}

/// What is wrong, a clause without its full stop.
QString clause(DbError::Kind kind, const QString &file, const QString &precision) {
    if (ServerLocation::isOne(file)) {
        return serverClause(kind, file, precision);
    }
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
    default:
        break;
    }
    return QStringLiteral("le fichier %1 ne peut pas être utilisé : %2").arg(name, precision);
}

QString withCapital(QString text) {
    text[0] = text[0].toUpper();
    return text;
}

/// The same as sentence() for what a server keeps.
QString serverSentence(DbError::Kind kind, const QString &location, const QString &precision) {
    const QString wrong = withCapital(serverClause(kind, location, precision));
    switch (kind) {
    case DbError::Kind::ReadOnly:
        return wrong + (precision.isEmpty()
                            ? QStringLiteral(" : rien n'a été enregistré. Cet utilisateur n'a pas le "
                                             "droit d'y écrire, ou c'est une copie de secours.")
                            : QStringLiteral(", rien n'a été enregistré. ") + precision);
    case DbError::Kind::Locked:
        return wrong + QStringLiteral(". Rien n'a été enregistré ; réessayez dans un instant.");
    case DbError::Kind::Damaged:
    case DbError::Kind::DiskFull:
        return wrong +
               QStringLiteral(" : rien n'a été enregistré. Prévenez la personne qui s'occupe du serveur.");
    case DbError::Kind::Conflict:
        return wrong + QStringLiteral(" : rien n'a été enregistré.");
    case DbError::Kind::UnknownOutcome:
        return wrong + QStringLiteral(" : ne recommencez pas. Dès que le serveur répondra, le carnet dira si "
                                      "c'est fait ou pas fait.");
    default:
        return wrong + u'.';
    }
}

/// What is wrong, and what it means for the action that failed of it.
QString sentence(DbError::Kind kind, const QString &file, const QString &precision) {
    if (ServerLocation::isOne(file)) {
        return serverSentence(kind, file, precision);
    }
    const QString wrong = withCapital(clause(kind, file, precision));
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

DbError DbError::unknownOutcome(const QString &file, const QString &writing, const QByteArray &technical) {
    DbError error(Kind::UnknownOutcome, file, {}, technical);
    error.m_writing = writing;
    return error;
}

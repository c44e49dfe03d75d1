#include "platform/db/DbError.h"

#include <QDir>

namespace {

QString sentence(DbError::Kind kind, const QString &file, const QString &precision) {
    const QString name = QStringLiteral("« %1 »").arg(QDir::toNativeSeparators(file));
    switch (kind) {
    case DbError::Kind::Missing:
        return QStringLiteral("Le fichier %1 est introuvable.").arg(name);
    case DbError::Kind::UnknownFormat:
        return QStringLiteral("Le fichier %1 n'est pas une base de données d'un format connu.").arg(name);
    case DbError::Kind::ReadOnly:
        if (!precision.isEmpty()) {
            return QStringLiteral("Le fichier %1 est ouvert en lecture seule, rien n'a été enregistré. %2")
                .arg(name, precision);
        }
        return QStringLiteral(
                   "Le fichier %1 ou son dossier est protégé en écriture : rien n'a été enregistré.")
            .arg(name);
    case DbError::Kind::Locked:
        return QStringLiteral("Le fichier %1 est occupé par un autre programme. Rien n'a été enregistré ; "
                              "réessayez dans un instant.")
            .arg(name);
    case DbError::Kind::LocksRefused:
        return QStringLiteral("Le dossier du fichier %1 ne permet pas de verrouiller les fichiers : rien n'a "
                              "été enregistré. Prévenez la personne qui s'occupe du réseau.")
            .arg(name);
    case DbError::Kind::Damaged:
        return QStringLiteral("Le fichier %1 est endommagé ou incomplet. Ne l'utilisez plus avant de l'avoir "
                              "remplacé par sa dernière sauvegarde.")
            .arg(name);
    case DbError::Kind::DiskFull:
        return QStringLiteral("Le disque est plein : rien n'a été enregistré dans le fichier %1.").arg(name);
    case DbError::Kind::Structure:
        return QStringLiteral("Le fichier %1 n'a pas la structure attendue : %2.").arg(name, precision);
    case DbError::Kind::Other:
        break;
    }
    return QStringLiteral("Le fichier %1 ne peut pas être utilisé : %2.").arg(name, precision);
}

} // namespace

DbError::DbError(Kind kind, QString file, const QString &precision, const QByteArray &technical)
    : m_kind(kind), m_file(std::move(file)), m_message(sentence(kind, m_file, precision)),
      m_what(m_message.toUtf8() + (technical.isEmpty() ? "" : " [" + technical + "]")) {}

#include "platform/db/PostgresErrors.h"

#include <algorithm>
#include <string_view>

namespace {

using Kind = DbError::Kind;

/// What one SQLSTATE means, or the words of a failure that has none, and the end of its sentence.
struct Meaning {
    std::string_view sign; ///< a state or the first two of its five characters, or words of the message
    Kind kind;
    const char16_t *precision = u"";
};

constexpr Meaning states[] = {
    {"28P01", Kind::Refused,
     u"ne reconnaît pas l'utilisateur ou son mot de passe. Vérifiez le nom dans l'emplacement du carnet et "
     u"le fichier des mots de passe"},
    {"28", Kind::Refused,
     u"n'admet pas ce poste ou cet utilisateur, ou seulement par une liaison chiffrée. Prévenez la personne "
     u"qui s'occupe du serveur"},
    {"3D000", Kind::Missing},
    {"3F000", Kind::Structure, u"un schéma manque"},
    {"57P03", Kind::Unreachable, u"démarre ou s'arrête. Réessayez dans un instant"},
    {"57P01", Kind::Unreachable, u"a été arrêté : rien n'a été enregistré. Réessayez dans un instant"},
    {"57P02", Kind::Unreachable, u"s'est arrêté : rien n'a été enregistré. Réessayez dans un instant"},
    {"25P03", Kind::Unreachable, u"a trop attendu ce poste : rien n'a été enregistré. Recommencez"},
    {"53300", Kind::Unreachable,
     u"n'accepte plus de connexion : trop de postes y sont. Fermez un carnet inutile ou réessayez plus tard"},
    {"08", Kind::Unreachable, u"a coupé la liaison : rien n'a été enregistré. Réessayez dans un instant"},
    {"42501", Kind::ReadOnly},
    {"25006", Kind::ReadOnly},
    {"55P03", Kind::Locked},
    {"40P01", Kind::Locked},
    {"40001", Kind::Locked},
    {"23P01", Kind::Conflict},
    {"53100", Kind::DiskFull},
    {"XX001", Kind::Damaged},
    {"XX002", Kind::Damaged},
    {"42P01", Kind::Structure, u"la table « %1 » manque"},
    {"42703", Kind::Structure, u"le champ « %1 » manque"},
    {"42883", Kind::Structure, u"une fonction du carnet manque sur le serveur"},
    {"42P06", Kind::Other, u"elle existe déjà"},
    {"0A000", Kind::Other, u"sa version ne convient pas"},
    // From here on the words of the line: nothing else is said.
    {"could not translate host name", Kind::Unreachable,
     u"est inconnu du réseau. Vérifiez son nom et le réseau"},
    {"Connection refused", Kind::Unreachable,
     u"ne répond pas à cette adresse. Vérifiez qu'il est en marche, et le port"},
    {"No such file or directory", Kind::Unreachable,
     u"ne répond pas à cette adresse. Vérifiez qu'il est en marche"},
    {"timeout expired", Kind::Unreachable,
     u"ne répond pas : rien n'a été enregistré. Vérifiez le réseau et réessayez"},
    {"password in location", Kind::Refused,
     u"n'est pas appelé : l'emplacement du carnet contient un mot de passe, que chacun pourrait y lire. "
     u"Retirez-le et écrivez-le dans le fichier des mots de passe (.pgpass)"},
    {"password file readable", Kind::Refused,
     u"n'est pas appelé : d'autres peuvent lire le fichier des mots de passe. Protégez-le par la commande : "
     u"chmod 600 %1"},
    {"no client library", Kind::Refused,
     u"ne peut pas être appelé de ce poste : il y manque la bibliothèque libpq5. Faites-la installer"},
    {"weak sslmode", Kind::Refused,
     u"n'est pas appelé : hors de ce poste la liaison doit être chiffrée et vérifiée (sslmode=verify-full)"},
    {"no password supplied", Kind::Refused,
     u"demande un mot de passe. Écrivez-le dans le fichier des mots de passe (.pgpass)"},
    {"certificate", Kind::Refused,
     u"présente un certificat que ce poste ne reconnaît pas. Prévenez la personne qui s'occupe du serveur"},
    {"does not support SSL", Kind::Refused,
     u"ne chiffre pas la liaison. Prévenez la personne qui s'occupe du serveur"},
    {"does not match host name", Kind::Refused,
     u"présente le certificat d'un autre. Prévenez la personne qui s'occupe du serveur"},
    {"definition of service", Kind::Refused,
     u"n'est pas décrit sur ce poste. Vérifiez le fichier des services (.pg_service.conf)"},
    {"invalid", Kind::Refused, u"n'est pas appelé : l'emplacement du carnet est mal écrit"},
};

constexpr Meaning unknownState{{}, Kind::Other, u"le serveur a refusé l'opération"};
constexpr Meaning lostLine{
    {}, Kind::Unreachable, u"a coupé la liaison : rien n'a été enregistré. Réessayez dans un instant"};

bool isState(std::string_view sign) {
    constexpr size_t ofClass = 2;
    constexpr size_t whole = 5;
    return sign.size() == ofClass || sign.size() == whole;
}

Meaning meaningOf(const PostgresFailure &failure) {
    const std::string_view state(failure.state.constData(), size_t(failure.state.size()));
    const std::string_view english(failure.english.constData(), size_t(failure.english.size()));
    const auto *found = std::ranges::find_if(states, [&](const Meaning &each) {
        return state.empty() ? !isState(each.sign) && english.find(each.sign) != std::string_view::npos
                             : isState(each.sign) && state.starts_with(each.sign);
    });
    if (found != std::end(states)) {
        return *found;
    }
    return failure.lost ? lostLine : unknownState;
}

/// The name that stands at the place of the fault.
QString nameAt(const QString &sent, int position) {
    qsizetype end = position - 1;
    const auto belongs = [&](QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'.'; };
    while (end >= 0 && end < sent.size() && belongs(sent[end])) {
        ++end;
    }
    return position > 0 ? sent.sliced(position - 1, end - position + 1).section(u'.', -1) : QString();
}

QString argumentOf(const PostgresFailure &failure, const QString &sent) {
    const qsizetype colon = failure.english.indexOf(": ");
    return failure.position > 0 ? nameAt(sent, failure.position)
                                : QString::fromUtf8(failure.english.mid(colon + 2));
}

} // namespace

DbError postgresError(const PostgresFailure &failure, const QString &location, const QString &sent) {
    const QByteArray technical = failure.state + ", " + failure.english.trimmed();
    const bool onlyReads = sent.trimmed().startsWith(QStringLiteral("select"), Qt::CaseInsensitive);
    if ((onlyReads || sent.isEmpty()) && failure.state == "42501") {
        return {Kind::Refused, location,
                QStringLiteral("n'accorde pas à cet utilisateur le droit de lire cela"), technical};
    }
    const Meaning meaning = meaningOf(failure);
    QString precision = QString::fromUtf16(meaning.precision);
    if (precision.contains(QStringLiteral("%1"))) {
        precision = precision.arg(argumentOf(failure, sent));
    }
    return {meaning.kind, location, precision, technical};
}

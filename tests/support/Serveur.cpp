#include "support/Serveur.h"

#include <QCoreApplication>
#include <libpq-fe.h>

namespace {

QString dossier() {
    return qEnvironmentVariable("TAVELIN_SERVEUR_DOSSIER");
}

QString adresse(const QString &utilisateur, const QString &base) {
    return QStringLiteral("postgresql://%1@/%2?host=%3&port=%4")
        .arg(utilisateur, base, dossier(), qEnvironmentVariable("TAVELIN_SERVEUR_PORT"));
}

QString execute(pg_conn *connexion, const QByteArray &sql) {
    PGresult *resultat = PQexec(connexion, sql.constData());
    const ExecStatusType etat = PQresultStatus(resultat);
    EXPECT_TRUE(etat == PGRES_COMMAND_OK || etat == PGRES_TUPLES_OK) << sql.constData() << "\n"
                                                                     << PQresultErrorMessage(resultat);
    const QString texte = PQntuples(resultat) > 0 ? QString::fromUtf8(PQgetvalue(resultat, 0, 0)) : QString();
    PQclear(resultat);
    return texte;
}

void surLeServeur(const QString &sql) {
    pg_conn *connexion = PQconnectdb(adresse(QStringLiteral("tavelin"), QStringLiteral("postgres")).toUtf8());
    execute(connexion, sql.toUtf8());
    PQfinish(connexion);
}

} // namespace

bool Serveur::present() {
    const bool present = !dossier().isEmpty();
    EXPECT_TRUE(present || !qEnvironmentVariableIsSet("CI")) << "no PostgreSQL, which CI must have";
    return present;
}

Serveur::Serveur() {
    static int nombre = 0;
    m_base = QStringLiteral("essai_%1_%2").arg(QCoreApplication::applicationPid()).arg(++nombre);
    surLeServeur(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0").arg(m_base));
    m_autre = PQconnectdb(url().toUtf8());
    PQsetNoticeProcessor(
        m_autre, [](void *, const char *) {}, nullptr);
}

Serveur::~Serveur() {
    PQfinish(m_autre);
    surLeServeur(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(m_base));
}

QString Serveur::url(const QString &utilisateur, const QString &plus) const {
    return adresse(utilisateur, m_base) + plus;
}

QString Serveur::lieu(const QString &fichier, const QString &utilisateur, const QString &plus) const {
    return url(utilisateur, plus) + QStringLiteral("\\Fichiers\\") + fichier;
}

QString Serveur::demande(const QByteArray &sql) const {
    return execute(m_autre, sql);
}

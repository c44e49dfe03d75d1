// The first upgrade of an old book, against one plain UPDATE that fills the same two fields.
#include "Livres.h"
#include "Processus.h"
#include "start/MiseANiveauTables.h"

#include <sqlite3.h>
#include <unistd.h>

namespace {

/// A fresh copy of the old book, written through to the disk: what is timed must not pay for that.
QString copie() {
    const QString fichier = dossierBench().filePath(QStringLiteral("copie.mdb"));
    QFile::remove(fichier);
    QFile copie(fichier);
    if (!QFile::copy(livreAncien().rendezVous, fichier) || !copie.open(QIODevice::ReadWrite) ||
        fsync(copie.handle()) != 0) {
        throw MesureImpossible(QStringLiteral("%1 ne peut pas être écrit").arg(fichier));
    }
    return fichier;
}

double parLeCarnet() {
    Database rdv = Database::open(copie());
    QString erreur;
    const double duree = millisecondes([&] { erreur = MetANiveau(rdv); });
    if (!erreur.isEmpty()) {
        throw MesureImpossible(erreur);
    }
    return duree;
}

void fait(sqlite3 *base, const char *sql) {
    if (sqlite3_exec(base, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw MesureImpossible(QString::fromUtf8(sqlite3_errmsg(base)));
    }
}

double parUneRequete() {
    sqlite3 *ouverte = nullptr;
    sqlite3_open(copie().toUtf8().constData(), &ouverte);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> base(ouverte, sqlite3_close);
    fait(base.get(), "PRAGMA synchronous = FULL; ALTER TABLE RDV ADD COLUMN DateInv TEXT;"
                     "ALTER TABLE RDV ADD COLUMN Fauteuil INTEGER");
    return millisecondes([&] {
        fait(base.get(), "BEGIN IMMEDIATE;"
                         "UPDATE RDV SET DateInv = replace(Date1, '-', ''), Fauteuil = 0; COMMIT");
    });
}

/// The peak of a process that does nothing else.
QString memoireAuPlusFort() {
    const QString lue = execute(QStringLiteral("tavelin-bench-mise-a-niveau"), {copie()});
    QFile::remove(dossierBench().filePath(QStringLiteral("copie.mdb")));
    return QStringLiteral("%1 Mo au plus fort (cible : moins de 300)").arg(lue.toDouble(), 0, 'f', 1);
}

} // namespace

Mesure miseANiveau() {
    return {QStringLiteral("mise_a_niveau"), QStringLiteral("ms"), 7, 3, [] {
                return Cotes{parLeCarnet, parUneRequete, memoireAuPlusFort};
            }};
}

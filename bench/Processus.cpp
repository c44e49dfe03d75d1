// Whole processes: the start of the program, what it keeps in memory, the first upgrade of an old book.
#include "Livres.h"
#include "MegaOctets.h"
#include "Mesure.h"

#include <QCoreApplication>
#include <QProcess>
#include <sqlite3.h>
#include <unistd.h>

namespace {

/// Starts a program built beside this one. The process ends at the latest with the object.
void lance(QProcess &processus, const QString &programme, const QStringList &arguments) {
    processus.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processus.start(QCoreApplication::applicationDirPath() + u'/' + programme, arguments);
}

/// The same to its end; gives what it printed.
QByteArray execute(const QString &programme, const QStringList &arguments) {
    constexpr int patience = 120'000;
    QProcess processus;
    lance(processus, programme, arguments);
    if (!processus.waitForFinished(patience) || processus.exitStatus() != QProcess::NormalExit ||
        processus.exitCode() != 0) {
        throw MesureImpossible(QStringLiteral("%1 échoue").arg(programme));
    }
    return processus.readAllStandardOutput();
}

/// What opens the current book in the program itself.
QStringList optionsLivreCourant() {
    return {QStringLiteral("--chemin"), livreCourant(), QStringLiteral("--maintenant"),
            instant().toString(Qt::ISODate)};
}

/// From the start of the process to the painted week, against an empty window of the same toolkit.
Paire demarrage() {
    const auto duree = [](const QString &programme, const QStringList &arguments) {
        return millisecondes([&] { execute(programme, arguments); });
    };
    return {[=, options = optionsLivreCourant()](auto &) {
                return duree(QStringLiteral("tavelin-bench-carnet"), options);
            },
            [=](auto &) { return duree(QStringLiteral("tavelin-bench-vide"), {}); }};
}

/// Waits until the resident memory has not moved for a second, the window being painted then; gives
/// megabytes.
double memoireStable(QProcess &carnet) {
    constexpr int pasMs = 50;
    constexpr int assez = 20;
    constexpr int limite = 1200;
    double avant = 0;
    int egales = 0;
    for (int i = 0; i < limite && !carnet.waitForFinished(pasMs); ++i) {
        const double lue = megaOctets(QString::number(carnet.processId()), QStringLiteral("status"), "VmRSS");
        egales = lue > 0 && lue == avant ? egales + 1 : 0;
        avant = lue;
        if (egales == assez) {
            return lue;
        }
    }
    throw MesureImpossible(QStringLiteral("la mémoire du carnet ne se stabilise pas"));
}

/// Resident memory of the shipped program once it shows the week.
Paire memoire() {
    return {[options = optionsLivreCourant()](auto &chiffres) {
        QProcess carnet;
        lance(carnet, QStringLiteral("tavelin"), options);
        const double residente = memoireStable(carnet);
        chiffres["Mo en ne comptant que sa part des pages partagées"] =
            megaOctets(QString::number(carnet.processId()), QStringLiteral("smaps_rollup"), "Pss");
        carnet.kill();
        carnet.waitForFinished();
        return residente;
    }};
}

/// A fresh copy of the old book, written through to the disk: what is timed must not pay for that.
QString copieAncien() {
    const QString fichier = dossierBench().filePath(QStringLiteral("copie.mdb"));
    QFile::remove(fichier);
    QFile copie(fichier);
    if (!QFile::copy(fichierRDV(environnement(livreAncien())), fichier) ||
        !copie.open(QIODevice::ReadWrite) || fsync(copie.handle()) != 0) {
        throw MesureImpossible(QStringLiteral("%1 ne peut pas être écrit").arg(fichier));
    }
    return fichier;
}

double parLeCarnet(benchmark::UserCounters &chiffres) {
    const QList<QByteArray> lus =
        execute(QStringLiteral("tavelin-bench-mise-a-niveau"), {copieAncien()}).split(' ');
    chiffres["Mo au plus fort"] = lus.value(1).toDouble();
    return lus.first().toDouble();
}

void fait(sqlite3 *base, const char *sql) {
    if (sqlite3_exec(base, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw MesureImpossible(QString::fromUtf8(sqlite3_errmsg(base)));
    }
}

double parUneRequete(benchmark::UserCounters &) {
    sqlite3 *ouverte = nullptr;
    sqlite3_open(copieAncien().toUtf8().constData(), &ouverte);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> base(ouverte, sqlite3_close);
    fait(base.get(), "PRAGMA synchronous = FULL; ALTER TABLE RDV ADD COLUMN DateInv TEXT;"
                     "ALTER TABLE RDV ADD COLUMN Fauteuil INTEGER");
    return millisecondes([&] {
        fait(base.get(), "BEGIN IMMEDIATE;"
                         "UPDATE RDV SET DateInv = replace(Date1, '-', ''), Fauteuil = 0; COMMIT");
    });
}

/// The first upgrade of an old book, against one plain UPDATE that fills the same two fields.
Paire miseANiveau() {
    return {parLeCarnet, parUneRequete};
}

} // namespace

std::vector<Mesure> mesuresProcessus() {
    return {{.nom = "memoire", .repetitions = 5, .prepare = memoire, .valeurMax = 80, .unite = "Mo"},
            {.nom = "demarrage", .repetitions = 31, .prepare = demarrage, .rapportMax = 1.6},
            {.nom = "mise_a_niveau", .repetitions = 7, .prepare = miseANiveau, .rapportMax = 3}};
}

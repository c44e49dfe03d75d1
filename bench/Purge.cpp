// A purge of 100,000 appointments, and what a workstation that books meanwhile has to wait.
#include "Livres.h"
#include "Mesure.h"
#include "booking/ReservationTables.h"
#include "practice/Essai.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <unistd.h>

namespace {

constexpr int aDeplacer = 100'000;

struct Releve {
    double ms = 0;
    double megaOctets = 0;
    double attente = 0; ///< the longest booking, ms
    int reservations = 0;
};

/// A copy of the current book for one purge, written through to the disk: what is timed must not pay for
/// that.
QString copieDuLivre(const Environnement &env) {
    const QString copie = dossierBench().filePath(QStringLiteral("a_purger.mdb"));
    QFile::remove(copie);
    QFile fichier(copie);
    if (!QFile::copy(fichierRDV(env), copie) || !fichier.open(QIODevice::ReadWrite) ||
        fsync(fichier.handle()) != 0) {
        throw MesureImpossible(QStringLiteral("%1 ne peut pas être écrit").arg(copie));
    }
    return copie;
}

/// The day before which the first practitioner has as many appointments.
QDate jourDe(Database &carnet) {
    const Records cles =
        carnet.query(SqlText("Select DateInv from RDV Where clng(NumPraticien) = 1 order by DateInv"));
    if (cles.count() <= aDeplacer) {
        throw MesureImpossible(QStringLiteral("le carnet est trop petit pour une purge"));
    }
    return QDate::fromString(cles.at(aDeplacer, 0).toText(), QStringLiteral("yyyyMMdd"));
}

/// Another practitioner's appointment on a day that nothing stands on yet; gives how long that takes, ms.
double reserve(const Environnement &env, int numero) {
    NouveauRDV nouveau{.saisie = {QStringLiteral("ATTENTE"),
                                  {},
                                  {},
                                  {},
                                  {},
                                  QDate(2200, 1, 1).addDays(numero),
                                  QTime(9, 0),
                                  QTime(9, 30)},
                       .NumPraticien = QStringLiteral("02"),
                       .Fauteuil = QStringLiteral("1")};
    std::optional<DbError> echec;
    const double ms = millisecondes([&] {
        echec = tente(env, [&] {
            Database carnet = env.ouvreCarnetPourEcrire();
            AjouteRDV(carnet, {}, nouveau);
        });
    });
    if (echec) {
        throw MesureImpossible(echec->message());
    }
    return ms;
}

/// Waits for the end of the purge, and meanwhile books again and again where that is what is measured.
Releve pendantLaPurge(QProcess &purge, const Environnement &env, bool avecReservations) {
    constexpr int entreDeuxMs = 20;
    constexpr int patienceMs = 120'000;
    Releve releve;
    purge.waitForReadyRead(patienceMs);
    purge.readLine();
    while (!purge.waitForFinished(avecReservations ? entreDeuxMs : patienceMs) &&
           purge.state() == QProcess::Running) {
        releve.attente = std::max(releve.attente, reserve(env, releve.reservations++));
    }
    const QList<QByteArray> lus = purge.readAllStandardOutput().trimmed().split(' ');
    if (purge.exitStatus() != QProcess::NormalExit || purge.exitCode() != 0 ||
        lus.value(2).toInt() < aDeplacer * 9 / 10) {
        throw MesureImpossible(QStringLiteral("la purge échoue"));
    }
    releve.ms = lus[0].toDouble();
    releve.megaOctets = lus[1].toDouble();
    return releve;
}

Releve purge(benchmark::UserCounters &chiffres, bool avecReservations) {
    const QString chemin = livreCourant();
    Environnement env = environnement(chemin);
    env.CheminBaseRDV = copieDuLivre(env);
    const QString archive = dossierBench().filePath(QStringLiteral("purge.mdb"));
    QFile::remove(archive);
    Database carnet = env.ouvreCarnet();
    const QString jour = jourDe(carnet).toString(QStringLiteral("dd/MM/yyyy"));
    QProcess processus;
    processus.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processus.start(QCoreApplication::applicationDirPath() + QStringLiteral("/tavelin-bench-purge"),
                    {chemin, env.CheminBaseRDV, jour, archive});
    const Releve releve = pendantLaPurge(processus, env, avecReservations);
    chiffres["Mo au plus fort"] = releve.megaOctets;
    if (avecReservations) {
        chiffres["ms, la purge elle-même"] = releve.ms;
        chiffres["réservations"] = releve.reservations;
    }
    return releve;
}

} // namespace

std::vector<Mesure> mesuresPurge() {
    const auto duree = [](auto &chiffres) { return purge(chiffres, false).ms; };
    const auto memoire = [](auto &chiffres) { return purge(chiffres, false).megaOctets; };
    const auto attente = [](auto &chiffres) { return purge(chiffres, true).attente; };
    return {{.nom = "purge", .repetitions = 5, .prepare = [=] { return Paire{duree}; }, .valeurMax = 5000},
            {.nom = "purge_memoire",
             .repetitions = 3,
             .prepare = [=] { return Paire{memoire}; },
             .valeurMax = 100,
             .unite = "Mo"},
            {.nom = "purge_attente",
             .repetitions = 5,
             .prepare = [=] { return Paire{attente}; },
             .valeurMax = 200}};
}

// A purge is killed at any moment, many times; each time every appointment must be in the book or in the
// archive, as it was, and a second purge must bring the rest into an archive of its own.
#include "Schema.h"
#include "maintenance/PurgeTables.h"
#include "start/MiseANiveauTables.h"
#include "support/Comptes.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <random>
#include <unistd.h>

namespace {

constexpr int patienceMs = 60'000;
constexpr int anciens = 4000;
constexpr int autres = 400; // of another practitioner, or after the day
const QDate premierJour(2020, 1, 1);
const QDate jourDePurge(2024, 1, 1);

// each round has a folder of its own, which is the current one
const QString livre = QStringLiteral("Tavelin.mdb");
const QString modele = QStringLiteral("ZeroRDV.mdb");
const QString premiere = QStringLiteral("archive.mdb");
const QString seconde = QStringLiteral("seconde.mdb");

Comptes lit(const QString &fichier) { // empty: killed while the archive was made
    return QFileInfo(fichier).size() == 0 ? Comptes() : comptes(fichier);
}

/// Gives what the appointments are.
Comptes prepare(const QTemporaryDir &dossier) {
    QDir::setCurrent(dossier.path());
    creeBase(livre, schema(Base::RendezVous));
    creeBase(modele, schema(Base::ArchiveVide));
    Database rdv = Database::open(livre);
    MetANiveau(rdv);
    PrepareJournal(rdv);
    Transaction transaction(rdv);
    for (int i = 0; i < anciens + autres; ++i) {
        const bool apres = i >= anciens && i % 2 == 0;
        const QDate jour = apres ? jourDePurge.addDays(i) : premierJour.addDays(i % 1000);
        rdv.insert(q("RDV"), {{q("Nom"), q("L'HER %1").arg(i)},
                              {q("Description"), QString(100, u'é')},
                              {q("Date1"), Value::date(jour)},
                              {q("DateInv"), jour.toString(q("yyyyMMdd"))},
                              {q("NumPraticien"), QString::number(i < anciens || apres ? 1 : 2)}});
    }
    transaction.commit();
    return comptes(livre);
}

/// A purge as the window does it, to its end.
void purge(const QString &archive) {
    Purge purge(1, jourDePurge);
    {
        Database rdv = Database::open(livre);
        purge.cherche(rdv);
    }
    CreeArchive(modele, archive);
    while (!purge.finie()) {
        Database archives = Database::open(archive);
        Database rdv = Database::open(livre);
        purge.deplaceLot(rdv, archives, {});
    }
}

/// The same in a process of its own, which may be killed.
void commence(QProcess &enfant) {
    enfant.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    enfant.start(QCoreApplication::applicationFilePath(), {q("--purge")});
    enfant.waitForReadyRead(patienceMs);
}

/// Every row is in one of the files, as it was, and none has another.
bool comptees(const Comptes &avant, const QStringList &fichiers) {
    Comptes ensemble;
    for (const QString &fichier : fichiers) {
        const Comptes lus = lit(fichier);
        Comptes avec = avant;
        avec.insert(lus);
        if (avec != avant) {
            return false;
        }
        ensemble.insert(lus);
    }
    return ensemble == avant;
}

/// Appointments are changed and postponed while a purge comes to its end: it takes them as they are then,
/// once.
bool dispute(std::mt19937 &hasard) {
    const QTemporaryDir dossier;
    Comptes attendu = prepare(dossier);
    const QList<qint64> refs = attendu.keys();
    QProcess enfant;
    commence(enfant);
    while (!enfant.waitForFinished(1)) {
        const qint64 ref = refs[qsizetype(hasard() % anciens)];
        const bool reporte = hasard() % 2 == 0;
        const SqlText change =
            reporte ? SqlText("Update RDV Set Date1 = '2030-01-01', DateInv = '20300101' Where RefRDV = ")
                    : SqlText("Update RDV Set Prenom = 'Zoé' Where RefRDV = ");
        if (Database::open(livre).execute(SqlText(change) << nombre(ref)) == 1) {
            std::vector<Value> &champs = attendu[ref];
            champs[reporte ? 6 : 2] = reporte ? q("2030-01-01") : q("Zoé");
            champs[12] = reporte ? Value(q("20300101")) : champs[12];
        }
    }
    const auto reportes = std::ranges::count_if(
        attendu, [](const std::vector<Value> &champs) { return champs[12] == Value(q("20300101")); });
    return comptees(attendu, {livre, premiere}) && lit(livre).size() == autres + reportes &&
           lit(premiere).size() == anciens - reportes;
}

/// How long a purge takes that nothing disturbs.
unsigned dureeEntiere() {
    const QTemporaryDir dossier;
    prepare(dossier);
    QProcess enfant;
    commence(enfant);
    QElapsedTimer duree;
    duree.start();
    enfant.waitForFinished(patienceMs);
    return unsigned(duree.nsecsElapsed() / 1000);
}

/// How many the history says that purges have taken.
qint64 notes() {
    Database rdv = Database::open(livre);
    qint64 ensemble = 0;
    for (const LigneJournal &ligne : JournalDuJour(rdv, premierJour, 1)) {
        ensemble += ligne.ecriture.apres[champNombre].toInteger();
    }
    return ensemble;
}

/// Whether a purge that is killed after so long leaves all that the next one needs.
bool survit(unsigned microsecondes, int &interrompues) {
    const QTemporaryDir dossier;
    const Comptes avant = prepare(dossier);
    QProcess enfant;
    commence(enfant);
    QThread::usleep(microsecondes); // not a wait: the random moment of the kill
    enfant.kill();
    enfant.waitForFinished(patienceMs);
    const qsizetype reste = lit(livre).size();
    const bool sains = comptees(avant, {livre, premiere}) && notes() == avant.size() - reste;
    interrompues += reste > autres && reste < avant.size() ? 1 : 0;
    purge(seconde);
    return sains && comptees(avant, {livre, premiere, seconde}) && lit(livre).size() == autres &&
           notes() == anciens && checkBook(livre).isEmpty();
}

int dirige(int tours, unsigned graine) {
    std::mt19937 hasard(graine);
    int interrompues = 0;
    int fautes = dispute(hasard) ? 0 : 1;
    const unsigned entiere = dureeEntiere();
    for (int i = 0; i < tours; ++i) {
        fautes += survit(unsigned(hasard() % entiere), interrompues) ? 0 : 1;
    }
    QTextStream(stdout) << q("Arrêts : %1 (graine %2), au milieu : %3, fautes : %4\n")
                               .arg(tours)
                               .arg(graine)
                               .arg(interrompues)
                               .arg(fautes);
    return interrompues > 0 && fautes == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        if (arguments.value(1) == QLatin1StringView("--purge")) {
            if (write(STDOUT_FILENO, "\n", 1) == 1) {
                purge(premiere);
            }
            return 0;
        }
        const QString graine = arguments.value(2, QString::number(std::random_device()()));
        return dirige(arguments.value(1, q("20")).toInt(), graine.toUInt());
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << erreur.what() << '\n';
        return 1;
    }
}

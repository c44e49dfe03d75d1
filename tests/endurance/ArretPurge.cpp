// A purge is killed at any moment, many times; each time every appointment must be in the book or in the
// archive, as it was, and a second purge must bring the rest into an archive of its own.
#include "Schema.h"
#include "maintenance/PurgeTables.h"
#include "platform/db/DbError.h"
#include "start/MiseANiveauTables.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <optional>
#include <random>
#include <unistd.h>

namespace {

constexpr int patienceMs = 60'000;
constexpr int anciens = 4000;
constexpr int autres = 400; // of another practitioner, or after the day
const QDate premierJour(2020, 1, 1);
const QDate jourDePurge(2024, 1, 1);

struct Livres {
    explicit Livres(const QString &dossier)
        : rdv(dossier + QStringLiteral("/Tavelin.mdb")), modele(dossier + QStringLiteral("/ZeroRDV.mdb")),
          archive(dossier + QStringLiteral("/archive.mdb")),
          seconde(dossier + QStringLiteral("/seconde.mdb")) {}
    QString rdv;
    QString modele;
    QString archive;
    QString seconde;
};

void remplit(const QString &livre) {
    Database rdv = Database::open(livre);
    Transaction transaction(rdv);
    for (int i = 0; i < anciens + autres; ++i) {
        const bool apres = i >= anciens && i % 2 == 0;
        const QDate jour = apres ? jourDePurge.addDays(i) : premierJour.addDays(i % 1000);
        rdv.insert(QStringLiteral("RDV"),
                   {{QStringLiteral("Nom"), QStringLiteral("L'HER %1").arg(i)},
                    {QStringLiteral("Description"), QString(100, u'é')},
                    {QStringLiteral("NumPatient"), i},
                    {QStringLiteral("Date1"), Value::date(jour)},
                    {QStringLiteral("DateInv"), jour.toString(QStringLiteral("yyyyMMdd"))},
                    {QStringLiteral("NumPraticien"), QString::number(i < anciens || apres ? 1 : 2)},
                    {QStringLiteral("Present"), -(i % 2)}});
    }
    transaction.commit();
}

/// The child, which may be killed: a purge as the window does it, to its end.
void purge(const Livres &livres, const QString &archive) {
    Purge purge(1, jourDePurge);
    {
        Database rdv = Database::open(livres.rdv);
        purge.cherche(rdv);
    }
    CreeArchive(livres.modele, archive);
    while (!purge.finie()) {
        Database archives = Database::open(archive);
        Database rdv = Database::open(livres.rdv);
        purge.deplaceLot(rdv, archives);
    }
}

/// What an appointment's fields were, by its RefRDV. One that stands there twice is no appointment.
using Contenus = QMap<qint64, QString>;

Contenus lit(const QString &fichier) {
    Contenus tous;
    if (QFileInfo(fichier).size() == 0) { // killed while the archive was made
        return tous;
    }
    Database base = Database::open(fichier);
    const Records rows = base.query(SqlText(
        "Select RefRDV, Nom, Prenom, Telephone, Description, NumPatient, Date1, HeureDebut, HeureFin, "
        "NumPraticien, Professionnel, Present, DateInv from RDV"));
    for (int row = 0; row < rows.count(); ++row) {
        QStringList champs;
        for (int i = 0; i < rows.fields().size(); ++i) {
            champs << (rows.at(row, i).isNull() ? QStringLiteral("Null") : rows.at(row, i).toText());
        }
        QString &contenu = tous[rows.at(row, 0).toInteger()];
        contenu = contenu.isEmpty() ? champs.join(u'|') : QStringLiteral("deux fois");
    }
    return tous;
}

struct Bilan {
    int changes = 0;
    int interrompues = 0;
    int enPleineEcriture = 0;
    int deplaces = 0;
    int dansLesDeux = 0;
    int fautes = 0;
};

/// Every row is in one of the files, and no file has another.
int ecarts(const Contenus &avant, const QList<Contenus> &fichiers) {
    int faux = 0;
    for (auto it = avant.cbegin(); it != avant.cend(); ++it) {
        faux += std::ranges::any_of(
                    fichiers, [&](const Contenus &fichier) { return fichier.value(it.key()) == it.value(); })
                    ? 0
                    : 1;
    }
    for (const Contenus &fichier : fichiers) {
        for (auto it = fichier.cbegin(); it != fichier.cend(); ++it) {
            faux += avant.value(it.key()) == it.value() ? 0 : 1;
        }
    }
    return faux;
}

void verifie(Bilan &bilan, const Contenus &avant, const Livres &livres) {
    for (const QString &fichier : {livres.rdv, livres.archive}) {
        bilan.enPleineEcriture += QFileInfo(fichier + QStringLiteral("-journal")).size() > 0 ? 1 : 0;
    }
    const Contenus carnet = lit(livres.rdv);
    const Contenus archive = lit(livres.archive);
    bilan.fautes += ecarts(avant, {carnet, archive});
    bilan.interrompues += carnet.size() > autres && carnet.size() < avant.size() ? 1 : 0;
    bilan.deplaces += int(avant.size() - carnet.size());
    bilan.dansLesDeux += int(carnet.size() + archive.size() - avant.size());
    purge(livres, livres.seconde);
    const Contenus reste = lit(livres.rdv);
    bilan.fautes += ecarts(avant, {reste, archive, lit(livres.seconde)});
    bilan.fautes += reste.size() == autres ? 0 : 1;
    bilan.fautes += checkBook(livres.rdv).isEmpty() ? 0 : 1;
}

void commence(QProcess &enfant, const QString &dossier) {
    enfant.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    enfant.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--purge"), dossier});
    enfant.waitForReadyRead(patienceMs);
}

/// Lets a child purge to its end, and changes and postpones appointments meanwhile; `attendu` becomes what
/// they are then.
void dispute(const QString &dossier, Contenus &attendu, Bilan &bilan, std::mt19937 &hasard) {
    const Livres livres(dossier);
    const QList<qint64> refs = attendu.keys();
    QProcess enfant;
    commence(enfant, dossier);
    while (!enfant.waitForFinished(1)) {
        const qint64 ref = refs[qsizetype(hasard() % anciens)];
        const bool reporte = hasard() % 2 == 0;
        Database rdv = Database::open(livres.rdv);
        const SqlText change =
            reporte ? SqlText("Update RDV Set Date1 = '2030-01-01', DateInv = '20300101' Where RefRDV = ")
                    : SqlText("Update RDV Set Prenom = 'Zoé' Where RefRDV = ");
        if (rdv.execute(SqlText(change) << nombre(ref)) == 1) {
            ++bilan.changes;
            QStringList champs = attendu[ref].split(u'|');
            champs[reporte ? 6 : 2] = reporte ? QStringLiteral("2030-01-01") : QStringLiteral("Zoé");
            champs[12] = reporte ? QStringLiteral("20300101") : champs[12];
            attendu[ref] = champs.join(u'|');
        }
    }
}

/// Lets a child purge for so long at most, then kills it; gives how long it took, in microseconds.
qint64 tue(const QString &dossier, std::optional<unsigned long> microsecondes) {
    QProcess enfant;
    commence(enfant, dossier);
    QElapsedTimer duree;
    duree.start();
    if (microsecondes) {
        QThread::usleep(*microsecondes); // not a wait: the random moment of the kill
        enfant.kill();
    }
    enfant.waitForFinished(patienceMs);
    return duree.nsecsElapsed() / 1000;
}

/// A practice's books, whose appointments `avant` is made to hold.
Livres prepare(const QTemporaryDir &dossier, Contenus &avant) {
    Livres livres(dossier.path());
    creeBase(livres.rdv, schema(Base::RendezVous));
    {
        Database rdv = Database::open(livres.rdv);
        MetANiveau(rdv);
    }
    remplit(livres.rdv);
    creeBase(livres.modele, schema(Base::ArchiveVide));
    avant = lit(livres.rdv);
    return livres;
}

/// Two purges that come to their end: one while the book is written into, one that is timed.
qint64 laisseFinir(Bilan &bilan, std::mt19937 &hasard) {
    qint64 duree = 0;
    for (const bool disputee : {true, false}) {
        const QTemporaryDir dossier;
        Contenus avant;
        const Livres livres = prepare(dossier, avant);
        if (disputee) {
            dispute(dossier.path(), avant, bilan, hasard);
        } else {
            duree = tue(dossier.path(), std::nullopt);
        }
        const Contenus carnet = lit(livres.rdv);
        const Contenus archive = lit(livres.archive);
        bilan.fautes += ecarts(avant, {carnet, archive});
        bilan.fautes += carnet.size() + archive.size() == avant.size() ? 0 : 1;
    }
    return duree;
}

int dirige(int tours, unsigned graine) {
    std::mt19937 hasard(graine);
    Bilan bilan;
    const qint64 entiere = laisseFinir(bilan, hasard);
    for (int i = 0; i < tours; ++i) {
        const QTemporaryDir dossier;
        Contenus avant;
        const Livres livres = prepare(dossier, avant);
        tue(dossier.path(), hasard() % unsigned(entiere));
        verifie(bilan, avant, livres);
    }
    QTextStream(stdout) << "Arrêts : " << tours << " (graine " << graine
                        << ")\nPurges entamées et non finies : " << bilan.interrompues
                        << "\nChangés pendant une purge : " << bilan.changes
                        << "\nFichiers en pleine écriture : " << bilan.enPleineEcriture
                        << "\nRendez-vous déplacés avant l'arrêt : " << bilan.deplaces
                        << "\nDans le carnet et dans l'archive : " << bilan.dansLesDeux
                        << "\nFautes : " << bilan.fautes << '\n';
    return bilan.interrompues > 0 && bilan.fautes == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        if (arguments.value(1) == QLatin1StringView("--purge")) {
            const Livres livres(arguments.value(2));
            if (write(STDOUT_FILENO, "\n", 1) == 1) {
                purge(livres, livres.archive);
            }
            return 0;
        }
        const QString graine = arguments.value(2, QString::number(std::random_device()()));
        return dirige(arguments.value(1, QStringLiteral("20")).toInt(), graine.toUInt());
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << erreur.what() << '\n';
        return 1;
    }
}

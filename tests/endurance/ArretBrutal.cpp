// A program that adds appointments and patients is killed at any moment, many times; each time the books must
// open and hold all that was acknowledged, whole, at most what was under way, and no half of a patient.
#include "LivreDEpreuve.h"
#include "Schema.h"
#include "patients/TabPatTables.h"
#include "platform/db/DbError.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <random>
#include <unistd.h>

namespace {

constexpr int patienceMs = 60'000;

struct Livres {
    explicit Livres(const QString &dossier)
        : rdv(dossier + QStringLiteral("/Tavelin.mdb")), patients(dossier + QStringLiteral("/Patient.mdb")),
          listing(dossier + QStringLiteral("/ListingPatientsCrees.mdb")) {}
    QString rdv;
    QString patients;
    QString listing;
};

/// The appointment number `i`: forty a day, one after the other.
Place place(int i) {
    const QTime debut = QTime(8, 0).addSecs(i % 40 * 900);
    return {1, 2, QDate(2026, 1, 1).addDays(i / 40), debut, debut.addSecs(900)};
}

qint64 creePatient(const Livres &livres, int i) {
    Database patient = Database::open(livres.patients);
    const Database listing = Database::open(livres.listing);
    FichePatient fiche;
    fiche.nom = QStringLiteral("P%1").arg(i);
    return CreePatient(patient, listing, fiche, QDate(2026, 1, 1));
}

/// The child: an appointment, a patient, and so on without end; tells each key as soon as it has it.
int ajouteSansFin(const Livres &livres) {
    for (int i = 0;; ++i) {
        Database rdv = Database::open(livres.rdv);
        const qint64 cle = i % 2 == 0 ? ajoute(rdv, place(i / 2), QString::number(i / 2)).value_or(0)
                                      : creePatient(livres, i / 2);
        const QByteArray ligne = QByteArray::number(cle) + '\n';
        if (write(STDOUT_FILENO, ligne.constData(), size_t(ligne.size())) != ligne.size()) {
            return 1;
        }
    }
}

/// Lets the child add up to `combien` rows and a little longer, then kills it; gives the keys that it told.
QList<QByteArray> tue(const QString &dossier, int combien, unsigned long microsecondes) {
    QProcess enfant;
    enfant.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    enfant.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--ajoute"), dossier});
    QByteArray recu;
    while (recu.count('\n') < combien && enfant.waitForReadyRead(patienceMs)) {
        recu += enfant.readAllStandardOutput();
    }
    QThread::usleep(microsecondes); // not a wait: the random moment of the kill
    enfant.kill();
    enfant.waitForFinished(patienceMs);
    recu += enfant.readAllStandardOutput();
    QList<QByteArray> lignes = recu.split('\n');
    lignes.removeLast();
    return lignes;
}

struct Bilan {
    int acquittes = 0;
    int enPleineEcriture = 0;
    int nonAcquittes = 0;
    int fautes = 0;
};

/// `acquittes` are the keys of every second write. One write more may have been made.
void compare(Bilan &bilan, const Records &rows, const QList<QByteArray> &acquittes, int premier) {
    int acquitte = 0;
    for (int i = premier; i < acquittes.size(); i += 2, ++acquitte) {
        const bool la =
            acquitte < rows.count() && rows[acquitte].at(0).toInteger() == acquittes[i].toLongLong();
        bilan.fautes += la ? 0 : 1;
    }
    bilan.nonAcquittes += std::max(0, rows.count() - acquitte);
    bilan.fautes += rows.count() > acquitte + 1 ? 1 : 0;
}

Records lit(const QString &livre, const SqlText &sql) {
    return Database::open(livre).query(sql);
}

void verifie(Bilan &bilan, const QList<QByteArray> &acquittes, const Livres &livres) {
    for (const QString &livre : {livres.rdv, livres.patients, livres.listing}) {
        bilan.enPleineEcriture += QFileInfo(livre + QStringLiteral("-journal")).size() > 0 ? 1 : 0;
    }
    const Records rdv = lit(livres.rdv, SqlText("Select * from RDV order by RefRDV"));
    const Records patients = lit(livres.patients, SqlText("Select cptid from TabPat order by cptid"));
    const Records inscrits =
        lit(livres.listing, SqlText("Select NumPatient from LesPatients order by NumPatient"));
    bilan.acquittes += int(acquittes.size());
    compare(bilan, rdv, acquittes, 0);
    compare(bilan, patients, acquittes, 1);
    for (int i = 0; i < rdv.count(); ++i) {
        bilan.fautes += contenu(rdv[i]) == contenu(place(i), QString::number(i)) ? 0 : 1;
    }
    bilan.fautes += std::abs(patients.count() - inscrits.count());
    for (int i = 0; i < std::min(patients.count(), inscrits.count()); ++i) {
        bilan.fautes += patients.at(i, 0) == inscrits.at(i, 0) ? 0 : 1;
    }
    for (const QString &livre : {livres.rdv, livres.patients, livres.listing}) {
        bilan.fautes += checkBook(livre).isEmpty() ? 0 : 1;
    }
}

int dirige(int tours, unsigned graine) {
    constexpr unsigned plus = 60; // rows before a kill
    std::mt19937 hasard(graine);
    Bilan bilan;
    for (int i = 0; i < tours; ++i) {
        const QTemporaryDir dossier;
        const Livres livres(dossier.path());
        creeLivre(livres.rdv);
        creeBase(livres.patients, schema(Base::Patients));
        creeBase(livres.listing, schema(Base::PatientsCrees));
        const int combien = int(hasard() % plus);
        verifie(bilan, tue(dossier.path(), combien, hasard() % 50'000), livres);
    }
    QTextStream(stdout) << "Arrêts : " << tours << " (graine " << graine
                        << ")\nFichiers en pleine écriture : " << bilan.enPleineEcriture
                        << "\nAcquittés : " << bilan.acquittes
                        << "\nÉcrits sans acquit : " << bilan.nonAcquittes << "\nFautes : " << bilan.fautes
                        << '\n';
    return bilan.acquittes > 0 && bilan.fautes == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        if (arguments.value(1) == QLatin1StringView("--ajoute")) {
            return ajouteSansFin(Livres(arguments.value(2)));
        }
        const QString graine = arguments.value(2, QString::number(std::random_device()()));
        return dirige(arguments.value(1, QStringLiteral("40")).toInt(), graine.toUInt());
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << erreur.what() << '\n';
        return 1;
    }
}

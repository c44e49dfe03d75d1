// A program that adds appointments is killed at any moment, many times; each time the book must open and hold
// every appointment that was acknowledged, whole, and at most the one that was under way.
#include "Schema.h"
#include "booking/ReservationTables.h"
#include "platform/db/DbError.h"
#include "platform/db/DateInverse.h"
#include "start/MiseANiveauTables.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <random>
#include <unistd.h>

namespace {

constexpr int rendezVousParTour = 1000;
constexpr int patienceMs = 60'000;

/// The appointment number `i`: forty a day, one after the other.
NouveauRDV rendezVous(int i) {
    const QTime debut = QTime(8, 0).addSecs(i % 40 * 900);
    return {{QStringLiteral("L'HER n° %1").arg(i), QStringLiteral("Élise"), QStringLiteral("02 97 %1").arg(i),
             QString(i % 200, u'é'), QString::number(i), QDate(2026, 1, 1).addDays(i / 40), debut,
             debut.addSecs(900)},
            QStringLiteral("01"),
            QStringLiteral("2"),
            i % 2 == 0};
}

bool estEntier(const Record &row) {
    const NouveauRDV attendu = rendezVous(int(row[u"NumPatient"].toInteger()));
    const SaisieRDV &s = attendu.saisie;
    return row[u"Nom"].toText() == s.Nom && row[u"Prenom"].toText() == s.Prenom &&
           row[u"Telephone"].toText() == s.Telephone && row[u"Description"].toText() == s.Description &&
           row[u"Date1"].toDate() == s.Date1 && row[u"DateInv"].toText() == InverseDate(s.Date1) &&
           row[u"HeureDebut"].toTime() == s.HeureDebut && row[u"HeureFin"].toTime() == s.HeureFin &&
           row[u"NumPraticien"].toText() == attendu.NumPraticien &&
           row[u"Fauteuil"].toText() == attendu.Fauteuil &&
           row[u"Professionnel"].toBoolean() == attendu.Professionnel && !row[u"Present"].toBoolean();
}

/// The child: adds all, and tells each RefRDV as soon as it has it.
int ajoute(const QString &livre) {
    for (int i = 0; i < rendezVousParTour; ++i) {
        Database rdv = Database::open(livre);
        const QByteArray ref = QByteArray::number(AjouteRDV(rdv, rendezVous(i)).value_or(0)) + '\n';
        if (write(STDOUT_FILENO, ref.constData(), size_t(ref.size())) != ref.size()) {
            return 1;
        }
    }
    return 0;
}

struct Tour {
    QList<QByteArray> acquittes; ///< RefRDV, in the order of the appointments
    bool enPleineEcriture = false;
    bool arreteSeul = false; ///< the child ended before it was killed
};

/// Lets the child add up to `combien` appointments and a little longer, then kills it.
Tour tue(const QString &livre, int combien, unsigned long microsecondes) {
    QProcess enfant;
    enfant.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    enfant.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--ajoute"), livre});
    QByteArray recu;
    while (recu.count('\n') < combien && enfant.waitForReadyRead(patienceMs)) {
        recu += enfant.readAllStandardOutput();
    }
    const bool arreteSeul = recu.count('\n') < combien;
    QThread::usleep(microsecondes);
    enfant.kill();
    enfant.waitForFinished(patienceMs);
    recu += enfant.readAllStandardOutput();
    QList<QByteArray> lignes = recu.split('\n');
    lignes.removeLast();
    return {lignes, QFileInfo(livre + QStringLiteral("-journal")).size() > 0, arreteSeul};
}

struct Bilan {
    int acquittes = 0;
    int enPleineEcriture = 0;
    int nonAcquittes = 0;
    int perdus = 0;
    int incomplets = 0;
    int enTrop = 0;
    int illisibles = 0;
    int arretesSeuls = 0;

    bool bon() const {
        return acquittes > 0 && perdus + incomplets + enTrop + illisibles + arretesSeuls == 0;
    }
};

void verifie(Bilan &bilan, const Tour &tour, const QString &livre) {
    Database rdv = Database::open(livre);
    const bool sain =
        MetANiveau(rdv).isEmpty() &&
        rdv.query(SqlText("PRAGMA integrity_check")).first().at(0).toText() == QLatin1StringView("ok");
    const Records rows = rdv.query(SqlText("Select * from RDV order by RefRDV"));
    const int acquittes = int(tour.acquittes.size());
    for (int i = 0; i < rows.count(); ++i) {
        bilan.incomplets += estEntier(rows[i]) && rows[i][u"NumPatient"].toInteger() == i ? 0 : 1;
    }
    for (int i = 0; i < acquittes; ++i) {
        const bool la = i < rows.count() && rows[i][u"RefRDV"].toInteger() == tour.acquittes[i].toLongLong();
        bilan.perdus += la ? 0 : 1;
    }
    const int surplus = std::max(0, rows.count() - acquittes);
    bilan.acquittes += acquittes;
    bilan.nonAcquittes += surplus;
    bilan.enTrop += std::max(0, surplus - 1);
    bilan.enPleineEcriture += tour.enPleineEcriture ? 1 : 0;
    bilan.illisibles += sain ? 0 : 1;
    bilan.arretesSeuls += tour.arreteSeul ? 1 : 0;
}

int dirige(int tours, unsigned graine) {
    std::mt19937 hasard(graine);
    Bilan bilan;
    for (int i = 0; i < tours; ++i) {
        const QTemporaryDir dossier;
        const QString livre = dossier.filePath(QStringLiteral("Tavelin.mdb"));
        creeBase(livre, schema(Base::RendezVous));
        {
            Database rdv = Database::open(livre);
            MetANiveau(rdv);
        }
        const int combien = int(hasard() % rendezVousParTour);
        const Tour tour = tue(livre, combien, hasard() % 20'000);
        try {
            verifie(bilan, tour, livre);
        } catch (const DbError &erreur) {
            QTextStream(stderr) << erreur.message() << '\n';
            ++bilan.illisibles;
        }
    }
    QTextStream(stdout) << "Arrêts : " << tours << " (graine " << graine
                        << ")\nEn pleine écriture : " << bilan.enPleineEcriture
                        << "\nRendez-vous acquittés : " << bilan.acquittes
                        << "\nÉcrits sans acquit : " << bilan.nonAcquittes << "\nPerdus : " << bilan.perdus
                        << "\nIncomplets : " << bilan.incomplets << "\nEn trop : " << bilan.enTrop
                        << "\nLivres illisibles : " << bilan.illisibles
                        << "\nArrêtés d'eux-mêmes : " << bilan.arretesSeuls << '\n';
    return bilan.bon() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QCommandLineOption tours(QStringLiteral("tours"), QStringLiteral("nombre d'arrêts"),
                                   QStringLiteral("N"), QStringLiteral("40"));
    const QCommandLineOption graine(QStringLiteral("graine"), QStringLiteral("pour refaire les mêmes"),
                                    QStringLiteral("N"), QString::number(std::random_device()()));
    const QCommandLineOption enfant(QStringLiteral("ajoute"), {}, QStringLiteral("fichier"));
    QCommandLineParser options;
    options.addHelpOption();
    options.addOptions({tours, graine, enfant});
    options.process(application);
    try {
        return options.isSet(enfant) ? ajoute(options.value(enfant))
                                     : dirige(options.value(tours).toInt(), options.value(graine).toUInt());
    } catch (const DbError &erreur) {
        QTextStream(stderr) << erreur.message() << '\n';
        return 1;
    }
}

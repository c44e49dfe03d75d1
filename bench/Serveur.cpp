// The book on a server beside this machine, against the same book as a file.
#include "Livres.h"
#include "Mesure.h"
#include "Schema.h"
#include "booking/ReservationTables.h"
#include "grid/AffichageTables.h"
#include "journal/JournalTables.h"
#include "start/Demarrage.h"
#include "start/MiseANiveauTables.h"
#include "transfer/Deplacements.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>
#include <libpq-fe.h>

namespace {

/// Its database for measures. What is measured is the line that a practice has: TCP, and TLS.
QString url() {
    const QString port = qEnvironmentVariable("TAVELIN_SERVEUR_PORT");
    if (port.isEmpty()) {
        throw MesureImpossible(QStringLiteral("pas de PostgreSQL : lancez par ./run bench"));
    }
    return QStringLiteral("postgresql://tavelin@127.0.0.1:%1/postgres?sslmode=require").arg(port);
}

QString lieu(Base base) {
    return url() + QStringLiteral("\\Fichiers\\") + schema(base).fichier;
}

/// A field of COPY.
QByteArray champ(const Value &valeur) {
    return valeur.isNull() ? "\\N"
                           : valeur.toText()
                                 .replace(u'\\', QStringLiteral("\\\\"))
                                 .replace(u'\n', QStringLiteral("\\n"))
                                 .replace(u'\t', QStringLiteral("\\t"))
                                 .toUtf8();
}

/// All rows of a table, from a file to the server.
void copie(Database &source, const QString &ou, const char *table, const SqlText &lignes) {
    const std::unique_ptr<PGconn, decltype(&PQfinish)> serveur(PQconnectdb(url().toUtf8()), PQfinish);
    const Records rows = source.query(lignes);
    const QString champs = rows.fields().join(u',');
    PQclear(PQexec(
        serveur.get(),
        QStringLiteral("COPY %1.%2 (%3) FROM STDIN").arg(ou, QLatin1StringView(table), champs).toUtf8()));
    for (const Record row : rows) {
        QByteArrayList valeurs;
        for (int i = 0; i < rows.fields().size(); ++i) {
            valeurs << champ(row.at(i));
        }
        const QByteArray ligne = valeurs.join('\t') + '\n';
        PQputCopyData(serveur.get(), ligne.constData(), int(ligne.size()));
    }
    PQputCopyEnd(serveur.get(), nullptr);
    const std::unique_ptr<PGresult, decltype(&PQclear)> fin(PQgetResult(serveur.get()), PQclear);
    if (PQresultStatus(fin.get()) != PGRES_COMMAND_OK) {
        throw MesureImpossible(QString::fromUtf8(PQerrorMessage(serveur.get())));
    }
    const QByteArray suite =
        "SELECT setval(pg_get_serial_sequence('tavelin.rdv', 'refrdv'), max(refrdv)) FROM tavelin.rdv";
    PQclear(PQexec(serveur.get(), suite.constData()));
}

void surLeServeur(const char *sql) {
    const std::unique_ptr<PGconn, decltype(&PQfinish)> serveur(PQconnectdb(url().toUtf8()), PQfinish);
    const std::unique_ptr<PGresult, decltype(&PQclear)> fin(PQexec(serveur.get(), sql), PQclear);
    if (PQresultStatus(fin.get()) != PGRES_COMMAND_OK) {
        throw MesureImpossible(QString::fromUtf8(PQerrorMessage(serveur.get())));
    }
}

/// The whole current practice, each time into an empty database: copied, compared and upgraded.
double deplace(benchmark::UserCounters &chiffres) {
    const QString chemin = dossierBench().filePath(QStringLiteral("CheminADeplacer.mdb"));
    QFile::remove(chemin);
    if (!QFile::copy(livreCourant(), chemin)) {
        throw MesureImpossible(QStringLiteral("%1 ne peut pas être écrit").arg(chemin));
    }
    surLeServeur("DROP DATABASE IF EXISTS vers_serveur WITH (FORCE)");
    surLeServeur("CREATE DATABASE vers_serveur TEMPLATE template0");
    const Environnement env = environnement(chemin);
    const auto debut = std::chrono::steady_clock::now();
    const Avancement avance = [&](const QString &etape, qint64, qint64) {
        const std::chrono::duration<double, std::milli> depuis = std::chrono::steady_clock::now() - debut;
        if (!etape.startsWith(u'P')) { // "Préparation": the upgrade
            chiffres["ms, copie et comparaison"] = depuis.count();
        }
        return true;
    };
    FinDeplacement fin;
    const double duree = millisecondes([&] {
        fin = Deplacements(env, MetANiveauDeplace)
                  .versServeur(url().replace(QStringLiteral("/postgres?"), QStringLiteral("/vers_serveur?")),
                               avance);
    });
    if (!fin.fait) {
        throw MesureImpossible(fin.texte);
    }
    return duree;
}

/// The path database of the current book on the server, which the suite's files have not moved to.
QString livreServeur() {
    static const QString chemins = [] {
        const Environnement env = environnement(livreCourant());
        creeBase(lieu(Base::RendezVous), schema(Base::RendezVous));
        creeBase(lieu(Base::Parametres), schema(Base::Parametres));
        Database carnet = env.ouvreCarnet();
        Database parametres = env.ouvreParametres();
        copie(carnet, QStringLiteral("tavelin"), "rdv", SqlText("select * from RDV"));
        copie(carnet, QStringLiteral("tavelin"), "config", SqlText("select * from Config"));
        copie(parametres, QStringLiteral("param"), "praticien", SqlText("select * from Praticien"));
        Database distant = Database::open(lieu(Base::RendezVous));
        const double duree = millisecondes([&] {
            MetANiveau(distant);
            PrepareJournal(distant);
        });
        QTextStream(stderr) << "Le carnet du serveur est mis à niveau en " << int(duree) << " ms\n";
        const QString fichier = dossierBench().filePath(QStringLiteral("CheminServeur.mdb"));
        QFile::remove(fichier);
        creeBase(fichier, schema(Base::Chemins));
        Database::open(fichier).insert(
            QStringLiteral("Chemin"),
            {{QStringLiteral("LeChemin"), env.CheminRacine}, {QStringLiteral("CheminBase"), url()}});
        return fichier;
    }();
    return chemins;
}

struct DeuxCarnets {
    Environnement serveur = environnement(livreServeur());
    Environnement fichier = environnement(livreCourant());
    Demande demande = Demarre(fichier).premier.value_or(Affichage()).demande;
};

Affichage lit(const Environnement &env, const Demande &demande) {
    Database carnet = env.ouvreCarnet();
    return LitAffichage(carnet, demande, env.maintenant());
}

/// Reading a week as the book does at every redraw: opened, read and closed.
Paire semaine() {
    const auto deux = std::make_shared<DeuxCarnets>();
    const QList<Grille> attendues = lit(deux->fichier, deux->demande).grilles;
    return {[=](auto &chiffres) {
                Affichage lue;
                const double duree = millisecondes([&] { lue = lit(deux->serveur, deux->demande); });
                chiffres["rendez-vous"] = double(lue.grilles.first().rendezVous.size());
                if (lue.grilles != attendues || attendues.first().rendezVous.isEmpty()) {
                    throw MesureImpossible(
                        QStringLiteral("la semaine du serveur n'est pas celle du fichier"));
                }
                return duree;
            },
            [=](auto &) { return millisecondes([&] { lit(deux->fichier, deux->demande); }); }};
}

/// Books and, without the clock, deletes again.
double ajoute(const Environnement &env) {
    const NouveauRDV nouveau{{QStringLiteral("MESURE"),
                              QStringLiteral("banc"),
                              {},
                              {},
                              {},
                              instant().date(),
                              QTime(1, 0),
                              QTime(1, 10)},
                             QStringLiteral("01"),
                             QStringLiteral("1"),
                             true};
    BilanEcriture bilan;
    const double duree = millisecondes([&] {
        Database carnet = env.ouvreCarnet();
        bilan = AjouteRDV(carnet, env.auteur(), nouveau);
    });
    if (bilan.resultat != Ecriture::Fait) {
        throw MesureImpossible(QStringLiteral("le rendez-vous n'a pas été ajouté"));
    }
    Database carnet = env.ouvreCarnet();
    carnet.execute(SqlText("delete from RDV where RefRDV = ") << nombre(bilan.ecriture.RefRDV()));
    return duree;
}

Paire ajout() {
    const auto deux = std::make_shared<DeuxCarnets>();
    return {[=](auto &) { return ajoute(deux->serveur); }, [=](auto &) { return ajoute(deux->fichier); }};
}

/// From the start of the process to the painted week, on the server and on the file.
Paire demarrage() {
    const auto duree = [](const QString &chemin) {
        return millisecondes([&] {
            constexpr int patience = 60'000;
            QProcess carnet;
            carnet.start(QCoreApplication::applicationDirPath() + QStringLiteral("/tavelin-bench-carnet"),
                         {QStringLiteral("--chemin"), chemin, QStringLiteral("--maintenant"),
                          instant().toString(Qt::ISODate)});
            if (!carnet.waitForFinished(patience) || carnet.exitCode() != 0) {
                throw MesureImpossible(QStringLiteral("le carnet ne s'ouvre pas"));
            }
        });
    };
    return {[=, chemin = livreServeur()](auto &) { return duree(chemin); },
            [=, chemin = livreCourant()](auto &) { return duree(chemin); }};
}

} // namespace

std::vector<Mesure> mesuresServeur() {
    return {{.nom = "semaine_serveur", .repetitions = 201, .prepare = semaine, .rapportMax = 2},
            {.nom = "ajout_serveur", .repetitions = 61, .prepare = ajout, .rapportMax = 1},
            {.nom = "demarrage_serveur", .repetitions = 21, .prepare = demarrage, .ecartMax = 60},
            {.nom = "vers_serveur",
             .repetitions = 3,
             .prepare = [] { return Paire{deplace}; },
             .valeurMax = 15'000}};
}

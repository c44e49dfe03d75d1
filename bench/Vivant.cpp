// Workstations on one server, and the line to it: how soon a change is seen, and how long a window stands
// still.
#include "Mesure.h"
#include "booking/ReservationTables.h"
#include "grid/AffichageTables.h"
#include "platform/db/Attente.h"
#include "practice/AttenteVivante.h"
#include "practice/Essai.h"
#include "support/Bureau.h"
#include "support/Relais.h"
#include "support/WaitUntil.h"

#include <QElapsedTimer>
#include <QPushButton>

#include <algorithm>

namespace {

using namespace std::chrono_literals;

constexpr auto allerRetour = 10ms;
const QDate mercredi(2026, 3, 11);

/// A practice on the server of `./run bench` and a window on it, by way of a line of ours.
struct Banc {
    Serveur serveur;
    CabinetServeur cabinet{serveur};
    Relais relais;
    Bureau bureau{cabinet, relais.par(serveur.url())};
    int rang = 0;

    Banc() { setAttente(attendEnDessinant); }
    ~Banc() { setAttente({}); }
    Banc(const Banc &) = delete;
    Banc &operator=(const Banc &) = delete;

    /// Another of the week's places at each call.
    NouveauRDV prochain() {
        constexpr int parJour = 8;
        const int place = rang++ % (parJour * 5);
        NouveauRDV nouveau{{}, QStringLiteral("01"), QStringLiteral("1")};
        nouveau.saisie.Nom = QStringLiteral("N%1.").arg(rang);
        nouveau.saisie.Date1 = mercredi.addDays(place / parJour - 2);
        nouveau.saisie.HeureDebut = QTime(8, 0).addSecs(3600 * (place % parJour));
        nouveau.saisie.HeureFin = nouveau.saisie.HeureDebut.addSecs(3600);
        return nouveau;
    }
    void videSiPlein() const {
        if (rang % 40 == 0) {
            cabinet.livre.execute(SqlText("delete from RDV"));
            waitUntil([&] { return bureau.montre().isEmpty(); });
        }
    }
};

std::shared_ptr<Banc> banc() {
    if (!qEnvironmentVariableIsSet("TAVELIN_SERVEUR_DOSSIER")) {
        throw MesureImpossible(QStringLiteral("pas de PostgreSQL : lancez par ./run bench"));
    }
    return std::make_shared<Banc>();
}

/// From the answer that another workstation has got to the painted week; the worst of a hundred, too.
Paire vivant() {
    return {[ici = banc(), durees = std::vector<double>()](auto &chiffres) mutable {
        ici->videSiPlein();
        const NouveauRDV nouveau = ici->prochain();
        QImage image(ici->bureau.grille().size(), QImage::Format_RGB32);
        Database carnet = Database::open(ici->serveur.lieu());
        const bool fait = AjouteRDV(carnet, {}, nouveau).resultat == Ecriture::Fait;
        const double duree = millisecondes([&] {
            if (!fait || !ici->bureau.montreDans(nouveau.saisie.Nom, 5s)) {
                throw MesureImpossible(QStringLiteral("le rendez-vous n'est pas montré"));
            }
            ici->bureau.objet<FlexGrid>("GrilleRDV").render(&image);
        });
        durees.insert(std::ranges::upper_bound(durees, duree), duree);
        chiffres["ms au 99e centile"] = durees[durees.size() * 99 / 100];
        return duree;
    }};
}

/// Reading a week at ten milliseconds of round trip.
Paire semaineLointaine() {
    const auto ici = banc();
    ici->relais.retarde(allerRetour);
    return {[ici](auto &) {
        return millisecondes([&] {
            Database carnet = ici->bureau.env.ouvreCarnet();
            LitAffichage(carnet, {.PraticienCourant = QStringLiteral("01"), .jour = mercredi}, {});
        });
    }};
}

/// A booking there; beside it what it takes without the way, most of which is the server's disk.
Paire ajoutLointain() {
    const auto ici = banc();
    const auto ajoute = [ici] {
        ici->videSiPlein();
        const NouveauRDV nouveau = ici->prochain();
        bool fait = false;
        const double duree = millisecondes([&] {
            tente(ici->bureau.env, [&] {
                Database carnet = ici->bureau.env.ouvreCarnet();
                fait = AjouteRDV(carnet, {}, nouveau).resultat == Ecriture::Fait;
            });
        });
        if (!fait || !ici->bureau.montreDans(nouveau.saisie.Nom, 5s)) {
            throw MesureImpossible(QStringLiteral("le rendez-vous n'a pas été ajouté"));
        }
        return duree;
    };
    return {[=](auto &chiffres) {
        ici->relais.retarde(0ms);
        chiffres["ms sans le chemin"] = ajoute();
        ici->relais.retarde(allerRetour);
        return ajoute();
    }};
}

/// The longest time for which the window's event loop does not turn while `action` goes on.
double arret(const std::function<void()> &action) {
    QElapsedTimer depuis;
    qint64 pire = 0;
    QTimer pouls;
    pouls.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pouls, &QTimer::timeout,
                     [&] { pire = std::max(pire, depuis.nsecsElapsed()), depuis.start(); });
    waitUntil([] { return true; });
    pouls.start(1ms);
    depuis.start();
    action();
    return double(std::max(pire, depuis.nsecsElapsed())) / 1e6;
}

/// Reading again, drawn, at ten milliseconds of round trip.
Paire arretLent() {
    const auto ici = banc();
    ici->relais.retarde(allerRetour);
    return {[ici](auto &) {
        return arret([&] { ici->bureau.template objet<QPushButton>("BtnRafraichir").click(); });
    }};
}

/// The same on a line that says nothing any more, until the book knows.
Paire arretMuet() {
    return {[ici = banc()](auto &) {
        ici->relais.tait();
        const double pire = arret([&] {
            ici->bureau.template objet<QPushButton>("BtnRafraichir").click();
            ici->bureau.barreDans(QStringLiteral("hors de contact"), 9s);
        });
        ici->relais.reprend();
        if (!ici->bureau.barreDans(QStringLiteral("à jour"), 9s)) {
            throw MesureImpossible(QStringLiteral("le carnet ne revient pas"));
        }
        return pire;
    }};
}

} // namespace

std::vector<Mesure> mesuresVivant() {
    return {{.nom = "vivant", .repetitions = 201, .prepare = vivant, .valeurMax = 50},
            {.nom = "semaine_10ms", .repetitions = 61, .prepare = semaineLointaine, .valeurMax = 30},
            {.nom = "ajout_10ms", .repetitions = 61, .prepare = ajoutLointain, .valeurMax = 60},
            {.nom = "arret_10ms", .repetitions = 61, .prepare = arretLent, .valeurMax = 50},
            {.nom = "arret_muet", .repetitions = 3, .prepare = arretMuet, .valeurMax = 50}};
}

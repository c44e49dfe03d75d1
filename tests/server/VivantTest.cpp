#include "booking/ReservationTables.h"
#include "grid/Changement.h"
#include "platform/db/Attente.h"
#include "platform/db/Watch.h"
#include "practice/AttenteVivante.h"
#include "practice/Essai.h"
#include "support/Bureau.h"
#include "support/Relais.h"
#include "support/Texte.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QTest>

/// Workstations on one server: what one writes, the others show; and lines that fail.
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

const QDate mercredi(2026, 3, 11);
const Auteur auteur{QDateTime(mercredi, QTime(8, 0)), q("accueil"), q("lise")};

NouveauRDV nouveau(const char *nom, QTime debut, const char *praticien = "01", QDate jour = mercredi) {
    SaisieRDV saisie;
    saisie.Nom = q(nom);
    saisie.Date1 = jour;
    saisie.HeureDebut = debut;
    saisie.HeureFin = debut.addSecs(3600);
    return {saisie, q(praticien), q("1")};
}

/// The longest time for which the window's event loop did not turn.
class Battement {
  public:
    Battement() {
        m_depuis.start();
        QObject::connect(&m_pouls, &QTimer::timeout, [this] { note(); });
        m_pouls.setTimerType(Qt::PreciseTimer);
        m_pouls.start(1ms);
    }
    milliseconds arret() {
        note();
        return milliseconds(m_pire);
    }

  private:
    void note() { m_pire = std::max(m_pire, m_depuis.restart()); }

    QElapsedTimer m_depuis;
    QTimer m_pouls;
    qint64 m_pire = 0;
};

class VivantTest : public AvecServeur {
  protected:
    void SetUp() override {
        AvecServeur::SetUp();
        if (serveur) {
            setAttente(attendEnDessinant);
            cabinet = std::make_unique<CabinetServeur>(*serveur);
            relais = std::make_unique<Relais>();
        }
    }
    void TearDown() override {
        setAttente({});
        relais.reset();
        cabinet.reset();
        AvecServeur::TearDown();
    }
    /// As another workstation does, without a window.
    void reserve(const NouveauRDV &rdv) const {
        Database carnet = Database::open(serveur->lieu());
        EXPECT_EQ(AjouteRDV(carnet, auteur, rdv).resultat, Ecriture::Fait) << rdv.saisie.Nom;
    }
    QString parRelais() const { return relais->par(serveur->url()); }
    QString ecrits() const {
        return serveur->demande("select string_agg(nom, ' ' order by nom) from tavelin.rdv");
    }

    std::unique_ptr<CabinetServeur> cabinet;
    std::unique_ptr<Relais> relais;
};

} // namespace

TEST_F(VivantTest, WhatOneDeskBooksTheOthersShow) {
    const Bureau ici(*cabinet, serveur->url());
    Bureau la(*cabinet, serveur->url());
    EXPECT_EQ(la.barre(), q("serveur ") + serveur->base() + q(" · à jour"));
    reserve(nouveau("VENU", QTime(9, 0)));
    EXPECT_TRUE(ici.montreDans(q("VENU"), 1s));
    EXPECT_TRUE(la.montreDans(q("VENU"), 1s));
    // selected, then moved by another: the selection goes with its appointment
    la.clique(2, 3);
    EXPECT_TRUE(la.objet<QAction>("mnuPresent").isEnabled());
    cabinet->livre.execute(
        SqlText("update RDV set HeureDebut = '10:00:00', HeureFin = '11:00:00', Nom = 'ALLE'"));
    EXPECT_TRUE(la.montreDans(q("ALLE"), 1s));
    EXPECT_TRUE(la.objet<QLabel>("StatusBar1_1").text().contains(q("ALLE")));
    // an open menu stays, and what came meanwhile is shown as soon as it is closed
    int dites = 0;
    const auto guet =
        Watch::start(serveur->lieu(), 0ms, {[&](const auto &) { ++dites; }, [&](const auto &) { ++dites; }});
    ASSERT_TRUE(waitUntil([&] { return dites == 1; }));
    auto &menu = la.objet<QMenu>("mnupatient");
    menu.popup({});
    reserve(nouveau("ATTEND", QTime(14, 0)));
    ASSERT_TRUE(waitUntil([&] { return dites == 2; }));
    QTest::qWait(0);
    EXPECT_FALSE(la.montre().contains(q("ATTEND")));
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    EXPECT_TRUE(la.montreDans(q("ATTEND"), 1s));
    cabinet->livre.execute(SqlText("delete from RDV"));
    EXPECT_TRUE(waitUntil([&] { return la.montre().isEmpty() && ici.montre().isEmpty(); }, 1s));
    EXPECT_EQ(la.messages.taken(), q(""));
}

TEST_F(VivantTest, OnlyWhatIsShownIsReadAgain) {
    struct Rangee {
        const char *nom, *annonce;
        bool semaine, jour;
    };
    const Rangee rangees[] = {{"a day of the week", "1|2026-03-13", true, true},
                              {"another week of the month", "1|2026-03-20", false, true},
                              {"another month", "1|2026-04-01", false, false},
                              {"another practitioner", "2|2026-03-11", false, false},
                              {"with an hour", "1|2026-03-11 00:00:00", true, true},
                              {"no day", "1|", true, true},
                              {"an odd day", "1|hier", true, true},
                              {"no practitioner", "", true, true}};
    Affichage affichage;
    affichage.demande = {.PraticienCourant = q("01"), .jour = mercredi};
    for (const Rangee &rangee : rangees) {
        for (const bool semaine : {true, false}) {
            affichage.demande.VueSemaine = semaine;
            EXPECT_EQ(Concerne(affichage, LitChangement(q(rangee.annonce))),
                      semaine ? rangee.semaine : rangee.jour)
                << rangee.nom << semaine;
        }
    }
    const Bureau ici(*cabinet, serveur->url());
    int lectures = 0;
    QObject::connect(ici.fenetre->findChild<CarnetMontre *>(), &CarnetMontre::lectureCommence,
                     [&] { ++lectures; });
    QStringList dites;
    const auto guet = Watch::start(serveur->lieu(), 0ms,
                                   {.changed = [&](const QStringList &annonces) { dites += annonces; },
                                    .touch = [&](const auto &) { dites << q("pris"); }});
    ASSERT_TRUE(waitUntil([&] { return !dites.isEmpty(); }));
    lectures = 0;
    reserve(nouveau("AUTRE", QTime(9, 0), "02"));
    reserve(nouveau("LOIN", QTime(9, 0), "01", mercredi.addDays(7)));
    cabinet->livre.execute(SqlText("update RDV set Date1 = '2026-04-01' where Nom = 'LOIN'"));
    ASSERT_TRUE(waitUntil([&] { return dites.size() >= 5; }));
    EXPECT_EQ(dites.join(u' '), q("pris 2|2026-03-11 1|2026-03-18 1|2026-03-18 1|2026-04-01"));
    EXPECT_EQ(lectures, 0);
    reserve(nouveau("ICI", QTime(9, 0)));
    EXPECT_TRUE(ici.montreDans(q("ICI"), 1s));
    EXPECT_EQ(lectures, 1);
}

TEST_F(VivantTest, ASilentLineIsFoundAndComesBackByItself) {
    const Bureau ici(*cabinet, parRelais());
    reserve(nouveau("VENU", QTime(9, 0)));
    ASSERT_TRUE(ici.montreDans(q("VENU"), 1s));
    ici.clique(4, 3);
    EXPECT_TRUE(ici.objet<QAction>("mnuAjouter").isEnabled());
    Battement battement;
    relais->tait();
    ici.objet<QPushButton>("BtnRafraichir").click(); // on a line that says nothing any more
    EXPECT_TRUE(ici.barreDans(q("hors de contact"), 8s));
    EXPECT_TRUE(ici.montre().contains(q("VENU")));
    EXPECT_FALSE(ici.objet<QAction>("mnuAjouter").isEnabled());
    QElapsedTimer temps;
    temps.start();
    ici.objet<QPushButton>("BtnSuivant").click();
    EXPECT_LT(temps.elapsed(), 100) << "what cannot be read is not waited for";
    reserve(nouveau("MEME", QTime(10, 0)));
    relais->reprend();
    EXPECT_TRUE(ici.montreDans(q("MEME"), 6s));
    EXPECT_TRUE(ici.objet<QAction>("mnuAjouter").isEnabled());
    EXPECT_TRUE(ici.barre().contains(q("à jour")));
    EXPECT_LT(battement.arret(), 250ms); // 50 on a quiet machine: the benchmark attente_muette
}

TEST_F(VivantTest, ACutLineComesBackByItself) {
    const Bureau ici(*cabinet, parRelais());
    relais->coupe();
    EXPECT_TRUE(ici.barreDans(q("hors de contact · lu à 10:05"), 1s));
    reserve(nouveau("MEME", QTime(10, 0)));
    relais->reprend();
    EXPECT_TRUE(ici.montreDans(q("MEME"), 5s));
    relais->retarde(10ms);
    reserve(nouveau("LENT", QTime(11, 0)));
    EXPECT_TRUE(ici.montreDans(q("LENT"), 1s));
    EXPECT_TRUE(ici.barre().contains(q("à jour")));
}

TEST_F(VivantTest, AServerThatStopsIsThereAgainOnceItStarts) {
    Bureau ici(*cabinet, serveur->url());
    const auto commande = [](const char *quoi) {
        EXPECT_EQ(QProcess::execute(qEnvironmentVariable("TAVELIN_SERVEUR_COMMANDE"), {q(quoi)}), 0) << quoi;
    };
    commande("stop");
    EXPECT_TRUE(ici.barreDans(q("hors de contact"), 2s));
    commande("start");
    reserve(nouveau("MEME", QTime(10, 0)));
    EXPECT_TRUE(ici.montreDans(q("MEME"), 6s)) << ici.barre();
    EXPECT_EQ(ici.messages.taken(), q(""));
}

TEST_F(VivantTest, WhatComesDuringAWaitWaits) {
    Bureau ici(*cabinet, serveur->url());
    int lectures = 0;
    QObject::connect(ici.fenetre->findChild<CarnetMontre *>(), &CarnetMontre::lectureCommence,
                     [&] { ++lectures; });
    int dedans = -1;
    std::optional<DbError::Kind> refus;
    EXPECT_EQ(tente(ici.env,
                    [&] {
                        Database carnet = ici.env.ouvreCarnet();
                        QTimer::singleShot(50ms, [&] {
                            try {
                                carnet.query(SqlText("select Nom from RDV"));
                            } catch (const DbError &erreur) {
                                refus = erreur.kind();
                            }
                        });
                        serveur->demande(
                            "insert into tavelin.rdv (nom, numpraticien, date1, dateinv, heuredebut, "
                            "heurefin, fauteuil) values ('VENU', '01', '2026-03-11', '20260311', "
                            "'09:00:00', '10:00:00', 1)");
                        const Transaction ouverte(carnet);
                        carnet.query(SqlText("select Nom, pg_sleep(0.3) from (select 'a' as Nom) as x"));
                        dedans = lectures;
                    }),
              std::nullopt);
    EXPECT_EQ(dedans, 0);
    EXPECT_EQ(refus, DbError::Kind::Other) << "a connection that is busy is nobody else's";
    EXPECT_TRUE(ici.montreDans(q("VENU"), 1s));
}

TEST_F(VivantTest, ABookingWhoseServerDiesIsToldDoneOrNotDone) {
    serveur->demande(
        "create function tavelin.lent() returns trigger language plpgsql as 'begin perform "
        "pg_sleep(0.4); return null; end'; create constraint trigger lent after insert on "
        "tavelin.rdv deferrable initially deferred for each row execute function tavelin.lent()");
    struct Rangee {
        const char *nom;
        std::function<void()> accident, apres;
        const char *dit, *ensuite;
        bool ecrit;
    };
    const auto tue = [this] {
        serveur->demande(
            "select count(pg_terminate_backend(pid)) from pg_stat_activity where state = 'active' and "
            "pid <> pg_backend_pid() and datname = current_database()");
    };
    const auto coupe = [this] { relais->coupe(); };
    const auto reprend = [this] { relais->reprend(); };
    const Rangee rangees[] = {
        {"QUIET", [] {}, [] {}, "", "", true},
        {"TERMINE", tue, [] {}, "rien n'a été enregistré", "", false},
        {"COUPE",
         [=] {
             coupe();
             QTimer::singleShot(1s, reprend);
         },
         [] {}, "", "", true},
        {"PERDU", coupe, reprend, "ne recommencez pas", "est fait", true},
    };
    QTime debut(8, 0);
    for (const Rangee &rangee : rangees) {
        Bureau ici(*cabinet, parRelais());
        QTimer::singleShot(200ms, [&] { rangee.accident(); }); // while the server is at the commit
        const bool fait = essaie(ici.env, [&] {
            Database carnet = ici.env.ouvreCarnetPourEcrire();
            EXPECT_EQ(AjouteRDV(carnet, auteur, nouveau(rangee.nom, debut)).resultat, Ecriture::Fait);
        });
        const QString dit = ici.messages.taken();
        EXPECT_TRUE(dit.contains(q(rangee.dit)) && dit.isEmpty() == fait) << rangee.nom << ": " << dit;
        rangee.apres();
        if (*rangee.ensuite != 0) {
            EXPECT_TRUE(waitUntil([&] { return !ici.messages.shown.isEmpty(); }, 6s)) << rangee.nom;
            EXPECT_TRUE(ici.messages.taken().contains(q(rangee.ensuite))) << rangee.nom;
        }
        EXPECT_EQ(ecrits().contains(q(rangee.nom)), rangee.ecrit) << rangee.nom;
        EXPECT_TRUE(!rangee.ecrit || ici.montreDans(q(rangee.nom), 5s)) << rangee.nom;
        debut = debut.addSecs(3600);
    }
}

TEST_F(VivantTest, AWritingInDoubtIsFoundOutBeforeItIsAskedForAgain) {
    RecordingMessages messages;
    const Environnement env = cabinet->poste(serveur->url(), messages);
    const QString faite = q("11111111-1111-1111-1111-111111111111");
    serveur->demande("insert into dialecte.ecritures (cle) values ('" + faite.toUtf8() + "')");
    int tours = 0;
    const auto action = [&] {
        ++tours;
        throw DbError::unknownOutcome(serveur->lieu(),
                                      tours == 1 ? faite : q("22222222-1111-1111-1111-111111111111"), {});
    };
    EXPECT_FALSE(essaie(env, action));
    EXPECT_TRUE(messages.taken().contains(q("ne recommencez pas")));
    EXPECT_FALSE(essaie(env, action));
    EXPECT_TRUE(messages.taken().contains(q("L'enregistrement de 10:05, resté sans réponse, est fait")));
    EXPECT_EQ(tours, 1);
    EXPECT_FALSE(essaie(env, action));
    messages.taken();
    EXPECT_TRUE(regleDoutes(env));
    EXPECT_TRUE(messages.taken().contains(q("n'est pas fait")));
    EXPECT_EQ(tours, 2);
}

TEST(WatchTest, AFileIsLookedAtForWhatOthersWrite) {
    const Livre livre;
    int dites = 0;
    const auto guet =
        Watch::start(livre.fichier(), 5ms, {.changed = [&](const QStringList &) { ++dites; }, .touch = {}});
    const auto tiques = [](int combien) { // of a clock that ticks with it
        int vus = 0;
        QTimer pouls;
        QObject::connect(&pouls, &QTimer::timeout, [&] { ++vus; });
        pouls.start(5ms);
        return waitUntil([&] { return vus > combien; });
    };
    livre.rdv();
    EXPECT_TRUE(waitUntil([&] { return dites == 1; }, 2s));
    livre.rdv();
    guet->catchUp();
    EXPECT_TRUE(tiques(10));
    EXPECT_EQ(dites, 1) << "what was read since need not be told";
    {
        Database tenu = livre.ouvre();
        const Transaction ouverte(tenu);
        EXPECT_TRUE(tiques(5));
    }
    EXPECT_TRUE(QFile::rename(livre.fichier(), livre.fichier() + q(".x")));
    EXPECT_TRUE(tiques(5));
    EXPECT_EQ(dites, 1);
    EXPECT_TRUE(QFile::rename(livre.fichier() + q(".x"), livre.fichier()));
    livre.rdv();
    EXPECT_TRUE(waitUntil([&] { return dites == 2; }, 2s));
}

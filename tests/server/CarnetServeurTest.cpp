#include "Schema.h"
#include "booking/ReservationTables.h"
#include "grid/AffichageTables.h"
#include "platform/db/Attente.h"
#include "platform/db/DbError.h"
#include "platform/db/PostgresConnection.h"
#include "start/Chevauchements.h"
#include "start/Demarrage.h"
#include "start/MiseANiveauTables.h"
#include "support/Livre.h"
#include "support/Serveur.h"

#include <QDir>
#include <QTemporaryDir>
#include <thread>

namespace {

const QDate mercredi(2026, 3, 11);
const Auteur auteur{QDateTime(mercredi, QTime(8, 0)), q("accueil"), q("lise")};

/// A practice whose databases are all on the server.
class CarnetServeur : public AvecServeur {
  protected:
    void SetUp() override {
        AvecServeur::SetUp();
        if (!serveur) {
            return;
        }
        for (const Base base : toutesLesBases) {
            if (base != Base::Chemins && base != Base::ArchiveVide) {
                creeBase(serveur->lieu(schema(base).fichier), schema(base));
            }
        }
        const QString chemins = dossier.filePath(q("Chemins.mdb"));
        creeBase(chemins, schema(Base::Chemins));
        Database::open(chemins).insert(q("Chemin"),
                                       {{q("LeChemin"), serveur->url()}, {q("CheminBase"), serveur->url()}});
        ASSERT_EQ(LitEmplacements(env, chemins), QString());
        env.maintenant = [] { return QDateTime(mercredi, QTime(10, 5)); };
        env.ouvreParametres().insert(q("Praticien"), {{q("codeprat"), 1}, {q("nom"), q("UN")}});
        env.ouvreTransmission().insert(q("LePraticien"), {{q("NumPraticien"), q("01")}});
        Livre(serveur->lieu()).config();
        env.ouvreCarnet().insert(q("RDV"), rdv("08:00:00", "09:00:00"));
    }
    void TearDown() override {
        setAttente({});
        AvecServeur::TearDown();
    }
    static Fields rdv(const char *debut, const char *fin, int fauteuil = 1) {
        return {{q("Nom"), q("ROUX")},         {q("Date1"), Value::date(mercredi)},
                {q("DateInv"), q("20260311")}, {q("HeureDebut"), q(debut)},
                {q("HeureFin"), q(fin)},       {q("NumPraticien"), q("01")},
                {q("Fauteuil"), fauteuil},     {q("Present"), 0}};
    }
    static NouveauRDV nouveau(int heure) {
        return {{q("DUPONT"), q("Zoë"), {}, {}, {}, mercredi, QTime(heure, 0), QTime(heure + 1, 0)},
                q("01"),
                q("1"),
                true};
    }
    static bool ajoute(Database &carnet, int heure) {
        return AjouteRDV(carnet, auteur, nouveau(heure)).resultat == Ecriture::Fait;
    }
    void coupe() const {
        serveur->demande("select count(pg_terminate_backend(pid, 5000)) from pg_stat_activity where "
                         "application_name = 'tavelin' and datname = current_database()");
    }
    QString combien(const char *condition) const {
        return serveur->demande(QByteArray("select count(*) from tavelin.rdv where ") + condition);
    }

    const QTemporaryDir dossier;
    Environnement env;
};

qint64 allersRetours(const std::function<void()> &action) {
    const qint64 avant = PostgresConnection::roundTrips();
    action();
    return PostgresConnection::roundTrips() - avant;
}

} // namespace

TEST_F(CarnetServeur, AsksTheServerSeldom) {
    Demarre(env); // brings the book up to date
    Depart depart;
    coupe(); // as a program that has just begun
    EXPECT_LE(allersRetours([&] { depart = Demarre(env); }), 12);
    EXPECT_EQ(depart.messages, QStringList());
    ASSERT_TRUE(depart.premier);
    EXPECT_EQ(depart.premier->grilles.first().rendezVous.size(), 1);
    EXPECT_LE(allersRetours([&] {
                  Database carnet = env.ouvreCarnet();
                  EXPECT_EQ(LitAffichage(carnet, depart.premier->demande, {}).grilles,
                            depart.premier->grilles);
              }),
              2);
    EXPECT_LE(allersRetours([&] {
                  Database carnet = env.ouvreCarnet();
                  EXPECT_TRUE(ajoute(carnet, 9));
              }),
              4);
}

TEST_F(CarnetServeur, TheSuitesFilesMayStayInTheirFolderTheBookMayNot) {
    env.prendEmplacements({dossier.path(), serveur->url()});
    QDir(dossier.path()).mkpath(q("Fichiers"));
    for (const Base base : {Base::Actes, Base::Parametres, Base::RendezVous}) {
        creeBase(dossier.filePath(q("Fichiers/")) + schema(base).fichier, schema(base));
    }
    EXPECT_EQ(env.ouvreParametres().query(SqlText("select nom from Praticien")).count(), 1)
        << "the server's goes first";
    EXPECT_EQ(env.ouvreCarnet().query(SqlText("select Nom from RDV")).count(), 1);
    serveur->demande("drop schema tavelin, actes, patient cascade");
    coupe();
    EXPECT_EQ(env.ouvreActes().path(), dossier.filePath(q("Fichiers/Actes.mdb")));
    EXPECT_THROW(env.ouvreCarnet(), DbError);
    EXPECT_THROW(env.ouvrePatients(), DbError) << "there is no such file";
}

TEST_F(CarnetServeur, WhatOverlapsAlreadyIsKeptToldOnceAndNeverAddedTo) {
    Database carnet = env.ouvreCarnet();
    carnet.insert(q("RDV"), rdv("08:30:00", "10:00:00"));
    carnet.insert(q("RDV"), rdv("08:30:00", "10:00:00", 2));
    carnet.insert(q("RDV"), rdv("08:45", "1899-12-30 08:50:00"));
    carnet.insert(q("RDV"), rdv("10:00:00", "9h30"));
    const Depart depart = Demarre(env);
    ASSERT_EQ(depart.messages.size(), 1);
    EXPECT_EQ(depart.messages.first(),
              q("2 rendez-vous en chevauchent déjà un autre. Ils sont gardés tels quels :\n"
                "ROUX , le 11/03/2026 de 08:30 à 10:00 (praticien 1, fauteuil 1)\n"
                "ROUX , le 11/03/2026 de 08:45 à 08:50 (praticien 1, fauteuil 1)"));
    EXPECT_TRUE(depart.premier);
    EXPECT_EQ(Demarre(env).messages, QStringList());
    EXPECT_EQ(combien("chevauche = 1"), q("2"));
    try {
        carnet.insert(q("RDV"), rdv("08:10:00", "08:20:00"));
        ADD_FAILURE() << "no DbError";
    } catch (const DbError &erreur) {
        EXPECT_EQ(erreur.kind(), DbError::Kind::Conflict) << erreur.what();
    }
    EXPECT_FALSE(ajoute(carnet, 9)) << "a marked row is in the way, too";
}

TEST_F(CarnetServeur, AnotherProgramsRowInTheLastMomentIsASlotTaken) {
    Demarre(env);
    Database carnet = env.ouvreCarnet();
    const RendezVous premier = RendezVousEntre(carnet, mercredi, mercredi, 1, 1).first();
    const auto ecrit = [&](int heure, int aller, const auto &action) {
        const qint64 debut = PostgresConnection::roundTrips();
        setAttente(
            [&, debut, heure, aller](int prise, bool lit, bool envoie, std::chrono::milliseconds limite) {
                if (PostgresConnection::roundTrips() == debut + aller) { // the write itself is on its way
                    setAttente({});
                    serveur->demande(
                        QStringLiteral("insert into tavelin.rdv (date1, dateinv, heuredebut, heurefin, "
                                       "numpraticien, fauteuil) values ('2026-03-11', '20260311', "
                                       "'%1:30:00', '%1:45:00', '1', 1)")
                            .arg(heure)
                            .toUtf8());
                }
                return attendsSeulement(prise, lit, envoie, limite);
            });
        action();
    };
    serveur->demande(
        "create function tavelin.lent() returns trigger language plpgsql as 'begin perform pg_sleep(0.3); "
        "return new; end'; create trigger lent before insert or update on tavelin.rdv for each row when "
        "(new.nom is not null) execute function tavelin.lent()");
    ecrit(14, 2, [&] { EXPECT_FALSE(ajoute(carnet, 14)); });
    ecrit(16, 4, [&] {
        EXPECT_EQ(ModifieRDV(carnet, auteur, premier, nouveau(16).saisie, 1, 1).resultat, Ecriture::Occupe);
    });
    EXPECT_EQ(combien("nom is null"), q("2"));
    EXPECT_EQ(combien("nom is not null"), q("1"));
}

TEST_F(CarnetServeur, AnAppointmentAndItsHistoryAreWrittenTogether) {
    Demarre(env);
    serveur->demande("alter table tavelin.tavjournal rename to ailleurs");
    coupe(); // as a program that began before another one made the table
    Database carnet = env.ouvreCarnet();
    EXPECT_TRUE(ajoute(carnet, 9));
    serveur->demande("alter table tavelin.ailleurs rename to tavjournal");
    EXPECT_TRUE(ajoute(carnet, 10));
    EXPECT_EQ(serveur->demande("select count(*) from tavelin.tavjournal"), q("1"));
    serveur->demande("alter table tavelin.tavjournal add check (refrdv = 0) not valid");
    EXPECT_THROW(ajoute(carnet, 11), DbError);
    EXPECT_EQ(combien("nom = 'DUPONT'"), q("2"));
}

TEST_F(CarnetServeur, DesksThatBookAtOnceNeverShareAPlace) {
    Demarre(env);
    constexpr int postes = 6;
    constexpr int heures = 8;
    std::atomic<int> faits = 0;
    std::atomic<int> refus = 0;
    std::vector<std::jthread> tous;
    tous.reserve(postes);
    for (int poste = 0; poste < postes; ++poste) {
        tous.emplace_back([&] {
            for (int heure = 10; heure < 10 + heures; ++heure) {
                Database carnet = Database::open(serveur->lieu());
                ++(ajoute(carnet, heure) ? faits : refus);
            }
        });
    }
    tous.clear();
    EXPECT_EQ(faits, heures);
    EXPECT_EQ(refus, (postes - 1) * heures);
    EXPECT_EQ(combien("nom = 'DUPONT'"), QString::number(heures));
}

TEST_F(CarnetServeur, TwoDesksBringTheBookUpToDateTogether) {
    serveur->demande(
        "alter table tavelin.rdv drop column dateinv, drop column fauteuil; insert into tavelin.rdv (date1) "
        "select '2026-03-' || lpad((1 + i % 28)::text, 2, '0') from generate_series(1, 3000) as i");
    constexpr int combienDePostes = 3;
    std::vector<std::jthread> postes;
    postes.reserve(combienDePostes);
    std::atomic<int> ouverts = 0;
    for (int poste = 0; poste < combienDePostes; ++poste) {
        postes.emplace_back([&] {
            Database carnet = Database::open(serveur->lieu());
            ouverts += MetANiveau(carnet).erreur.isEmpty() ? 1 : 0;
        });
    }
    postes.clear();
    EXPECT_EQ(ouverts, combienDePostes);
    EXPECT_EQ(combien("dateinv = replace(date1, '-', '') and fauteuil = 0"), q("3001"));
    Database carnet = env.ouvreCarnet();
    EXPECT_TRUE(EstANiveau(carnet));
    // one that fails leaves the book as it was
    serveur->demande(
        "alter table tavelin.rdv drop column fauteuil cascade; alter table tavelin.config alter fauteuil set "
        "not null; alter table tavelin.config alter fauteuil drop not null; create rule non as on update to "
        "tavelin.rdv do instead nothing");
    Database autre = env.ouvreCarnet();
    EXPECT_THROW(MetANiveau(autre), DbError);
    EXPECT_FALSE(env.ouvreCarnet().tableDef(q("RDV")).hasField(q("Fauteuil")));
}

#include "Lignes.h"
#include "booking/ReservationTables.h"
#include "platform/db/DbError.h"

#include <QFile>
#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <latch>
#include <sys/resource.h>
#include <thread>

namespace {

const QDate mercredi(2026, 3, 11);

/// "Nom|09:00|09:30" on Wednesday, or `jours` later.
SaisieRDV saisie(const char *texte, int jours = 0) {
    const QStringList mots = q(texte).split(u'|');
    return {mots[0],
            q("Paul"),
            {},
            {},
            q("12"),
            mercredi.addDays(jours),
            QTime::fromString(mots[1], Qt::ISODate),
            QTime::fromString(mots[2], Qt::ISODate)};
}
NouveauRDV nouveau(const char *texte, const char *praticien = "01", const char *fauteuil = "1",
                   int jours = 0) {
    return {saisie(texte, jours), q(praticien), q(fauteuil)};
}
std::optional<DbError::Kind> echec(const std::function<void()> &action) {
    try {
        action();
    } catch (const DbError &error) {
        return error.kind();
    }
    return std::nullopt;
}

class ReservationTest : public testing::Test {
  protected:
    qint64 ajoute(const NouveauRDV &n) { return AjouteRDV(base, n).value_or(0); }
    RendezVous rdv(qint64 ref) { return LitRDV(base, ref).value_or(RendezVous()); }
    QString contenu() { return lignes(livre.ouvre()); }

    Livre livre;
    Database base = livre.ouvre();
};

} // namespace

TEST_F(ReservationTest, WritesEveryField) {
    const SaisieRDV arc{q("D'ARC"), q("L'Élise"),       q("02 97"),      q("L'appareil"),
                        q("042"),   QDate(2024, 12, 1), QTime(9, 5, 40), QTime(9, 35, 10)};
    const qint64 ref = ajoute({arc, q("01"), q("2"), false});
    EXPECT_EQ(contenu(),
              q("D'ARC|L'Élise|02 97|L'appareil|42|2024-12-01|09:05:00|09:35:00|20241201|01|2|0|0"));
    EXPECT_EQ(MarquePresent(base, rdv(ref), true).resultat, Ecriture::Fait);
    EXPECT_EQ(ModifieRDV(base, rdv(ref), saisie("B|10:00|10:30"), 1, 2).resultat, Ecriture::Fait);
    EXPECT_EQ(contenu(), q("B|Paul|||12|2026-03-11|10:00:00|10:30:00|20260311|01|2|0|1"));
    ajoute(nouveau("A|09:00|09:30", "01", "2"));
    const QList<RendezVous> jour = RendezVousEntre(base, mercredi, mercredi, 1, 2);
    ASSERT_EQ(jour.size(), 2);
    EXPECT_LT(jour[0].HeureDebut, jour[1].HeureDebut) << "in the order of the day";
}

TEST_F(ReservationTest, BooksAndMovesOnlyToWhatIsFree) {
    const struct {
        const char *nom;
        NouveauRDV nouveau;
        bool libre;
    } cas[] = {{"after it", nouveau("A|09:30|10:00"), true},
               {"another chair", nouveau("A|09:00|09:30", "01", "2"), true},
               {"another practitioner", nouveau("A|09:00|09:30", "02"), true},
               {"another day", nouveau("A|09:00|09:30", "01", "1", 1), true},
               {"the number without its zero", nouveau("A|09:00|09:30", "1"), false},
               {"around it", nouveau("A|08:00|12:00"), false},
               {"inside it", nouveau("A|09:10|09:15"), false},
               {"no length", nouveau("A|15:00|15:00"), false},
               {"backwards", nouveau("A|15:00|14:00"), false},
               {"no time", nouveau("A||14:00"), false}};
    const qint64 present = ajoute(nouveau("B|09:00|09:30"));
    const qint64 autre = ajoute(nouveau("C|18:00|18:30", "03", "3"));
    const auto deplace = [&](qint64 ref, const SaisieRDV &vers, long praticien, long fauteuil) {
        return ModifieRDV(base, rdv(ref), vers, praticien, fauteuil).resultat;
    };
    for (const auto &c : cas) {
        const NouveauRDV &n = c.nouveau;
        EXPECT_EQ(deplace(autre, n.saisie, CLng(n.NumPraticien), CLng(n.Fauteuil)),
                  c.libre ? Ecriture::Fait : Ecriture::Occupe)
            << c.nom;
        const qint64 ref = ajoute(n);
        EXPECT_EQ(ref != 0, c.libre) << c.nom;
        SupprimeRDV(base, rdv(ref));
    }
    EXPECT_EQ(deplace(present, saisie("B|09:15|09:45"), 1, 1), Ecriture::Fait) << "no conflict with itself";
    ajoute(nouveau("D|16:00|16:30", "03", "3"));
    EXPECT_EQ(deplace(autre, saisie("C|16:00|16:30"), 1, 1), Ecriture::Occupe) << "at its own chair";
    for (const char *date : {"2026-03-11", "2026-03-11 00:00:00"}) { // an older program's key or date
        livre.execute(SqlText("update RDV set DateInv = '?', Date1 = ") << texte(q(date)));
        EXPECT_EQ(ajoute(nouveau("A|09:00|09:30")), 0) << date;
    }
}

TEST_F(ReservationTest, WritesNothingOverWhatAnotherDeskDid) {
    using enum Ecriture;
    const struct {
        SqlText ailleurs;
        Ecriture modifie, present, supprime;
    } cas[] = {{SqlText("update RDV set Present = 1"), Fait, Fait, Change},
               {SqlText("update RDV set Fauteuil = 2"), Fait, Fait, Change},
               {SqlText("update RDV set Description = 'x'"), Change, Change, Change},
               {SqlText("update RDV set NumPatient = 13"), Change, Change, Change},
               {SqlText("update RDV set HeureFin = '09:45:00'"), Change, Change, Change},
               {SqlText("delete from RDV"), Disparu, Disparu, Disparu}};
    for (const auto &c : cas) {
        for (const auto &[geste, attendu] :
             {std::pair('m', c.modifie), std::pair('p', c.present), std::pair('s', c.supprime)}) {
            const RendezVous avant = rdv(ajoute(nouveau("A|09:00|09:30")));
            livre.execute(c.ailleurs);
            const QString laisse = contenu();
            const BilanEcriture bilan = geste == 'm' ? ModifieRDV(base, avant, saisie("A|10:00|10:30"), 1, 1)
                                        : geste == 'p' ? MarquePresent(base, avant, true)
                                                       : SupprimeRDV(base, avant);
            EXPECT_EQ(bilan.resultat, attendu) << geste << qPrintable(c.ailleurs.text());
            EXPECT_EQ(bilan.actuel, attendu == Change ? rdv(avant.RefRDV) : RendezVous());
            EXPECT_TRUE(attendu == Fait || contenu() == laisse) << geste << qPrintable(c.ailleurs.text());
            livre.execute(SqlText("delete from RDV"));
        }
    }
}

TEST_F(ReservationTest, ASlotThatIsBeingTakenIsTaken) {
    constexpr int postes = 6;
    std::atomic<int> ajouts = 0;
    std::latch partis(postes);
    std::vector<std::jthread> fils;
    Transaction longue(base);
    base.insert(q("RDV"), {{q("Date1"), Value::date(mercredi)},
                           {q("DateInv"), q("20260311")},
                           {q("HeureDebut"), q("09:00:00")},
                           {q("HeureFin"), q("09:30:00")},
                           {q("NumPraticien"), q("01")},
                           {q("Fauteuil"), 1}});
    for (int i = 0; i < postes; ++i) {
        fils.emplace_back([&] {
            Database poste = livre.ouvre();
            partis.count_down();
            const auto reserve = [&](int jours) { // it waits for the lock as its caller does
                std::optional<qint64> ref;
                while (echec([&] { ref = AjouteRDV(poste, nouveau("A|09:00|09:30", "01", "1", jours)); }) ==
                       DbError::Kind::Locked) {
                }
                return ref.has_value();
            };
            EXPECT_FALSE(reserve(0));
            ajouts += reserve(1) ? 1 : 0;
        });
    }
    partis.wait();
    for (int i = 0; i < 1000; ++i) { // work enough for a check made too early to have passed
        base.execute(SqlText("update RDV set Present = ") << nombre(i));
    }
    longue.commit();
    fils.clear(); // waits for all of them
    EXPECT_EQ(ajouts, 1);
}

TEST_F(ReservationTest, NothingIsWrittenInALockedReadOnlyOrFullBook) {
    const RendezVous present = rdv(ajoute(nouveau("A|09:00|09:30")));
    const QString avant = contenu();
    Database poste = Database::open(livre.fichier(), std::chrono::milliseconds(0));
    const std::function<void(Database &)> ecritures[] = {
        [](Database &b) { AjouteRDV(b, nouveau("B|10:00|10:30")); },
        [&](Database &b) { ModifieRDV(b, present, saisie("A|10:00|10:30"), 1, 1); },
        [&](Database &b) { SupprimeRDV(b, present); }, [&](Database &b) { MarquePresent(b, present, true); }};
    for (const auto &ecriture : ecritures) {
        const Transaction autrePoste(base);
        EXPECT_EQ(echec([&] { ecriture(poste); }), DbError::Kind::Locked);
    }
    const QFile::Permissions permissions = QFile::permissions(livre.fichier());
    QFile::setPermissions(livre.fichier(), QFile::ReadOwner | QFile::ReadUser);
    for (const auto &ecriture : ecritures) {
        Database protege = livre.ouvre();
        EXPECT_EQ(echec([&] { ecriture(protege); }), DbError::Kind::ReadOnly);
    }
    QFile::setPermissions(livre.fichier(), permissions);
    EXPECT_EQ(contenu(), avant);

    rlimit sansLimite{};
    getrlimit(RLIMIT_FSIZE, &sansLimite);
    const rlimit plein{rlim_t(QFile(livre.fichier()).size()), sansLimite.rlim_max};
    const auto signalAvant = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &plein); // no file grows any more
    int acquittes = 1;
    EXPECT_TRUE(echec([&] {
        for (; acquittes < 10'000; ++acquittes) {
            ajoute(nouveau("ÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉÉ|09:00|09:30", "01", "1", acquittes));
        }
    }));
    setrlimit(RLIMIT_FSIZE, &sansLimite);
    (void)std::signal(SIGXFSZ, signalAvant);
    EXPECT_EQ(contenu().count(u'\n') + 1, acquittes) << "an appointment is written whole or not at all";
}

#include "booking/RangeeTables.h"
#include "booking/ReservationTables.h"
#include "journal/JournalTables.h"
#include "platform/db/DbError.h"
#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

const QDate mercredi(2026, 3, 11);

SaisieRDV saisie(const char *nom, int heure, int jours = 0, const char *numero = "12") {
    const QTime debut(heure, 0);
    return {q(nom), q("Léa"), q("02"), {}, q(numero), mercredi.addDays(jours), debut, debut.addSecs(1800)};
}

class JournalTest : public testing::Test {
  protected:
    JournalTest() { PrepareJournal(base); }
    EcritureRDV ajoute(const SaisieRDV &saisie) {
        return AjouteRDV(base, moi, {saisie, q("01"), q("1")}).ecriture;
    }
    RendezVous rdv(qint64 ref) { return LitRDV(base, ref).value_or(RendezVous()); }
    QString combien() {
        return base.query(SqlText("select count(*) from TavJournal")).first().at(0).toText();
    }
    /// "1 3": what was done by those rows, newest first.
    static QString quoi(const QList<LigneJournal> &lignes) {
        QStringList codes;
        for (const LigneJournal &ligne : lignes) {
            codes << QString::number(int(ligne.ecriture.quoi));
        }
        return codes.join(u' ');
    }

    const Auteur moi{{mercredi, QTime(10, 5)}, q("ACCUEIL"), q("claire")};
    Livre livre;
    Database base = livre.ouvre();
};

} // namespace

TEST_F(JournalTest, EachWritingIsOneRowThatTellsBothItsRows) {
    const qint64 ref = ajoute(saisie("ROUX", 9)).RefRDV();
    Rangee connue = LitRangee(base, ref);
    const struct {
        const char *nom = nullptr;
        Operation quoi = Operation::Ajout;
        std::function<BilanEcriture()> ecrit;
    } cas[] = {
        {"edit", Operation::Edition,
         [&] { return ModifieRDV(base, moi, rdv(ref), saisie("DUR", 11), 1, 1); }},
        {"end", Operation::Edition, [&] { return ChangeFin(base, moi, rdv(ref), QTime(12, 0), 1, 1); }},
        {"present", Operation::Presence, [&] { return MarquePresent(base, moi, rdv(ref), true); }},
        {"undone", Operation::Annulation,
         [&] {
             Rangee avant = connue;
             avant[q("Present")] = 0;
             return RemetRDV(base, moi, Operation::Annulation, connue, avant);
         }},
        {"delete", Operation::Suppression, [&] { return SupprimeRDV(base, moi, rdv(ref)); }}};
    int rangees = 1;
    for (const auto &c : cas) {
        const BilanEcriture bilan = c.ecrit();
        const QList<LigneJournal> lignes = JournalDuRDV(base, ref);
        ASSERT_EQ(lignes.size(), ++rangees) << c.nom;
        const LigneJournal &ligne = lignes.first();
        EXPECT_EQ(ligne.ecriture.quoi, c.quoi) << c.nom;
        EXPECT_EQ(ligne.ecriture.avant, connue) << c.nom;
        connue = LitRangee(base, ref);
        EXPECT_EQ(ligne.ecriture.apres, connue) << c.nom;
        EXPECT_EQ(bilan.ecriture.apres, connue) << c.nom;
        EXPECT_EQ(ligne.quand.toString(Qt::ISODate) + ligne.poste + ligne.utilisateur,
                  q("2026-03-11T10:05:00ACCUEILclaire"));
    }
    EXPECT_TRUE(connue.isEmpty());
    const RendezVous autre = rdv(ajoute(saisie("A", 9)).RefRDV());
    MarquePresent(base, moi, autre, false);
    EXPECT_EQ(quoi(JournalDuRDV(base, autre.RefRDV)), q("1")) << "nothing has changed";
}

TEST_F(JournalTest, AWritingIsFoundByBothItsPatientsAndBothItsDays) {
    const RendezVous rdv = this->rdv(ajoute(saisie("LÉGER", 9)).RefRDV());
    ajoute(saisie("LEGER", 11, 0, "13"));
    ModifieRDV(base, moi, rdv, saisie("D'ARC", 9, 1), 1, 1);
    NotePurge(base, moi, {.praticien = 1, .jour = mercredi.addDays(1), .archive = q("a.mdb"), .nombre = 3});
    const struct {
        const char *nom = nullptr;
        QList<LigneJournal> lignes;
        const char *quoi = nullptr;
    } cas[] = {
        {"before, whatever the accents", JournalDuPatient(base, q("leger"), q("léa"), 12), "2 1"},
        {"after", JournalDuPatient(base, q("D'ARC"), q("Léa"), 0), "2"},
        {"one of that name with another number", JournalDuPatient(base, q("LÉGER"), q("Léa"), 13), "1"},
        {"the day before, purged since", JournalDuJour(base, mercredi, 1), "5 2 1 1"},
        {"the day after", JournalDuJour(base, mercredi.addDays(1), 1), "2"},
        {"another practitioner's", JournalDuJour(base, mercredi, 2), ""}};
    for (const auto &c : cas) {
        EXPECT_EQ(quoi(c.lignes), q(c.quoi)) << c.nom;
    }
}

TEST_F(JournalTest, AWritingWithoutRoomForItsRowIsNone) {
    const RendezVous avant = rdv(ajoute(saisie("ROUX", 9)).RefRDV());
    const Rangee rangee = LitRangee(base, avant.RefRDV);
    base.execute(SqlText("create trigger plein before insert on TavJournal begin select raise(abort, 'x'); "
                         "end"));
    EXPECT_THROW(ajoute(saisie("A", 11)), DbError);
    EXPECT_THROW(ModifieRDV(base, moi, avant, saisie("A", 11), 1, 1), DbError);
    EXPECT_THROW(MarquePresent(base, moi, avant, true), DbError);
    EXPECT_THROW(SupprimeRDV(base, moi, avant), DbError);
    EXPECT_THROW(RemetRDV(base, moi, Operation::Annulation, rangee, {}), DbError);
    EXPECT_EQ(base.query(SqlText("select * from RDV")).count(), 1);
    EXPECT_EQ(LitRangee(base, avant.RefRDV), rangee);
    base.execute(SqlText("drop table TavJournal"));
    EXPECT_EQ(MarquePresent(base, moi, avant, true).resultat, Ecriture::Fait) << "a book without a history";
    EXPECT_TRUE(JournalDuRDV(base, avant.RefRDV).isEmpty());
}

TEST_F(JournalTest, TheOldestLeaveAFewHundredAtATime) {
    Auteur ancien = moi;
    ancien.quand = moi.quand.addMonths(-moisGardes).addSecs(-1);
    Transaction transaction(base);
    for (int i = 0; i < 400; ++i) {
        NoteEcriture(base, ancien, {Operation::Ajout, {}, {{q("RefRDV"), i}}});
    }
    transaction.commit();
    ajoute(saisie("ROUX", 9));
    const QDateTime limite = moi.quand.addMonths(-moisGardes);
    EXPECT_TRUE(OublieJournal(base, limite));
    EXPECT_EQ(combien(), q("101"));
    EXPECT_TRUE(JournalDuRDV(base, 0).isEmpty()) << "the oldest first";
    EXPECT_FALSE(OublieJournal(base, limite));
    EXPECT_EQ(combien(), q("1"));
    Database autre = livre.ouvre();
    const Transaction verrou(autre);
    EXPECT_FALSE(OublieJournal(base, limite)) << "needs no writer's lock";
}

#include "booking/Annulation.h"
#include "Lignes.h"
#include "booking/RangeeTables.h"
#include "booking/ReservationTables.h"
#include "journal/JournalTables.h"

#include <gtest/gtest.h>

namespace {

const QDate mercredi(2026, 3, 11);

SaisieRDV saisie(const char *nom, int heure, int minutes = 30) {
    const QTime debut(heure, 0);
    return {q(nom), q("Léa"), q("02"), q("a"), q("12"), mercredi, debut, debut.addSecs(60 * minutes)};
}

EcritureRDV ecriture(const char *nom, Operation quoi = Operation::Ajout, qint64 ref = 1) {
    return {quoi, {}, {{q("RefRDV"), ref}, {q("Nom"), q(nom)}}};
}

/// A book that keeps its history; what is written there can be undone.
class AnnulationTest : public testing::Test {
  protected:
    AnnulationTest() { PrepareJournal(base); }
    RendezVous rdv(qint64 ref) { return LitRDV(base, ref).value_or(RendezVous()); }
    EcritureRDV note(const BilanEcriture &bilan) {
        EXPECT_EQ(bilan.resultat, Ecriture::Fait);
        pile.note(bilan.ecriture);
        return bilan.ecriture;
    }
    qint64 ajoute(const char *nom, int heure) {
        return note(AjouteRDV(base, {}, {saisie(nom, heure), q("01"), q("1")})).RefRDV();
    }
    Ecriture annule() {
        const EcritureRDV pas = pile.aAnnuler().value();
        const BilanEcriture bilan = RemetRDV(base, {}, Operation::Annulation, pas.apres, pas.avant);
        if (bilan.resultat == Ecriture::Fait) {
            pile.annule(bilan.ecriture.RefRDV());
        }
        return bilan.resultat;
    }
    Ecriture refait() {
        const EcritureRDV pas = pile.aRefaire().value();
        const BilanEcriture bilan = RemetRDV(base, {}, Operation::Refait, pas.avant, pas.apres);
        if (bilan.resultat == Ecriture::Fait) {
            pile.refait(bilan.ecriture.RefRDV());
        }
        return bilan.resultat;
    }
    QString contenu() { return lignes(livre.ouvre()); }

    Livre livre;
    Database base = livre.ouvre();
    Annulation pile;
};

} // namespace

TEST_F(AnnulationTest, BackThroughAllThatWasWrittenAndForthAgain) {
    base.execute(SqlText("alter table RDV add column Suite TEXT")); // other programs have fields of their own
    const qint64 ref = ajoute("ROUX", 9);
    base.execute(SqlText("update RDV set Suite = 'x', Telephone = Null"));
    pile = {};
    QStringList etats{contenu()};
    const auto garde = [&] { etats << contenu(); };
    note(ModifieRDV(base, {}, rdv(ref), saisie("DUR", 11), 1, 1));
    garde();
    note(ChangeFin(base, {}, rdv(ref), QTime(12, 0), 1, 1));
    garde();
    note(MarquePresent(base, {}, rdv(ref), true));
    garde();
    note(SupprimeRDV(base, {}, rdv(ref)));
    garde();
    ajoute("A", 9);
    garde();
    const Rangee fin = LitRangee(base, ref + 1);
    for (int tour = 0; tour < 2; ++tour) {
        for (qsizetype i = etats.size() - 2; i >= 0; --i) {
            EXPECT_EQ(annule(), Ecriture::Fait) << i;
            EXPECT_EQ(contenu(), etats[i]) << i;
        }
        EXPECT_EQ(rdv(ref).RefRDV, ref) << "it keeps its key";
        EXPECT_EQ(LitRangee(base, ref)[q("Suite")], QJsonValue(q("x"))) << "and what others keep there";
        EXPECT_FALSE(pile.aAnnuler());
        for (qsizetype i = 1; i < etats.size(); ++i) {
            EXPECT_EQ(refait(), Ecriture::Fait) << i;
            EXPECT_EQ(contenu(), etats[i]) << i;
        }
        EXPECT_EQ(LitRangee(base, ref + 1), fin);
    }
    EXPECT_EQ(JournalDuRDV(base, ref).first().ecriture.quoi, Operation::Refait);
    annule();
    ajoute("B", 15);
    EXPECT_FALSE(pile.aRefaire()) << "something else was written";
}

TEST_F(AnnulationTest, NothingIsWrittenOverWhatAnotherDeskDid) {
    using enum Ecriture;
    const struct {
        const char *nom = nullptr;
        SqlText ailleurs;
        Ecriture deplace = Fait, supprime = Fait, ajoute = Fait;
    } cas[] = {
        {"a field that no window shows", SqlText("update RDV set Professionnel = 0"), Change, Fait, Change},
        {"present", SqlText("update RDV set Present = 1"), Change, Fait, Change},
        {"gone", SqlText("delete from RDV where Nom <> 'AUTRE'"), Disparu, Fait, Disparu},
        {"its place",
         SqlText("insert into RDV (Nom, Date1, DateInv, HeureDebut, HeureFin, NumPraticien, "
                 "Fauteuil) values ('Z', '2026-03-11', '20260311', '09:10:00', '09:20:00', '1', 1)"),
         Occupe, Occupe, Fait},
        {"put back already",
         SqlText("insert into RDV (RefRDV, Nom, Prenom, NumPatient) select RefRDV + 1, "
                 "'ROUX', 'Léa', 12 from RDV Where Nom = 'AUTRE' and not exists (select "
                 "1 from RDV Where Nom = 'ROUX')"),
         Fait, Change, Fait}};
    for (const auto &c : cas) {
        for (const auto &[geste, attendu] :
             {std::pair('d', c.deplace), std::pair('s', c.supprime), std::pair('a', c.ajoute)}) {
            base.execute(SqlText("delete from RDV"));
            ajoute("AUTRE", 18);
            const qint64 ref = ajoute("ROUX", 9);
            if (geste == 'd') {
                note(ModifieRDV(base, {}, rdv(ref), saisie("ROUX", 11), 1, 1));
            } else if (geste == 's') {
                note(SupprimeRDV(base, {}, rdv(ref)));
            }
            base.execute(c.ailleurs);
            const QString laisse = contenu();
            EXPECT_EQ(annule(), attendu) << geste << ' ' << c.nom;
            EXPECT_TRUE(attendu == Fait || contenu() == laisse) << geste << ' ' << c.nom;
        }
    }
}

TEST_F(AnnulationTest, AKeyThatAnotherPatientHasGotIsLeftToHim) {
    const qint64 ref = ajoute("ROUX", 9);
    note(MarquePresent(base, {}, rdv(ref), true));
    note(SupprimeRDV(base, {}, rdv(ref)));
    base.execute(SqlText("insert into RDV (RefRDV, Nom, Date1, DateInv, HeureDebut, HeureFin, NumPraticien, "
                         "Fauteuil) values (1, 'AUTRE', '2026-03-11', '20260311', '09:00:00', '10:00:00', "
                         "'01', 1)"));
    EXPECT_EQ(annule(), Ecriture::Occupe) << "he has the place, too";
    base.execute(SqlText("update RDV set HeureDebut = '15:00:00', HeureFin = '16:00:00'"));
    EXPECT_EQ(annule(), Ecriture::Fait);
    EXPECT_EQ(annule(), Ecriture::Fait) << "under its new key";
    EXPECT_EQ(refait(), Ecriture::Fait);
    EXPECT_EQ(rdv(2).Present, true);
    EXPECT_EQ(annule(), Ecriture::Fait);
    EXPECT_EQ(annule(), Ecriture::Fait);
    EXPECT_EQ(rdv(1).Nom, q("AUTRE"));
    EXPECT_EQ(rdv(2).RefRDV, 0) << "what was added is taken out";
}

TEST(Annulation, StepsHaveNamesAndAnEnd) {
    using O = Operation;
    const Rangee avant{
        {q("Nom"), q("DURAND")}, {q("HeureDebut"), q("09:00:00")}, {q("HeureFin"), q("10:00:00")}};
    const auto change = [&](const char *champ, const char *valeur) {
        Rangee apres = avant;
        apres[q(champ)] = q(valeur);
        return EcritureRDV{O::Edition, avant, apres};
    };
    const struct {
        EcritureRDV ecriture;
        const char *nom = nullptr;
    } cas[] = {
        {{O::Ajout, {}, avant}, "Ajouter DURAND"},
        {{O::Suppression, avant, {}}, "Supprimer DURAND"},
        {{O::Presence, avant, {{q("Nom"), q("DURAND")}}}, "Présence de DURAND"},
        {change("Date1", "2026-03-12"), "Déplacer DURAND"},
        {change("HeureFin", "11:00:00"), "Allonger DURAND"},
        {change("HeureFin", "09:30:00"), "Raccourcir DURAND"},
        {change("Nom", "DUR"), "Éditer DURAND"},
        {ecriture(" a\n b "), "Ajouter a b"},
        {ecriture("DE LA TOUR D'AUVERGNE-LAURAGUAIS"), "Ajouter DE LA TOUR D'AUVERGNE-LAURAGU…"},
        {{O::Ajout, {}, {{q("HeureDebut"), q("1899-12-30 09:15:00")}}}, "Ajouter le rendez-vous de 09:15"}};
    for (const auto &c : cas) {
        EXPECT_EQ(NomDuGeste(c.ecriture), q(c.nom));
    }
    Annulation pile;
    for (int i = 0; i <= Annulation::pasGardes; ++i) {
        pile.note(ecriture("A", O::Ajout, i));
    }
    pile.note({O::Edition, avant, avant});
    int combien = 0;
    for (; pile.aAnnuler(); ++combien) {
        pile.annule(pile.aAnnuler()->RefRDV());
    }
    EXPECT_EQ(combien, Annulation::pasGardes);
    EXPECT_EQ(pile.aRefaire()->RefRDV(), 1) << "the oldest was given up";
}

#include "Lignes.h"
#include "booking/ReservationTables.h"

#include <gtest/gtest.h>

namespace {

/// "Nom|09:00|09:30" on Wednesday, or `jours` later.
NouveauRDV nouveau(const char *texte, const char *praticien = "01", const char *fauteuil = "1",
                   int jours = 0) {
    const QStringList mots = q(texte).split(u'|');
    const auto heure = [&](int i) { return QTime::fromString(mots[i], Qt::ISODate); };
    return {{mots[0], q("Paul"), {}, {}, q("12"), QDate(2026, 3, 11).addDays(jours), heure(1), heure(2)},
            q(praticien),
            q(fauteuil)};
}
SaisieRDV saisie(const char *texte) {
    return nouveau(texte).saisie;
}

RendezVous plusTard(RendezVous rdv) {
    rdv.HeureDebut = rdv.HeureDebut.addSecs(3600);
    rdv.HeureFin = rdv.HeureFin.addSecs(3600);
    return rdv;
}

class ReservationTest : public testing::Test {
  protected:
    qint64 ajoute(const NouveauRDV &n) { return AjouteRDV(base, moi, n).ecriture.RefRDV(); }
    RendezVous rdv(qint64 ref) { return LitRDV(base, ref).value_or(RendezVous()); }
    QString contenu() { return lignes(livre.ouvre()); }

    const Auteur moi{{QDate(2026, 3, 11), QTime(10, 5)}, q("ACCUEIL"), q("claire")};
    Livre livre;
    Database base = livre.ouvre();
};

} // namespace

TEST_F(ReservationTest, BooksAndMovesOnlyToWhatIsFree) {
    const struct {
        const char *nom = nullptr;
        NouveauRDV nouveau;
        bool libre = false;
    } cas[] = {{"after it", nouveau("A|09:30|10:00"), true},
               {"another chair", nouveau("A|09:00|09:30", "01", "2"), true},
               {"another practitioner", nouveau("A|09:00|09:30", "02"), true},
               {"another day", nouveau("A|09:00|09:30", "01", "1", 1), true},
               {"the number without its zero", nouveau("A|09:00|09:30", "1"), false},
               {"around it", nouveau("A|08:00|12:00"), false},
               {"no length", nouveau("A|15:00|15:00"), false}};
    const qint64 present = ajoute(nouveau("B|09:00|09:30"));
    const qint64 autre = ajoute(nouveau("C|18:00|18:30", "03", "3"));
    for (const auto &c : cas) {
        const NouveauRDV &n = c.nouveau;
        EXPECT_EQ(
            ModifieRDV(base, moi, rdv(autre), n.saisie, CLng(n.NumPraticien), CLng(n.Fauteuil)).resultat,
            c.libre ? Ecriture::Fait : Ecriture::Occupe)
            << c.nom;
        const qint64 ref = ajoute(n);
        EXPECT_EQ(ref != 0, c.libre) << c.nom;
        SupprimeRDV(base, moi, rdv(ref));
    }
    EXPECT_EQ(ModifieRDV(base, moi, rdv(present), saisie("B|09:15:40|09:45:10"), 1, 1).resultat,
              Ecriture::Fait);
    EXPECT_TRUE(contenu().contains(q("|09:15:00|09:45:00|"))) << "seconds are not kept";
    ajoute(nouveau("D|16:00|16:30", "03", "3"));
    EXPECT_EQ(ModifieRDV(base, moi, rdv(autre), saisie("C|16:00|16:30"), 1, 1).resultat, Ecriture::Occupe)
        << "at its own chair";
    for (const char *date : {"2026-03-11", "2026-03-11 00:00:00"}) { // an older program's key or date
        livre.execute(SqlText("update RDV set DateInv = '?', Date1 = ") << texte(q(date)));
        EXPECT_EQ(ajoute(nouveau("A|09:00|09:30")), 0) << date;
    }
}

TEST_F(ReservationTest, ADropWritesThePlaceAlone) {
    const RendezVous avant = rdv(ajoute(nouveau("A|09:00|09:30")));
    livre.execute(SqlText("update RDV set HeureDebut = '09:00:20', Professionnel = 0, DateInv = '?'"));
    RendezVous lu = rdv(avant.RefRDV);
    lu.HeureFin = QTime(10, 0);
    EXPECT_EQ(DeplaceRDV(base, moi, rdv(avant.RefRDV), lu, 1, 1).resultat, Ecriture::Fait);
    EXPECT_EQ(contenu(), q("A|Paul|||12|2026-03-11|09:00:20|10:00:00|?|01|1|0|0"));
    RendezVous ailleurs = lu;
    ailleurs.Date1 = QDate(2026, 3, 13);
    ailleurs.Fauteuil = 2;
    ajoute(nouveau("B|09:30|10:30", "01", "2", 2));
    EXPECT_EQ(DeplaceRDV(base, moi, lu, ailleurs, 1, 2).resultat, Ecriture::Occupe);
    EXPECT_EQ(DeplaceRDV(base, moi, lu, ailleurs, 1, 1).resultat, Ecriture::Occupe) << "where it would lie";
    ailleurs.Date1 = QDate(2026, 3, 12);
    EXPECT_EQ(DeplaceRDV(base, moi, lu, ailleurs, 1, 2).resultat, Ecriture::Fait);
    EXPECT_TRUE(contenu().startsWith(q("A|Paul|||12|2026-03-12|09:00:20|10:00:00|20260312|01|2|0|0\n")));
}

TEST_F(ReservationTest, WritesNothingOverWhatAnotherDeskDid) {
    using enum Ecriture;
    const struct {
        SqlText ailleurs;
        Ecriture modifie = Fait, present = Fait, supprime = Fait;
    } cas[] = {{SqlText("update RDV set Present = 1"), Fait, Fait, Change},
               {SqlText("update RDV set Fauteuil = 2"), Fait, Fait, Change},
               {SqlText("update RDV set Telephone = 'x'"), Change, Change, Change},
               {SqlText("update RDV set HeureFin = '09:45:00'"), Change, Change, Change},
               {SqlText("delete from RDV"), Disparu, Disparu, Disparu}};
    for (const auto &c : cas) {
        for (const auto &[geste, attendu] : {std::pair('m', c.modifie), std::pair('p', c.present),
                                             std::pair('s', c.supprime), std::pair('d', c.supprime)}) {
            const RendezVous avant = rdv(ajoute(nouveau("A|09:00|09:30")));
            livre.execute(c.ailleurs);
            const QString laisse = contenu();
            const BilanEcriture bilan = geste == 'm'
                                            ? ModifieRDV(base, moi, avant, saisie("A|10:00|10:30"), 1, 1)
                                        : geste == 'p' ? MarquePresent(base, moi, avant, true)
                                        : geste == 'd' ? DeplaceRDV(base, moi, avant, plusTard(avant), 1, 1)
                                                       : SupprimeRDV(base, moi, avant);
            EXPECT_EQ(bilan.resultat, attendu) << geste << qPrintable(c.ailleurs.text());
            EXPECT_EQ(bilan.actuel, attendu == Change ? rdv(avant.RefRDV) : RendezVous());
            EXPECT_TRUE(attendu == Fait || contenu() == laisse) << geste << qPrintable(c.ailleurs.text());
            livre.execute(SqlText("delete from RDV"));
        }
    }
}

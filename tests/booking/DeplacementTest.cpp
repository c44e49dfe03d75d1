#include "booking/Deplacement.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

RendezVous rdv(qint64 ref, const char *debut, const char *fin, int jour = 9) {
    RendezVous r;
    r.RefRDV = ref;
    r.Fauteuil = 1;
    r.NumPraticien = 1;
    r.Present = true;
    r.Date1 = QDate(2026, 3, jour);
    r.HeureDebut = QTime::fromString(q(debut), Qt::ISODate);
    r.HeureFin = QTime::fromString(q(fin), Qt::ISODate);
    return r;
}

Grille grille(const RangConfig &rang, const QList<RendezVous> &liste) {
    const Configuration config = configDe(rang);
    return {config, CreneauxSemaine(config), {}, liste, {}};
}

/// Rows 1 … 20 of half an hour from 08:00 to 18:00, Wednesday hidden: Thursday is column 3.
const RangConfig demiHeures{.intervalle = 30, .affich = {1, 2, 0, 4, 5, 0, 0}, .nbJours = 4};

Affichage semaine() {
    return {{.PraticienCourant = q("01"), .jour = QDate(2026, 3, 9)},
            {{configDe(demiHeures), true}},
            0,
            {grille(demiHeures, {rdv(1, "09:00", "10:00"), rdv(2, "11:00", "11:30"),
                                 rdv(3, "09:10:30", "09:25", 12), rdv(4, "07:30", "08:30", 13)})},
            {}};
}

/// Chair 2 begins at 09:00 and has slots of an hour; it is the practitioner's or not.
Affichage journee(bool avecSecond = true) {
    RangConfig second{.fauteuil = 2, .heures = {"09:00", "12:00", "14:00", "18:00"}};
    Affichage a{
        {.PraticienCourant = q("01"), .VueSemaine = false, .jour = QDate(2026, 3, 9)},
        {{configDe(demiHeures), true}},
        0,
        {grille(demiHeures, {rdv(1, "09:00", "10:00"), rdv(5, "08:00", "08:30")}), grille(second, {})},
        {}};
    if (avecSecond) {
        a.configs << LigneConfig{configDe(second)};
    }
    return a;
}

/// "day hours chair, rows and column, how it is received"
std::string vu(const Cible &c) {
    const char *const accueils[] = {"refus", "occupé", "même", "libre"};
    if (c.accueil == Accueil::Refus) {
        return "refus";
    }
    return q("%1 %2-%3 %4, %5-%6,%7 %8")
        .arg(c.rdv.Date1.day())
        .arg(c.rdv.HeureDebut.toString(q("HH:mm")), c.rdv.HeureFin.toString(q("HH:mm")))
        .arg(c.rdv.Fauteuil)
        .arg(c.coins.ligne)
        .arg(c.coins.ligneFin)
        .arg(c.coins.colonne)
        .arg(q(accueils[int(c.accueil)]))
        .toStdString();
}

/// Which appointment, taken where, dropped where (row, column, grid); what that gives.
void essaie(const Affichage &affichage, const char *rangees, bool bord = false, bool copie = false) {
    for (const QStringList &rangee : tableau(rangees)) {
        const QStringList de = rangee[0].split(u' ');
        const QStringList vers = rangee[1].split(u' ');
        const QList<RendezVous> &liste = affichage.grilles[0].rendezVous;
        const auto r = std::ranges::find(liste, de[0].toLongLong(), &RendezVous::RefRDV);
        const EnMain main =
            PrendEnMain(affichage, *r, {0, de[1].toDouble(), de.value(2, q("1")).toInt()}, bord);
        const Cible cible = CibleDe(
            affichage, main, {vers.value(2, q("0")).toInt(), vers[0].toDouble(), vers[1].toInt()}, copie);
        EXPECT_EQ(vu(cible), rangee[2].toStdString()) << rangee.join(u'|').toStdString();
        EXPECT_TRUE(cible.accueil == Accueil::Refus || cible.rdv.Present != copie);
    }
}

} // namespace

TEST(Deplacement, ABlockGoesToTheSlotNearestToWhereItIsHeld) {
    essaie(semaine(), R"(
        1 3.5 | 5.5 3    | 12 10:00-11:00 1, 5-6,3 libre
        1 3.5 | 3.2 2    | 10 09:00-10:00 1, 3-4,2 libre
        1 3.5 | 3.9 1    | 9 09:00-10:00 1, 3-4,1 même
        1 3.5 | 4.01 1   | 9 09:30-10:30 1, 4-5,1 libre
        1 3.5 | 7.4 1    | 9 11:00-12:00 1, 7-8,1 occupé
        1 3.1 | 20.9 1   | 9 17:00-18:00 1, 19-20,1 libre
        1 4.9 | 1.1 2    | 10 08:00-09:00 1, 1-2,2 libre
        3 3.5 3 | 3.7 4  | 13 09:10-09:25 1, 3-3,4 libre
        3 3.5 3 | 5.5 3  | 12 10:00-10:15 1, 5-5,3 libre
        4 1.5 4 | 1.4 1  | 9 07:30-08:30 1, 1-1,1 libre
        4 1.5 4 | 3.5 1  | 9 08:30-09:30 1, 2-3,1 occupé
        1 3.5 | 21.2 1   | refus
        1 3.5 | 0.9 1    | refus
        1 3.5 | 4 0      | refus
        1 3.5 | 4 5      | refus
        1 3.5 | 4 1 -1   | refus)");
    Affichage long_ = semaine();
    long_.grilles[0].rendezVous[0].HeureFin = QTime(23, 30);
    essaie(long_, R"(
        1 3.5 | 3.5 2    | 10 09:00-23:30 1, 3-20,2 libre
        1 3.5 | 6.5 2    | 10 08:00-22:30 1, 1-20,2 libre)");
}

TEST(Deplacement, AnEdgeStaysInItsColumnAndBehindItsStart) {
    essaie(semaine(), R"(
        1 4.95 | 6.4 1   | 9 09:00-10:30 1, 3-5,1 libre
        1 4.95 | 5.2 3   | 9 09:00-10:00 1, 3-4,1 même
        1 4.95 | 1.5 1   | 9 09:00-09:30 1, 3-3,1 libre
        1 4.95 | 7.9 2   | 9 09:00-11:30 1, 3-7,1 occupé
        2 7.95 | 20.9 1  | 9 11:00-18:00 1, 7-20,1 libre
        1 4.95 | 21.2 1  | refus
        1 4.95 | 6.4 0   | refus)",
           true);
    essaie(journee(), "1 4.95 | 3.5 1 1 | refus", true);
}

TEST(Deplacement, AnotherChairTakesItWithItsOwnSlots) {
    essaie(journee(), R"(
        1 3.5 | 1.3 1 1  | 9 09:00-10:00 2, 1-1,1 libre
        1 3.5 | 2.3 1 1  | 9 10:00-11:00 2, 2-2,1 libre
        5 1.5 | 1.1 1 1  | 9 09:00-09:30 2, 1-1,1 libre)");
    essaie(journee(false), "1 3.5 | 1.3 1 1 | refus");
    essaie(semaine(), R"(
        1 3.5 | 3.5 1    | 9 09:00-10:00 1, 3-4,1 occupé
        1 3.5 | 3.5 2    | 10 09:00-10:00 1, 3-4,2 libre)",
           false, true);
    Affichage sansConfig = semaine();
    sansConfig.configs.clear();
    essaie(sansConfig, "1 3.5 | 3.5 2 | refus", false, true);
    essaie(sansConfig, "1 3.5 | 3.5 2 | 10 09:00-10:00 1, 3-4,2 libre");
}

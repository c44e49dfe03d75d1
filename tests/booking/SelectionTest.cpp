#include "booking/Selection.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

RendezVous rdv(qint64 ref, const char *debut, const char *fin, int jour = 9) {
    RendezVous r;
    r.RefRDV = ref;
    r.Nom = q("R%1").arg(ref);
    r.Date1 = QDate(2026, 3, jour);
    r.HeureDebut = QTime::fromString(q(debut), q("HH:mm"));
    r.HeureFin = QTime::fromString(q(fin), q("HH:mm"));
    return r;
}

Grille grille(const RangConfig &rang, const QList<RendezVous> &liste) {
    const Configuration config = configDe(rang);
    return {config, CreneauxSemaine(config), {}, liste, {}};
}

/// Rows 1 … 20 of half an hour from 08:00 to 18:00, Wednesday hidden: Thursday is column 3.
RangConfig demiHeures(int fauteuil = 1) {
    return {.fauteuil = fauteuil,
            .intervalle = 30,
            .affich = {1, 2, 0, 4, 5, 0, 0},
            .grise = {0, 2, 0, 0, 0, 0, 0}};
}

Affichage semaine() {
    return {{.PraticienCourant = q("01"), .jour = QDate(2026, 3, 9)},
            {},
            0,
            {grille(demiHeures(),
                    {rdv(1, "07:30", "08:30"), rdv(2, "09:00", "10:00"), rdv(3, "09:30", "10:30"),
                     rdv(4, "11:00", "11:00"), rdv(5, "17:45", "18:15"), rdv(6, "10:00", "10:10", 10),
                     rdv(7, "10:15", "10:30", 10), rdv(8, "17:45", "18:00", 12)})},
            {}};
}

Affichage journee() {
    RangConfig second = demiHeures(2);
    second.intervalle = 60;
    return {{.PraticienCourant = q("01"), .VueSemaine = false, .jour = QDate(2026, 3, 9)},
            {},
            0,
            {grille(demiHeures(), {rdv(2, "09:00", "10:00")}), grille(second, {rdv(9, "08:00", "10:00")})},
            {}};
}

/// "grid: outlined cells, day, hours, class, appointment and its place among several".
std::string vu(const Selection &s) {
    if (s.vide()) {
        return "rien";
    }
    QString texte = q("%1: %2,%3-%4,%5 ")
                        .arg(s.grille)
                        .arg(s.coins.ligne)
                        .arg(s.coins.colonne)
                        .arg(s.coins.ligneFin)
                        .arg(s.coins.colonneFin);
    texte += q("%1 %2-%3 %4")
                 .arg(s.jour.day())
                 .arg(s.horaire.debut.toString(q("HH:mm")), s.horaire.fin.toString(q("HH:mm")))
                 .arg(s.ChoixHoraire);
    return (s.rdv ? texte + q(" %1 %2/%3").arg(s.rdv->Nom).arg(s.rang).arg(s.nombre) : texte).toStdString();
}

struct Pas {
    Coins coins;
    Geste geste = Geste::Clic;
    int grille = 0;
};
Selection apres(const Affichage &affichage, const std::vector<Pas> &pas) {
    Selection selection;
    for (const Pas &p : pas) {
        selection = Selectionne(affichage, p.grille, p.coins, p.geste, selection);
    }
    return selection;
}

} // namespace

TEST(Selection, WhatGesturesMean) {
    constexpr Geste glisse = Geste::Glisse;
    const Pas libre{{6, 1, 6, 1}};
    struct Cas {
        const char *nom;
        std::vector<Pas> pas;
        std::string attendu;
        bool parJour = false;
    };
    for (const Cas &cas : {
             Cas{"a free slot", {libre}, "0: 6,1-6,1 9 10:30-11:00 1"},
             Cas{"dragged upwards", {{{8, 3, 7, 3}, glisse}}, "0: 8,3-7,3 12 11:00-12:00 1"},
             Cas{"lunch", {{{9, 1, 9, 1}}}, "0: 9,1-9,1 9 12:00-12:30 0"},
             Cas{"into lunch", {{{8, 1, 9, 1}, glisse}}, "0: 8,1-9,1 9 11:30-12:30 2"},
             Cas{"a greyed afternoon", {{{14, 2, 14, 2}}}, "0: 14,2-14,2 10 14:30-15:00 0"},
             Cas{"an appointment whole", {{{3, 1, 3, 1}}}, "0: 3,1-4,1 9 09:00-10:00 1 R2 1/1"},
             Cas{"two in one row", {{{5, 2, 5, 2}}}, "0: 5,2-5,2 10 10:00-10:10 1 R6 1/2"},
             Cas{"a second click: the next",
                 {{{5, 2, 5, 2}}, {{5, 2, 5, 2}}},
                 "0: 5,2-5,2 10 10:15-10:30 1 R7 2/2"},
             Cas{"a third: the first again",
                 {{{5, 2, 5, 2}}, {{5, 2, 5, 2}}, {{5, 2, 5, 2}}},
                 "0: 5,2-5,2 10 10:00-10:10 1 R6 1/2"},
             Cas{"overlapping, seen from the later one",
                 {{{3, 1, 3, 1}}, {{4, 1, 4, 1}}},
                 "0: 4,1-5,1 9 09:30-10:30 1 R3 2/2"},
             Cas{"keys do not go on",
                 {{{5, 2, 5, 2}}, {{5, 2, 5, 2}, Geste::Touche}},
                 "0: 5,2-5,2 10 10:00-10:10 1 R6 1/2"},
             Cas{"another first", {libre, {{4, 1, 4, 1}}}, "0: 3,1-4,1 9 09:00-10:00 1 R2 1/2"},
             Cas{"over the closing time: as outlined",
                 {{{20, 1, 20, 1}}},
                 "0: 20,1-20,1 9 17:45-18:15 1 R5 1/1"},
             Cas{"before the opening: as outlined",
                 {{{1, 1, 2, 1}, glisse}},
                 "0: 1,1-2,1 9 07:30-08:30 1 R1 1/1"},
             Cas{"up to the closing time", {{{20, 3, 20, 3}}}, "0: 20,3-20,3 12 17:45-18:00 1 R8 1/1"},
             Cas{"no length, never selected", {{{7, 1, 7, 1}}}, "0: 7,1-7,1 9 11:00-11:30 1"},
             Cas{"left hours", {libre, {{5, 0, 5, 0}}}, "0: 6,1-6,1 9 10:30-11:00 1"},
             Cas{"right hours", {libre, {{5, 5, 5, 5}}}, "0: 6,1-6,1 9 10:30-11:00 1"},
             Cas{"header: the first cell", {libre, {{0, 2, 0, 2}}}, "0: 1,1-1,1 9 07:30-08:30 1 R1 1/1"},
             Cas{"drawn up to the header",
                 {libre, {{5, 2, 0, 2}, glisse}},
                 "0: 1,1-1,1 9 07:30-08:30 1 R1 1/1"},
             Cas{"closing row: the first cell",
                 {libre, {{21, 2, 21, 2}}},
                 "0: 1,1-1,1 9 07:30-08:30 1 R1 1/1"},
             Cas{"drawn to the closing row", {{{18, 2, 21, 2}, glisse}}, "0: 18,2-20,2 10 16:30-18:00 0"},
             Cas{"several columns: the first cell",
                 {libre, {{5, 2, 6, 3}, glisse}},
                 "0: 1,1-1,1 9 07:30-08:30 1 R1 1/1"},
             Cas{"up to the hours, too",
                 {libre, {{5, 2, 5, 0}, glisse}},
                 "0: 1,1-1,1 9 07:30-08:30 1 R1 1/1"},
             Cas{"the left day grid's first row", {{{1, 1, 1, 1}}}, "0: 1,1-1,1 9 08:00-08:30 1", true},
             Cas{"the right one's own slots",
                 {{{1, 1, 1, 1}, Geste::Clic, 1}},
                 "1: 1,1-2,1 9 08:00-10:00 1 R9 1/1",
                 true},
             Cas{"its hours",
                 {{{1, 1, 1, 1}}, {{1, 0, 1, 0}, Geste::Clic, 1}},
                 "0: 1,1-1,1 9 08:00-08:30 1",
                 true},
             Cas{"a day's header", {{{1, 1, 1, 1}}, {{0, 1, 0, 1}}}, "0: 1,1-1,1 9 08:00-08:30 1", true},
             Cas{"a day's closing row: the whole day",
                 {{{11, 1, 11, 1}, Geste::Clic, 1}},
                 "1: 1,1-2,1 9 08:00-10:00 1 R9 1/1",
                 true},
             Cas{"the other grid's",
                 {{{1, 1, 1, 1}, Geste::Clic, 1}, {{7, 1, 7, 1}}},
                 "0: 7,1-7,1 9 11:00-11:30 1",
                 true},
         }) {
        EXPECT_EQ(vu(apres(cas.parJour ? journee() : semaine(), cas.pas)), cas.attendu) << cas.nom;
    }
}

TEST(Selection, NoSlotGoesPastMidnight) {
    Affichage tardive = semaine();
    tardive.grilles = {grille({.intervalle = 50, .heures = {"20:00", "21:00", "22:00", "23:59"}}, {})};
    EXPECT_EQ(vu(apres(tardive, {{{5, 1, 5, 1}}})), "0: 5,1-5,1 9 23:20-23:59 1");
    tardive.grilles[0].creneaux = {};
    EXPECT_EQ(vu(apres(tardive, {{{1, 1, 1, 1}}})), "rien") << "a grid that cannot be drawn";
}

TEST(Selection, IsFoundAgainOnWhatIsShownNow) {
    const Pas rdv2{{3, 1, 3, 1}};
    const Pas dernier{{20, 1, 20, 1}};
    const Pas libre{{6, 3, 7, 3}, Geste::Glisse};
    const auto zoom = [](Affichage &a) {
        a.grilles[0] = grille({.affich = {1, 2, 0, 4, 5, 0, 0}}, a.grilles[0].rendezVous);
    };
    const auto sans2 = [](Affichage &a) { a.grilles[0].rendezVous.remove(1); };
    struct Cas {
        const char *nom;
        Pas pas;
        std::function<void(Affichage &)> change;
        std::string attendu;
    };
    for (const Cas &cas : {
             Cas{"the same appointment in longer slots", rdv2, zoom, "0: 2,1-2,1 9 09:00-10:00 1 R2 1/2"},
             Cas{"the same hours in longer slots", libre, zoom, "0: 3,3-4,3 12 10:00-12:00 1"},
             Cas{"over the closing time, in longer slots", dernier, zoom,
                 "0: 10,1-10,1 9 17:45-18:15 1 R5 1/1"},
             Cas{"moved to another day", rdv2,
                 [](Affichage &a) { a.grilles[0].rendezVous[1].Date1 = QDate(2026, 3, 12); },
                 "0: 3,3-4,3 12 09:00-10:00 1 R2 1/1"},
             Cas{"deleted, others in its place", rdv2, sans2, "rien"},
             Cas{"deleted, its place free", dernier, [](Affichage &a) { a.grilles[0].rendezVous.remove(4); },
                 "0: 20,1-20,1 9 17:30-18:00 1"},
             Cas{"a free place taken", libre,
                 [](Affichage &a) { a.grilles[0].rendezVous << rdv(10, "11:00", "12:00", 12); },
                 "0: 7,3-8,3 12 11:00-12:00 1 R10 1/1"},
             Cas{"its day hidden", libre,
                 [](Affichage &a) {
                     a.grilles[0] = grille({.affich = {1, 2, 0, 0, 5, 0, 0}}, {});
                 },
                 "rien"},
             Cas{"the same weekday of another week", libre,
                 [](Affichage &a) { a.demande.jour = QDate(2026, 3, 17); }, "0: 6,3-7,3 19 10:30-11:30 1"},
             Cas{"another practitioner's appointments there", rdv2,
                 [](Affichage &a) {
                     a.demande.PraticienCourant = q("02");
                     a.grilles[0].rendezVous[1].RefRDV = 20;
                 },
                 "0: 3,1-4,1 9 09:00-10:00 1 R2 1/2"},
             Cas{"nothing can be drawn", rdv2, [](Affichage &a) { a.grilles[0].creneaux = {}; }, "rien"},
         }) {
        Affichage maintenant = semaine();
        cas.change(maintenant);
        EXPECT_EQ(vu(Reprend(maintenant, semaine(), apres(semaine(), {cas.pas}))), cas.attendu) << cas.nom;
    }
    const Selection droite = apres(journee(), {{{3, 1, 3, 1}, Geste::Clic, 1}});
    EXPECT_EQ(vu(Reprend(journee(), journee(), droite)), "1: 3,1-3,1 9 10:00-11:00 1");
    EXPECT_EQ(vu(Reprend(semaine(), journee(), droite)), "0: 4,1-5,1 9 09:30-10:30 1 R3 1/1");
    EXPECT_EQ(vu(SelectionneRDV(journee(), 9)), "1: 1,1-2,1 9 08:00-10:00 1 R9 1/1");
    EXPECT_EQ(vu(SelectionneRDV(journee(), 1)), "rien");
}

TEST(Selection, SaysWhatItHoldsAndWhereItBooks) {
    const Affichage affichage = semaine();
    Selection deuxieme = apres(affichage, {{{5, 2, 5, 2}}, {{5, 2, 5, 2}}});
    EXPECT_TRUE(deuxieme.suivant);
    EXPECT_EQ(TexteEtatRDV(deuxieme), q("2 sur 2 : R7 "));
    deuxieme.rdv->Nom = q(" D'ARC ");
    deuxieme.rdv->Prenom = q("Jeanne");
    deuxieme.rdv->Description = q("bilan");
    deuxieme.nombre = 1;
    EXPECT_EQ(TexteEtatRDV(deuxieme), q("D'ARC Jeanne   [ bilan ]"));
    EXPECT_EQ(InfoBulleRDV(deuxieme), q("RDV: 10:15 à 10:30 pour  D'ARC  Jeanne, descripif : bilan"));
    EXPECT_EQ(InfoBulleRDV({}), QString());
    const PlaceRDV place = PlaceDe(journee(), apres(journee(), {{{5, 1, 5, 1}, Geste::Clic, 1}}));
    EXPECT_EQ(place.FauteuilCourant, q("2"));
    EXPECT_EQ(place.Intervalle, 60);
    EXPECT_EQ(place.horaire.debut, QTime(12, 0));
    EXPECT_EQ(place.ChoixHoraire, 0) << "lunch";
}

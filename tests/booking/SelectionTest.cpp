#include "booking/Selection.h"

#include "support/Livre.h"

#include <QRegularExpression>
#include <gtest/gtest.h>
#include <map>

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
    return {
        {.PraticienCourant = q("01"), .jour = QDate(2026, 3, 9)},
        {},
        0,
        {grille(demiHeures(),
                {rdv(1, "07:30", "08:30"), rdv(2, "09:00", "10:00"), rdv(3, "09:30", "10:30"),
                 rdv(4, "11:00", "11:00"), rdv(5, "17:15", "18:15"), rdv(6, "10:00", "10:10", 10),
                 rdv(7, "10:15", "10:30", 10), rdv(8, "17:45", "18:00", 12), rdv(11, "17:00", "18:45", 13)})},
        {}};
}

Affichage journee() {
    RangConfig second = demiHeures(2);
    second.intervalle = 60;
    second.heures = {"08:00", "09:30", "11:00", "18:00"};
    return {{.PraticienCourant = q("01"), .VueSemaine = false, .jour = QDate(2026, 3, 9)},
            {},
            0,
            {grille(demiHeures(), {rdv(2, "09:00", "10:00")}), grille(second, {rdv(9, "09:00", "09:30")})},
            {}};
}

/// "grid: outlined cells, day, hours, class, appointment and its place among several".
std::string vu(const Selection &s) {
    if (s.vide()) {
        return "rien";
    }
    const auto heure = [](QTime t) { return t.toString(q("HH:mm")); };
    const Coins &c = s.coins;
    QString texte =
        q("%1: %2,%3-%4,%5").arg(s.grille).arg(c.ligne).arg(c.colonne).arg(c.ligneFin).arg(c.colonneFin) +
        q(" %1 %2-%3 %4")
            .arg(s.jour.day())
            .arg(heure(s.horaire.debut), heure(s.horaire.fin))
            .arg(s.ChoixHoraire);
    return (s.rdv ? texte + q(" %1 %2/%3").arg(s.rdv->Nom).arg(s.rang).arg(s.nombre) : texte).toStdString();
}

/// What is selected after gestures such as "6,1" (a click on row 6 of column 1), "6,1>7,1" (a drag) and
/// "d6,1" (a click in the second grid).
Selection apres(const Affichage &affichage, const QString &gestes) {
    static const QRegularExpression forme(q("(d?)(\\d+),(\\d+)(>(\\d+),(\\d+))?"));
    Selection selection;
    for (const QRegularExpressionMatch &m : forme.globalMatch(gestes)) {
        const auto n = [&m](int i) { return m.captured(i).toInt(); };
        const bool glisse = m.hasCaptured(4);
        const Coins coins{n(2), n(3), glisse ? n(5) : n(2), glisse ? n(6) : n(3)};
        const Geste geste = glisse ? Geste::Glisse : Geste::Clic;
        selection = Selectionne(affichage, int(m.captured(1).size()), coins, geste, selection);
    }
    return selection;
}

void verifie(const Affichage &affichage, const char *cas) {
    for (const QStringList &c : tableau(cas)) {
        EXPECT_EQ(vu(apres(affichage, c[1])), c[2].toStdString()) << c[0].toStdString();
    }
}

} // namespace

TEST(Selection, WhatGesturesMean) {
    verifie(semaine(), R"(
        a free slot                        | 6,1           | 0: 6,1-6,1 9 10:30-11:00 1
        dragged upwards                    | 8,3>7,3       | 0: 8,3-7,3 12 11:00-12:00 1
        lunch                              | 9,1           | 0: 9,1-9,1 9 12:00-12:30 0
        into lunch                         | 8,1>9,1       | 0: 8,1-9,1 9 11:30-12:30 2
        a greyed afternoon                 | 14,2          | 0: 14,2-14,2 10 14:30-15:00 0
        an appointment whole               | 3,1           | 0: 3,1-4,1 9 09:00-10:00 1 R2 1/1
        two in one row                     | 5,2           | 0: 5,2-5,2 10 10:00-10:10 1 R6 1/2
        a second click: the next           | 5,2 5,2       | 0: 5,2-5,2 10 10:15-10:30 1 R7 2/2
        a third: the first again           | 5,2 5,2 5,2   | 0: 5,2-5,2 10 10:00-10:10 1 R6 1/2
        overlapping, from the later one    | 3,1 4,1       | 0: 4,1-5,1 9 09:30-10:30 1 R3 2/2
        drags and keys do not go on        | 5,2 5,2>5,2   | 0: 5,2-5,2 10 10:00-10:10 1 R6 1/2
        coming from elsewhere: the first   | 6,1 4,1       | 0: 3,1-4,1 9 09:00-10:00 1 R2 1/2
        beyond the closing row: as outlined | 20,4         | 0: 20,4-20,4 13 17:00-18:45 1 R11 1/1
        onto the closing row: above it     | 20,1          | 0: 19,1-20,1 9 17:15-18:15 1 R5 1/1
        before the opening: as outlined    | 1,1>2,1       | 0: 1,1-2,1 9 07:30-08:30 1 R1 1/1
        up to the closing time             | 20,3          | 0: 20,3-20,3 12 17:45-18:00 1 R8 1/1
        no length, never selected          | 7,1           | 0: 7,1-7,1 9 11:00-11:30 1
        left hours                         | 6,1 5,0       | 0: 6,1-6,1 9 10:30-11:00 1
        right hours                        | 6,1 5,5       | 0: 6,1-6,1 9 10:30-11:00 1
        header: the first cell             | 6,1 0,2       | 0: 1,1-1,1 9 07:30-08:30 1 R1 1/1
        drawn up to the header             | 6,1 5,2>0,2   | 0: 1,1-1,1 9 07:30-08:30 1 R1 1/1
        closing row: the first cell        | 6,1 21,2      | 0: 1,1-1,1 9 07:30-08:30 1 R1 1/1
        drawn to the closing row           | 18,2>21,2     | 0: 18,2-20,2 10 16:30-18:00 0
        several columns: the first cell    | 6,1 5,2>6,3   | 0: 1,1-1,1 9 07:30-08:30 1 R1 1/1
        up to the hours, too               | 6,1 5,2>5,0   | 0: 1,1-1,1 9 07:30-08:30 1 R1 1/1)");
    verifie(journee(), R"(
        the left grid's first row          | 1,1           | 0: 1,1-1,1 9 08:00-08:30 1
        the right one's own slots          | d2,1          | 1: 2,1-2,1 9 09:00-09:30 1 R9 1/1
        its lunch                          | d3,1          | 1: 3,1-3,1 9 10:00-11:00 0
        its hours                          | 1,1 d1,0      | 0: 1,1-1,1 9 08:00-08:30 1
        its header                         | 1,1 d0,1      | 0: 1,1-1,1 9 08:00-08:30 1
        its closing row: the whole day     | d11,1         | 1: 2,1-2,1 9 09:00-09:30 1 R9 1/1
        the left one's                      | 21,1          | 0: 3,1-4,1 9 09:00-10:00 1 R2 1/1
        the other grid's                   | d1,1 7,1      | 0: 7,1-7,1 9 11:00-11:30 1)");
    Affichage tardive = semaine();
    tardive.grilles = {grille({.intervalle = 50, .heures = {"20:00", "21:00", "22:00", "23:59"}}, {})};
    verifie(tardive, "not past midnight | 5,1 | 0: 5,1-5,1 9 23:20-23:59 1");
    tardive.grilles[0].creneaux = {};
    verifie(tardive, "a grid that cannot be drawn | 1,1 | rien");
}

TEST(Selection, IsFoundAgainOnWhatIsShownNow) {
    const RangConfig heures{.affich = {1, 2, 0, 4, 5, 0, 0}};
    const RangConfig sansJeudi{.affich = {1, 2, 0, 0, 5, 0, 0}};
    const std::map<QString, std::function<void(Affichage &, QList<RendezVous> &)>> changements{
        {q("longer slots"),
         [&](Affichage &a, QList<RendezVous> &liste) { a.grilles[0] = grille(heures, liste); }},
        {q("moved"), [](Affichage &, QList<RendezVous> &liste) { liste[1].Date1 = QDate(2026, 3, 12); }},
        {q("deleted"), [](Affichage &, QList<RendezVous> &liste) { liste.remove(1); }},
        {q("last deleted"), [](Affichage &, QList<RendezVous> &liste) { liste.remove(4); }},
        {q("taken"), [](Affichage &, QList<RendezVous> &liste) { liste << rdv(10, "11:00", "12:00", 12); }},
        {q("hidden"), [&](Affichage &a, QList<RendezVous> &) { a.grilles[0] = grille(sansJeudi, {}); }},
        {q("next week"), [](Affichage &a, QList<RendezVous> &) { a.demande.jour = QDate(2026, 3, 19); }},
        {q("another day"), [](Affichage &a, QList<RendezVous> &) { a.demande.jour = QDate(2026, 3, 17); }},
        {q("not drawn"), [](Affichage &a, QList<RendezVous> &) { a.grilles[0].creneaux = {}; }},
        {q("other's"), [](Affichage &a, QList<RendezVous> &) { a.demande.PraticienCourant = q("02"); }}};
    for (const QStringList &c : tableau(R"(
        3,1     | longer slots | 0: 2,1-2,1 9 09:00-10:00 1 R2 1/2
        6,3>7,3 | longer slots | 0: 3,3-4,3 12 10:00-12:00 1
        20,1    | longer slots | 0: 10,1-10,1 9 17:15-18:15 1 R5 1/1
        3,1     | moved        | 0: 3,3-4,3 12 09:00-10:00 1 R2 1/1
        3,1     | deleted      | rien
        20,1    | last deleted | 0: 19,1-20,1 9 17:00-18:00 1
        6,3>7,3 | taken        | rien
        6,3>7,3 | hidden       | rien
        6,3>7,3 | next week    | 0: 6,3-7,3 19 10:30-11:30 1
        6,3>7,3 | another day  | rien
        3,1     | not drawn    | rien
        6,3>7,3 | other's      | 0: 6,3-7,3 12 10:30-11:30 1
        5,2 5,2 | other's      | rien)")) {
        Affichage maintenant = semaine();
        changements.at(c[1])(maintenant, maintenant.grilles[0].rendezVous);
        const Selection trouvee = Reprend(maintenant, semaine(), apres(semaine(), c[0]));
        EXPECT_EQ(vu(trouvee), c[2].toStdString()) << c[1].toStdString();
    }
    const Selection droite = apres(journee(), q("d3,1"));
    EXPECT_EQ(vu(Reprend(journee(), journee(), droite)), "1: 3,1-3,1 9 10:00-11:00 0");
    EXPECT_EQ(vu(Reprend(semaine(), journee(), droite)), "rien");
    EXPECT_EQ(vu(Reprend(semaine(), journee(), apres(journee(), q("d5,1")))), "0: 9,1-10,1 9 12:00-13:00 0");
    EXPECT_EQ(vu(SelectionneRDV(journee(), 9)), "1: 2,1-2,1 9 09:00-09:30 1 R9 1/1");
    EXPECT_EQ(vu(SelectionneRDV(journee(), 1)), "rien");
}

TEST(Selection, SaysWhatItHoldsAndWhereItBooks) {
    const Affichage affichage = semaine();
    Selection deuxieme = apres(affichage, q("5,2 5,2"));
    EXPECT_TRUE(deuxieme.suivant);
    EXPECT_EQ(TexteEtatRDV(deuxieme), q("2 sur 2 : R7 "));
    deuxieme.rdv->Nom = q(" D'ARC ");
    deuxieme.rdv->Prenom = q("Jeanne");
    deuxieme.rdv->Description = q("bilan");
    deuxieme.nombre = 1;
    EXPECT_EQ(TexteEtatRDV(deuxieme), q("D'ARC Jeanne   [ bilan ]"));
    EXPECT_EQ(InfoBulleRDV(deuxieme), q("RDV: 10:15 à 10:30 pour  D'ARC  Jeanne, descripif : bilan"));
    EXPECT_EQ(InfoBulleRDV({}), QString());
    const PlaceRDV place = PlaceDe(journee(), apres(journee(), q("d3,1")));
    EXPECT_EQ(place.FauteuilCourant, q("2"));
    EXPECT_EQ(place.Intervalle, 60);
    EXPECT_EQ(place.horaire.debut, QTime(10, 0));
    EXPECT_EQ(place.ChoixHoraire, 0) << "lunch";
}

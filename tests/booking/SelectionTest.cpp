#include "booking/Selection.h"

#include <gtest/gtest.h>

namespace {

QTime h(const char *text) {
    return QTime::fromString(QString::fromLatin1(text), QStringLiteral("HH:mm"));
}

/// 08:00 … 18:00 by 15 minutes: rows 1 … 40, closing row 41.
Configuration config() {
    Configuration c;
    c.NbJours = 5;
    c.JourAffich = {1, 2, 3, 4, 5, 0, 0};
    c.Intervalle = 15;
    c.HeureMatDebut = h("08:00");
    c.HeureMatFin = h("12:00");
    c.HeurePMDebut = h("14:00");
    c.HeurePMFin = h("18:00");
    return c;
}
constexpr int lignes = 42;

RendezVous rdv(qint64 ref, const char *debut, const char *fin) {
    RendezVous r;
    r.RefRDV = ref;
    r.Nom = QStringLiteral("ROUX");
    r.HeureDebut = h(debut);
    r.HeureFin = h(fin);
    return r;
}

ContexteSelection analyse(const char *debut, const char *fin, const QList<RendezVous> &jour) {
    return AnalyseSelection(config(), {h(debut), h(fin)}, jour, lignes);
}

} // namespace

TEST(Selection, WhatTheGridMustCorrectFirst) {
    struct Row {
        const char *name = nullptr;
        CoinsSelection coins;
        Correction attendue = Correction::Aucune;
    };
    for (const Row &row :
         {Row{"one slot", {5, 2, 5, 2}, Correction::Aucune},
          Row{"drawn upwards", {9, 2, 5, 2}, Correction::Aucune},
          Row{"two days", {5, 2, 5, 3}, Correction::PlusieursColonnes},
          Row{"two days up to the hours", {5, 2, 5, 0}, Correction::PlusieursColonnes},
          Row{"header", {0, 2, 0, 2}, Correction::PremiereCellule},
          Row{"drawn up to the header", {5, 2, 0, 2}, Correction::PremiereCellule},
          Row{"left hours", {5, 0, 5, 0}, Correction::PremiereCellule},
          Row{"right hours", {5, 6, 5, 6}, Correction::PremiereCellule},
          Row{"drawn to the closing row", {5, 2, 41, 2}, Correction::RemonteFin},
          Row{"closing row", {41, 2, 41, 2}, Correction::PremiereCellule},
          Row{"drawn up from the closing row", {41, 2, 39, 2}, Correction::PremiereCellule}}) {
        EXPECT_EQ(CorrigeSelection(row.coins, lignes, 7), row.attendue) << row.name;
    }
}

TEST(Selection, RowsAreTimesFromTheirGridsStart) {
    const PlageHoraire matin = HorairesDesLignes(h("08:00"), 15, 5, 6);
    EXPECT_EQ(matin.debut, h("09:00"));
    EXPECT_EQ(matin.fin, h("09:30"));
    EXPECT_EQ(HorairesDesLignes(h("14:00"), 30, 1, 1).fin, h("14:30"));
}

TEST(Selection, ColumnsAreDisplayedDaysOfTheWeek) {
    const QDate mercredi(2026, 3, 11);
    EXPECT_EQ(JourDeColonne(mercredi, {1, 2, 0, 4, 5, 0, 0}, 3), QDate(2026, 3, 12)) << "Wednesday is hidden";
    EXPECT_EQ(JourDeColonne(QDate(2026, 3, 15), {1, 2, 3, 4, 5, 6, 7}, 7), QDate(2026, 3, 15));
    EXPECT_FALSE(JourDeColonne(mercredi, {1, 2, 3, 4, 5, 0, 0}, 6));
    EXPECT_FALSE(JourDeColonne(mercredi, {1, 2, 3, 4, 5, 0, 0}, 0));
}

TEST(Selection, FreeExactAndPartial) {
    const QList<RendezVous> jour{rdv(1, "09:00", "10:00"), rdv(2, "10:00", "10:15")};
    struct Row {
        const char *debut;
        const char *fin;
        qint64 ref; ///< 0: free
        bool partiel;
    };
    for (const Row &row :
         {Row{"08:45", "09:00", 0, false}, Row{"10:15", "10:30", 0, false}, Row{"09:00", "10:00", 1, false},
          Row{"09:15", "09:30", 1, true}, Row{"08:45", "09:15", 1, true}, Row{"09:45", "10:30", 1, true},
          Row{"10:00", "10:15", 2, false}, Row{"08:00", "18:00", 1, true}}) {
        const ContexteSelection contexte = analyse(row.debut, row.fin, jour);
        EXPECT_EQ(contexte.SelectionLibre, row.ref == 0) << row.debut;
        EXPECT_EQ(contexte.rdv.RefRDV, row.ref) << row.debut;
        EXPECT_EQ(contexte.RDVPartiel, row.partiel) << row.debut;
    }
}

TEST(Selection, AnAppointmentTakesItsOwnTimesAndRows) {
    const ContexteSelection partiel = analyse("09:15", "09:30", {rdv(1, "09:05", "09:50")});
    EXPECT_EQ(partiel.horaire.debut, h("09:05"));
    EXPECT_EQ(partiel.horaire.fin, h("09:50"));
    EXPECT_EQ(partiel.premiereLigne, 5);
    EXPECT_EQ(partiel.derniereLigne, 8);
    const ContexteSelection exact = analyse("09:00", "10:00", {rdv(1, "09:00", "10:00")});
    EXPECT_EQ(exact.premiereLigne, 0) << "nothing to widen";
    const ContexteSelection libre = analyse("09:00", "09:30", {});
    EXPECT_EQ(libre.horaire.fin, h("09:30"));
}

TEST(Selection, AnAppointmentBeyondTheGridLeavesTheSelectionAsItIs) {
    struct Row {
        const char *debut;
        const char *fin;
        const char *vuDe;
        const char *vuA;
        bool hors;
    };
    for (const Row &row :
         {Row{"07:30", "08:30", "08:00", "08:15", true}, Row{"17:30", "19:00", "17:45", "18:00", true},
          Row{"08:00", "18:00", "09:00", "09:15", false}}) {
        const ContexteSelection contexte = analyse(row.vuDe, row.vuA, {rdv(1, row.debut, row.fin)});
        EXPECT_EQ(contexte.RDVHorsGrille, row.hors) << row.debut;
        EXPECT_EQ(contexte.premiereLigne > 0, !row.hors) << row.debut;
        EXPECT_EQ(contexte.rdv.RefRDV, 1) << row.debut;
    }
}

TEST(Selection, AnAppointmentWithoutLengthOrTimeIsNeverSelected) {
    EXPECT_TRUE(
        analyse("09:00", "09:30", {rdv(1, "09:15", "09:15"), rdv(2, "", "10:00"), rdv(3, "09:30", "09:00")})
            .SelectionLibre);
}

TEST(Selection, Texts) {
    const QString nom = QStringLiteral(" D'ARC ");
    EXPECT_EQ(TexteEtatRDV(nom, QStringLiteral("Jeanne"), QStringLiteral("bilan")),
              QStringLiteral("D'ARC Jeanne   [ bilan ]"));
    EXPECT_EQ(TexteEtatRDV(nom, QStringLiteral("Jeanne"), QStringLiteral(" ")),
              QStringLiteral("D'ARC Jeanne"));
    EXPECT_EQ(InfoBulleRDV(QStringLiteral("%1"), QStringLiteral("Léa"), QString(), QStringLiteral("09:00"),
                           QStringLiteral("09:30")),
              QStringLiteral("RDV: 09:00 à 09:30 pour %1 Léa, descripif : "));
}

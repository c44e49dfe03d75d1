#include "schedule/Creneaux.h"

#include <gtest/gtest.h>

namespace {

QTime h(const char *text) {
    return QTime::fromString(QString::fromLatin1(text), QStringLiteral("HH:mm"));
}

Configuration config(const char *matDebut, const char *matFin, const char *pmDebut, const char *pmFin,
                     int intervalle) {
    Configuration c;
    c.NbJours = 5;
    c.JourAffich = {1, 2, 3, 4, 5, 0, 0};
    c.JourRepos = 7;
    c.Intervalle = intervalle;
    c.HeureMatDebut = h(matDebut);
    c.HeureMatFin = h(matFin);
    c.HeurePMDebut = h(pmDebut);
    c.HeurePMFin = h(pmFin);
    return c;
}

const Configuration ordinaire = config("08:00", "12:00", "14:00", "18:00", 15);
const Configuration bancale = config("08:00", "12:10", "14:00", "18:50", 15);

} // namespace

TEST(Creneaux, MaxIntRoundsAwayFromZeroAboveItAndDownBelow) {
    EXPECT_EQ(MaxInt(2.0), 2);
    EXPECT_EQ(MaxInt(2.01), 3);
    EXPECT_EQ(MaxInt(0), 0);
    EXPECT_EQ(MaxInt(-0.5), -1);
    EXPECT_EQ(MaxInt(-1.0), -1);
}

TEST(Creneaux, RowsLabelsAndLunch) {
    EXPECT_EQ(NbLignes(ordinaire), 42);
    EXPECT_EQ(CreneauxSemaine(ordinaire).heure(1), h("08:00"));
    EXPECT_EQ(CreneauxSemaine(ordinaire).heure(41), h("18:00"));
    EXPECT_EQ(PremiereLigneMidi(ordinaire), 17);
    EXPECT_EQ(DerniereLigneMidi(ordinaire), 24);
    EXPECT_EQ(NbLignes02(ordinaire), 42);
    EXPECT_EQ(NbLignes03(ordinaire), 18);

    EXPECT_EQ(NbLignes(bancale), 46);
    EXPECT_EQ(CreneauxSemaine(bancale).heure(45), h("19:00"));
    EXPECT_EQ(PremiereLigneMidi(bancale), 18) << "the slot that straddles the end of the morning stays white";
    EXPECT_EQ(DerniereLigneMidi(bancale), 24);

    const Configuration continue_ = config("08:00", "13:00", "13:00", "18:00", 30);
    EXPECT_GT(PremiereLigneMidi(continue_), DerniereLigneMidi(continue_)) << "no lunch row";
}

TEST(Creneaux, AnAppointmentCoversEveryRowThatItTouches) {
    const Creneaux c = CreneauxSemaine(ordinaire);
    const auto rows = [&](const char *debut, const char *fin) {
        return std::pair(c.premiereLigne(h(debut)), c.derniereLigne(h(fin)));
    };
    EXPECT_EQ(rows("10:00", "10:45"), std::pair(9, 11));
    EXPECT_EQ(rows("10:05", "10:10"), std::pair(9, 9));
    EXPECT_EQ(rows("10:14", "10:16"), std::pair(9, 10));
    EXPECT_EQ(rows("07:59", "08:01"), std::pair(0, 1));
    EXPECT_EQ(rows("07:30", "08:00"), std::pair(-1, 0));
    EXPECT_EQ(rows("17:45", "18:00"), std::pair(40, 40));
}

TEST(Creneaux, ColumnsSkipUndisplayedDays) {
    const std::array<int, 7> sansMercredi{1, 2, 0, 4, 5, 0, 0};
    EXPECT_EQ(ColonneDuJour(4, sansMercredi), 3);
    EXPECT_EQ(ColonneDuJour(3, sansMercredi), 0);
    EXPECT_EQ(ColonneDuJour(4, {0, 0, 3, 4, 5, 6, 7}), 2);
}

TEST(Creneaux, WeeksBeginOnMonday) {
    EXPECT_EQ(Lundi(QDate(2026, 3, 15)), QDate(2026, 3, 9));
    EXPECT_EQ(Lundi(QDate(2026, 3, 9)), QDate(2026, 3, 9));
    EXPECT_EQ(Lundi(QDate(2026, 1, 1)), QDate(2025, 12, 29));
    EXPECT_EQ(PremierJourAffiche(QDate(2026, 3, 14), ordinaire.JourAffich), QDate(2026, 3, 16))
        << "a Saturday";
    EXPECT_EQ(PremierJourAffiche(QDate(2026, 3, 11), ordinaire.JourAffich), QDate(2026, 3, 11));
    EXPECT_EQ(PremierJourAffiche(QDate(2026, 3, 11), {}), QDate(2026, 3, 11)) << "no displayed day: it ends";
}

TEST(Creneaux, HoraireProfClassifiesAgainstWorkingHours) {
    struct Row {
        int grise;
        const char *debut;
        const char *fin;
        int attendu;
    };
    for (const Row &row :
         {Row{0, "09:00", "09:30", 1}, Row{0, "12:30", "13:00", 0}, Row{0, "11:30", "12:30", 2},
          Row{0, "12:00", "14:00", 0}, Row{0, "13:30", "14:30", 2}, Row{0, "11:00", "12:00", 1},
          Row{0, "14:00", "14:15", 1}, Row{0, "11:00", "15:00", 2}, Row{1, "09:00", "10:00", 0},
          Row{1, "13:30", "14:00", 0}, Row{1, "13:30", "14:15", 2}, Row{1, "14:00", "15:00", 1},
          Row{2, "11:00", "12:00", 1}, Row{2, "12:00", "13:00", 0}, Row{2, "11:30", "12:15", 2},
          Row{3, "09:00", "10:00", 0}}) {
        Configuration c = ordinaire;
        c.JourGrise[2] = row.grise;
        EXPECT_EQ(HoraireProf(c, 3, h(row.debut), h(row.fin)), row.attendu)
            << row.grise << ' ' << row.debut << ' ' << row.fin;
    }
    EXPECT_EQ(HoraireProf(ordinaire, 6, h("09:00"), h("10:00")), 0) << "Saturday is not displayed";
}

TEST(Configuration, TellsWhyItCannotBeDrawn) {
    EXPECT_EQ(DefautConfiguration(ordinaire), QString());
    EXPECT_EQ(DefautConfiguration(bancale), QString());
    EXPECT_NE(DefautConfiguration({}), QString());
    Configuration c = ordinaire;
    c.Intervalle = 0;
    EXPECT_NE(DefautConfiguration(c), QString());
    EXPECT_NE(DefautConfiguration(config("14:00", "12:00", "14:00", "18:00", 15)), QString());
    EXPECT_NE(DefautConfiguration(config("08:00", "12:00", "14:00", "", 15)), QString());
    EXPECT_NE(DefautConfiguration(config("08:00", "08:00", "08:00", "08:00", 15)), QString());
    c = ordinaire;
    c.NbJours = 30000;
    EXPECT_NE(DefautConfiguration(c), QString());
}

TEST(Configuration, MenuNumbers) {
    EXPECT_EQ(NumeroFauteuil(LibelleFauteuil(QStringLiteral("2"))), 2);
    EXPECT_EQ(NumeroFauteuil(QString()), 0);
    EXPECT_EQ(NumeroPraticien(2), QStringLiteral("03"));
    EXPECT_EQ(NumeroPraticien(9), QStringLiteral("010"));
    EXPECT_EQ(CLng(QStringLiteral(" 010 ")), 10);
    EXPECT_EQ(CLng(QStringLiteral("dix")), 0);
}

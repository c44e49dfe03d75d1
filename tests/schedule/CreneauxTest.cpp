#include "schedule/Creneaux.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

QTime h(const char *texte) {
    return QTime::fromString(q(texte), q("HH:mm"));
}

const Configuration ordinaire = configDe({.intervalle = 15});

} // namespace

TEST(Creneaux, RowsLabelsAndLunch) {
    struct Cas {
        RangConfig rang;
        int lignes;
        const char *fermeture;
        int midi;
        int finMidi;
        int lignesPM;
    };
    for (const Cas &cas :
         {Cas{{.intervalle = 15}, 42, "18:00", 17, 24, 18},
          // the slot that straddles the end of the morning stays white
          Cas{{.intervalle = 15, .heures = {"08:00", "12:10", "14:00", "18:50"}}, 46, "19:00", 18, 24, 22},
          Cas{{.intervalle = 30, .heures = {"08:00", "13:00", "13:00", "18:00"}}, 22, "18:00", 11, 10, 12},
          Cas{{.intervalle = 7, .heures = {"08:00", "12:00", "14:00", "18:00"}}, 88, "18:02", 36, 52, 37},
          Cas{{.intervalle = 50, .heures = {"20:00", "21:00", "22:00", "23:59"}}, 7, "00:10", 3, 3, 5}}) {
        const Configuration config = configDe(cas.rang);
        SCOPED_TRACE(cas.fermeture);
        EXPECT_EQ(NbLignes(config), cas.lignes);
        EXPECT_EQ(NbLignes02(config), cas.lignes);
        EXPECT_EQ(NbLignes03(config), cas.lignesPM);
        EXPECT_EQ(CreneauxSemaine(config).heure(cas.lignes - 1), h(cas.fermeture));
        EXPECT_EQ(std::pair(PremiereLigneMidi(config), DerniereLigneMidi(config)),
                  std::pair(cas.midi, cas.finMidi));
    }
}

TEST(Creneaux, AnAppointmentCoversEveryRowThatItTouches) {
    const Creneaux c = CreneauxSemaine(ordinaire);
    const auto lignes = [&](const char *debut, const char *fin) {
        return std::pair(c.premiereLigne(h(debut)), c.derniereLigne(h(fin)));
    };
    EXPECT_EQ(lignes("10:00", "10:45"), std::pair(9, 11));
    EXPECT_EQ(lignes("10:05", "10:10"), std::pair(9, 9));
    EXPECT_EQ(lignes("10:14", "10:16"), std::pair(9, 10));
    EXPECT_EQ(lignes("07:59", "08:01"), std::pair(0, 1));
    EXPECT_EQ(lignes("07:30", "08:00"), std::pair(-1, 0));
    EXPECT_EQ(lignes("17:45", "18:15"), std::pair(40, 41));
    EXPECT_EQ(MaxInt(-0.5), -1);
}

TEST(Creneaux, WeeksBeginOnMondayAndSkipHiddenDays) {
    const std::array<int, 7> sansMercredi{1, 2, 0, 4, 5, 0, 0};
    EXPECT_EQ(ColonneDuJour(4, sansMercredi), 3);
    EXPECT_EQ(ColonneDuJour(3, sansMercredi), 0);
    EXPECT_EQ(ColonneDuJour(4, {0, 0, 3, 4, 5, 6, 7}), 2);
    EXPECT_EQ(Lundi(QDate(2026, 3, 15)), QDate(2026, 3, 9));
    EXPECT_EQ(Lundi(QDate(2026, 3, 9)), QDate(2026, 3, 9));
    EXPECT_EQ(PremierJourAffiche(QDate(2026, 3, 14), ordinaire.JourAffich), QDate(2026, 3, 16))
        << "a Saturday";
    EXPECT_EQ(PremierJourAffiche(QDate(2026, 3, 11), ordinaire.JourAffich), QDate(2026, 3, 11));
    EXPECT_EQ(PremierJourAffiche(QDate(2026, 3, 11), {}), QDate(2026, 3, 11)) << "no displayed day: it ends";
}

TEST(Creneaux, HoraireProfClassifiesAgainstWorkingHours) {
    struct Cas {
        int grise;
        const char *debut;
        const char *fin;
        int attendu;
    };
    for (const Cas &cas :
         {Cas{0, "09:00", "09:30", 1}, Cas{0, "12:30", "13:00", 0}, Cas{0, "11:30", "12:30", 2},
          Cas{0, "12:00", "14:00", 0}, Cas{0, "13:30", "14:30", 2}, Cas{0, "11:00", "12:00", 1},
          Cas{0, "14:00", "14:15", 1}, Cas{0, "11:00", "15:00", 2}, Cas{1, "09:00", "10:00", 0},
          Cas{1, "13:30", "14:00", 0}, Cas{1, "13:30", "14:15", 2}, Cas{1, "14:00", "15:00", 1},
          Cas{2, "11:00", "12:00", 1}, Cas{2, "12:00", "13:00", 0}, Cas{2, "11:30", "12:15", 2},
          Cas{3, "09:00", "10:00", 0}}) {
        Configuration config = ordinaire;
        config.JourGrise[2] = cas.grise;
        EXPECT_EQ(HoraireProf(config, 3, h(cas.debut), h(cas.fin)), cas.attendu)
            << cas.grise << ' ' << cas.debut << ' ' << cas.fin;
    }
    EXPECT_EQ(HoraireProf(ordinaire, 6, h("09:00"), h("10:00")), 0) << "Saturday is not displayed";
}

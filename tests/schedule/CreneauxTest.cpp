#include "schedule/Creneaux.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

QTime h(const QString &texte) {
    return QTime::fromString(texte, q("HH:mm"));
}

const Configuration ordinaire = configDe({.intervalle = 15});

} // namespace

TEST(Creneaux, RowsLabelsAndLunch) {
    for (const QStringList &cas : tableau(R"(
        15 | 08:00 12:00 14:00 18:00 | 42 rows, lunch 17 to 24, closing at 18:00, afternoon 18
        15 | 08:00 12:10 14:00 18:50 | 46 rows, lunch 18 to 24, closing at 19:00, afternoon 22
        30 | 08:00 13:00 13:00 18:00 | 22 rows, lunch 11 to 10, closing at 18:00, afternoon 12
        7  | 08:00 12:00 14:00 18:00 | 88 rows, lunch 36 to 52, closing at 18:02, afternoon 37
        50 | 20:00 21:00 22:00 23:59 | 7 rows, lunch 3 to 3, closing at 00:10, afternoon 5)")) {
        const QList<QByteArray> h = cas[1].toLatin1().split(' ');
        const auto config = configDe({.intervalle = cas[0].toInt(), .heures = {h[0], h[1], h[2], h[3]}});
        const int lignes = NbLignes(config);
        EXPECT_EQ(q("%1 rows, lunch %2 to %3, closing at %4, afternoon %5")
                      .arg(lignes)
                      .arg(PremiereLigneMidi(config))
                      .arg(DerniereLigneMidi(config))
                      .arg(CreneauxSemaine(config).heure(lignes - 1).toString(q("HH:mm")))
                      .arg(NbLignes03(config)),
                  cas[2]);
    }
    EXPECT_EQ(CreneauxSemaine(ordinaire).premiereLigne(QTime(7, 59)), 0) << "above the first";
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
    for (const QStringList &cas : tableau(R"(
        0 | 09:00 09:30 1, 12:30 13:00 0, 11:30 12:30 2, 12:00 14:00 0, 13:30 14:30 2, 11:00 12:00 1, 14:00 14:15 1, 11:00 15:00 2
        1 | 09:00 10:00 0, 13:30 14:00 0, 13:30 14:15 2, 14:00 15:00 1
        2 | 11:00 12:00 1, 12:00 13:00 0, 11:30 12:15 2
        3 | 09:00 10:00 0)")) {
        Configuration config = ordinaire;
        config.JourGrise[2] = cas[0].toInt();
        for (const QString &plage : cas[1].split(q(", "))) {
            const QStringList mots = plage.split(u' ');
            EXPECT_EQ(HoraireProf(config, 3, h(mots[0]), h(mots[1])), mots[2].toInt()) << cas[0] << plage;
        }
    }
    EXPECT_EQ(HoraireProf(ordinaire, 6, h(q("09:00")), h(q("10:00"))), 0) << "Saturday is not displayed";
}

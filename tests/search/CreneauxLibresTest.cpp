#include "search/CreneauxLibres.h"
#include "support/Livre.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const QDate lundi(2005, 3, 7);

QTime h(const QString &texte) {
    return QTime::fromString(texte, Qt::ISODate);
}
std::string heures(const QList<QTime> &debuts) {
    QStringList textes;
    for (const QTime debut : debuts) {
        textes << debut.toString(q("HH:mm"));
    }
    return textes.join(u' ').toStdString();
}
Configuration configuration(const std::array<QTime, 4> &bornes, int grise) {
    Configuration config = configDe();
    config.JourGrise.fill(grise);
    std::tie(config.HeureMatDebut, config.HeureMatFin, config.HeurePMDebut, config.HeurePMFin) =
        std::tuple_cat(bornes);
    return config;
}

/// The same asked minute by minute.
QList<QTime> pointParPoint(const Configuration &c, int grise, int duree, int pas,
                           const QList<RendezVous> &jour) {
    const auto minute = [](QTime t) { return t.msecsSinceStartOfDay() / 60000; };
    const int midi = minute(c.HeureMatFin);
    const int reprise = minute(c.HeurePMDebut);
    const int fin = grise == 2 ? midi : minute(c.HeurePMFin);
    QList<QTime> debuts;
    for (int t = grise == 1 ? reprise : minute(c.HeureMatDebut); t < fin && t + duree <= fin; t += pas) {
        if ((t >= midi && t < reprise) || (t + duree > midi && t + duree <= reprise)) {
            t = reprise;
        }
        bool libre = true;
        for (int point = t; point < t + duree; point += pas) {
            libre = libre && std::ranges::none_of(jour, [&](const RendezVous &r) {
                        return r.HeureDebut.isValid() && minute(r.HeureDebut) <= point % 1440 &&
                               minute(r.HeureFin) > point % 1440;
                    });
        }
        if (libre) {
            debuts << QTime(t / 60, t % 60);
        }
    }
    return debuts;
}

} // namespace

TEST(CreneauxLibres, StartsOfADay) {
    for (const QStringList &cas : tableau(R"(
        an hour                      | 08:00 12:00 14:00 18:00 | 0 | 30 | 01:00 |             | 08:00 08:30 09:00 09:30 10:00 10:30 11:00 14:00 14:30 15:00 15:30 16:00 16:30 17:00
        greyed morning               | 08:00 12:00 14:00 18:00 | 1 | 60 | 01:00 |             | 14:00 15:00 16:00 17:00
        greyed afternoon             | 08:00 12:00 14:00 18:00 | 2 | 60 | 01:00 |             | 08:00 09:00 10:00 11:00
        the evening ends at midnight | 08:00 12:00 23:00 23:45 | 1 | 30 | 00:30 |             | 23:00
        afternoon off the rows       | 08:00 12:00 14:00 18:00 | 0 | 50 | 00:50 |             | 08:00 08:50 09:40 10:30 14:00 14:50 15:40 16:30
        nothing asks the jump again  | 10:00 12:00 14:00 15:00 | 0 | 30 | 01:30 |             | 10:00 10:30 14:00
        over lunch                   | 08:30 12:00 13:00 18:00 | 0 | 60 | 05:00 |             | 08:30 09:30 10:30 11:30 13:00
        a step begun counts          | 09:00 10:00 10:00 10:30 | 0 | 15 | 00:20 | 09:15 09:30 | 09:30 09:45 10:00
        points only                  | 09:00 09:30 09:30 09:30 | 0 | 15 | 00:15 | 09:10 09:20 | 09:00
        nothing is wanted            | 08:00 09:00 09:00 09:00 | 0 | 30 | 00:00 | 08:00 09:00 | 08:00 08:30
        longer than the day          | 08:00 12:00 14:00 18:00 | 0 | 15 | 10:15 |             |
        no step                      | 08:00 12:00 14:00 18:00 | 0 | 0  | 00:15 |             |)")) {
        const QStringList b = cas[1].split(u' ');
        QList<RendezVous> jour(cas[5].isEmpty() ? 0 : 1);
        for (RendezVous &rdv : jour) {
            std::tie(rdv.HeureDebut, rdv.HeureFin) = std::pair(h(cas[5].left(5)), h(cas[5].right(5)));
        }
        const Configuration config = configuration({h(b[0]), h(b[1]), h(b[2]), h(b[3])}, cas[2].toInt());
        EXPECT_EQ(heures(DebutsLibres(config, lundi, h(cas[4]), cas[3].toInt(), jour)), cas[6].toStdString())
            << cas[0].toStdString();
    }
}

TEST(CreneauxLibres, AnyDayIsSearchedAsPointByPoint) {
    std::mt19937 hasard(20260311); // NOLINT(cert-msc51-cpp): the same books each time
    const auto entre = [&](int bas, int haut) { return std::uniform_int_distribution(bas, haut)(hasard); };
    int offerts = 0;
    for (int essai = 0; essai < 4000; ++essai) {
        std::array<QTime, 4> bornes;
        std::ranges::generate(bornes, [&] { return QTime(entre(0, 23), entre(0, 11) * 5); });
        std::ranges::sort(bornes);
        const int grise = entre(0, 2);
        QList<RendezVous> jour(entre(0, 12));
        for (RendezVous &r : jour) {
            r.HeureDebut = entre(0, 20) == 0 ? QTime() : QTime(entre(0, 23), entre(0, 59), entre(0, 59));
            r.HeureFin = r.HeureDebut.addSecs(entre(-5, 90) * 60);
        }
        const int pas = std::array{5, 7, 10, 15, 20, 25, 30, 45, 50, 60}[size_t(entre(0, 9))];
        const int duree = entre(0, 5) == 0 ? entre(0, 1439) : pas * entre(1, 6);
        const Configuration config = configuration(bornes, grise);
        const QList<QTime> trouves = DebutsLibres(config, lundi, QTime(duree / 60, duree % 60), pas, jour);
        offerts += int(trouves.size());
        ASSERT_EQ(heures(trouves), heures(pointParPoint(config, grise, duree, pas, jour)))
            << "book " << essai << ", step " << pas << ", length " << duree;
    }
    EXPECT_GT(offerts, 10'000);
}

TEST(CreneauxLibres, ArrowsAndPlaces) {
    for (const QStringList &cas : tableau(R"(
        15 | 00:30 | 00:45 | 00:30
        15 | 00:45 | 01:00 | 00:30
        20 | 00:20 | 00:40 | 00:20
        20 | 23:20 | 23:20 | 23:00
        15 | 23:15 | 23:30 | 23:00
        15 | 23:30 | 23:30 | 23:15)")) {
        EXPECT_EQ(DureePlusLongue(h(cas[1]), cas[0].toInt()), h(cas[2])) << cas[1].toStdString();
        EXPECT_EQ(DureePlusCourte(h(cas[1]), cas[0].toInt()), h(cas[3])) << cas[1].toStdString();
    }
    for (const QStringList &cas : tableau(R"(
        7  | 09:00 | 01:00 | 10:00 | 1
        7  | 12:00 | 01:00 | 13:00 | 0
        12 | 09:00 | 01:00 | 10:00 | 0
        7  | 23:00 | 01:00 | 23:59 | 1)")) {
        const DemandeCreneau demande{q("01"), configDe(), lundi, h(cas[2])};
        const PlaceRDV place = PlaceLibre(demande, QDate(2005, 3, cas[0].toInt()), h(cas[1]));
        EXPECT_EQ(place.horaire, (PlageHoraire{h(cas[1]), h(cas[3])})) << cas[1].toStdString();
        EXPECT_EQ(place.ChoixHoraire, cas[4].toInt()) << cas[1].toStdString();
    }
}

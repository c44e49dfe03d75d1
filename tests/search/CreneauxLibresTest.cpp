#include "search/CreneauxLibres.h"
#include "support/Livre.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const QDate lundi(2005, 3, 7);

QTime h(const QString &texte) {
    return QTime::fromString(texte, Qt::ISODate);
}
/// "09:00-09:30 14:00-15:00"
QList<RendezVous> pris(const QString &texte) {
    QList<RendezVous> liste;
    for (const QString &plage : texte.split(u' ', Qt::SkipEmptyParts)) {
        liste << RendezVous();
        liste.last().HeureDebut = h(plage.section(u'-', 0, 0));
        liste.last().HeureFin = h(plage.section(u'-', 1));
    }
    return liste;
}
std::string heures(const QList<QTime> &debuts) {
    QStringList textes;
    for (const QTime debut : debuts) {
        textes << debut.toString(q("HH:mm"));
    }
    return textes.join(u' ').toStdString();
}
Configuration configuration(const QString &bornes, int grise) {
    const QStringList b = bornes.split(u' ');
    Configuration config = configDe();
    config.JourGrise.fill(grise);
    config.HeureMatDebut = h(b[0]);
    config.HeureMatFin = h(b[1]);
    config.HeurePMDebut = h(b[2]);
    config.HeurePMFin = h(b[3]);
    return config;
}

/// The same asked minute by minute, of a clock that is read back after each step.
QList<QTime> pointParPoint(const Configuration &c, int grise, int duree, int pas,
                           const QList<RendezVous> &rendezVous) {
    const auto minute = [](QTime t) { return t.msecsSinceStartOfDay() / 60000; };
    const auto occupe = [&](int point) {
        bool dedans = false;
        for (const RendezVous &r : rendezVous) {
            const bool connu = r.HeureDebut.isValid() && r.HeureFin.isValid();
            dedans |= connu && minute(r.HeureDebut) <= point && minute(r.HeureFin) > point;
        }
        return dedans;
    };
    QList<QTime> debuts;
    int t = minute(grise == 1 ? c.HeurePMDebut : c.HeureMatDebut);
    const int e = minute(grise == 2 ? c.HeureMatFin : c.HeurePMFin);
    while (grise != 3 && e - t >= 1 && t + duree <= e) {
        if ((t >= minute(c.HeureMatFin) && t < minute(c.HeurePMDebut)) ||
            (t + duree > minute(c.HeureMatFin) && t + duree <= minute(c.HeurePMDebut))) {
            t = minute(c.HeurePMDebut);
        }
        bool libre = true;
        for (int reste = duree, point = t; reste > 0; reste -= pas, point += pas) {
            libre = libre && !occupe(point % 1440);
        }
        if (libre) {
            debuts << QTime(t / 60, t % 60);
        }
        t += pas;
    }
    return debuts;
}

} // namespace

TEST(CreneauxLibres, StartsOfADay) {
    for (const QStringList &cas : tableau(R"(
        an hour                     | 08:00 12:00 14:00 18:00 | 0 | 30 | 01:00 |             | 08:00 08:30 09:00 09:30 10:00 10:30 11:00 14:00 14:30 15:00 15:30 16:00 16:30 17:00
        greyed morning              | 08:00 12:00 14:00 18:00 | 1 | 60 | 01:00 |             | 14:00 15:00 16:00 17:00
        greyed afternoon            | 08:00 12:00 14:00 18:00 | 2 | 60 | 01:00 |             | 08:00 09:00 10:00 11:00
        greyed day                  | 08:00 12:00 14:00 18:00 | 3 | 60 | 01:00 |             |
        the evening ends at midnight | 08:00 12:00 23:00 23:45 | 1 | 30 | 00:30 |            | 23:00
        afternoon off the rows      | 08:00 12:00 14:00 18:00 | 0 | 50 | 00:50 |             | 08:00 08:50 09:40 10:30 14:00 14:50 15:40 16:30
        nothing asks the jump again | 10:00 12:00 14:00 15:00 | 0 | 30 | 01:30 |             | 10:00 10:30 14:00
        over lunch                  | 08:30 12:00 13:00 18:00 | 0 | 60 | 05:00 |             | 08:30 09:30 10:30 11:30 13:00
        a step begun counts         | 09:00 10:00 10:00 10:30 | 0 | 15 | 00:20 | 09:15-09:30 | 09:30 09:45 10:00
        points only                 | 09:00 09:30 09:30 09:30 | 0 | 15 | 00:15 | 09:05-09:10 09:14-09:16 | 09:00
        the gap itself              | 08:00 12:00 12:00 12:00 | 0 | 15 | 01:00 | 08:00-09:00 10:00-12:00 | 09:00
        one step longer             | 08:00 12:00 12:00 12:00 | 0 | 15 | 01:15 | 08:00-09:00 10:00-12:00 |
        longer than the day         | 08:00 12:00 14:00 18:00 | 0 | 15 | 10:15 |             |
        no step                     | 08:00 12:00 14:00 18:00 | 0 | 0  | 00:15 |             |
        nothing is wanted           | 08:00 09:00 09:00 09:00 | 0 | 30 | 00:00 | 08:00-09:00 | 08:00 08:30)")) {
        EXPECT_EQ(heures(DebutsLibres(configuration(cas[1], cas[2].toInt()), lundi, h(cas[4]), cas[3].toInt(),
                                      pris(cas[5]))),
                  cas[6].toStdString())
            << cas[0].toStdString();
    }
}

TEST(CreneauxLibres, AnyDayIsSearchedAsPointByPoint) {
    std::mt19937 hasard(20260311); // NOLINT(cert-msc51-cpp): the same books each time
    const auto entre = [&](int bas, int haut) { return std::uniform_int_distribution(bas, haut)(hasard); };
    constexpr std::array pasPossibles{5, 7, 10, 15, 20, 25, 30, 45, 50, 60};
    int offerts = 0;
    for (int essai = 0; essai < 4000; ++essai) {
        std::array<int, 4> bornes{};
        std::ranges::generate(bornes, [&] { return entre(0, 287) * 5; });
        std::ranges::sort(bornes);
        Configuration config = configDe();
        QTime *const champs[] = {&config.HeureMatDebut, &config.HeureMatFin, &config.HeurePMDebut,
                                 &config.HeurePMFin};
        for (size_t i = 0; i < 4; ++i) {
            *champs[i] = QTime(bornes[i] / 60, bornes[i] % 60);
        }
        const int grise = entre(0, 3);
        config.JourGrise.fill(grise);
        QList<RendezVous> livre(entre(0, 12));
        for (RendezVous &r : livre) {
            r.HeureDebut = entre(0, 20) == 0 ? QTime() : QTime(entre(0, 23), entre(0, 59), entre(0, 59));
            r.HeureFin = r.HeureDebut.addSecs(entre(-5, 90) * 60);
        }
        const int pas = pasPossibles[size_t(entre(0, 9))];
        const int duree = entre(0, 5) == 0 ? entre(0, 1439) : pas * entre(1, 6);
        const QList<QTime> trouves = DebutsLibres(config, lundi, QTime(duree / 60, duree % 60), pas, livre);
        offerts += int(trouves.size());
        ASSERT_EQ(heures(trouves), heures(pointParPoint(config, grise, duree, pas, livre)))
            << "book " << essai << ", step " << pas << ", length " << duree;
    }
    EXPECT_GT(offerts, 10'000);
}

TEST(CreneauxLibres, ArrowsOfTheLength) {
    for (const QStringList &cas : tableau(R"(
        15  | 00:15 | 00:30 | 00:15
        15  | 00:30 | 00:45 | 00:30
        15  | 00:45 | 01:00 | 00:30
        20  | 00:40 | 01:00 | 00:20
        20  | 00:20 | 00:40 | 00:20
        20  | 23:20 | 23:20 | 23:00
        15  | 23:30 | 23:30 | 23:15
        50  | 00:50 | 01:40 | 00:50
        7   | 00:07 | 00:14 | 00:07)")) {
        const QTime duree = h(cas[1]);
        EXPECT_EQ(DureePlusLongue(duree, cas[0].toInt()), h(cas[2])) << cas[0].toStdString();
        EXPECT_EQ(DureePlusCourte(duree, cas[0].toInt()), h(cas[3])) << cas[0].toStdString();
    }
}

TEST(CreneauxLibres, WhereAStartBooks) {
    DemandeCreneau demande{q("01"), configDe(), lundi, {}};
    for (const QStringList &cas : tableau(R"(
        inside                    | 2005-03-07 | 09:00 | 01:00 | 10:00 | 1
        over lunch                | 2005-03-07 | 09:00 | 04:00 | 13:00 | 2
        at lunch                  | 2005-03-07 | 12:00 | 01:00 | 13:00 | 0
        a day that is not shown   | 2005-03-12 | 09:00 | 01:00 | 10:00 | 0
        midnight                  | 2005-03-07 | 23:00 | 01:00 | 23:59 | 1
        after midnight            | 2005-03-07 | 23:00 | 23:30 | 23:59 | 1)")) {
        demande.duree = h(cas[3]);
        const PlaceRDV place = PlaceLibre(demande, QDate::fromString(cas[1], Qt::ISODate), h(cas[2]));
        EXPECT_EQ(place.horaire, (PlageHoraire{h(cas[2]), h(cas[4])})) << cas[0].toStdString();
        EXPECT_EQ(place.ChoixHoraire, cas[5].toInt()) << cas[0].toStdString();
    }
}

#include "booking/Occupation.h"

#include <gtest/gtest.h>
#include <random>

namespace {

QTime h(const char *texte) {
    return QTime::fromString(QString::fromLatin1(texte), Qt::ISODate);
}

RendezVous rdv(QTime debut, QTime fin) {
    RendezVous r;
    r.RefRDV = 1;
    r.HeureDebut = debut;
    r.HeureFin = fin;
    return r;
}

RendezVous rdv(const char *debut, const char *fin) {
    return rdv(h(debut), h(fin));
}

} // namespace

TEST(Occupation, OneAppointmentAgainstARange) {
    struct Row {
        const char *name = nullptr;
        RendezVous present;
        PlageHoraire voulu;
        bool libre = false;
        bool here = false;
    };
    const Row rows[] = {
        {"begins at its end", rdv("09:00", "09:30"), {h("09:30"), h("10:00")}, true, false},
        {"ends at its start", rdv("09:00", "09:30"), {h("08:30"), h("09:00")}, true, false},
        {"the same", rdv("09:00", "09:30"), {h("09:00"), h("09:30")}, false, true},
        {"lies around it", rdv("09:15", "09:30"), {h("09:00"), h("10:00")}, false, false},
        {"lies within it", rdv("09:00", "11:00"), {h("09:30"), h("10:00")}, false, true},
        {"runs one minute into it", rdv("09:00", "09:30"), {h("08:00"), h("09:01")}, false, true},
        {"begins one minute before its end", rdv("09:00", "09:30"), {h("09:29"), h("10:00")}, false, true},
        {"seconds asked for do not count", rdv("09:30", "10:00"), {h("09:00"), h("09:30:59")}, true, false},
        {"stored seconds do", rdv("09:00", "09:30:30"), {h("09:30"), h("10:00")}, false, true},
        {"one without length counts", rdv("09:15", "09:15"), {h("09:00"), h("10:00")}, false, false},
        {"its end is not known", rdv("09:15", ""), {h("09:00"), h("10:00")}, false, false},
        {"its start is not known", rdv("", "10:30"), {h("09:00"), h("10:00")}, true, false},
        {"nothing of it is known", rdv("", ""), {h("00:00"), h("10:00")}, true, false}};
    for (const Row &row : rows) {
        EXPECT_EQ(HoraireLibre({row.present}, row.voulu), row.libre) << row.name;
        EXPECT_EQ(RDVHere({row.present}, row.voulu), row.here) << row.name;
        EXPECT_EQ(HoraireLibre({rdv("20:00", "21:00"), row.present}, row.voulu), row.libre) << row.name;
        EXPECT_TRUE(HoraireLibreSauf({row.present}, row.present.RefRDV, row.voulu)) << row.name;
        EXPECT_EQ(HoraireLibreSauf({row.present}, 2, row.voulu), row.libre) << row.name;
    }
}

TEST(Occupation, RangesToBook) {
    EXPECT_TRUE(EstReservable({h("09:00:59"), h("09:01")}));
    EXPECT_FALSE(EstReservable({h("09:00"), h("09:00:59")})) << "no minute";
    EXPECT_FALSE(EstReservable({h("23:45"), h("00:00")})) << "past midnight";
    EXPECT_FALSE(EstReservable({h("25:00"), h("09:00")})) << "no time";
}

TEST(Occupation, StepsOfADuration) {
    struct Row {
        const char *duree;
        int pas;
        int n;
    };
    for (const Row &row : {Row{"00:45", 15, 3}, Row{"00:00", 15, 0}, Row{"00:46", 15, 4}, Row{"00:10", 15, 1},
                           Row{"00:30:59", 15, 2}, Row{"23:59", 1, 1439}, Row{"00:45", 0, 0},
                           Row{"00:45", -15, 0}, Row{"", 15, 0}}) {
        EXPECT_EQ(NbIntervalles(h(row.duree), row.pas), row.n) << row.duree << " / " << row.pas;
    }
}

TEST(Occupation, PointsOfARange) {
    const QList<RendezVous> jour = {rdv("09:05", "09:10"), rdv("10:00", "10:30")};
    EXPECT_TRUE(PlageLibre(jour, h("10:00"), 15, 0)) << "no point";
    EXPECT_FALSE(PlageLibre(jour, h("10:00"), 15, 1)) << "a start is occupied";
    EXPECT_TRUE(PlageLibre(jour, h("10:30"), 15, 1)) << "an end is free";
    EXPECT_TRUE(PlageLibre(jour, h("09:00"), 15, 4)) << "what lies between two points is not seen";
    EXPECT_FALSE(PlageLibre(jour, h("09:00"), 15, 5));
}

namespace {

/// The rule as it is told: one point, then the rest of the range, the next point passing through its text.
bool pointParPoint(const QList<RendezVous> &jour, QTime heure, int pas, int n) {
    if (n == 0) {
        return true;
    }
    const auto minute = [](QTime t) { return t.msecsSinceStartOfDay() / 60'000; };
    bool occupe = false;
    for (const RendezVous &r : jour) {
        occupe =
            occupe || (minute(r.HeureDebut) - minute(heure) <= 0 && minute(r.HeureFin) - minute(heure) > 0);
    }
    const QString suivant = heure.addSecs(60 * pas).toString(QStringLiteral("HH:mm:ss"));
    return !occupe && pointParPoint(jour, QTime::fromString(suivant, QStringLiteral("HH:mm:ss")), pas, n - 1);
}

} // namespace

TEST(Occupation, AgreesWithTheLiteralRulesOnRandomDays) {
    for (unsigned graine = 0; graine < 500; ++graine) {
        std::mt19937 hasard(graine);
        const auto entre = [&](int a, int b) { return a + int(hasard() % unsigned(b - a + 1)); };
        QList<RendezVous> jour;
        for (int i = entre(0, 6); i > 0; --i) {
            const QTime debut = QTime(0, 0).addSecs(entre(0, 23 * 3600));
            jour << rdv(debut, debut.addSecs(entre(1, 3599)));
        }
        for (int essai = 0; essai < 40; ++essai) {
            const QTime heure = QTime(0, 0).addSecs(entre(0, 24 * 3600 - 1));
            const int pas = entre(1, 60);
            const int n = entre(0, 30);
            ASSERT_EQ(PlageLibre(jour, heure, pas, n), pointParPoint(jour, heure, pas, n))
                << "seed " << graine << ", try " << essai;
            const PlageHoraire voulu = EnMinutes({heure, heure.addSecs(pas * 60)});
            const bool libre = std::ranges::none_of(jour, [&](const RendezVous &r) {
                return SeChevauchent(voulu, {r.HeureDebut, r.HeureFin});
            });
            ASSERT_TRUE(voulu.fin < voulu.debut || HoraireLibre(jour, voulu) == libre) << "seed " << graine;
        }
    }
}

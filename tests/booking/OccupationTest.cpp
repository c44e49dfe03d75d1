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

} // namespace

TEST(Occupation, OneAppointmentAgainstARange) {
    struct {
        const char *nom, *debut, *fin, *de, *jusqua;
        bool libre = false;
        bool here = false;
    } const cas[] = {{"begins at its end", "09:00", "09:30", "09:30", "10:00", true, false},
                     {"ends at its start", "09:00", "09:30", "08:30", "09:00", true, false},
                     {"the same", "09:00", "09:30", "09:00", "09:30", false, true},
                     {"lies around it", "09:15", "09:30", "09:00", "10:00", false, false},
                     {"lies within it", "09:00", "11:00", "09:30", "10:00", false, true},
                     {"runs one minute into it", "09:00", "09:30", "08:00", "09:01", false, true},
                     {"begins one minute before its end", "09:00", "09:30", "09:29", "10:00", false, true},
                     {"seconds asked for do not count", "09:30", "10:00", "09:00", "09:30:59", true, false},
                     {"stored seconds do", "09:00", "09:30:30", "09:30", "10:00", false, true},
                     {"one without length counts", "09:15", "09:15", "09:00", "10:00", false, false},
                     {"its end is not known", "09:15", "", "09:00", "10:00", false, false},
                     {"its start is not known", "", "10:30", "09:00", "10:00", true, false},
                     {"nothing of it is known", "", "", "00:00", "10:00", true, false}};
    for (const auto &c : cas) {
        const RendezVous present = rdv(h(c.debut), h(c.fin));
        const PlageHoraire voulu{h(c.de), h(c.jusqua)};
        EXPECT_EQ(HoraireLibre({rdv(h("20:00"), h("21:00")), present}, voulu), c.libre) << c.nom;
        EXPECT_EQ(RDVHere({present}, voulu), c.here) << c.nom;
        EXPECT_TRUE(HoraireLibreSauf({present}, present.RefRDV, voulu)) << c.nom;
        EXPECT_EQ(HoraireLibreSauf({present}, 2, voulu), c.libre) << c.nom;
    }
    EXPECT_TRUE(EstReservable({h("09:00:59"), h("09:01")}));
    EXPECT_FALSE(EstReservable({h("09:00"), h("09:00:59")})) << "no minute";
    EXPECT_FALSE(EstReservable({h("23:45"), h("00:00")})) << "past midnight";
    EXPECT_FALSE(EstReservable({h("25:00"), h("09:00")})) << "no time";
}

TEST(Occupation, StepsAndPointsOfARange) {
    struct {
        const char *duree;
        int pas, n;
    } const cas[] = {{"00:45", 15, 3},    {"00:00", 15, 0},   {"00:46", 15, 4},  {"00:10", 15, 1},
                     {"00:30:59", 15, 2}, {"23:59", 1, 1439}, {"00:45", -15, 0}, {"", 15, 0}};
    for (const auto &c : cas) {
        EXPECT_EQ(NbIntervalles(h(c.duree), c.pas), c.n) << c.duree << " / " << c.pas;
    }
    const QList<RendezVous> jour = {rdv(h("09:05"), h("09:10")), rdv(h("10:00"), h("10:30"))};
    EXPECT_TRUE(PlageLibre(jour, h("10:00"), 15, 0)) << "no point";
    EXPECT_FALSE(PlageLibre(jour, h("10:00"), 15, 1)) << "a start is occupied";
    EXPECT_TRUE(PlageLibre(jour, h("10:30"), 15, 1)) << "an end is free";
    EXPECT_TRUE(PlageLibre(jour, h("09:00"), 15, 4)) << "what lies between two points is not seen";
    EXPECT_FALSE(PlageLibre(jour, h("09:00"), 15, 5));
    EXPECT_FALSE(PlageLibre(jour, h("23:50"), 15, 42)) << "past midnight the same day begins again";
}

TEST(Occupation, FreeIsWhatOverlapsNothing) {
    std::mt19937 hasard(1);
    const auto entre = [&](int a, int b) { return a + int(hasard() % unsigned(b - a + 1)); };
    for (int essai = 0; essai < 10'000; ++essai) {
        QList<RendezVous> jour;
        for (int i = entre(0, 6); i > 0; --i) {
            const QTime debut = QTime(0, 0).addSecs(entre(0, 22 * 3600));
            jour << rdv(debut, debut.addSecs(entre(1, 3599)));
        }
        const QTime heure = QTime(0, 0).addSecs(60 * entre(0, 22 * 60));
        const PlageHoraire voulu{heure, heure.addSecs(60 * entre(1, 60))};
        const bool libre = std::ranges::none_of(jour, [&](const RendezVous &r) {
            return SeChevauchent(voulu, {r.HeureDebut, r.HeureFin});
        });
        ASSERT_EQ(HoraireLibre(jour, voulu), libre) << essai;
    }
}

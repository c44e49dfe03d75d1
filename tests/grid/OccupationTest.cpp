#include "grid/Occupation.h"

#include <gtest/gtest.h>

namespace {

QTime h(const QString &texte) {
    return QTime::fromString(texte, Qt::ISODate);
}
/// "09:00 09:30": a time that is missing is not known.
PlageHoraire plage(const char *texte) {
    const QStringList heures = QString::fromLatin1(texte).split(u' ');
    return {h(heures[0]), h(heures[1])};
}
RendezVous rdv(const char *texte) {
    RendezVous r;
    r.RefRDV = 1;
    std::tie(r.HeureDebut, r.HeureFin) = std::pair(plage(texte).debut, plage(texte).fin);
    return r;
}

} // namespace

TEST(Occupation, OneAppointmentAgainstARange) {
    const struct {
        const char *nom, *present, *voulu;
        bool libre, here;
    } cas[] = {{"begins at its end", "09:00 09:30", "09:30 10:00", true, false},
               {"the same", "09:00 09:30", "09:00 09:30", false, true},
               {"lies around it", "09:15 09:30", "09:00 10:00", false, false},
               {"begins one minute before its end", "09:00 09:30", "09:29 10:00", false, true},
               {"seconds asked for do not count", "09:30 10:00", "09:00 09:30:59", true, false},
               {"stored seconds do", "09:00 09:30:30", "09:30 10:00", false, true},
               {"one without length counts", "09:15 09:15", "09:00 10:00", false, false},
               {"its end is not known", "09:15 ", "09:00 10:00", false, false},
               {"its start is not known", " 10:30", "09:00 10:00", true, false},
               {"nothing of it is known", " ", "00:00 10:00", true, false}};
    for (const auto &c : cas) {
        const RendezVous present = rdv(c.present);
        const PlageHoraire voulu = plage(c.voulu);
        EXPECT_EQ(HoraireLibre({rdv("20:00 21:00"), present}, voulu), c.libre) << c.nom;
        EXPECT_EQ(RDVHere({present}, voulu), c.here) << c.nom;
        EXPECT_TRUE(HoraireLibreSauf({present}, present.RefRDV, voulu)) << c.nom;
    }
    EXPECT_TRUE(EstReservable(plage("09:00:59 09:01")));
    for (const char *faux : {"09:00 09:00:59", "23:45 00:00", "25:00 09:00"}) {
        EXPECT_FALSE(EstReservable(plage(faux))) << faux;
    }
}

TEST(Occupation, StepsAndPointsOfARange) {
    const std::tuple<const char *, int, int> cas[] = {
        {"00:45", 15, 3}, {"00:46", 15, 4}, {"00:30:59", 15, 2}, {"00:45", -15, 0}, {"", 15, 0}};
    for (const auto &[duree, pas, n] : cas) {
        EXPECT_EQ(NbIntervalles(h(QString::fromLatin1(duree)), pas), n) << duree << " / " << pas;
    }
    const QList<RendezVous> jour = {rdv("09:05 09:10"), rdv("10:00 10:30")};
    EXPECT_FALSE(PlageLibre(jour, QTime(10, 0), 15, 1)) << "a start is occupied";
    EXPECT_TRUE(PlageLibre(jour, QTime(10, 30), 15, 1)) << "an end is free";
    EXPECT_TRUE(PlageLibre(jour, QTime(9, 0), 15, 4)) << "what lies between two points is not seen";
    EXPECT_FALSE(PlageLibre(jour, QTime(9, 0), 15, 5));
    EXPECT_FALSE(PlageLibre(jour, QTime(23, 50), 15, 42)) << "past midnight the same day begins again";
}

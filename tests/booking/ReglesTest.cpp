#include "booking/HorairesRDV.h"
#include "grid/Occupation.h"
#include "support/Texte.h"

#include <gtest/gtest.h>

namespace {

/// "09:00 09:30"; "-" is a time that is not known.
PlageHoraire plage(const QString &texte) {
    const auto heure = [&](int i) { return QTime::fromString(texte.section(u' ', i, i), Qt::ISODate); };
    return {heure(0), heure(1)};
}
RendezVous rdv(const QString &texte) {
    RendezVous r;
    r.RefRDV = 1;
    r.HeureDebut = plage(texte).debut;
    r.HeureFin = plage(texte).fin;
    return r;
}

} // namespace

TEST(Occupation, OneAppointmentAgainstARange) {
    for (const QStringList &cas : tableau(R"(
        begins at its end                | 09:00 09:30    | 09:30 10:00    | free
        the same                         | 09:00 09:30    | 09:00 09:30    | here
        lies around it                   | 09:15 09:30    | 09:00 10:00    | taken
        begins one minute before its end | 09:00 09:30    | 09:29 10:00    | here
        seconds asked for do not count   | 09:30 10:00    | 09:00 09:30:59 | free
        stored seconds do                | 09:00 09:30:30 | 09:30 10:00    | here
        one without length counts        | 09:15 09:15    | 09:00 10:00    | taken
        its end is not known             | 09:15 -        | 09:00 10:00    | taken
        its start is not known           | - 10:30        | 09:00 10:00    | free
        nothing of it is known           | - -            | 00:00 10:00    | free)")) {
        const RendezVous present = rdv(cas[1]);
        EXPECT_EQ(HoraireLibre({rdv(q("20:00 21:00")), present}, plage(cas[2])), cas[3] == u"free") << cas[0];
        EXPECT_EQ(RDVHere({present}, plage(cas[2])), cas[3] == u"here") << cas[0];
        EXPECT_TRUE(HoraireLibreSauf({present}, present.RefRDV, plage(cas[2]))) << cas[0];
    }
    EXPECT_TRUE(EstReservable(plage(q("09:00:59 09:01"))));
    for (const char *faux : {"09:00 09:00:59", "23:45 00:00", "25:00 09:00"}) {
        EXPECT_FALSE(EstReservable(plage(q(faux)))) << faux;
    }
}

TEST(Occupation, StepsAndPointsOfARange) {
    for (const auto &[duree, n] :
         {std::pair(QTime(0, 45), 3), {QTime(0, 46), 4}, {QTime(0, 30, 59), 2}, {QTime(), 0}}) {
        EXPECT_EQ(NbIntervalles(duree, 15), n) << n;
    }
    EXPECT_EQ(NbIntervalles(QTime(0, 45), -15), 0);
    const QList<RendezVous> jour{rdv(q("09:05 09:10")), rdv(q("10:00 10:30"))};
    EXPECT_FALSE(PlageLibre(jour, QTime(10, 0), 15, 1)) << "a start is occupied";
    EXPECT_TRUE(PlageLibre(jour, QTime(10, 30), 15, 1)) << "an end is free";
    EXPECT_TRUE(PlageLibre(jour, QTime(9, 0), 15, 4)) << "what lies between two points is not seen";
    EXPECT_FALSE(PlageLibre(jour, QTime(9, 0), 15, 5));
    EXPECT_FALSE(PlageLibre(jour, QTime(23, 50), 15, 42)) << "past midnight the same day begins again";
}

TEST(HorairesRDV, ArrowsMoveByASlotAndStop) {
    const QStringList quoi{q("start"), q("end"), q("both")};
    for (const QStringList &cas : tableau(R"(
        start + | 10:00 10:45 | 10:15 10:45
        start + | 10:30 10:45 | 10:30 10:45
        start + | 10:35 10:45 | 10:50 10:45
        start - | 00:00 00:30 | 00:00 00:30
        end +   | 22:00 23:00 | 22:00 23:00
        end -   | 10:00 10:15 | 10:00 10:15
        both +  | 10:00 10:30 | 10:15 10:45
        both +  | 22:00 23:00 | 22:00 23:00
        both -  | 10:00 10:30 | 09:45 10:15
        both -  | 00:00 00:30 | 00:00 00:30)")) {
        const auto deplace = Deplace(quoi.indexOf(cas[0].section(u' ', 0, 0)));
        const Sens sens = cas[0].endsWith(u'+') ? Sens::PlusTard : Sens::PlusTot;
        const PlageHoraire avant = plage(cas[1]);
        const PlageHoraire apres = plage(cas[2]);
        EXPECT_EQ(DeplaceHoraires({avant.debut, avant.fin}, deplace, sens, 15),
                  (HorairesRDV{apres.debut, apres.fin}))
            << cas[0] << cas[1];
    }
}

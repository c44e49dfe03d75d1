#include "booking/HorairesRDV.h"

#include <gtest/gtest.h>

TEST(HorairesRDV, ArrowsMoveByASlotAndStop) {
    using enum Deplace;
    using enum Sens;
    struct {
        Deplace quoi = Debut;
        Sens sens = PlusTard;
        const char *avant = nullptr, *apres = nullptr;
    } const cas[] = {
        {Debut, PlusTard, "10:00 10:45", "10:15 10:45"},   {Debut, PlusTard, "10:30 10:45", "10:30 10:45"},
        {Debut, PlusTard, "10:35 10:45", "10:50 10:45"}, // not whole slots: the stop is missed
        {Debut, PlusTot, "00:00 00:30", "00:00 00:30"},    {Fin, PlusTard, "22:00 23:00", "22:00 23:00"},
        {Fin, PlusTot, "10:00 10:15", "10:00 10:15"},      {LesDeux, PlusTard, "10:00 10:30", "10:15 10:45"},
        {LesDeux, PlusTard, "22:00 23:00", "22:00 23:00"}, {LesDeux, PlusTot, "10:00 10:30", "09:45 10:15"},
        {LesDeux, PlusTot, "00:00 00:30", "00:00 00:30"}};
    const auto lit = [](const char *texte) {
        const QString deux = QString::fromLatin1(texte);
        return HorairesRDV{QTime::fromString(deux.first(5)), QTime::fromString(deux.last(5))};
    };
    for (const auto &c : cas) {
        EXPECT_EQ(DeplaceHoraires(lit(c.avant), c.quoi, c.sens, 15), lit(c.apres)) << c.avant;
    }
}

#include "booking/HorairesRDV.h"

#include <gtest/gtest.h>

namespace {

HorairesRDV h(const char *debut, const char *fin) {
    return {QTime::fromString(QString::fromLatin1(debut), QStringLiteral("HH:mm")),
            QTime::fromString(QString::fromLatin1(fin), QStringLiteral("HH:mm"))};
}

} // namespace

TEST(HorairesRDV, ArrowsMoveByASlotAndStop) {
    struct Row {
        const char *name = nullptr;
        HorairesRDV avant;
        Deplace quoi = Deplace::Debut;
        Sens sens = Sens::PlusTard;
        HorairesRDV apres;
    };
    using enum Deplace;
    using enum Sens;
    for (const Row &row : {
             Row{"later start", h("10:00", "10:45"), Debut, PlusTard, h("10:15", "10:45")},
             Row{"start one slot below the end", h("10:30", "10:45"), Debut, PlusTard, h("10:30", "10:45")},
             Row{"earlier start", h("10:00", "10:30"), Debut, PlusTot, h("09:45", "10:30")},
             Row{"start at midnight", h("00:00", "00:30"), Debut, PlusTot, h("00:00", "00:30")},
             Row{"later end", h("10:00", "10:30"), Fin, PlusTard, h("10:00", "10:45")},
             Row{"end at 23:00", h("22:00", "23:00"), Fin, PlusTard, h("22:00", "23:00")},
             Row{"earlier end", h("10:00", "10:30"), Fin, PlusTot, h("10:00", "10:15")},
             Row{"end one slot after the start", h("10:00", "10:15"), Fin, PlusTot, h("10:00", "10:15")},
             Row{"both later", h("10:00", "10:30"), LesDeux, PlusTard, h("10:15", "10:45")},
             Row{"both, end at 23:00", h("22:00", "23:00"), LesDeux, PlusTard, h("22:00", "23:00")},
             Row{"both earlier", h("10:00", "10:30"), LesDeux, PlusTot, h("09:45", "10:15")},
             Row{"both, start at midnight", h("00:00", "00:30"), LesDeux, PlusTot, h("00:00", "00:30")},
             Row{"not a whole slot below", h("10:35", "10:45"), Debut, PlusTard, h("10:50", "10:45")},
         }) {
        EXPECT_EQ(DeplaceHoraires(row.avant, row.quoi, row.sens, 15), row.apres) << row.name;
    }
}

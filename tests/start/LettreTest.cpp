#include "support/Fenetre.h"

#include <gtest/gtest.h>

/// Practitioner 1 on Wednesday 2026-03-11, slots of 60 minutes.
TEST(Lettre, GoesToTheSelectedPatientWhoeverDeletedHim) {
    Fenetre f;
    f.livre.config();
    const qint64 ref = f.livre.rdv({.jour = "2026-03-12"});
    f.livre.rdv({.nom = "AUTRE", .jour = "2026-03-13"});
    f.livre.execute(SqlText("update RDV set NumPatient = RefRDV - ") << nombre(ref - 7));
    f.cabinet.ouvre(Base::Patients).execute(SqlText("update TabPat set nom = 'SEPT' where Cptid = 7"));
    f.ouvre();
    f.fait(q("mnuLettre"));
    EXPECT_EQ(f.cabinet.word->started, 0) << "nothing is selected";
    f.fait(q("clic 2,4"));
    f.livre.execute(SqlText("delete from RDV"));
    f.fait(q("mnuLettre"));
    ASSERT_EQ(f.cabinet.word->performed.size(), 1);
    const auto &cellules = std::get<word::Cells>(f.cabinet.word->performed[0][2]).texts;
    EXPECT_EQ(cellules[10].value() + u' ' + cellules[16].value() + u' ' + cellules[23].value(),
              q("12/03/2026 SEPT L'HERMITE"));
    EXPECT_EQ(f.cabinet.word->shown.size(), 1);

    QStringList titres;
    f.pendant("mnuListAbs", [&](QWidget &listing) { titres << listing.windowTitle(); });
    EXPECT_EQ(titres, QStringList(q("Listing des Absents de la journée")));
}

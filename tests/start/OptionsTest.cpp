#include "start/Options.h"
#include "support/Texte.h"

#include <gtest/gtest.h>

TEST(Options, ReadsEveryOneAndTheEnvironmentFillsTheRest) {
    const auto lues = [](const char *arguments) { return LitOptions(q(arguments).split(u' ')); };
    const Options o = lues("tavelin --chemin=/c/Chemin.mdb --lecteur D=/d --lecteur E=/e --capture x.png "
                           "--maintenant 2026-03-11T10:05");
    EXPECT_EQ(QStringList({o.erreur, o.chemin, o.lecteurs, o.capture}).join(u' '),
              q(" /c/Chemin.mdb D=/d;E=/e x.png"));
    EXPECT_EQ(o.maintenant, QDateTime(QDate(2026, 3, 11), QTime(10, 5)));
    EXPECT_TRUE(lues("tavelin").chemin.endsWith(q("/tavelin/CheminBelmor.mdb")));
    qputenv("TAVELIN_CHEMIN", "/env/Chemin.mdb");
    qputenv("TAVELIN_LECTEURS", "D=/env");
    EXPECT_EQ(lues("tavelin").chemin + lues("tavelin").lecteurs, q("/env/Chemin.mdbD=/env"));
    EXPECT_EQ(lues("tavelin --chemin a").chemin, q("a"));
}

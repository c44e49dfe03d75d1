#include "start/Options.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

Options lues(const char *arguments) {
    return LitOptions(q("tavelin %1").arg(q(arguments)).split(u' ', Qt::SkipEmptyParts));
}

} // namespace

TEST(Options, ReadsEveryOneAndTheEnvironmentFillsTheRest) {
    const Options o = lues(
        "--chemin=/c/Chemin.mdb --lecteur D=/d --lecteur E=/e --maintenant 2026-03-11T10:05 --capture x.png");
    EXPECT_EQ(o.erreur, QString());
    EXPECT_EQ(o.chemin, q("/c/Chemin.mdb"));
    EXPECT_EQ(o.lecteurs, q("D=/d;E=/e"));
    EXPECT_EQ(o.maintenant, QDateTime(QDate(2026, 3, 11), QTime(10, 5)));
    EXPECT_EQ(o.capture, q("x.png"));
    qputenv("TAVELIN_CHEMIN", "/env/Chemin.mdb");
    qputenv("TAVELIN_LECTEURS", "D=/env");
    EXPECT_EQ(lues("").chemin, q("/env/Chemin.mdb"));
    EXPECT_EQ(lues("").lecteurs, q("D=/env"));
    EXPECT_EQ(lues("--chemin a").chemin, q("a"));
    qunsetenv("TAVELIN_CHEMIN");
    qunsetenv("TAVELIN_LECTEURS");
    EXPECT_TRUE(lues("").chemin.endsWith(q("/tavelin/CheminBelmor.mdb")));
}

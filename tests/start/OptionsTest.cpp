#include "start/Options.h"

#include <gtest/gtest.h>

namespace {

Options lues(const QStringList &arguments) {
    return LitOptions(QStringList{QStringLiteral("tavelin")} + arguments);
}

} // namespace

TEST(Options, ReadsEveryOne) {
    const Options o =
        lues({QStringLiteral("--chemin=/c/Chemin.mdb"), QStringLiteral("--lecteur"), QStringLiteral("D=/d"),
              QStringLiteral("--lecteur"), QStringLiteral("E=/e"), QStringLiteral("--maintenant"),
              QStringLiteral("2026-03-11T10:05"), QStringLiteral("--capture"), QStringLiteral("x.png")});
    EXPECT_EQ(o.erreur, QString());
    EXPECT_EQ(o.chemin, QStringLiteral("/c/Chemin.mdb"));
    EXPECT_EQ(o.lecteurs, QStringLiteral("D=/d;E=/e"));
    EXPECT_EQ(o.maintenant, QDateTime(QDate(2026, 3, 11), QTime(10, 5)));
    EXPECT_EQ(o.capture, QStringLiteral("x.png"));
}

TEST(Options, TheEnvironmentFillsWhatIsNotGiven) {
    qputenv("TAVELIN_CHEMIN", "/env/Chemin.mdb");
    qputenv("TAVELIN_LECTEURS", "D=/env");
    EXPECT_EQ(lues({}).chemin, QStringLiteral("/env/Chemin.mdb"));
    EXPECT_EQ(lues({}).lecteurs, QStringLiteral("D=/env"));
    EXPECT_EQ(lues({QStringLiteral("--chemin"), QStringLiteral("a")}).chemin, QStringLiteral("a"));
    qunsetenv("TAVELIN_CHEMIN");
    qunsetenv("TAVELIN_LECTEURS");
    EXPECT_TRUE(lues({}).chemin.endsWith(QStringLiteral("/tavelin/CheminBelmor.mdb")));
}

TEST(Options, RefusesInFrenchWhatItDoesNotKnow) {
    EXPECT_EQ(lues({QStringLiteral("--inconnue")}).erreur, QStringLiteral("option inconnue : inconnue"));
    EXPECT_EQ(lues({QStringLiteral("fichier")}).erreur, QStringLiteral("option inconnue : fichier"));
    EXPECT_EQ(lues({QStringLiteral("--chemin")}).erreur, QStringLiteral("il manque la valeur d'une option"));
    EXPECT_NE(lues({QStringLiteral("--maintenant"), QStringLiteral("demain")}).erreur, QString());
    EXPECT_TRUE(lues({QStringLiteral("--help")}).aide);
}

#include "LivreDEssai.h"
#include "platform/db/DbError.h"

#include <gtest/gtest.h>

namespace {

class ConfigTablesTest : public testing::Test, public LivreDEssai {
  protected:
    Enregistrement enregistre(const char *nom, std::optional<int> fauteuil, bool defaut = false) {
        Database base = ouvre();
        return EnregistreConfig(base, {QString::fromUtf8(nom), v.PraticienCourant, fauteuil, defaut},
                                v.config);
    }
};

} // namespace

TEST_F(ConfigTablesTest, ChoosesAmongThePractitionersRows) {
    ajoute(QStringLiteral("Un"), QStringLiteral("01"), 1, false, 10);
    ajoute(QStringLiteral("Deux"), QStringLiteral("01"), 2, true, 20);
    ajoute(QStringLiteral("Autre"), QStringLiteral("010"), 1, true, 30);
    Database base = ouvre();
    EXPECT_EQ(ConfigsDuPraticien(base, 1).size(), 2);
    EXPECT_EQ(NomConfigParDefaut(base, 1), QStringLiteral("Deux"));
    EXPECT_EQ(NomConfigDuFauteuil(base, 1, 1), QStringLiteral("Un"));
    EXPECT_EQ(NomConfigDuFauteuil(base, 1, 3), std::nullopt);
    EXPECT_EQ(NomConfigParDefaut(base, 10), QStringLiteral("Autre"));
    EXPECT_EQ(NomConfigDeRepli(base), std::nullopt);
    // The name does not choose, the chair does.
    EXPECT_EQ(LitConfig(base, QStringLiteral("Un"), 1, 2)->Intervalle, 20);
    EXPECT_EQ(LitConfig(base, QStringLiteral("Un"), 1, 5), std::nullopt);
}

TEST_F(ConfigTablesTest, TheFallBackIsFoundByName) {
    ajoute(QStringLiteral("Secours"), QStringLiteral("0"), 0, false, 10);
    ajoute(QStringLiteral("Défaut"), QStringLiteral("04"), 3, false, 35);
    Database base = ouvre();
    EXPECT_EQ(NomConfigDeRepli(base), QStringLiteral("Secours"));
    EXPECT_EQ(NomConfigParDefaut(base, 4), std::nullopt);
    EXPECT_EQ(LitConfig(base, QStringLiteral("Défaut"), 1, -2)->Intervalle, 35);
}

TEST_F(ConfigTablesTest, ASavedConfigurationIsReadBackWhole) {
    EXPECT_EQ(enregistre("Été", 4), Enregistrement::Fait);
    Database base = ouvre();
    Configuration attendue = v.config;
    attendue.FauteuilCourant = QStringLiteral("4");
    EXPECT_EQ(LitConfig(base, QStringLiteral("Été"), 1, 4), attendue);
}

TEST_F(ConfigTablesTest, RefusesATakenNameOrChair) {
    ajoute(QStringLiteral("Autre"), QStringLiteral("02"), 1, true);
    EXPECT_EQ(enregistre("Autre", 1, true), Enregistrement::NomPris);
    EXPECT_EQ(enregistre("AUTRE", {}), Enregistrement::NomPris);
    EXPECT_EQ(enregistre("Un", 1), Enregistrement::Fait); // the other practitioner's chair 1 is not mine
    EXPECT_EQ(enregistre("Deux", 1, true), Enregistrement::FauteuilPris);
    EXPECT_EQ(enregistre("Trois", {}), Enregistrement::Fait);
    EXPECT_EQ(enregistre("Quatre", {}), Enregistrement::Fait);
    EXPECT_EQ(lignes(), (QStringList{QStringLiteral("Autre 02 1 *"), QStringLiteral("Un 01 1"),
                                     QStringLiteral("Trois 01 0"), QStringLiteral("Quatre 01 0")}));
}

TEST_F(ConfigTablesTest, OnlyANewDefaultReplacesTheDefault) {
    ajoute(QStringLiteral("Autre"), QStringLiteral("02"), 1, true);
    ajoute(QStringLiteral("Ancienne"), QStringLiteral("01"), 1, true);
    enregistre("Sans", 2);
    EXPECT_EQ(lignes().value(1), QStringLiteral("Ancienne 01 1 *"));
    enregistre("Avec", 3, true);
    EXPECT_EQ(lignes(), (QStringList{QStringLiteral("Autre 02 1 *"), QStringLiteral("Ancienne 01 1"),
                                     QStringLiteral("Sans 01 2"), QStringLiteral("Avec 01 3 *")}));
}

TEST_F(ConfigTablesTest, AFailedSaveKeepsTheDefault) {
    ajoute(QStringLiteral("Ancienne"), QStringLiteral("01"), 1, true);
    Database base = ouvre();
    base.tableDef(QStringLiteral("Config")).deleteField(QStringLiteral("DimGrise"));
    EXPECT_THROW(enregistre("Nouvelle", 2, true), DbError);
    EXPECT_EQ(lignes(), QStringList{QStringLiteral("Ancienne 01 1 *")});
}

TEST_F(ConfigTablesTest, DeletesOneRowByName) {
    ajoute(QStringLiteral("L'autre"), QStringLiteral("01"), 1, true);
    ajoute(QStringLiteral("L'autre"), QStringLiteral("02"), 1, true);
    ajoute(QStringLiteral("L"), QStringLiteral("01"), 2, false);
    Database base = ouvre();
    EXPECT_TRUE(SupprimeConfig(base, QStringLiteral("L'autre")));
    EXPECT_EQ(lignes(), (QStringList{QStringLiteral("L'autre 02 1 *"), QStringLiteral("L 01 2")}));
    EXPECT_FALSE(SupprimeConfig(base, QStringLiteral("Partie")));
    EXPECT_EQ(lignes().size(), 2);
}

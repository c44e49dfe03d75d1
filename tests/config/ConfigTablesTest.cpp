#include "config/ConfigTables.h"

#include "platform/db/DbError.h"
#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

class ConfigTablesTest : public testing::Test {
  protected:
    Enregistrement enregistre(const char *nom, std::optional<int> fauteuil, bool defaut = false) {
        Database base = livre.ouvre();
        return EnregistreConfig(base, {q(nom), q("01"), fauteuil, defaut},
                                configDe({.grise = {0, 1, 2, 3, 0, 0, 0}}));
    }
    Livre livre;
};

} // namespace

TEST_F(ConfigTablesTest, ASavedConfigurationIsReadBackWhole) {
    EXPECT_EQ(enregistre("été d'Hélène", 4, true), Enregistrement::Fait);
    Database base = livre.ouvre();
    const QList<LigneConfig> lues = LitConfigs(base, 1).duPraticien;
    ASSERT_EQ(lues.size(), 1);
    EXPECT_EQ(lues[0],
              (LigneConfig{configDe({.nom = "été d'Hélène", .fauteuil = 4, .grise = {0, 1, 2, 3, 0, 0, 0}}),
                           true}));
    EXPECT_TRUE(LitConfigs(base, 10).duPraticien.isEmpty());
}

TEST_F(ConfigTablesTest, ADefaultTakesTheChairOrTheOtherDefaultsPlace) {
    livre.config({.nom = "Autre", .praticien = "02"});
    EXPECT_EQ(enregistre("Un", 1), Enregistrement::Fait);
    EXPECT_EQ(enregistre("Deux", 1, true), Enregistrement::FauteuilPris);
    EXPECT_EQ(enregistre("Trois", {}, true), Enregistrement::Fait);
    EXPECT_EQ(enregistre("Quatre", 5, true), Enregistrement::Fait);
    EXPECT_EQ(livre.configs(), "Autre 02 1*, Un 01 1, Trois 01 0, Quatre 01 5*") << "his only default";
}

TEST_F(ConfigTablesTest, AFailedSaveKeepsTheDefault) {
    livre.config();
    Database base = livre.ouvre();
    base.tableDef(q("Config")).deleteField(q("DimGrise"));
    EXPECT_THROW(enregistre("Nouvelle", 2, true), DbError);
    EXPECT_EQ(livre.configs(), "Cabinet1 01 1*");
}

TEST_F(ConfigTablesTest, DeletesOneRowByName) {
    livre.config({.nom = "L'autre", .praticien = "02"});
    livre.config({.nom = "L'autre"});
    livre.config({.nom = "L'autre", .fauteuil = 3, .defaut = false});
    livre.config({.nom = "L", .fauteuil = 2, .defaut = false});
    Database base = livre.ouvre();
    EXPECT_TRUE(SupprimeConfig(base, 1, q("L'autre")));
    EXPECT_FALSE(SupprimeConfig(base, 1, q("Partie")));
    EXPECT_EQ(livre.configs(), "L'autre 02 1*, L'autre 01 3, L 01 2");
}

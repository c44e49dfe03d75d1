#include "platform/ui/FlexGridDelegate.h"
#include "support/Fenetre.h"
#include "support/WaitUntil.h"

#include <QLockFile>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

class HabillageTest : public testing::Test, public Fenetre {
  protected:
    HabillageTest() {
        livre.config();
        livre.rdv();
    }
    bool contemporaine() const { return grille().painting().aspect().contemporaine(); }
    QSettings reglages() { return {cabinet.environnement().fichierReglages, QSettings::IniFormat}; }
    /// Presses a tool by its words.
    void presse(const char *mots) const {
        for (QToolButton *outil : objet<QToolBar>("BarreOutils").findChildren<QToolButton *>()) {
            if (outil->text() == q(mots)) {
                outil->click();
                return;
            }
        }
        ADD_FAILURE() << mots;
    }
};

} // namespace

TEST_F(HabillageTest, IsRememberedAndWhatIsNotKnownIsClassique) {
    for (const auto &[retenue, attendue] :
         {std::pair{"", false}, {"contemporaine", true}, {"baroque", false}, {"classique", false}}) {
        QSettings(cabinet.environnement().fichierReglages, QSettings::IniFormat)
            .setValue(q("presentation"), q(retenue));
        ouvre();
        EXPECT_EQ(contemporaine(), attendue) << retenue;
        EXPECT_EQ(objet<QAction>("mnuContemporaine").isChecked(), attendue);
        EXPECT_EQ(objet<QAction>("mnuClassique").isChecked(), !attendue);
        EXPECT_EQ(objet<QWidget>("BtnMois").isVisible(), !attendue);
    }
    fait(q("mnuContemporaine"));
    EXPECT_TRUE(contemporaine());
    fait(q("mnuContemporaine"));
    EXPECT_TRUE(objet<QAction>("mnuContemporaine").isChecked()) << "a tick is no toggle";
    ouvre();
    EXPECT_TRUE(contemporaine());
}

TEST_F(HabillageTest, ALockBesideTheSettingsIsNotWaitedFor) {
    ouvre();
    QLockFile verrou(cabinet.environnement().fichierReglages + q(".lock"));
    ASSERT_TRUE(verrou.lock());
    fait(q("mnuContemporaine"));
    EXPECT_TRUE(contemporaine());
    verrou.unlock();
    EXPECT_TRUE(waitUntil([this] { return reglages().value(q("presentation")) == q("contemporaine"); }));
}

TEST_F(HabillageTest, TheSameBookInBothWithAToolForEachButton) {
    ouvre();
    joue("clic 2,3");
    const std::string vu = etat() + grilles();
    const int hauteur = grille().height();
    fait(q("mnuContemporaine"));
    EXPECT_EQ(etat() + grilles(), vu);
    EXPECT_GT(grille().height(), hauteur) << "the buttons' place";
    const auto periode = [this] { return objet<QLabel>("Periode").text().toStdString(); };
    EXPECT_EQ(periode(), "9–15 mars 2026");
    presse("Suivante");
    EXPECT_EQ(grilles(), "12x7 lundi 16 mars: [2,3-2,3]");
    presse("Aujourd'hui");
    EXPECT_EQ(grilles(), "12x7 lundi 09 mars: 2,3 ROUX");
    fait(q("BtnJour"));
    EXPECT_EQ(periode(), "mercredi 11 mars 2026");
    presse("Précédent");
    EXPECT_EQ(periode(), "mardi 10 mars 2026");
    fait(q("BtnSemaine"));
    fait(q("mnuClassique"));
    EXPECT_FALSE(objet<QToolBar>("BarreOutils").isVisible());
    EXPECT_EQ(grille().height(), hauteur);
    EXPECT_EQ(dits(), "");
}

#include "gui/Souris.h"
#include "support/WaitUntil.h"

#include <QDialog>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace {

class Champ : public testing::Test {
  protected:
    void SetUp() override {
        champ.resize(600, 40);
        ASSERT_TRUE(montre(champ));
        Souris::clic(champ);
    }
    bool selectionne(const QString &texte) {
        return waitUntil([&] { return champ.selectedText() == texte; });
    }
    QLineEdit champ;
};

TEST_F(Champ, FrenchTextArrivesAsTyped) {
    for (int i = 0; i < 5; ++i) {
        champ.clear();
        const QString texte =
            QStringLiteral("Hélène L'HERMITE ça ÉÈÇÀ Œuvre œ « où » Noël, 12:30 [x] %1").arg(i);
        Clavier::tape(texte);
        EXPECT_TRUE(waitUntil([&] { return champ.text() == texte; })) << qPrintable(champ.text());
    }
}

TEST_F(Champ, DragAndDoubleClickSelect) {
    champ.setText(QStringLiteral("premier dernier"));
    Souris::glisse(champ, {2, 20}, {590, 20});
    EXPECT_TRUE(selectionne(QStringLiteral("premier dernier")));
    Souris::doubleClic(champ, {20, 20});
    EXPECT_TRUE(selectionne(QStringLiteral("premier")));
}

TEST(Pendant, SaysWhetherTheWindowCameAndWent) {
    using std::chrono::milliseconds;
    QDialog dialogue;
    dialogue.setObjectName(QStringLiteral("Dialogue"));
    const auto ouvre = [&] { dialogue.exec(); };
    const auto laisse = [](QWidget &) {};
    const auto echappe = [](QWidget &) { Clavier::touches({QStringLiteral("Escape")}); };
    EXPECT_TRUE(pendant(QStringLiteral("Dialogue"), ouvre, echappe));
    EXPECT_FALSE(pendant(QStringLiteral("Dialogue"), ouvre, laisse, milliseconds(50)));
    EXPECT_FALSE(dialogue.isVisible());
    EXPECT_FALSE(pendant(
        QStringLiteral("Autre"), [] {}, laisse, milliseconds(50)));
}

} // namespace

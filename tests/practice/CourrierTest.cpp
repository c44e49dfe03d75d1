#include "practice/Courrier.h"

#include "practice/Environnement.h"
#include "support/RecordingMessages.h"
#include "support/Texte.h"

#include <QApplication>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

/// Meanwhile somebody works in the window.
class ScriptedWord : public WordProcessor {
  public:
    explicit ScriptedWord(std::function<void()> meanwhile) : m_meanwhile(std::move(meanwhile)) {}
    WordDocument perform(const word::Verbs &) override {
        m_meanwhile();
        if (m_cancelled) {
            throw WordError(QString());
        }
        return {q("a.doc"), {}};
    }
    void cancel() override { m_cancelled = true; }
    void show(const QString &) override { throw WordError(q("ne s'ouvre pas")); }

  private:
    std::function<void()> m_meanwhile;
    bool m_cancelled = false;
};

class CourrierTest : public testing::Test {
  protected:
    CourrierTest() {
        env.messages = &messages;
        env.traitementDeTexte = [this] { return std::make_unique<ScriptedWord>(meanwhile); };
    }
    static QWidget *window() {
        const QWidgetList shown = QApplication::topLevelWidgets();
        const auto modal =
            std::ranges::find_if(shown, [](QWidget *w) { return w->isModal() && w->isVisible(); });
        return modal == shown.end() ? nullptr : *modal;
    }

    QWidget parent;
    RecordingMessages messages;
    Environnement env;
    std::function<void()> meanwhile = [] {};
};

} // namespace

TEST_F(CourrierTest, AnnulerGivesUpTheOnlyDocumentAndStopsAfterOneOfSeveral) {
    for (const int documents : {1, 3}) {
        meanwhile = [] {
            ASSERT_NE(window(), nullptr);
            window()->close(); // as the button does, and stays until the document is done
            EXPECT_NE(window(), nullptr);
        };
        Courrier courrier(env, &parent, documents);
        EXPECT_NE(window(), nullptr) << "at once";
        EXPECT_EQ(courrier.fait({}, q("Lettre")).has_value(), documents > 1);
        EXPECT_TRUE(courrier.arrete());
        EXPECT_FALSE(courrier.fait({}, q("Lettre")));
    }
    EXPECT_EQ(messages.taken(), QString()) << "who has cancelled knows it";
    EXPECT_EQ(window(), nullptr);
}

TEST_F(CourrierTest, WhatFailsIsToldOnce) {
    meanwhile = [] {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        throw WordError(q("en panne"));
    };
    {
        Courrier courrier(env, &parent, 2);
        EXPECT_FALSE(courrier.fait({}, q("Lettre")));
        EXPECT_EQ(messages.taken(), q("Erreur: en panne"));
        EXPECT_EQ(window(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_FALSE(courrier.montre(q("a.doc")));
        EXPECT_EQ(messages.taken(), q("Erreur: ne s'ouvre pas"));
    }
    env.traitementDeTexte = nullptr;
    Courrier courrier(env, &parent, 2);
    EXPECT_FALSE(courrier.fait({}, q("Lettre")));
    EXPECT_FALSE(courrier.fait({}, q("Lettre")));
    EXPECT_EQ(messages.taken(),
              q("Erreur: Le traitement de texte n'est pas installé sur ce poste : aucun document ne "
                "peut être fait."));
}

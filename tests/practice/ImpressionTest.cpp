#include "practice/Impression.h"

#include "practice/Environnement.h"
#include "support/RecordingMessages.h"
#include "support/Texte.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// A workstation whose printer does as it is told, at 10:05 on 11 March 2026.
class ImpressionTest : public testing::Test {
  protected:
    ImpressionTest() {
        env.messages = &messages;
        env.CheminRacine = dossier.path();
        env.maintenant = [] { return QDateTime(QDate(2026, 3, 11), QTime(10, 5)); };
        env.imprimante = [this](const QList<Page> &, const QString &) { return resultat; };
    }
    std::string imprime() {
        messages.shown.clear();
        ::imprime(env, {Page()}, q("Carte"), q("Carte"));
        return messages.shown.isEmpty() ? "" : messages.shown.last().text.toStdString();
    }
    QStringList documents() const { return QDir(dossier.filePath(q("Word"))).entryList(QDir::Files); }

    QTemporaryDir dossier;
    RecordingMessages messages;
    Environnement env;
    PrintResult resultat;
};

} // namespace

TEST_F(ImpressionTest, ThePrinterAloneWhereThereIsOne) {
    resultat = {PrintResult::Outcome::Printed, q("HP")};
    EXPECT_EQ(imprime(), "");
    resultat.outcome = PrintResult::Outcome::Refused;
    EXPECT_EQ(imprime(), "L'imprimante « HP » refuse le document : rien n'est imprimé.");
    EXPECT_EQ(documents(), QStringList());
}

TEST_F(ImpressionTest, WithoutAPrinterAFileOfItsOwn) {
    const QString premier = q("Carte20260311_100500.pdf");
    QDir(dossier.path()).mkdir(q("WORD"));
    EXPECT_NE(imprime().find("WORD/" + premier.toStdString()), std::string::npos)
        << "the folder that is there";
    QFile ecrit(dossier.filePath(q("WORD/")) + premier);
    ASSERT_TRUE(ecrit.open(QIODevice::ReadWrite));
    EXPECT_TRUE(ecrit.readAll().startsWith("%PDF"));
    ecrit.resize(3);
    imprime();
    EXPECT_EQ(ecrit.size(), 3) << "never written over";
    EXPECT_TRUE(QFile::exists(dossier.filePath(q("WORD/Carte20260311_100500_2.pdf"))));
    env.CheminRacine = dossier.path() + q("/nouveau");
    EXPECT_NE(imprime().find("nouveau/Word/Carte20260311_100500.pdf » ne peut pas être écrit : son dossier"),
              std::string::npos);
    QDir(dossier.path()).mkdir(q("nouveau"));
    EXPECT_NE(imprime().find("est enregistré"), std::string::npos) << "its folder is made";
}

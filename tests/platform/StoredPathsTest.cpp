#include "platform/files/StoredPaths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class StoredPathsTest : public testing::Test {
  protected:
    StoredPathsTest() {
        const QDir root(dir.path());
        root.mkpath(QStringLiteral("Données du cabinet/Fichiers"));
        QFile(dir.filePath(QStringLiteral("Données du cabinet/Fichiers/Param.MDB")))
            .open(QIODevice::WriteOnly);
    }
    QTemporaryDir dir;
    StoredPaths paths;
    const QString param = dir.filePath(QStringLiteral("Données du cabinet/Fichiers/Param.MDB"));
};

} // namespace

TEST_F(StoredPathsTest, TurnsBackslashesAndIgnoresLetterCase) {
    const QString root = dir.path();
    EXPECT_EQ(paths.real(root + QStringLiteral("\\données du CABINET\\fichiers\\param.mdb")), param);
    EXPECT_EQ(paths.real(root + QStringLiteral("/Données du cabinet\\\\Fichiers\\Param.MDB")), param);
    EXPECT_EQ(paths.realDatabase(root + QStringLiteral("\\Données du cabinet\\Fichiers\\param")), param);
}

TEST_F(StoredPathsTest, MapsDrives) {
    ASSERT_TRUE(paths.addDrives(QStringLiteral("d=") + dir.path() + QStringLiteral(";E=/ailleurs")));
    EXPECT_EQ(paths.real(QStringLiteral("D:\\Données du cabinet\\Fichiers\\Param.mdb")), param);
    EXPECT_EQ(paths.real(QStringLiteral("e:\\Base")), QStringLiteral("/ailleurs/Base"));
}

TEST_F(StoredPathsTest, RefusesBadDriveEntriesWhole) {
    for (const QString &entries : {QStringLiteral("D"), QStringLiteral("D="), QStringLiteral("=/x"),
                                   QStringLiteral("1=/x"), QStringLiteral("D=/x;oups")}) {
        EXPECT_FALSE(paths.addDrives(entries)) << entries.toStdString();
    }
    EXPECT_EQ(paths.real(QStringLiteral("D:\\x")), QStringLiteral("D:/x")) << "nothing was kept";
}

TEST_F(StoredPathsTest, KeepsTheSpellingOfWhatIsNotThere) {
    EXPECT_EQ(paths.real(dir.path() + QStringLiteral("\\Données DU cabinet\\Neuf\\Word.doc")),
              dir.filePath(QStringLiteral("Données du cabinet/Neuf/Word.doc")));
}

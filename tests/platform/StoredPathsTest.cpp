#include "platform/files/StoredPaths.h"

#include "support/Texte.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(StoredPaths, FindsWhatIsThereWhateverItsCase) {
    const QTemporaryDir dir;
    const QString folder = dir.filePath(q("Données du cabinet"));
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile(folder + q("/Param.MDB")).open(QIODevice::WriteOnly));
    StoredPaths paths;
    ASSERT_TRUE(paths.addDrives(q("d=") + dir.path() + q(";E=/ailleurs")));
    const std::pair<QString, QString> cases[] = {
        {dir.path() + q("\\données du CABINET\\\\param"), folder + q("/Param.MDB")},
        {q("D:\\Données du cabinet\\Param.mdb"), folder + q("/Param.MDB")},
        {q("d:/Données DU cabinet\\Neuf\\Word.doc"), folder + q("/Neuf/Word.doc")},
        {q("e:\\Base.x"), q("/ailleurs/Base.x")},
        {q("e://Base.x"), q("/ailleurs/Base.x")},
        {q("postgresql://srv/cabinet?a=b\\Fichiers\\Tavelin.mdb"),
         q("postgresql://srv/cabinet?a=b\\Fichiers\\Tavelin.mdb")}};
    for (const auto &[stored, real] : cases) {
        EXPECT_EQ(paths.realDatabase(stored), real) << stored.toStdString();
    }
}

TEST(StoredPaths, RefusesBadDriveEntriesWhole) {
    StoredPaths paths;
    for (const QString &entries : {q("D"), q("D="), q("=/x"), q("1=/x"), q("D=/x;oups")}) {
        EXPECT_FALSE(paths.addDrives(entries)) << entries.toStdString();
    }
    EXPECT_EQ(paths.real(q("D:\\x")), q("D:/x")) << "nothing was kept";
}

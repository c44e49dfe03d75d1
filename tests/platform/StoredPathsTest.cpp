#include "platform/files/StoredPaths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(StoredPaths, FindsWhatIsThereWhateverItsCase) {
    const QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("Données du cabinet"));
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_TRUE(QFile(folder + QStringLiteral("/Param.MDB")).open(QIODevice::WriteOnly));
    StoredPaths paths;
    ASSERT_TRUE(paths.addDrives(QStringLiteral("d=") + dir.path() + QStringLiteral(";E=/ailleurs")));
    const std::pair<QString, QString> cases[] = {
        {dir.path() + QStringLiteral("\\données du CABINET\\\\param"), folder + QStringLiteral("/Param.MDB")},
        {QStringLiteral("D:\\Données du cabinet\\Param.mdb"), folder + QStringLiteral("/Param.MDB")},
        {QStringLiteral("d:/Données DU cabinet\\Neuf\\Word.doc"), folder + QStringLiteral("/Neuf/Word.doc")},
        {QStringLiteral("e:\\Base.x"), QStringLiteral("/ailleurs/Base.x")}};
    for (const auto &[stored, real] : cases) {
        EXPECT_EQ(paths.realDatabase(stored), real) << stored.toStdString();
    }
}

TEST(StoredPaths, RefusesBadDriveEntriesWhole) {
    StoredPaths paths;
    for (const QString &entries : {QStringLiteral("D"), QStringLiteral("D="), QStringLiteral("=/x"),
                                   QStringLiteral("1=/x"), QStringLiteral("D=/x;oups")}) {
        EXPECT_FALSE(paths.addDrives(entries)) << entries.toStdString();
    }
    EXPECT_EQ(paths.real(QStringLiteral("D:\\x")), QStringLiteral("D:/x")) << "nothing was kept";
}

#include "Modeles.h"
#include "support/CabinetDEssai.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

QByteArray lu(const QString &chemin) {
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
}

/// The bookmarks and the files that are shown, each with the table cells begun before it, of how many.
std::string contenu(const QString &document) {
    QStringList trouve;
    static const QRegularExpression choses(
        QStringLiteral("(?:bookmark text:name|section-source xlink:href)=\"([^\"]*)"));
    const QString cellule = QStringLiteral("<table:table-cell");
    for (auto i = choses.globalMatch(document); i.hasNext();) {
        const QRegularExpressionMatch chose = i.next();
        trouve << chose.captured(1) + QStringLiteral(" %1/%2")
                                          .arg(document.first(chose.capturedStart()).count(cellule))
                                          .arg(document.count(cellule));
    }
    return trouve.join(QStringLiteral(", ")).toStdString();
}

TEST(Modeles, AreWordDocumentsWithTheirBookmarksAndTheFrame) {
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty()) {
        GTEST_SKIP() << "LibreOffice is not installed";
    }
    const QTemporaryDir dossier;
    const QDir racine(dossier.filePath(QStringLiteral("été #1")));
    for (const char *sous : {"Documents", "Fichiers", "Base"}) {
        ASSERT_TRUE(racine.mkpath(QString::fromLatin1(sous)));
    }
    ASSERT_EQ(ecritModeles(racine.path(), racine.filePath(QStringLiteral("Base"))), QStringList());
    const struct {
        const char *fichier;
        const char *contient;
    } voulus[] = {{"Documents/ImpTavelin", "NomDocteur 0/12, DateJourImprimé 0/12, DebTableau 7/12"},
                  {"Base/LISTINGABSENT", "noprat 0/14, Début 8/14"},
                  {"Fichiers/ModèleOrtho", "Début 1/28"},
                  {"Documents/AbsenceType", "./été%20%231/Documents/ModèleOrtho1.doc 0/0"},
                  {"Documents/AnnulRDV", "./été%20%231/Documents/ModèleOrtho1.doc 0/0"}};
    QStringList arguments =
        QStringLiteral("-env:UserInstallation=file://%1/profil --headless --convert-to fodt --outdir %1")
            .arg(dossier.path())
            .split(u' ');
    for (const auto &voulu : voulus) {
        arguments << racine.filePath(QString::fromUtf8(voulu.fichier) + QStringLiteral(".doc"));
        EXPECT_TRUE(lu(arguments.last()).startsWith("\xD0\xCF\x11\xE0")) << voulu.fichier;
    }
    ASSERT_EQ(QProcess::execute(QStringLiteral("soffice"), arguments), 0);
    for (const auto &voulu : voulus) {
        const QString nom = QFileInfo(QString::fromUtf8(voulu.fichier)).fileName() + QStringLiteral(".fodt");
        EXPECT_EQ(contenu(QString::fromUtf8(lu(dossier.filePath(nom)))), voulu.contient) << voulu.fichier;
    }
}

TEST(Modeles, APracticeStandsWithoutThemAndAnOfficeThatHangsIsEnded) {
    const QTemporaryDir dossier;
    const QByteArray chemins = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(dossier.path()));
    OptionsCabinet voulu = CabinetDEssai::options();
    voulu.modeles = true;
    EXPECT_EQ(ecritCabinet(dossier.path(), voulu).modelesManquants.size(), 5);
    EXPECT_TRUE(QFile::exists(dossier.filePath(QStringLiteral("CheminBelmor.mdb"))));
    QFile office(dossier.filePath(QStringLiteral("soffice")));
    ASSERT_TRUE(office.open(QIODevice::WriteOnly));
    office.write("#!/bin/sh\necho $$ >\"$0.pid\"\nexec /bin/sleep 600\n");
    office.close();
    ASSERT_TRUE(office.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(ecritModeles(dossier.path(), dossier.path(), std::chrono::milliseconds(500)).size(), 5);
    const QByteArray numero = lu(office.fileName() + QStringLiteral(".pid")).trimmed();
    EXPECT_FALSE(numero.isEmpty());
    EXPECT_FALSE(QFile::exists(QStringLiteral("/proc/") + QString::fromLatin1(numero)));
    qputenv("PATH", chemins);
}

} // namespace

#include "Modeles.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <vector>

namespace {

struct Modele {
    QString source; ///< resource, and name of what LibreOffice makes of it
    QString fichier;
};

std::vector<Modele> modeles(const QString &racine, const QString &fichiers) {
    const QString documents = racine + QStringLiteral("/Documents/");
    return {
        {QStringLiteral("ImpTavelin"), documents + QStringLiteral("ImpTavelin.doc")},
        {QStringLiteral("AbsenceType"), documents + QStringLiteral("AbsenceType.doc")},
        {QStringLiteral("AnnulRDV"), documents + QStringLiteral("AnnulRDV.doc")},
        {QStringLiteral("ModeleOrtho"), racine + QStringLiteral("/Fichiers/ModèleOrtho.doc")},
        {QStringLiteral("LISTINGABSENT"), fichiers + QStringLiteral("/LISTINGABSENT.doc")},
    };
}

/// The text source with the frame's path in place of its mark. False when it cannot be written.
bool ecritSource(const Modele &modele, const QString &cadre, const QString &vers) {
    QFile source(QStringLiteral(":/demo/modeles/%1.fodt").arg(modele.source));
    QFile copie(vers);
    if (!source.open(QIODevice::ReadOnly) || !copie.open(QIODevice::WriteOnly)) {
        return false;
    }
    const QByteArray texte = source.readAll().replace("@cadre@", cadre.toHtmlEscaped().toUtf8());
    return copie.write(texte) == texte.size();
}

/// The office itself where it can be found: the script that starts it would leave it behind when it is
/// killed.
QString bureautique() {
    const QString script = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    const QString programme =
        QFileInfo(QFileInfo(script).canonicalFilePath()).absolutePath() + QStringLiteral("/soffice.bin");
    return !script.isEmpty() && QFileInfo(programme).isExecutable() ? programme : script;
}

/// False when the office was ended, which may have left half a document.
bool convertit(const QStringList &sources, const QString &dossier, QDeadlineTimer limite) {
    constexpr int profilNouveau = 81; // it wants to be started once more then
    QProcess office;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    env.insert(QStringLiteral("TMPDIR"), dossier);
    office.setProcessEnvironment(env);
    office.setStandardOutputFile(QProcess::nullDevice());
    office.setStandardErrorFile(QProcess::nullDevice());
    office.setProgram(bureautique());
    const QString profil =
        QUrl::fromLocalFile(dossier + QStringLiteral("/profil")).toString(QUrl::FullyEncoded);
    office.setArguments(QStringList{QStringLiteral("-env:UserInstallation=") + profil,
                                    QStringLiteral("--headless"), QStringLiteral("--norestore"),
                                    QStringLiteral("--nologo"), QStringLiteral("--nofirststartwizard"),
                                    QStringLiteral("--convert-to"), QStringLiteral("doc:MS Word 97"),
                                    QStringLiteral("--outdir"), dossier} +
                        sources);
    bool encore = !office.program().isEmpty();
    while (encore) {
        office.start();
        encore = office.waitForFinished(int(limite.remainingTime())) && office.exitCode() == profilNouveau;
    }
    if (office.state() != QProcess::NotRunning) {
        office.kill();
        office.waitForFinished();
    }
    return office.exitStatus() == QProcess::NormalExit;
}

} // namespace

QStringList ecritModeles(const QString &racine, const QString &fichiers, std::chrono::milliseconds limite) {
    const QTemporaryDir travail;
    // As a URL: a path that has a # in it is not found.
    const QString cadre =
        QUrl::fromLocalFile(QDir::cleanPath(racine + QStringLiteral("/Documents/ModèleOrtho1.doc")))
            .toString(QUrl::FullyEncoded);
    const std::vector<Modele> tous = modeles(racine, fichiers);
    QStringList sources;
    for (const Modele &modele : tous) {
        const QString source = travail.filePath(modele.source + QStringLiteral(".fodt"));
        if (ecritSource(modele, cadre, source)) {
            sources << source;
        }
    }
    const bool fait = convertit(sources, travail.path(), QDeadlineTimer(limite));
    QStringList manquants;
    for (const Modele &modele : tous) {
        QFile::remove(modele.fichier);
        if (!fait ||
            !QFile::rename(travail.filePath(modele.source + QStringLiteral(".doc")), modele.fichier)) {
            manquants << QFileInfo(modele.fichier).fileName();
        }
    }
    return manquants;
}

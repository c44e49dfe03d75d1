#include "practice/Environnement.h"

#include "platform/db/DbError.h"

#include <QFile>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

namespace {

/// The account, not the environment's idea of it. Asked once: a directory service may take its time.
QString compteDuSysteme() {
    static const QString nom = [] {
        const passwd *compte = getpwuid(getuid());
        return compte != nullptr ? QString::fromLocal8Bit(compte->pw_name) : QString::number(getuid());
    }();
    return nom;
}

} // namespace

Environnement::Environnement() : poste(QSysInfo::machineHostName), utilisateur(compteDuSysteme) {}

void Environnement::prendEmplacements(const Emplacements &lus, const QString &dossier) {
    const QString fichiers = QStringLiteral("\\Fichiers");
    CheminRacine = StoredPaths::isPath(lus.LeChemin) ? lus.LeChemin : dossier;
    CheminBases = lus.CheminBase + fichiers;
    CheminTransmission = lus.LeChemin + fichiers;
    CheminFichiers = StoredPaths::isPath(lus.CheminBase) ? CheminBases : CheminRacine + fichiers;
    CheminBaseRDV = CheminBases + QStringLiteral("\\Tavelin.mdb");
}

Database Environnement::ouvreCarnet() const {
    return ouvre(CheminBaseRDV);
}

Database Environnement::ouvreCarnetPourEcrire() const {
    Database carnet = ouvreCarnet();
    if (!lectureSeule->isEmpty()) {
        throw DbError(DbError::Kind::ReadOnly, carnet.path(), *lectureSeule);
    }
    return carnet;
}

Database Environnement::ouvreParametres() const {
    return ouvreDeLaSuite(QStringLiteral("\\param.mdb"));
}

Database Environnement::ouvreParametresImpression() const {
    return ouvreDeLaSuite(QStringLiteral("\\ParamImpression.mdb"));
}

Database Environnement::ouvrePatients() const {
    return ouvreDeLaSuite(QStringLiteral("\\Patient.mdb"));
}

Database Environnement::ouvrePatientsCrees() const {
    return ouvreDeLaSuite(QStringLiteral("\\ListingPatientsCrees.mdb"));
}

Database Environnement::ouvreActes() const {
    return ouvreDeLaSuite(QStringLiteral("\\Actes.mdb"));
}

Database Environnement::ouvreTransmission() const {
    return ouvre(CheminTransmission + QStringLiteral("\\PatientTavelin.mdb"));
}

Database Environnement::ouvreHistorique() const {
    return ouvre(CheminTransmission + QStringLiteral("\\ChangePatient.mdb"));
}

/// A practice may leave the suite's own files where they were, and have the book on a server.
Database Environnement::ouvreDeLaSuite(const QString &fichier) const {
    try {
        return ouvre(CheminBases + fichier);
    } catch (const DbError &erreur) {
        const QString reste = chemins.realDatabase(CheminFichiers + fichier);
        if (erreur.kind() != DbError::Kind::Missing || CheminFichiers == CheminBases ||
            !QFile::exists(reste)) {
            throw;
        }
    }
    return ouvre(CheminFichiers + fichier);
}

Database Environnement::ouvre(const QString &chemin) const {
    constexpr std::chrono::milliseconds parEssai{100}; // tente() goes on waiting, and the window with it
    return Database::open(chemins.realDatabase(chemin), parEssai);
}

#include "practice/Environnement.h"

#include "platform/db/DbError.h"

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

void Environnement::prendEmplacements(const Emplacements &lus) {
    CheminRacine = lus.LeChemin;
    CheminFichiers = lus.CheminBase + QStringLiteral("\\Fichiers");
    CheminBaseRDV = CheminFichiers + QStringLiteral("\\Tavelin.mdb");
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
    return ouvre(CheminFichiers + QStringLiteral("\\param.mdb"));
}

Database Environnement::ouvreParametresImpression() const {
    return ouvre(CheminFichiers + QStringLiteral("\\ParamImpression.mdb"));
}

Database Environnement::ouvrePatients() const {
    return ouvre(CheminFichiers + QStringLiteral("\\Patient.mdb"));
}

Database Environnement::ouvrePatientsCrees() const {
    return ouvre(CheminFichiers + QStringLiteral("\\ListingPatientsCrees.mdb"));
}

Database Environnement::ouvreActes() const {
    return ouvre(CheminFichiers + QStringLiteral("\\Actes.mdb"));
}

Database Environnement::ouvreTransmission() const {
    return ouvre(CheminRacine + QStringLiteral("\\Fichiers\\PatientTavelin.mdb"));
}

Database Environnement::ouvreHistorique() const {
    return ouvre(CheminRacine + QStringLiteral("\\fichiers\\ChangePatient.mdb"));
}

Database Environnement::ouvre(const QString &chemin) const {
    constexpr std::chrono::milliseconds parEssai{100}; // tente() goes on waiting, and the window with it
    return Database::open(chemins.realDatabase(chemin), parEssai);
}

#include "practice/Environnement.h"

#include "platform/db/DbError.h"

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

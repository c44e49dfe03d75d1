#include "Schema.h"

#include "platform/db/Database.h"

#include <map>

namespace {

/// "Nom:50" is a text of 50 characters; a word instead of the number is another type.
FieldDef champ(const QString &mot) {
    static const std::map<QString, FieldType> types{
        {QStringLiteral("clé"), FieldType::AutoNumber}, {QStringLiteral("booléen"), FieldType::Boolean},
        {QStringLiteral("court"), FieldType::Int16},    {QStringLiteral("entier"), FieldType::Int32},
        {QStringLiteral("réel"), FieldType::Double},    {QStringLiteral("date"), FieldType::DateTime}};
    const QString nom = mot.section(u':', 0, 0);
    const QString sorte = mot.section(u':', 1);
    const int taille = sorte.toInt();
    return taille > 0 ? FieldDef{nom, FieldType::Text, taille} : FieldDef{nom, types.at(sorte)};
}

std::vector<FieldDef> champs(const QString &mots) {
    std::vector<FieldDef> resultat;
    for (const QString &mot : mots.split(u' ', Qt::SkipEmptyParts)) {
        resultat.push_back(champ(mot));
    }
    return resultat;
}

SchemaTable table(const char *nom, const QString &mots, const QString &ajouts = {}) {
    return {QString::fromLatin1(nom), champs(mots), champs(ajouts)};
}

std::map<Base, SchemaBase> basesDuCarnet() {
    using enum Emplacement;
    const QString rdv = QStringLiteral(
        " Nom:50 Prenom:50 Telephone:20 Description:255 NumPatient:entier Date1:date HeureDebut:date "
        "HeureFin:date NumPraticien:5 Professionnel:booléen Present:booléen ");
    const QString config = QStringLiteral(
        "NomConfig:50 NumPraticien:5 DefaultConfig:booléen NbJours:court LunAffich:entier "
        "MarAffich:entier MerAffich:entier JeuAffich:entier VenAffich:entier SamAffich:entier "
        "DimAffich:entier JourRepos:entier LunGrise:court MarGrise:court MerGrise:court JeuGrise:court "
        "VenGrise:court SamGrise:court DimGrise:court Intervalle:court HeureMatDebut:date "
        "HeureMatFin:date HeurePMDebut:date HeurePMFin:date");
    const QString impression = QStringLiteral(
        "Heure:5 NomPatient:101 PrenomPatient:255 HeurePM:5 NomPatientPM:101 PrenomPatientPM:255");
    // An archived row keeps the number it had in the book, so that nothing is assigned there.
    const SchemaTable archive =
        table("RDV", QStringLiteral("RefRDV:entier") + rdv + QStringLiteral("DateInv:10"));
    const QString numPatient = QStringLiteral("NumPatient:entier");
    return {{Base::Chemins,
             {QStringLiteral("CheminBelmor.mdb"),
              Cabinet,
              {table("Chemin", QStringLiteral("LeChemin:255 CheminBase:255"))}}},
            {Base::RendezVous,
             {QStringLiteral("Tavelin.mdb"),
              BaseDesDonnees,
              {table("RDV", QStringLiteral("RefRDV:clé") + rdv, QStringLiteral("DateInv:10 Fauteuil:court")),
               table("Config", config, QStringLiteral("Fauteuil:court")), table("Impression", impression)}}},
            {Base::PatientTransmis,
             {QStringLiteral("PatientTavelin.mdb"),
              Racine,
              {table("LePatient", QStringLiteral("NomPatient:50 PrenomPatient:50 ") + numPatient),
               table("LePraticien", QStringLiteral("NumPraticien:5"))}}},
            {Base::Historique, {QStringLiteral("ChangePatient.mdb"), Racine, {table("Carnet", numPatient)}}},
            {Base::ArchiveVide, {QStringLiteral("ZeroRDV.mdb"), BaseDesDonnees, {archive}}}};
}

std::map<Base, SchemaBase> basesDeLaSuite() {
    const auto base = [](const char *fichier, std::vector<SchemaTable> tables) {
        return SchemaBase{QString::fromLatin1(fichier), Emplacement::BaseDesDonnees, std::move(tables)};
    };
    const QString praticien = QStringLiteral("codeprat:court Titre:20 nom:50 PreNom:50 Word:booléen");
    const QString patient = QStringLiteral(
        "cptid:clé nom:50 PreNom:50 Titre:20 adresse1:50 adresse2:50 CodePostal:10 ville:50 telephone:20 "
        "Portable:20 Profession:50 telephone1:20 NomJF:50 CAM:50 medecin:50 AdrPar:50 mutuelle:50 "
        "DateNais:10 NumeroSS:21 TauxCam:court TauxMut:court PenChargeTp:court Option:court "
        "Filler1:court Filler2:court cmu:1 DateDerLg:10 MontantHis:réel RDVNonHonoré:1");
    const QString cree = QStringLiteral(
        "DateCréationFicheInv:8 DateCréationFiche:10 NumPatient:entier nom:50 PreNom:50 telephone:20 "
        "Portable:20 adresse1:50 adresse2:50 CodePostal:10 ville:50 DateNais:10 DateDerLg:10 "
        "MontantHis:réel NumeroSS:21");
    const QString acte = QStringLiteral(
        "NumActe:entier NumPatient:entier AFaire:court Libellé:100 CodeSecu:10 Coefficient:réel");
    const QString ligne = QStringLiteral("codeprat:court NumLigne:court LgPerso:100");
    return {{Base::Parametres, base("Param.mdb", {table("Praticien", praticien),
                                                  table("Cabinet", QStringLiteral("ville:50"))})},
            {Base::Patients, base("Patient.mdb", {table("TabPat", patient)})},
            {Base::PatientsCrees, base("ListingPatientsCrees.mdb", {table("LesPatients", cree)})},
            {Base::Actes, base("Actes.mdb", {table("Actes", acte)})},
            {Base::ParametresImpression, base("ParamImpression.mdb", {table("Parametres", ligne)})}};
}

} // namespace

const SchemaBase &schema(Base base) {
    static const std::map<Base, SchemaBase> bases = [] {
        std::map<Base, SchemaBase> toutes = basesDuCarnet();
        toutes.merge(basesDeLaSuite());
        return toutes;
    }();
    return bases.at(base);
}

void creeBase(const QString &chemin, const SchemaBase &schema, Forme forme) {
    Database db = Database::create(chemin);
    Transaction transaction(db);
    for (const SchemaTable &table : schema.tables) {
        std::vector<FieldDef> champs = table.champs;
        if (forme == Forme::Actuelle) {
            champs.insert(champs.end(), table.ajouts.begin(), table.ajouts.end());
        }
        db.createTable(table.nom, champs);
    }
    transaction.commit();
}

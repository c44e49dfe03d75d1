#include "Schema.h"

#include "platform/db/Database.h"

#include <map>

namespace {

FieldDef texteDe(const char *nom, int taille) {
    return {QString::fromUtf8(nom), FieldType::Text, taille};
}

FieldDef champ(const char *nom, FieldType type) {
    return {QString::fromUtf8(nom), type};
}

/// The thirteen fields that an archive keeps of an appointment, without its key.
std::vector<FieldDef> champsRendezVous() {
    return {texteDe("Nom", 50),
            texteDe("Prenom", 50),
            texteDe("Telephone", 20),
            texteDe("Description", 255),
            champ("NumPatient", FieldType::Int32),
            champ("Date1", FieldType::DateTime),
            champ("HeureDebut", FieldType::DateTime),
            champ("HeureFin", FieldType::DateTime),
            texteDe("NumPraticien", 5),
            champ("Professionnel", FieldType::Boolean),
            champ("Present", FieldType::Boolean)};
}

SchemaTable tableRDV() {
    SchemaTable table{QStringLiteral("RDV"), champsRendezVous()};
    table.champs.insert(table.champs.begin(), champ("RefRDV", FieldType::AutoNumber));
    table.ajouts = {texteDe("DateInv", 10), champ("Fauteuil", FieldType::Int16)};
    return table;
}

/// An archived row keeps the number it had in the book, so that nothing is assigned here.
SchemaTable tableArchive() {
    SchemaTable table{QStringLiteral("RDV"), champsRendezVous()};
    table.champs.insert(table.champs.begin(), champ("RefRDV", FieldType::Int32));
    table.champs.push_back(texteDe("DateInv", 10));
    return table;
}

SchemaTable tableConfig() {
    SchemaTable table{QStringLiteral("Config"),
                      {texteDe("NomConfig", 50), texteDe("NumPraticien", 5),
                       champ("DefaultConfig", FieldType::Boolean), champ("NbJours", FieldType::Int16)}};
    const char *const jours[] = {"Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim"};
    for (const char *jour : jours) {
        const QByteArray nom = QByteArray(jour) + "Affich";
        table.champs.push_back(champ(nom.constData(), FieldType::Int32));
    }
    table.champs.push_back(champ("JourRepos", FieldType::Int32));
    for (const char *jour : jours) {
        const QByteArray nom = QByteArray(jour) + "Grise";
        table.champs.push_back(champ(nom.constData(), FieldType::Int16));
    }
    table.champs.push_back(champ("Intervalle", FieldType::Int16));
    for (const char *heure : {"HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin"}) {
        table.champs.push_back(champ(heure, FieldType::DateTime));
    }
    table.ajouts = {champ("Fauteuil", FieldType::Int16)};
    return table;
}

SchemaTable tableImpression() {
    return {QStringLiteral("Impression"),
            {texteDe("Heure", 5), texteDe("NomPatient", 101), texteDe("PrenomPatient", 255),
             texteDe("HeurePM", 5), texteDe("NomPatientPM", 101), texteDe("PrenomPatientPM", 255)}};
}

SchemaTable tableTabPat() {
    SchemaTable table{
        QStringLiteral("TabPat"),
        {champ("cptid", FieldType::AutoNumber), texteDe("nom", 50), texteDe("PreNom", 50),
         texteDe("Titre", 20), texteDe("adresse1", 50), texteDe("adresse2", 50), texteDe("CodePostal", 10),
         texteDe("ville", 50), texteDe("telephone", 20), texteDe("Portable", 20), texteDe("Profession", 50),
         texteDe("telephone1", 20), texteDe("NomJF", 50), texteDe("CAM", 50), texteDe("medecin", 50),
         texteDe("AdrPar", 50), texteDe("mutuelle", 50), texteDe("DateNais", 10), texteDe("NumeroSS", 21)}};
    for (const char *nom : {"TauxCam", "TauxMut", "PenChargeTp", "Option", "Filler1", "Filler2"}) {
        table.champs.push_back(champ(nom, FieldType::Int16));
    }
    table.champs.push_back(texteDe("cmu", 1));
    table.champs.push_back(texteDe("DateDerLg", 10));
    table.champs.push_back(champ("MontantHis", FieldType::Double));
    table.champs.push_back(texteDe("RDVNonHonoré", 1));
    return table;
}

SchemaTable tableLesPatients() {
    return {QStringLiteral("LesPatients"),
            {texteDe("DateCréationFicheInv", 8), texteDe("DateCréationFiche", 10),
             champ("NumPatient", FieldType::Int32), texteDe("nom", 50), texteDe("PreNom", 50),
             texteDe("telephone", 20), texteDe("Portable", 20), texteDe("adresse1", 50),
             texteDe("adresse2", 50), texteDe("CodePostal", 10), texteDe("ville", 50),
             texteDe("DateNais", 10), texteDe("DateDerLg", 10), champ("MontantHis", FieldType::Double),
             texteDe("NumeroSS", 21)}};
}

SchemaTable tablePraticien() {
    return {QStringLiteral("Praticien"),
            {champ("codeprat", FieldType::Int16), texteDe("Titre", 20), texteDe("nom", 50),
             texteDe("PreNom", 50), champ("Word", FieldType::Boolean)}};
}

SchemaTable tableActes() {
    return {QStringLiteral("Actes"),
            {champ("NumActe", FieldType::Int32), champ("NumPatient", FieldType::Int32),
             champ("AFaire", FieldType::Int16), texteDe("Libellé", 100), texteDe("CodeSecu", 10),
             champ("Coefficient", FieldType::Double)}};
}

using enum Emplacement;

std::map<Base, SchemaBase> basesDuCarnet() {
    const SchemaTable chemin{QStringLiteral("Chemin"),
                             {texteDe("LeChemin", 255), texteDe("CheminBase", 255)}};
    const SchemaTable patient{
        QStringLiteral("LePatient"),
        {texteDe("NomPatient", 50), texteDe("PrenomPatient", 50), champ("NumPatient", FieldType::Int32)}};
    const SchemaTable praticien{QStringLiteral("LePraticien"), {texteDe("NumPraticien", 5)}};
    const SchemaTable carnet{QStringLiteral("Carnet"), {champ("NumPatient", FieldType::Int32)}};
    return {{Base::Chemins, {QStringLiteral("CheminBelmor.mdb"), Cabinet, {chemin}}},
            {Base::RendezVous,
             {QStringLiteral("Tavelin.mdb"), BaseDesDonnees, {tableRDV(), tableConfig(), tableImpression()}}},
            {Base::PatientTransmis, {QStringLiteral("PatientTavelin.mdb"), Racine, {patient, praticien}}},
            {Base::Historique, {QStringLiteral("ChangePatient.mdb"), Racine, {carnet}}},
            {Base::ArchiveVide, {QStringLiteral("ZeroRDV.mdb"), BaseDesDonnees, {tableArchive()}}}};
}

std::map<Base, SchemaBase> basesDeLaSuite() {
    const SchemaTable cabinet{QStringLiteral("Cabinet"), {texteDe("ville", 50)}};
    const SchemaTable lignes{
        QStringLiteral("Parametres"),
        {champ("codeprat", FieldType::Int16), champ("NumLigne", FieldType::Int16), texteDe("LgPerso", 100)}};
    return {{Base::Parametres, {QStringLiteral("Param.mdb"), BaseDesDonnees, {tablePraticien(), cabinet}}},
            {Base::Patients, {QStringLiteral("Patient.mdb"), BaseDesDonnees, {tableTabPat()}}},
            {Base::PatientsCrees,
             {QStringLiteral("ListingPatientsCrees.mdb"), BaseDesDonnees, {tableLesPatients()}}},
            {Base::Actes, {QStringLiteral("Actes.mdb"), BaseDesDonnees, {tableActes()}}},
            {Base::ParametresImpression, {QStringLiteral("ParamImpression.mdb"), BaseDesDonnees, {lignes}}}};
}

std::map<Base, SchemaBase> catalogue() {
    std::map<Base, SchemaBase> bases = basesDuCarnet();
    bases.merge(basesDeLaSuite());
    return bases;
}

} // namespace

const SchemaBase &schema(Base base) {
    static const std::map<Base, SchemaBase> bases = catalogue();
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

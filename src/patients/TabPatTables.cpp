#include "patients/TabPatTables.h"

#include "platform/db/DateInverse.h"
#include "platform/db/DbError.h"

namespace {

const QString tableTabPat = QStringLiteral("TabPat");

/// "dd/mm/yyyy", also of a file that keeps dates of birth as dates.
QString dateAffichee(const Value &valeur) {
    const QDate date = valeur.toDate();
    return date.isValid() ? date.toString(QStringLiteral("dd/MM/yyyy")) : valeur.toText();
}

/// Only the four fields that are listed: reading all thirty takes twice as long.
SqlText requete() {
    return SqlText("select nom, PreNom, cptid, DateNais from TabPat where ");
}

/// The names alone, which the index holds, each with its count. The bounds let the index serve; the pattern
/// decides.
SqlText requeteNoms(const QString &debut) {
    const Plage plage = PlageDebut(debut);
    return SqlText("select min(nom), count(*) from TabPat where TexteIndex(nom) >= ")
           << texte(plage.de) << " and TexteIndex(nom) < " << texte(plage.jusqua)
           << " group by TexteIndex(nom) having min(nom) like " << texte(MotifDebut(debut))
           << " order by TexteTri(min(nom)), TexteIndex(min(nom))";
}

QList<LotDeNoms> lotsDe(const Records &noms) {
    constexpr qint64 assez = 200; // patients: some screens
    QList<LotDeNoms> lots;
    qint64 combien = assez;
    QString precedent;
    for (const Record row : noms) {
        const QString nom = row.at(0).toText();
        // É and é are two keys of the index, and one name
        if (combien >= assez && precedent.compare(nom, Qt::CaseInsensitive) != 0) {
            lots.append(LotDeNoms());
            combien = 0;
        }
        lots.last() << nom;
        combien += row.at(1).toInteger();
        precedent = nom;
    }
    return lots;
}

QList<PatientTrouve> patientsDe(const Records &rows) {
    QList<PatientTrouve> patients;
    patients.reserve(rows.count());
    for (const Record row : rows) {
        patients.append(
            {row.at(0).toText(), row.at(1).toText(), row.at(2).toText(), dateAffichee(row.at(3))});
    }
    return patients;
}

Fields champsDe(const FichePatient &fiche) {
    Fields champs{{QStringLiteral("nom"), fiche.nom},
                  {QStringLiteral("PreNom"), fiche.PreNom},
                  {QStringLiteral("Titre"), fiche.Titre},
                  {QStringLiteral("adresse1"), fiche.adresse1},
                  {QStringLiteral("adresse2"), fiche.adresse2},
                  {QStringLiteral("CodePostal"), fiche.CodePostal},
                  {QStringLiteral("ville"), fiche.ville},
                  {QStringLiteral("telephone"), fiche.telephone},
                  {QStringLiteral("DateNais"), fiche.identite.DateNais},
                  {QStringLiteral("NumeroSS"), fiche.identite.NumeroSS},
                  {QStringLiteral("cmu"), QStringLiteral("N")}};
    for (const QString &vide : {QStringLiteral("Profession"), QStringLiteral("telephone1"),
                                QStringLiteral("NomJF"), QStringLiteral("CAM"), QStringLiteral("medecin"),
                                QStringLiteral("AdrPar"), QStringLiteral("mutuelle")}) {
        champs.emplace_back(vide, QStringLiteral(""));
    }
    for (const QString &nul :
         {QStringLiteral("TauxCam"), QStringLiteral("TauxMut"), QStringLiteral("PenChargeTp"),
          QStringLiteral("Option"), QStringLiteral("Filler1"), QStringLiteral("Filler2")}) {
        champs.emplace_back(nul, 0);
    }
    return champs;
}

/// The listing's row, copied from the patient's as the file keeps it.
Fields ligneListing(Database &patient, qint64 cptid, QDate aujourdhui) {
    const Records rows = patient.query(SqlText("select * from TabPat where Cptid=") << nombre(cptid));
    const Record row = rows.first();
    Fields champs{
        {QStringLiteral("DateCréationFicheInv"), InverseDate(aujourdhui)},
        {QStringLiteral("DateCréationFiche"), aujourdhui.toString(QStringLiteral("dd/MM/yyyy"))},
        {QStringLiteral("NumPatient"), cptid},
    };
    for (const QString &champ :
         {QStringLiteral("nom"), QStringLiteral("PreNom"), QStringLiteral("telephone"),
          QStringLiteral("Portable"), QStringLiteral("adresse1"), QStringLiteral("adresse2"),
          QStringLiteral("CodePostal"), QStringLiteral("ville"), QStringLiteral("DateNais"),
          QStringLiteral("DateDerLg"), QStringLiteral("MontantHis")}) {
        champs.emplace_back(champ, row[champ]);
    }
    const QString numero = row[u"NumeroSS"].toText();
    champs.emplace_back(QStringLiteral("NumeroSS"), numero.isEmpty() ? QStringLiteral(" ") : numero);
    return champs;
}

} // namespace

PatientsTrouves CherchePatients(Database &patient, const Critere &critere) {
    if (const auto *numero = std::get_if<qint64>(&critere)) {
        return {patientsDe(patient.query(requete() << "cptid = " << nombre(*numero))), {}};
    }
    PatientsTrouves trouves;
    if (const auto *debut = std::get_if<QString>(&critere)) {
        trouves.suite = lotsDe(patient.query(requeteNoms(*debut)));
        if (!trouves.suite.isEmpty()) {
            trouves.patients = PatientsDuLot(patient, trouves.suite.takeFirst());
        }
    }
    return trouves;
}

QList<PatientTrouve> PatientsDuLot(Database &patient, const LotDeNoms &lot) {
    SqlText sql = requete() << "TexteIndex(nom) in (";
    for (qsizetype i = 0; i < lot.size(); ++i) {
        (i > 0 ? sql << ", " : sql) << texte(lot[i]);
    }
    return patientsDe(
        patient.query(sql << ") order by TexteTri(nom), TexteTri(prenom), TexteIndex(nom), cptid"));
}

void CreeIndexPatients(Database &patient) {
    const IndexDef index{QStringLiteral("PatientsParNom"), SqlText("TexteIndex(nom)")};
    TableDef tabPat = patient.tableDef(tableTabPat);
    if (tabPat.isUpdatable() && !tabPat.hasIndex(index.name)) {
        tabPat.createIndex(index);
    }
}

NonHonore RDVNonHonoré(Database &patient, qint64 numPatient) {
    const Records rows =
        patient.query(SqlText("select RDVNonHonoré from TabPat where Cptid=") << nombre(numPatient));
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return rows.first().at(0).toText() == u"O";
}

QStringList Titres(Database &patient) {
    const Records rows =
        patient.query(SqlText("select Titre from TabPat group by Titre order by min(cptid)"));
    QStringList titres;
    for (const Record row : rows) {
        const QString titre = row.at(0).toText();
        if (!titre.trimmed().isEmpty()) {
            titres << titre;
        }
    }
    return titres;
}

QList<Identite> Homonymes(Database &patient, const FichePatient &fiche) {
    const Records rows =
        patient.query(SqlText("select Nom,Prenom,DateNais,NumeroSS from TabPat where Nom = ")
                      << texte(fiche.nom) << " and Prenom =" << texte(fiche.PreNom) << " order by cptid");
    QList<Identite> homonymes;
    for (const Record row : rows) {
        homonymes.append({dateAffichee(row[u"DateNais"]), row[u"NumeroSS"].toText()});
    }
    return homonymes;
}

qint64 CreePatient(Database &patient, const Database &listing, const FichePatient &fiche, QDate aujourdhui) {
    patient.attach(listing, QStringLiteral("Listing"));
    Transaction ecrit(patient);
    const qint64 cptid = patient.insert(tableTabPat, champsDe(fiche));
    patient.append(QStringLiteral("Listing.LesPatients"), ligneListing(patient, cptid, aujourdhui));
    ecrit.commit();
    return cptid;
}

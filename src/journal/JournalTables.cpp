#include "journal/JournalTables.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

const QString tableJournal = QStringLiteral("TavJournal");
const QString cle = QStringLiteral("RefJournal");
const QString formeQuand = QStringLiteral("yyyy-MM-dd HH:mm:ss"); // sorts as a text, and has no letters
constexpr int longueurNom = 50;

const std::vector<FieldDef> &champsJournal() {
    static const std::vector<FieldDef> champs{
        {cle, FieldType::AutoNumber},
        {QStringLiteral("Quand"), FieldType::Text, 19},
        {QStringLiteral("Poste"), FieldType::Text, longueurNom},
        {QStringLiteral("Utilisateur"), FieldType::Text, longueurNom},
        {QStringLiteral("Quoi"), FieldType::Int16},
        {QStringLiteral("RefRDV"), FieldType::Int32},
        {QStringLiteral("NumPraticien"), FieldType::Int32},
        {QStringLiteral("Jour"), FieldType::Text, 10},
        {QStringLiteral("JourAvant"), FieldType::Text, 10}, // where it was another, here and below
        {QStringLiteral("Patient"), FieldType::Text, 101},
        {QStringLiteral("PatientAvant"), FieldType::Text, 101},
        {QStringLiteral("Avant"), FieldType::Text},
        {QStringLiteral("Apres"), FieldType::Text},
    };
    return champs;
}

std::vector<IndexDef> indexJournal() {
    return {
        {QStringLiteral("JournalParQuand"), SqlText("Quand")},
        {QStringLiteral("JournalParRDV"), SqlText("RefRDV")},
        {QStringLiteral("JournalParJour"), SqlText("Jour")},
        {QStringLiteral("JournalParJourAvant"), SqlText("JourAvant"), SqlText("JourAvant Is Not Null")},
        {QStringLiteral("JournalParPatient"), SqlText("TexteIndex(Patient)")},
        {QStringLiteral("JournalParPatientAvant"), SqlText("TexteIndex(PatientAvant)"),
         SqlText("PatientAvant Is Not Null")},
        // few: a day asks for all that were made of later ones
        {QStringLiteral("JournalPurges"), SqlText("NumPraticien, Jour"), SqlText("Quoi = 5")},
    };
}

/// A table is made, and completed, in one transaction: its last field stands for all of them.
bool estTenu(Database &carnet) {
    if (!carnet.hasTable(tableJournal)) {
        return false;
    }
    const TableDef table = carnet.tableDef(tableJournal);
    return table.isUpdatable() && table.hasField(champsJournal().back().name);
}

QString enTexte(const Rangee &rangee) {
    return QString::fromUtf8(QJsonDocument(rangee).toJson(QJsonDocument::Compact));
}

Rangee enRangee(const QString &texte) {
    return QJsonDocument::fromJson(texte.toUtf8()).object();
}

Value ouNull(const QString &texte) {
    return texte.isEmpty() ? Value() : Value(texte);
}

Fields champsDe(const Auteur &auteur, Operation quoi) {
    return {{QStringLiteral("Quand"), auteur.quand.toString(formeQuand)},
            {QStringLiteral("Poste"), auteur.poste.left(longueurNom)},
            {QStringLiteral("Utilisateur"), auteur.utilisateur.left(longueurNom)},
            {QStringLiteral("Quoi"), int(quoi)}};
}

/// `avant` where it is another than `apres`.
void ajouteCle(Fields &champs, const QString &nom, const QString &avant, const QString &apres) {
    champs.emplace_back(nom, ouNull(apres.isEmpty() ? avant : apres));
    champs.emplace_back(nom + QStringLiteral("Avant"),
                        apres.isEmpty() || avant == apres ? Value() : ouNull(avant));
}

qint64 nombreDe(const Rangee &rangee, QLatin1StringView champ) {
    return Value(rangee[champ].toVariant().toString()).toInteger();
}

QList<LigneJournal> lit(Database &carnet, const SqlText &condition) {
    QList<LigneJournal> lignes;
    if (!estTenu(carnet)) {
        return lignes;
    }
    carnet.forEach(
        SqlText("Select RefJournal, Quand, Poste, Utilisateur, Quoi, Avant, Apres from TavJournal Where ")
            << condition << " order by RefJournal desc",
        [&](const RowView &r) {
            lignes.append(
                LigneJournal{r.integer(0), QDateTime::fromString(r.text(1), formeQuand), r.text(2), r.text(3),
                             EcritureRDV{Operation(r.integer(4)), enRangee(r.text(5)), enRangee(r.text(6))}});
        });
    return lignes;
}

} // namespace

// ---- The table

bool JournalEstPret(Database &carnet) {
    if (!estTenu(carnet)) {
        return false;
    }
    const TableDef table = carnet.tableDef(tableJournal);
    return std::ranges::all_of(indexJournal(),
                               [&](const IndexDef &index) { return table.hasIndex(index.name); });
}

void PrepareJournal(Database &carnet) {
    Transaction transaction(carnet);
    TableDef table = carnet.completedTable(tableJournal, champsJournal());
    for (const IndexDef &index : indexJournal()) {
        if (!table.hasIndex(index.name)) {
            table.createIndex(index);
        }
    }
    transaction.commit();
}

// ---- Writing

void NoteEcriture(Database &carnet, const Auteur &auteur, const EcritureRDV &ecriture) {
    if (ecriture.vide() || !estTenu(carnet)) {
        return;
    }
    const auto &[quoi, avant, apres] = ecriture;
    const Rangee &derniere = apres.isEmpty() ? avant : apres;
    Fields champs = champsDe(auteur, quoi);
    champs.emplace_back(QStringLiteral("RefRDV"), ecriture.RefRDV());
    champs.emplace_back(QStringLiteral("NumPraticien"),
                        nombreDe(derniere, QLatin1StringView("NumPraticien")));
    ajouteCle(champs, QStringLiteral("Jour"), CleJour(avant), CleJour(apres));
    ajouteCle(champs, QStringLiteral("Patient"), ClePatient(avant), ClePatient(apres));
    champs.emplace_back(QStringLiteral("Avant"), avant.isEmpty() ? Value() : Value(enTexte(avant)));
    champs.emplace_back(QStringLiteral("Apres"), apres.isEmpty() ? Value() : Value(enTexte(apres)));
    carnet.append(tableJournal, champs);
}

qint64 NotePurge(Database &carnet, const Auteur &auteur, const PurgeNotee &purge) {
    if (!estTenu(carnet)) {
        return 0;
    }
    Fields champs = champsDe(auteur, Operation::Purge);
    champs.emplace_back(QStringLiteral("NumPraticien"), qint64{purge.praticien});
    champs.emplace_back(QStringLiteral("Jour"), purge.jour.toString(QStringLiteral("yyyyMMdd")));
    champs.emplace_back(QStringLiteral("Apres"),
                        enTexte({{champNombre, purge.nombre},
                                 {champArchive, purge.archive},
                                 {QStringLiteral("Date1"), purge.jour.toString(Qt::ISODate)}}));
    return carnet.update(tableJournal, cle, purge.RefJournal, champs) ? purge.RefJournal
                                                                      : carnet.insert(tableJournal, champs);
}

// ---- Reading

QList<LigneJournal> JournalDuRDV(Database &carnet, qint64 RefRDV) {
    return lit(carnet, SqlText("RefRDV = ") << nombre(RefRDV));
}

QList<LigneJournal> JournalDuPatient(Database &carnet, const QString &nom, const QString &prenom,
                                     qint64 numero) {
    const SqlValue patient = texte(ClePatient(nom, prenom));
    QList<LigneJournal> lignes = lit(carnet, SqlText("TexteIndex(Patient) = ")
                                                 << patient << " or TexteIndex(PatientAvant) = " << patient);
    const auto deLAutre = [numero](const Rangee &rangee) {
        const qint64 sien = nombreDe(rangee, QLatin1StringView("NumPatient"));
        return numero != 0 && sien != 0 && sien != numero;
    };
    lignes.removeIf([&](const LigneJournal &ligne) {
        const auto &[quoi, avant, apres] = ligne.ecriture;
        return (avant.isEmpty() || deLAutre(avant)) && (apres.isEmpty() || deLAutre(apres));
    });
    return lignes;
}

QList<LigneJournal> JournalDuJour(Database &carnet, QDate jour, long praticien) {
    const SqlValue ceJour = texte(jour.toString(QStringLiteral("yyyyMMdd")));
    const SqlValue lui = nombre(praticien);
    return lit(carnet, SqlText("(Jour = ")
                           << ceJour << " and Quoi <> 5 and NumPraticien = " << lui
                           << ") or (JourAvant = " << ceJour << " and NumPraticien = " << lui
                           << ") or (Quoi = 5 and NumPraticien = " << lui << " and Jour > " << ceJour << ")");
}

bool CleReprise(Database &carnet, const LigneJournal &ligne) {
    const QList<LigneJournal> ajouts =
        lit(carnet, SqlText("RefRDV = ") << nombre(ligne.ecriture.RefRDV())
                                         << " and Quoi = 1 and RefJournal > " << nombre(ligne.RefJournal));
    return !ajouts.isEmpty();
}

// ---- Forgetting

bool OublieJournal(Database &carnet, const QDateTime &limite) {
    constexpr int lot = 300;
    if (!estTenu(carnet)) {
        return false;
    }
    const SqlText anciens = SqlText("Select RefJournal from TavJournal Where Quand < ")
                            << texte(limite.toString(formeQuand)) << " order by Quand limit ";
    if (carnet.query(SqlText(anciens) << nombre(1)).isEmpty()) { // no lock for that
        return false;
    }
    Transaction transaction(carnet, {tableJournal}); // no appointment waits for that
    const int partis = carnet.execute(SqlText("Delete from TavJournal Where RefJournal in (")
                                      << anciens << nombre(lot) << ")");
    transaction.commit();
    return partis == lot;
}

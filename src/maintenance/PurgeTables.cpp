#include "maintenance/PurgeTables.h"

#include "platform/db/DateInverse.h"
#include "platform/db/DbError.h"

#include <QFile>
#include <algorithm>
#include <map>
#include <thread>

namespace {

const QString tableRDV = QStringLiteral("RDV");

/// What an archive keeps of an appointment, in this order. The chair is not among it.
const std::vector<FieldDef> &champsArchives() {
    static const std::vector<FieldDef> champs{
        {QStringLiteral("RefRDV"), FieldType::Int32},
        {QStringLiteral("Nom"), FieldType::Text, 50},
        {QStringLiteral("Prenom"), FieldType::Text, 50},
        {QStringLiteral("Telephone"), FieldType::Text, 20},
        {QStringLiteral("Description"), FieldType::Text, 255},
        {QStringLiteral("NumPatient"), FieldType::Int32},
        {QStringLiteral("Date1"), FieldType::DateTime},
        {QStringLiteral("HeureDebut"), FieldType::DateTime},
        {QStringLiteral("HeureFin"), FieldType::DateTime},
        {QStringLiteral("NumPraticien"), FieldType::Text, 5},
        {QStringLiteral("Professionnel"), FieldType::Boolean},
        {QStringLiteral("Present"), FieldType::Boolean},
        {QStringLiteral("DateInv"), FieldType::Text, 10},
    };
    return champs;
}

/// "(1,2,3)"
SqlText parmi(const std::vector<qint64> &cles) {
    SqlText liste("(");
    for (size_t i = 0; i < cles.size(); ++i) {
        liste << (i > 0 ? SqlText(",") : SqlText("")) << nombre(cles[i]);
    }
    return liste << ")";
}

/// A template that lacks a field would refuse each row.
void verifieModele(const QString &modele) {
    Database base = Database::open(modele);
    const TableDef rdv = base.tableDef(tableRDV);
    for (const FieldDef &champ : champsArchives()) {
        if (!rdv.hasField(champ.name)) {
            throw DbError(DbError::Kind::Structure, modele,
                          QStringLiteral("le champ « %1 » manque dans la table RDV").arg(champ.name));
        }
    }
}

/// The archive exists, and is this call's own.
void copieModele(const QString &modele, QFile &archive) {
    QFile source(modele);
    if (!source.open(QIODevice::ReadOnly)) {
        throw DbError(DbError::Kind::Other, modele, QStringLiteral("il ne peut pas être lu"));
    }
    const QByteArray contenu = source.readAll(); // an empty database
    if (contenu.size() != source.size() || archive.write(contenu) != contenu.size() || !archive.flush()) {
        throw DbError(DbError::Kind::DiskFull, archive.fileName());
    }
}

bool memeValeur(const Value &a, const Value &b) {
    return a.isNull() == b.isNull() && a.toText() == b.toText();
}

/// Text that is not text comes back as another one.
bool estLisible(const Fields &champs) {
    return std::ranges::none_of(champs, [](const auto &champ) {
        return champ.second.toText().contains(QChar::ReplacementCharacter);
    });
}

} // namespace

void CreeArchive(const QString &modele, const QString &archive) {
    const bool avecModele = QFile::exists(modele);
    if (avecModele) {
        verifieModele(modele);
    }
    Database vide = Database::create(archive); // from here on the file is this call's own
    try {
        if (avecModele) {
            QFile fichier(archive);
            if (!fichier.open(QIODevice::ReadWrite)) {
                throw DbError(DbError::Kind::Other, archive, QStringLiteral("il ne peut pas être créé"));
            }
            copieModele(modele, fichier);
        } else {
            vide.createTable(tableRDV, champsArchives());
        }
    } catch (...) {
        QFile::remove(archive);
        throw;
    }
}

/// Text compared with text, and a practitioner's number with a number: "01" is 1.
SqlText Purge::condition() const {
    return SqlText("clng(NumPraticien) = ")
           << nombre(m_praticien) << " and DateInv < " << texte(InverseDate(m_jour));
}

void Purge::cherche(Database &rdv) {
    m_cles.clear();
    rdv.forEach(SqlText("Select rowid as cle, Date1 from RDV Where ") << condition() << " order by DateInv",
                [this](const RowView &row) {
                    if (EstAnterieur(row.date(1), m_jour)) {
                        m_cles.push_back(row.integer(0));
                    }
                });
}

/// Those that may leave the book. The list decides which rows are read: without the "+ 0" the engine would go
/// through all that are left to move, by their index.
std::vector<Purge::Rangee> Purge::litLot(Database &rdv, const std::vector<qint64> &cles) const {
    const Records rows = rdv.query(
        SqlText(
            "Select rowid as cle, RefRDV, Nom, Prenom, Telephone, Description, NumPatient, Date1, "
            "HeureDebut, HeureFin, NumPraticien, Professionnel, Present, DateInv from RDV Where rowid in ")
        << parmi(cles) << " and clng(NumPraticien) + 0 = " << nombre(m_praticien) << " and DateInv & '' < "
        << texte(InverseDate(m_jour)) << " order by rowid");
    const int jour = rows.field(u"Date1");
    std::vector<Rangee> lot;
    for (int row = 0; row < rows.count(); ++row) {
        if (!EstAnterieur(rows.at(row, jour).toDate(), m_jour)) {
            continue;
        }
        Rangee rangee{rows.at(row, 0).toInteger(), {}};
        rangee.champs.reserve(champsArchives().size());
        int place = 0;
        for (const FieldDef &champ : champsArchives()) {
            rangee.champs.emplace_back(champ.name, rows.at(row, ++place));
        }
        if (estLisible(rangee.champs)) {
            lot.push_back(std::move(rangee));
        }
    }
    return lot;
}

void Purge::archive(Database &archives, const std::vector<Rangee> &lot) {
    Transaction transaction(archives);
    if (!m_enSuspens.empty()) {
        archives.execute(SqlText("Delete from RDV Where RefRDV in ") << parmi(m_enSuspens));
    }
    std::vector<qint64> refs;
    for (const Rangee &rangee : lot) {
        archives.insert(tableRDV, rangee.champs);
        refs.push_back(rangee.ref());
    }
    verifieArchive(archives, lot, refs);
    transaction.commit();
    m_enSuspens = refs;
}

/// What a template does to the rows that it is given is seen by reading them only.
void Purge::verifieArchive(Database &archives, const std::vector<Rangee> &lot,
                           const std::vector<qint64> &refs) {
    size_t pareilles = 0;
    const Records lues = archives.query(
        SqlText(
            "Select RefRDV, Nom, Prenom, Telephone, Description, NumPatient, Date1, HeureDebut, HeureFin, "
            "NumPraticien, Professionnel, Present, DateInv from RDV Where RefRDV in ")
        << parmi(refs));
    std::map<qint64, int> places;
    for (int row = 0; row < lues.count(); ++row) {
        places[lues.at(row, 0).toInteger()] = row;
    }
    for (const Rangee &rangee : lot) {
        const auto place = places.find(rangee.ref());
        bool pareille = place != places.end();
        for (int champ = 0; pareille && champ < int(rangee.champs.size()); ++champ) {
            pareille = memeValeur(lues.at(place->second, champ), rangee.champs[size_t(champ)].second);
        }
        pareilles += pareille ? 1 : 0;
    }
    if (pareilles != lot.size() || lues.count() != int(lot.size())) {
        throw DbError(
            DbError::Kind::Other, archives.path(),
            QStringLiteral("l'archive ne rend pas les rendez-vous tels qu'ils lui ont été confiés"));
    }
}

/// Takes those of the lot that are still what was archived. The others' copies are out of date.
void Purge::retire(Database &rdv, const std::vector<qint64> &cles, const std::vector<Rangee> &archivees) {
    Transaction transaction(rdv);
    const auto debut = Horloge::now();
    const std::vector<Rangee> relues = litLot(rdv, cles);
    std::vector<qint64> partent;
    std::vector<qint64> changees;
    std::vector<qint64> perimees;
    for (const Rangee &relue : relues) {
        const bool archivee = std::ranges::binary_search(archivees, relue.cle, {}, &Rangee::cle) &&
                              *std::ranges::lower_bound(archivees, relue.cle, {}, &Rangee::cle) == relue;
        (archivee ? partent : changees).push_back(relue.cle);
    }
    for (const Rangee &archivee : archivees) {
        if (!std::ranges::binary_search(partent, archivee.cle)) {
            perimees.push_back(archivee.ref());
        }
    }
    rdv.execute(SqlText("Delete from RDV Where rowid in ") << parmi(partent));
    m_entamee = true; // a commit that fails may have been made all the same
    transaction.commit();
    m_libre = Horloge::now();
    m_lot = LotSuivant(m_lot, std::chrono::duration_cast<std::chrono::milliseconds>(m_libre - debut));
    m_enSuspens = perimees;
    m_deplaces += int(partent.size());
    m_cles.insert(m_cles.end(), changees.begin(), changees.end()); // their turn comes again
}

/// Only the second half keeps other writers out; they have the time of the first, and a pause at least, to
/// come in.
void Purge::deplaceLot(Database &rdv, Database &archives) {
    const size_t fin = std::min(m_cles.size(), m_vus + size_t(m_lot));
    const std::vector<qint64> cles(m_cles.begin() + ptrdiff_t(m_vus), m_cles.begin() + ptrdiff_t(fin));
    const std::vector<Rangee> lot = litLot(rdv, cles);
    archive(archives, lot);
    std::this_thread::sleep_until(m_libre + pauseEntreLots);
    retire(rdv, cles, lot);
    m_vus = fin;
}

void Purge::abandonne(Database &rdv, Database &archives) {
    std::vector<qint64> restees;
    rdv.forEach(SqlText("Select RefRDV from RDV Where RefRDV in ") << parmi(m_enSuspens),
                [&](const RowView &row) { restees.push_back(row.integer(0)); });
    archives.execute(SqlText("Delete from RDV Where RefRDV in ") << parmi(restees));
    m_enSuspens.clear();
}

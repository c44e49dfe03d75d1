#include "maintenance/PurgeTables.h"

#include "platform/db/DateInverse.h"
#include "platform/db/DbError.h"

#include <QFile>
#include <algorithm>
#include <thread>
#include <utility>

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

qint64 refDe(const Fields &rangee) {
    return rangee.front().second.toInteger();
}

/// "(1,2,3)"; a list that holds nothing has Null in it, which nothing equals.
SqlText parmi(const std::vector<qint64> &refs) {
    if (refs.empty()) {
        return SqlText("(null)");
    }
    SqlText liste("(");
    for (size_t i = 0; i < refs.size(); ++i) {
        liste << (i > 0 ? SqlText(",") : SqlText("")) << nombre(refs[i]);
    }
    return liste << ")";
}

/// What an archive keeps of the appointments that fulfil `condition`, by RefRDV.
std::vector<Fields> lit(Database &base, const SqlText &condition) {
    const Records rows = base.query(
        SqlText("Select RefRDV, Nom, Prenom, Telephone, Description, NumPatient, Date1, HeureDebut, "
                "HeureFin, NumPraticien, Professionnel, Present, DateInv from RDV Where ")
        << condition << " order by RefRDV");
    std::vector<Fields> rangees(size_t(rows.count()));
    for (int row = 0; row < rows.count(); ++row) {
        int place = 0;
        for (const FieldDef &champ : champsArchives()) {
            rangees[size_t(row)].emplace_back(champ.name, rows.at(row, place++));
        }
    }
    return rangees;
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

/// Into the empty file that `archive` is.
void copieModele(const QString &modele, const QString &archive) {
    QFile source(modele);
    QFile copie(archive);
    if (!source.open(QIODevice::ReadOnly)) {
        throw DbError(DbError::Kind::Other, modele, QStringLiteral("il ne peut pas être lu"));
    }
    const QByteArray contenu = source.readAll(); // an empty database
    if (!copie.open(QIODevice::ReadWrite) || contenu.size() != source.size() ||
        copie.write(contenu) != contenu.size() || !copie.flush()) {
        throw DbError(DbError::Kind::DiskFull, archive);
    }
}

qint64 nombreArchive(Database &archives) {
    return archives.query(SqlText("Select count(*) as nb from RDV")).first()[u"nb"].toInteger();
}

/// The same to whoever reads them: an archive may store as text what the book has as a number.
bool pareilles(const Fields &a, const Fields &b) {
    return std::ranges::equal(a, b, [](const auto &x, const auto &y) {
        return x.second.isNull() == y.second.isNull() && x.second.toText() == y.second.toText();
    });
}

/// Text that is not text comes back as another one.
bool estLisible(const Fields &rangee) {
    return std::ranges::none_of(rangee, [](const auto &champ) {
        return champ.second.toText().contains(QChar::ReplacementCharacter);
    });
}

} // namespace

void CreeArchive(const QString &modele, const QString &archive) {
    const bool avecModele = QFile::exists(modele);
    if (avecModele) {
        verifieModele(modele);
    }
    Database base = Database::create(archive); // from here on the file is this call's own
    try {
        if (avecModele) {
            copieModele(modele, archive);
        } else {
            base.createTable(tableRDV, champsArchives());
        }
        // each lot is read back, and must not read all those before it for that
        base.tableDef(tableRDV).createIndex({QStringLiteral("RDVParRef"), SqlText("RefRDV")});
    } catch (...) {
        QFile::remove(archive);
        QFile::remove(archive + QStringLiteral("-journal"));
        throw;
    }
}

/// Text compared with text, and a practitioner's number with a number: "01" is 1.
SqlText Purge::condition() const {
    return SqlText("clng(NumPraticien) = ")
           << nombre(m_praticien) << " and DateInv < " << texte(InverseDate(m_jour));
}

void Purge::cherche(Database &rdv) {
    m_refs.clear();
    rdv.forEach(SqlText("Select RefRDV, Date1 from RDV Where ")
                    << condition() << " order by DateInv, HeureDebut, clng(Fauteuil), RefRDV",
                [this](const RowView &row) {
                    if (EstAnterieur(row.date(1), m_jour)) {
                        m_refs.push_back(row.integer(0));
                    }
                });
}

/// Those that may leave the book. The list decides which rows are read: without the "+ 0" the engine would go
/// through all that are left to move, by their index.
std::vector<Fields> Purge::litLot(Database &rdv, const std::vector<qint64> &refs) const {
    constexpr size_t date1 = 6;
    std::vector<Fields> lot = lit(
        rdv, SqlText("RefRDV in ") << parmi(refs) << " and clng(NumPraticien) + 0 = " << nombre(m_praticien)
                                   << " and DateInv & '' < " << texte(InverseDate(m_jour)));
    std::erase_if(lot, [this](const Fields &rangee) {
        return !EstAnterieur(rangee[date1].second.toDate(), m_jour) || !estLisible(rangee);
    });
    return lot;
}

void Purge::archive(Database &archives, const std::vector<Fields> &lot) {
    Transaction transaction(archives);
    const qint64 avant = nombreArchive(archives) -
                         archives.execute(SqlText("Delete from RDV Where RefRDV in ") << parmi(m_enTrop));
    std::vector<qint64> refs;
    for (const Fields &rangee : lot) {
        archives.insert(tableRDV, rangee);
        refs.push_back(refDe(rangee));
    }
    // what a template does to the rows that it is given, and to those before, is seen by reading them only
    if (!std::ranges::equal(lit(archives, SqlText("RefRDV in ") << parmi(refs)), lot, pareilles) ||
        nombreArchive(archives) != avant + qint64(lot.size())) {
        throw DbError(
            DbError::Kind::Other, archives.path(),
            QStringLiteral("l'archive ne rend pas les rendez-vous tels qu'ils lui ont été confiés"));
    }
    m_enTrop.insert(m_enTrop.end(), refs.begin(), refs.end()); // a commit that fails may have been made
    transaction.commit();
    m_enTrop = refs;
}

/// Takes those of the lot that are still what was archived, and has it noted how many they are. The others'
/// copies are out of date.
void Purge::retire(Database &rdv, const std::vector<qint64> &refs, const std::vector<Fields> &archivees,
                   const std::function<void(int)> &note) {
    Transaction transaction(rdv);
    const auto debut = Horloge::now();
    std::vector<qint64> partent;
    std::vector<qint64> changees;
    for (const Fields &relue : litLot(rdv, refs)) {
        const auto archivee = std::ranges::lower_bound(archivees, refDe(relue), {}, refDe);
        const bool pareille = archivee != archivees.end() && *archivee == relue;
        (pareille ? partent : changees).push_back(refDe(relue));
    }
    if (rdv.execute(SqlText("Delete from RDV Where RefRDV in ") << parmi(partent)) != int(partent.size())) {
        throw DbError(DbError::Kind::Other, rdv.path(),
                      QStringLiteral("il garde des rendez-vous qui devaient en partir"));
    }
    note(int(partent.size()));
    m_partent = partent;
    try {
        transaction.commit();
    } catch (const DbError &erreur) {
        if (erreur.kind() ==
            DbError::Kind::Locked) { // nothing was written; others may have a hand in them yet
            m_partent.clear();
        }
        throw;
    }
    m_libre = Horloge::now();
    m_lot = LotSuivant(m_lot, std::chrono::duration_cast<std::chrono::milliseconds>(m_libre - debut));
    partis();
    m_refs.insert(m_refs.end(), changees.begin(), changees.end()); // their turn comes again
}

/// m_partent have left the book: their copies are what is left of them.
void Purge::partis() {
    m_deplaces += int(m_partent.size());
    std::erase_if(m_enTrop, [this](qint64 ref) { return std::ranges::binary_search(m_partent, ref); });
    m_partent.clear();
}

/// A commit that failed may have been made all the same, and then for all of the lot.
void Purge::regle(Database &rdv) {
    if (m_partent.empty()) {
        return;
    }
    bool reste = false;
    rdv.forEach(SqlText("Select RefRDV from RDV Where RefRDV in ") << parmi(m_partent),
                [&reste](const RowView &) { reste = true; });
    if (!reste) {
        partis();
    }
    m_partent.clear();
}

/// Only the second half keeps other writers out; they have the time of the first, and a pause at least, to
/// come in.
void Purge::deplaceLot(Database &rdv, Database &archives, const Auteur &auteur) {
    const size_t fin = std::min(m_refs.size(), m_vus + size_t(m_lot));
    const std::vector<qint64> refs(m_refs.begin() + ptrdiff_t(m_vus), m_refs.begin() + ptrdiff_t(fin));
    regle(rdv);
    const std::vector<Fields> lot = litLot(rdv, refs);
    archive(archives, lot);
    std::this_thread::sleep_until(m_libre + pauseEntreLots);
    // what a transaction that fails leaves of its row is not known: the next one makes another
    PurgeNotee notee = std::exchange(m_notee, {});
    if (notee.RefJournal == 0) {
        notee = {.praticien = m_praticien, .jour = m_jour, .archive = archives.path()};
    }
    retire(rdv, refs, lot, [&](int partis) {
        notee.nombre += partis;
        notee.RefJournal = partis == 0 ? notee.RefJournal : NotePurge(rdv, auteur, notee);
    });
    m_notee = notee;
    m_vus = fin;
}

void Purge::abandonne(Database &rdv, Database &archives) {
    regle(rdv);
    archives.execute(SqlText("Delete from RDV Where RefRDV in ") << parmi(m_enTrop));
    m_enTrop.clear();
}

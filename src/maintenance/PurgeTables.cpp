#include "maintenance/PurgeTables.h"

#include "platform/db/DateInverse.h"
#include "platform/db/DbError.h"

#include <QFile>
#include <filesystem>

namespace {

using Horloge = std::chrono::steady_clock;

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

std::filesystem::path chemin(const QString &fichier) {
    return QFile::encodeName(fichier).toStdString();
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

/// The template may be write-protected; its copy is written to.
void copieModele(const QString &modele, const QString &archive) {
    verifieModele(modele);
    std::error_code echec;
    std::filesystem::copy_file(chemin(modele), chemin(archive), echec);
    if (echec) {
        const bool plein = echec == std::errc::no_space_on_device;
        throw DbError(plein ? DbError::Kind::DiskFull : DbError::Kind::Other, archive,
                      QStringLiteral("il ne peut pas être créé"), QByteArray::fromStdString(echec.message()));
    }
    using std::filesystem::perms;
    std::filesystem::permissions(chemin(archive), perms::owner_read | perms::owner_write,
                                 std::filesystem::perm_options::add, echec);
}

} // namespace

void CreeArchive(const QString &modele, const QString &archive) {
    if (QFile::exists(archive)) {
        throw DbError(DbError::Kind::Other, archive, QStringLiteral("il existe déjà"));
    }
    try {
        if (QFile::exists(modele)) {
            copieModele(modele, archive);
        } else {
            Database::create(archive).createTable(tableRDV, champsArchives());
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

/// The key's place in the list decides which rows are read: without the "+ 0" the engine would go through all
/// that are left to move, by their index.
Records Purge::litLot(Database &rdv, const std::vector<qint64> &cles) const {
    return rdv.query(SqlText("Select rowid as cle, RefRDV, Nom, Prenom, Telephone, Description, NumPatient, "
                             "Date1, HeureDebut, HeureFin, NumPraticien, Professionnel, Present, DateInv "
                             "from RDV Where rowid in ")
                     << parmi(cles) << " and clng(NumPraticien) + 0 = " << nombre(m_praticien)
                     << " and DateInv & '' < " << texte(InverseDate(m_jour))
                     << " order by DateInv, HeureDebut");
}

/// Gives the identities that the archived rows have in the book.
std::vector<qint64> Purge::archive(Database &base, const Records &rows) {
    if (m_enSuspens) {
        base.execute(SqlText("Delete from RDV Where RefRDV in ") << *m_enSuspens);
    }
    const int jour = rows.field(u"Date1");
    const int nombreDeChamps = int(champsArchives().size());
    Fields champs;
    for (const FieldDef &champ : champsArchives()) {
        champs.emplace_back(champ.name, Value());
    }
    std::vector<qint64> cles;
    std::vector<qint64> refs;
    for (int row = 0; row < rows.count(); ++row) {
        if (!EstAnterieur(rows.at(row, jour).toDate(), m_jour)) {
            continue;
        }
        for (int i = 0; i < nombreDeChamps; ++i) {
            champs[size_t(i)].second = rows.at(row, i + 1);
        }
        base.insert(tableRDV, champs);
        cles.push_back(rows.at(row, 0).toInteger());
        refs.push_back(rows.at(row, 1).toInteger());
    }
    m_enSuspens = parmi(refs);
    return cles;
}

/// The archive's lock comes first: to wait for it costs nobody else anything.
void Purge::deplaceLot(Database &rdv, Database &base) {
    const size_t fin = std::min(m_cles.size(), m_vus + size_t(m_lot));
    const std::vector<qint64> lot(m_cles.begin() + ptrdiff_t(m_vus), m_cles.begin() + ptrdiff_t(fin));
    Transaction archivage(base);
    Transaction retrait(rdv);
    const auto debut = Horloge::now();
    const std::vector<qint64> archives = archive(base, litLot(rdv, lot));
    archivage.commit();
    rdv.execute(SqlText("Delete from RDV Where rowid in ") << parmi(archives));
    m_entamee = true; // a commit that fails may have been made all the same
    retrait.commit();
    const auto duree = std::chrono::duration_cast<std::chrono::milliseconds>(Horloge::now() - debut);
    m_enSuspens.reset();
    m_deplaces += int(archives.size());
    m_vus = fin;
    m_lot = LotSuivant(m_lot, duree);
}

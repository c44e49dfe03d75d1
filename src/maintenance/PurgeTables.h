#pragma once

#include "maintenance/ReglesPurge.h"
#include "platform/db/Database.h"

#include <optional>
#include <vector>

/// Makes the file `archive`, a copy of `modele` or, where there is none, a database with an empty RDV of the
/// fields that a purge keeps. Throws DbError when the template is of no use, the archive exists already or
/// cannot be written; nothing is left of it then.
void CreeArchive(const QString &modele, const QString &archive);

/// Moves a practitioner's appointments of before a day into an archive, a lot at a time, between which other
/// workstations use the book. A row leaves the book when it is in the archive and on the disk: a purge that
/// is interrupted at any moment leaves it in one of them, or in both.
class Purge {
  public:
    Purge(long praticien, QDate jour) : m_praticien(praticien), m_jour(jour) {}

    /// Looks which appointments there are to move.
    void cherche(Database &rdv);
    /// Moves the next of them as they are now; what has been moved to a later day, or deleted, since is left
    /// alone. It may begin anew after a failure.
    void deplaceLot(Database &rdv, Database &archive);

    bool finie() const { return m_vus == m_cles.size(); }
    int total() const { return int(m_cles.size()); }
    /// How many of the total were dealt with.
    int vus() const { return int(m_vus); }
    int deplaces() const { return m_deplaces; }
    /// Appointments may have left the book.
    bool entamee() const { return m_entamee; }

  private:
    SqlText condition() const;
    Records litLot(Database &rdv, const std::vector<qint64> &cles) const;
    std::vector<qint64> archive(Database &base, const Records &rows);

    const long m_praticien;
    const QDate m_jour;
    std::vector<qint64> m_cles; ///< the rows' identities, oldest day first
    size_t m_vus = 0;
    int m_lot = premierLot;
    int m_deplaces = 0;
    bool m_entamee = false;
    std::optional<SqlText> m_enSuspens; ///< what a lot that failed has put into the archive, by its RefRDV
};

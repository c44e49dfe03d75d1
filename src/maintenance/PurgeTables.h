#pragma once

#include "journal/JournalTables.h"
#include "maintenance/ReglesPurge.h"
#include "platform/db/Database.h"

#include <optional>
#include <vector>

/// Makes the file `archive`, a copy of `modele` or, where there is none, a database with an empty RDV of the
/// fields that a purge keeps. Throws DbError when the template is of no use, the archive exists already or
/// cannot be written; nothing is left of it then.
void CreeArchive(const QString &modele, const QString &archive);

/// Moves a practitioner's appointments of before a day into an archive, a lot at a time, between which other
/// workstations use the book. A row leaves the book when it is in the archive and on the disk, and still what
/// was archived: a purge that is interrupted at any moment leaves it in one of them, or in both.
class Purge {
  public:
    Purge(long praticien, QDate jour) : m_praticien(praticien), m_jour(jour) {}

    /// Looks which appointments there are to move.
    void cherche(Database &rdv);
    /// Moves the next of them as they are now; what has been moved to a later day, or deleted, since is left
    /// alone. It may begin anew after a failure. Keeps writers out of the book for a tenth of a second or so,
    /// and waits until they had a moment of their own since the last lot. The history has one row for all of
    /// the purge, whose number of appointments each lot brings up to date as it leaves the book.
    void deplaceLot(Database &rdv, Database &archives, const Auteur &auteur);

    /// Takes out of the archive what this purge has not taken from the book: for one that goes no further.
    void abandonne(Database &rdv, Database &archives);

    bool finie() const { return m_vus == m_refs.size() && m_enTrop.empty(); }
    int total() const { return int(m_refs.size()); }
    /// How many of the total were dealt with.
    int vus() const { return int(m_vus); }
    int deplaces() const { return m_deplaces; }
    /// How many copies the archive may hold of appointments that this purge has not moved.
    int enTrop() const { return int(m_enTrop.size() - m_partent.size()); }
    /// How many are in the archive of which nobody knows whether they have left the book.
    int incertains() const { return int(m_partent.size()); }

  private:
    using Horloge = std::chrono::steady_clock;

    // rows of the fields that the archive keeps, by RefRDV, which comes first
    SqlText condition() const;
    std::vector<Fields> litLot(Database &rdv, const std::vector<qint64> &refs) const;
    void archive(Database &archives, const std::vector<Fields> &lot);
    void retire(Database &rdv, const std::vector<qint64> &refs, const std::vector<Fields> &archivees,
                const std::function<void(int)> &note);
    void partis();
    void regle(Database &rdv);

    const long m_praticien;
    const QDate m_jour;
    std::vector<qint64> m_refs; ///< oldest day first
    size_t m_vus = 0;
    int m_lot = premierLot;
    int m_deplaces = 0;
    std::vector<qint64> m_enTrop;  ///< what was archived, but is not known to have been moved
    std::vector<qint64> m_partent; ///< those of them whose leaving failed, or seemed to
    PurgeNotee m_notee;
    Horloge::time_point m_libre; ///< since when the book is
};

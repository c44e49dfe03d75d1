#pragma once

#include "grid/AReplacer.h"
#include "grid/RendezVousTables.h"

/// The table TavReplacer: appointments that are set aside, shared by all workstations. Its rows tell; RDV
/// alone says where an appointment lies.

/// Whether the book has the table.
bool ReplacerEstPret(Database &carnet);
/// Adds what is missing of it.
void PrepareReplacer(Database &carnet);

/// A practitioner's list; empty in a book without the table. Its queries may go along with others.
class LectureReplacer {
  public:
    LectureReplacer(Database &carnet, long praticien);
    LectureReplacer(const LectureReplacer &) = delete;
    LectureReplacer &operator=(const LectureReplacer &) = delete;
    ~LectureReplacer() = default;

    std::vector<Requete> requetes();
    /// Once they have been run; looks for the appointments themselves where there are some.
    QList<AReplacer> lus(Database &carnet) const;

  private:
    long m_praticien;
    bool m_pret;
    QList<AReplacer> m_notes;
};
QList<AReplacer> LitAReplacer(Database &carnet, long praticien);
enum class MiseDeCote {
    Fait,
    Change,   ///< meanwhile in any field, or deleted
    SansTable ///< the book has none for it
};
/// Sets an appointment aside, once, as long as it is what the user saw.
MiseDeCote MetDeCote(Database &carnet, const RendezVous &rdv, const QDateTime &quand);
/// Notes where an appointment that is set aside is placed, in the transaction that does it.
void NotePose(Database &carnet, qint64 RefRDV, const RendezVous &pose);
/// Takes an appointment off the list.
void RetireReplacer(Database &carnet, qint64 RefRDV);

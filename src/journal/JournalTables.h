#pragma once

#include "journal/Ecriture.h"
#include "platform/db/Database.h"
#include "practice/Auteur.h"

#include <QDate>
#include <QList>

/// The history of the appointments: the table TavJournal, one row a writing, and one a purge. A row is made
/// in the transaction of what it tells.

/// Whether the book has the table with all that it needs.
bool JournalEstPret(Database &carnet);
/// Adds what is missing of it, all or nothing.
void PrepareJournal(Database &carnet);

/// Keeps a writing. A book without the table keeps nothing; a writing that changes nothing is none.
void NoteEcriture(Database &carnet, const Auteur &auteur, const EcritureRDV &ecriture);

/// What a purge has moved out of the book so far.
struct PurgeNotee {
    qint64 RefJournal = 0; ///< its row; 0: it has none yet
    long praticien = 0;
    QDate jour; ///< the first that stays
    QString archive;
    int nombre = 0;
};
/// Keeps it in the row that it has; gives its key, 0 in a book without the table.
qint64 NotePurge(Database &carnet, const Auteur &auteur, const PurgeNotee &purge);

// Newest first.
QList<LigneJournal> JournalDuRDV(Database &carnet, qint64 RefRDV);
/// Of the appointments booked under these names; those who have two numbers are two patients (0: no number).
QList<LigneJournal> JournalDuPatient(Database &carnet, const QString &nom, const QString &prenom,
                                     qint64 numero);
/// Of what lies, or lay, on that day of the practitioner; and what a purge has taken from it.
QList<LigneJournal> JournalDuJour(Database &carnet, QDate jour, long praticien);

/// Whether the key of a writing's appointment was given to another one since: some books do that.
bool CleReprise(Database &carnet, const LigneJournal &ligne);

/// How long a writing is kept.
constexpr int moisGardes = 12;
/// Takes out the oldest of the writings before `limite`, a few hundred at most. False: none is left.
bool OublieJournal(Database &carnet, const QDateTime &limite);

#pragma once

#include "grid/RendezVous.h"
#include "platform/db/Database.h"

enum class ActionTable { Append, Delete };

/// Adds or drops a field. Gives the message to show when the table cannot be changed, else an empty text; a
/// field that is there already (or gone already) is none of the caller's concern.
QString ModifieTable(TableDef table, ActionTable action, const FieldDef &champ);

/// Whether the book has all that this program adds to one.
bool EstANiveau(Database &base);

struct MiseANiveau {
    QString erreur;         ///< the message of the step that failed because its table cannot be changed
    int chevauchements = 0; ///< appointments that overlap another, as many as were found now
    QList<RendezVous> premiers = {}; ///< the first of them
};

/// Brings an older appointment database up to date, all of it or nothing: the fields DateInv and Fauteuil,
/// their values where they are empty, the indexes of the hot queries, what keeps two appointments from one
/// place where several may write at once, and what tells other workstations. An up-to-date one is only looked
/// at. Throws DbError for every failure but that in `erreur`.
MiseANiveau MetANiveau(Database &base);
/// The same for a book that has just been made: a failure is a DbError, and what is to be told comes back.
QString MetANiveauDeplace(Database &base);

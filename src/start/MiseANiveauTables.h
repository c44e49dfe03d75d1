#pragma once

#include "platform/db/Database.h"

enum class ActionTable { Append, Delete };

/// Adds or drops a field. Gives the message to show when the table cannot be changed, else an empty text; a
/// field that is there already (or gone already) is none of the caller's concern.
QString ModifieTable(TableDef table, ActionTable action, const FieldDef &champ);

/// Whether the book has all that this program adds to one.
bool EstANiveau(Database &base);

/// Brings an older appointment database up to date, all of it or nothing: the fields DateInv and Fauteuil,
/// their values where they are empty, and the indexes of the hot queries. An up-to-date one is only looked
/// at. Gives the message of the step that failed because its table cannot be changed, else an empty text;
/// throws DbError for every other failure.
QString MetANiveau(Database &base);

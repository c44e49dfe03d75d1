#pragma once

#include "platform/db/DbError.h"

/// The French error for what SQLite answered about `file`: an extended result code and its English text,
/// which only what() repeats.
DbError sqliteError(int resultCode, const QString &file, const QString &english);

/// From then on a folder that refuses locks is told at once (LocksRefused). SQLite alone takes that refusal
/// for a busy neighbour, waits, and says that the file is occupied.
void tellRefusedLocks();

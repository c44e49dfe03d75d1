#pragma once

struct sqlite3;

/// Teaches an open connection what the book's SQL expects of an engine: like with the desktop wildcards,
/// ucase for all of Unicode, cstr (a stored date as dd/mm/yyyy), and the collation TEXTE (see TextOrder.h).
void registerSqliteFunctions(sqlite3 *connection);

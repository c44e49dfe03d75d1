#pragma once

#include "platform/db/TableDef.h"

/// A name as SQLite reads it, whatever is in it.
QString sqliteName(const QString &name);
/// A field in a statement that makes a table.
QString sqliteDefinition(const FieldDef &field);

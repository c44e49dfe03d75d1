#pragma once

#include <sqlite3.h>

/// What any program has to do for a query's rows: takes each value of each row, and ends the statement. Gives
/// the number of rows.
inline int litNu(sqlite3_stmt *requete) {
    int lignes = 0;
    for (; sqlite3_step(requete) == SQLITE_ROW; ++lignes) {
        for (int col = 0; col < sqlite3_column_count(requete); ++col) {
            if (sqlite3_column_type(requete, col) == SQLITE_INTEGER) {
                sqlite3_column_int64(requete, col);
            } else {
                sqlite3_column_text(requete, col);
            }
        }
    }
    sqlite3_finalize(requete);
    return lignes;
}

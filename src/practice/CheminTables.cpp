#include "practice/CheminTables.h"

std::optional<Emplacements> LitChemin(Database &chemin) {
    const Records rows = chemin.query(SqlText("select * from Chemin order by CleLigne"));
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return Emplacements{rows.first()[u"LeChemin"].toText(), rows.first()[u"CheminBase"].toText()};
}

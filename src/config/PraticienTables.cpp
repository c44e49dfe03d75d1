#include "config/PraticienTables.h"

QList<Praticien> Praticiens(Database &param) {
    const Records rows = param.query(SqlText("select * from Praticien order by CleLigne"));
    QList<Praticien> praticiens;
    for (const Record row : rows) {
        praticiens << Praticien{row[u"codeprat"].toInteger(), row[u"nom"].toText(), row[u"PreNom"].toText()};
    }
    return praticiens;
}

#include "config/PraticienTables.h"

QList<Praticien> Praticiens(Database &param) {
    const Records rows = param.query(SqlText("select * from Praticien"));
    QList<Praticien> praticiens;
    for (const Record row : rows) {
        praticiens << Praticien{row[u"codeprat"].toInteger(), row[u"nom"].toText(), row[u"PreNom"].toText()};
    }
    return praticiens;
}

std::optional<bool> AvecWordDuPraticien(Database &param, long praticien) {
    const Records rows =
        param.query(SqlText("select Word from Praticien where clng(codeprat)=") << nombre(praticien));
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return rows.first()[u"Word"].toBoolean();
}

int NombreDePraticiens(Database &param) {
    const Records rows = param.query(SqlText("select count(*) as nb from Praticien"));
    return rows.isEmpty() ? 0 : int(rows.first()[u"nb"].toInteger());
}

#include "start/EmplacementsTables.h"

std::optional<Emplacements> LitChemin(Database &chemin) {
    const Records rows = chemin.query(SqlText("select * from Chemin"));
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return Emplacements{rows.first()[u"LeChemin"].toText(), rows.first()[u"CheminBase"].toText()};
}

Transmission LitTransmission(Database &transmission) {
    Transmission lue;
    const Records patients = transmission.query(SqlText("select * from LePatient"));
    if (!patients.isEmpty()) {
        const Record patient = patients.first();
        lue.avecPatient = true;
        lue.NomPatient = patient[u"NomPatient"].toText();
        lue.PrenomPatient = patient[u"PrenomPatient"].toText();
        lue.NumPatient = patient[u"NumPatient"].toInteger();
    }
    const Records praticiens = transmission.query(SqlText("select * from LePraticien"));
    if (!praticiens.isEmpty()) {
        lue.NumPraticien = praticiens.first()[u"NumPraticien"].toText();
    }
    return lue;
}

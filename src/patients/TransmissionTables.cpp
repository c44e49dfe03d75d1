#include "patients/TransmissionTables.h"

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

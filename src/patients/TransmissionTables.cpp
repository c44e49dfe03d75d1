#include "patients/TransmissionTables.h"

#include <utility>

/// Their first rows count.
Transmission LitTransmission(Database &transmission) {
    Transmission lue;
    bool avecPraticien = false;
    transmission.forEach(
        {{SqlText("select NomPatient, PrenomPatient, NumPatient from LePatient order by CleLigne"),
          [&](const RowView &patient) {
              if (!std::exchange(lue.avecPatient, true)) {
                  lue.NomPatient = patient.text(0);
                  lue.PrenomPatient = patient.text(1);
                  lue.NumPatient = patient.integer(2);
              }
          }},
         {SqlText("select NumPraticien from LePraticien order by CleLigne"), [&](const RowView &praticien) {
              if (!std::exchange(avecPraticien, true)) {
                  lue.NumPraticien = praticien.text(0);
              }
          }}});
    return lue;
}

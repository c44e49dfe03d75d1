#pragma once

#include "AgendaDemo.h"
#include "PatientsDemo.h"

/// Writes the appointments to RDV in the order in which they were booked, which is not the order of their
/// days; gives their number. `avecAjouts`: also the fields that an old book lacks.
int ecritRendezVous(Database &base, const std::vector<Plage> &plages, const std::vector<Agenda> &agendas,
                    const std::vector<PatientDemo> &patients, QDate aujourdhui, bool avecAjouts,
                    Hasard &hasard);

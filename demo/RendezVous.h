#pragma once

#include "Horaires.h"
#include "Patients.h"

/// Writes the appointments to RDV in the order in which they were booked, which is not the order of their
/// days; gives their number. They lie around today, half the years before it and half after; an exact number
/// of them as near to today as it can, and further in the past than the years say when it does not fit.
int ecritRendezVous(Database &base, const std::vector<HorairesDemo> &agendas,
                    const std::vector<PatientDemo> &patients, const OptionsCabinet &options, Hasard &hasard);

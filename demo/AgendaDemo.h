#pragma once

#include "Hasard.h"
#include "HorairesDemo.h"

#include <QDate>
#include <vector>

/// The appointments of one practitioner at one chair, all on the same configuration.
struct Agenda {
    QString praticien;
    int fauteuil = 0;
    HorairesDemo horaires;
};

/// A stretch of time taken in an agenda: [debut, fin) in minutes after midnight.
struct Plage {
    QDate jour;
    int agenda = 0;
    int debut = 0;
    int fin = 0;
    bool professionnel = true;
};

/// The agendas of the practice; a third practitioner has no configuration and works on the fall-back one.
std::vector<Agenda> agendas(const std::vector<HorairesDemo> &horaires);

struct Periode {
    QDate aujourdhui;
    int annees = 2;
    int exactement = -1; ///< number of appointments, -1 for as many as the agendas hold
    bool plein = false;  ///< a book of one-slot appointments with hardly a hole
};

/// Appointments around a day, half the years before it and half after, no two of an agenda overlapping; a
/// number that does not fit goes further into the past. Sorted by day, time and agenda.
std::vector<Plage> remplitAgendas(const std::vector<Agenda> &agendas, const Periode &periode, Hasard &hasard);

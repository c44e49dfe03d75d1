#pragma once

#include "schedule/Creneaux.h"

#include <QString>

/// Where an appointment is booked or moved: what a window is handed, and all that it knows of the grid.
struct PlaceRDV {
    QString PraticienCourant; ///< number as the book keeps it: "01"
    QString FauteuilCourant;  ///< chair of the grid
    QDate jour;
    PlageHoraire horaire;
    int Intervalle = 0;        ///< slot length of the grid, minutes: one step of the arrows
    int ChoixHoraire = 0;      ///< the range against the working hours, see HoraireProf
    Configuration config = {}; ///< what the grid draws days and hours by
};

#pragma once

#include "platform/db/Database.h"

#include <QDate>
#include <QList>

/// Whose appointments are looked for, as typed, and from which day on.
struct CritereRDV {
    QString nom;
    QString prenom;
    QDate depuis;
};

/// An appointment that a search has found.
struct RDVTrouve {
    qint64 RefRDV = 0;
    QDate Date1;
    QTime HeureDebut;
    QTime HeureFin;

    friend bool operator==(const RDVTrouve &, const RDVTrouve &) = default;
};

/// By day, start and RefRDV; those outside the working hours are counted only.
struct RDVsTrouves {
    QList<RDVTrouve> liste;
    int horsHoraires = 0;
};

/// The appointments of that name and first name, whatever the letter case: at every practitioner and chair.
/// Neither name is trimmed, and neither is a pattern.
RDVsTrouves RendezVousDuPatient(Database &carnet, const CritereRDV &critere);

/// The index of RDV that makes this quick; without it the whole book is read. What it holds any program can
/// compute that writes the book, and it is cheap to make: the first name is left to the query.
IndexDef IndexRecherche();

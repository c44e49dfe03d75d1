#pragma once

#include "booking/Occupation.h"
#include "platform/db/Database.h"

/// Adding, changing, deleting appointments and marking attendance. Every write is one transaction that holds
/// the writer's lock from its start, looks again inside, and leaves nothing behind when it throws DbError.

/// A range of a day, for one practitioner at one chair.
struct CreneauRDV {
    QDate jour;
    PlageHoraire horaire;
    long praticien = 0;
    long fauteuil = 0;
};

/// What the user is told before writing: each opens with the range in whole minutes and runs one query.
bool HoraireLibre(Database &rdv, const CreneauRDV &voulu);
bool HoraireLibreSauf(Database &rdv, qint64 RefRDV, const CreneauRDV &voulu);
bool RDVHere(Database &rdv, const CreneauRDV &voulu);

/// The fields of an appointment that the user fills. The times are written in whole minutes.
struct SaisieRDV {
    QString Nom;
    QString Prenom;
    QString Telephone;
    QString Description;
    QString NumPatient; ///< a number as text; written as 0 when it is none
    QDate Date1;
    QTime HeureDebut;
    QTime HeureFin;
};

struct NouveauRDV {
    SaisieRDV saisie;
    QString NumPraticien; ///< number as the book keeps it: "01"
    QString Fauteuil;
    bool Professionnel = true;
};

/// Adds an appointment; gives its RefRDV, or nothing when its range is not free any more, or not one
/// (EstReservable; the dialogs refuse that with a message of their own before it comes here).
std::optional<qint64> AjouteRDV(Database &rdv, const NouveauRDV &nouveau);

enum class ResultatEdition {
    Fait,
    Occupe, ///< the range is not free, or not one
    Disparu ///< the appointment was deleted meanwhile
};
/// Rewrites an appointment. It keeps its practitioner and its chair, for which the range must be free as well
/// as for `praticien` and `fauteuil`, the current ones.
ResultatEdition ModifieRDV(Database &rdv, qint64 RefRDV, const SaisieRDV &saisie, long praticien,
                           long fauteuil);

/// 1-based position of the first apostrophe, 0 without one.
int WithCote(const QString &texte);
/// The selected appointment (RefRDV) if the book still has it at its day and start, and under its names when
/// the surname has no apostrophe. Never another row, whatever else is there.
std::optional<qint64> RetrouveRDV(Database &rdv, const RendezVous &selection, long praticien);
/// False when it is gone already.
bool SupprimeRDV(Database &rdv, qint64 RefRDV);

/// Turns Present over; gives its new value, or nothing when the appointment is gone.
std::optional<bool> BasculePresent(Database &rdv, qint64 RefRDV);

#pragma once

#include "grid/Occupation.h"
#include "grid/RendezVousTables.h"
#include "platform/db/Database.h"

/// Adding, changing, deleting appointments and marking attendance. Every write is one transaction that holds
/// the writer's lock from its start, looks inside it whether the range is free and the appointment still what
/// the user saw, and leaves nothing behind when it throws DbError.

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

/// `rdv` with these fields, as the book has it once they are written.
RendezVous Rempli(RendezVous rdv, const SaisieRDV &saisie);

struct NouveauRDV {
    SaisieRDV saisie;
    QString NumPraticien; ///< number as the book keeps it: "01"
    QString Fauteuil;
    bool Professionnel = true;
};

/// Adds an appointment; gives its RefRDV, or nothing when its range is not free any more, or not one
/// (EstReservable; the dialogs refuse that with a message of their own before it comes here).
std::optional<qint64> AjouteRDV(Database &rdv, const NouveauRDV &nouveau);

enum class Ecriture {
    Fait,
    Occupe,  ///< the range is not free, or not one
    Disparu, ///< the appointment was deleted meanwhile
    Change   ///< it was changed meanwhile
};
struct BilanEcriture {
    Ecriture resultat = Ecriture::Fait;
    RendezVous actuel = {}; ///< what the appointment is now, when it was changed meanwhile
};

// `avant` is the appointment as the user saw it.

/// Rewrites an appointment. It keeps its practitioner and its chair, for which the range must be free as well
/// as for `praticien` and `fauteuil`, the current ones. Changed meanwhile: in a field that is written here.
BilanEcriture ModifieRDV(Database &rdv, const RendezVous &avant, const SaisieRDV &saisie, long praticien,
                         long fauteuil);
/// The same for its end alone: nothing else is written.
BilanEcriture ChangeFin(Database &rdv, const RendezVous &avant, QTime fin, long praticien, long fauteuil);
/// Changed meanwhile: in any field.
BilanEcriture SupprimeRDV(Database &rdv, const RendezVous &avant);
/// Sets Present, whatever it was. Changed meanwhile: in a field that ModifieRDV writes.
BilanEcriture MarquePresent(Database &rdv, const RendezVous &avant, bool present);

#pragma once

#include "booking/Insolite.h"
#include "grid/Occupation.h"
#include "grid/RendezVousTables.h"
#include "journal/Ecriture.h"
#include "platform/db/Database.h"
#include "practice/Auteur.h"

/// Adding, changing, deleting appointments, marking attendance, and putting back what was. Every write is one
/// transaction that holds the writer's lock from its start, looks inside it whether the range is free and the
/// appointment still what the user saw, tells the history, and leaves nothing behind when it throws DbError.

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

enum class Ecriture {
    Fait,
    Occupe,  ///< the range is not free, or not one
    Disparu, ///< the appointment was deleted meanwhile
    Change   ///< it was changed meanwhile
};
struct BilanEcriture {
    Ecriture resultat = Ecriture::Fait;
    RendezVous actuel = {};    ///< what the appointment is now, when it was changed meanwhile
    EcritureRDV ecriture = {}; ///< what was written; empty when nothing was, or nothing is another for it
};

/// Adds an appointment. Occupe: its range is not free any more, or not one (EstReservable; the dialogs refuse
/// that with a message of their own before it comes here).
BilanEcriture AjouteRDV(Database &rdv, const Auteur &auteur, const NouveauRDV &nouveau);

// `avant` is the appointment as the user saw it.

/// Rewrites an appointment. It keeps its practitioner and its chair, for which the range must be free as well
/// as for `praticien` and `fauteuil`, the current ones. Changed meanwhile: in a field that is written here.
BilanEcriture ModifieRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant,
                         const SaisieRDV &saisie, long praticien, long fauteuil);
/// The same for its end alone: nothing else is written.
BilanEcriture ChangeFin(Database &rdv, const Auteur &auteur, const RendezVous &avant, QTime fin,
                        long praticien, long fauteuil);
/// Moves an appointment where `apres` has it: only its day, its hours and its chair are written. The range
/// must be free there and at `fauteuil` of `praticien`, which are shown. Changed meanwhile: in any field.
/// Where it is set aside, it is placed by that.
BilanEcriture DeplaceRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant,
                         const RendezVous &apres, long praticien, long fauteuil);
/// Whether such a writing would be refused now, and says why by itself: nothing is to be asked before it.
bool SeraitRefuse(Database &rdv, const Visee &visee);
/// Changed meanwhile: in any field.
BilanEcriture SupprimeRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant);
/// Sets Present, whatever it was. Changed meanwhile: in a field that ModifieRDV writes.
BilanEcriture MarquePresent(Database &rdv, const Auteur &auteur, const RendezVous &avant, bool present);

/// Makes a row what it was or was to be, `voulue` (empty: takes it out), as long as it is `attendue` (empty:
/// it is gone) in every field; and its range free, where another one is taken by that. A row that is put back
/// keeps its RefRDV, unless the book has given that to another patient's appointment since.
BilanEcriture RemetRDV(Database &rdv, const Auteur &auteur, Operation quoi, const Rangee &attendue,
                       const Rangee &voulue);
/// Whether the range of a row is free but for the row itself.
bool PlaceLibre(Database &rdv, const Rangee &rangee);

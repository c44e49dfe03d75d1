#pragma once

#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"

#include <QDateTime>
#include <QList>
#include <optional>

/// What is odd about a place where an appointment is booked or moved to, and asked about first: rules on
/// values.

/// What is about to be written.
struct Visee {
    RendezVous rdv;                       ///< as it would be
    std::optional<RendezVous> avant = {}; ///< as it is, where one is moved
    PlaceRDV place = {};                  ///< the chair that is shown, and its configuration
};

struct Insolite {
    enum class Genre { Passe, Repos, NonAffiche, DemiJournee, Midi, Second };
    Genre genre = Genre::Passe;
    QString titre;  ///< "Il traverse la pause de midi"
    QString detail; ///< "Le matin finit à 12:00."

    friend bool operator==(const Insolite &, const Insolite &) = default;
};

/// What is odd, in the order in which it is told. `jour`: all appointments of that day, at every practitioner
/// and chair. A configuration that cannot be drawn says nothing of hours and days; and where an appointment
/// only gets longer or shorter, what it was already is not told again.
QList<Insolite> InsoliteDe(const Visee &visee, const QList<RendezVous> &jour, const QDateTime &maintenant);

/// Whether two rows are one patient's: by his number, and by his names where one of them has none.
bool MemePatient(const RendezVous &a, const RendezVous &b);

/// `rdv` from the start of `place` on and at its chair, as long as it is; midnight ends it a minute before.
RendezVous Place(RendezVous rdv, const PlaceRDV &place);

/// What is done, as the question names it.
struct ProjetEnMots {
    QString titre;  ///< "Déplacer ce rendez-vous ?"
    QString bouton; ///< "&Déplacer quand même"
    QString de;     ///< "du mercredi 25 novembre 2026, 10:00–10:30"; empty where there was no place
    QString a;      ///< "au samedi 28 novembre 2026, 11:45–12:15"
};
ProjetEnMots ProjetDe(const Visee &visee);

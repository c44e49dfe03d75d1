#pragma once

#include "grid/AReplacer.h"
#include "schedule/Creneaux.h"

#include <QDateTime>
#include <QList>
#include <optional>

/// What the user asks to see.
struct Demande {
    QString PraticienCourant; ///< number as the book keeps it: "01"
    bool VueSemaine = true;
    QDate jour;                        ///< the current date
    std::optional<long> fauteuil = {}; ///< chair chosen in the menu; none: the practitioner's default one
    std::optional<Configuration> config = {}; ///< zoomed or unsaved settings, kept; none: as the book has it
    int intervalleSansZoom = 0;               ///< slot length to come back to, 0 when not zoomed

    long numPraticien() const { return CLng(PraticienCourant); }
    friend bool operator==(const Demande &, const Demande &) = default;
};

/// One grid: a chair's week or day, or half of a day. What it draws, what a selection in it finds and where
/// it is booked all come from here.
struct Grille {
    Configuration config;
    Creneaux creneaux;
    QString entete;               ///< what a day grid adds to the date in its header
    QList<RendezVous> rendezVous; ///< those of the shown days, by day, start and RefRDV
    QString empechement;          ///< why there are no slots, a French sentence; empty when there are

    bool tracable() const { return creneaux.debut.isValid(); }
    friend bool operator==(const Grille &, const Grille &) = default;
};

/// What is shown: read whole or not at all, and never changed.
struct Affichage {
    Demande demande;
    QList<LigneConfig> configs; ///< the practitioner's, in table order
    int fauteuilCoche = -1;     ///< place in `configs` of the ticked chair
    QList<Grille> grilles;      ///< one in the week view, two in the day view
    QDateTime lu;
    /// Of each day of the month, as Remplissage() gives it; the day view's alone.
    QList<int> remplissage = {};
    QList<AReplacer> aReplacer = {}; ///< the practitioner's

    bool ConfigExiste() const { return !configs.isEmpty(); }
    /// One of the chairs is not 0: the day view shows two chairs, and there is a chair menu.
    bool AvecFauteuils() const;
    /// The practitioner has the chair of that grid: the fall-back's may be another, where nothing is booked.
    bool aFauteuil(int grille) const;
    /// The same again, its configuration kept: another day or a timer's tick starts from it.
    Demande suite() const;
    /// What the settings windows work on while the selection is in `grille` (none: the first).
    const Configuration &reglages(int grille) const;
};

/// Place of the first configuration for `fauteuil`, or, without one, of the chair that the practitioner's
/// last default configuration names; -1 when there is none.
int PlaceDuFauteuil(const QList<LigneConfig> &configs, std::optional<long> fauteuil);

/// The places of the two configurations that the day view shows when `coche` is ticked: both of two, else the
/// ticked one and the next, round.
std::pair<int, int> FauteuilsDuJour(int nombre, int coche);

/// First and last day that are read for `demande`.
std::pair<QDate, QDate> JoursLus(const Demande &demande);

/// The appointments of one day.
QList<RendezVous> DuJour(const Grille &grille, QDate jour);

/// How many appointments have hours that cannot be drawn.
int SansHoraire(const Affichage &affichage);

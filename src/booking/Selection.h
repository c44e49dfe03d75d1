#pragma once

#include "booking/HorairesRDV.h"
#include "grid/Affichage.h"
#include "grid/PlaceRDV.h"

/// What a selection of grid cells means: rules on values, no grid.

/// The two corners of a selection: where it began and where it ends.
struct Coins {
    int ligne = 0;
    int colonne = 0;
    int ligneFin = 0;
    int colonneFin = 0;

    int premiereLigne() const { return std::min(ligne, ligneFin); }
    int derniereLigne() const { return std::max(ligne, ligneFin); }
    friend bool operator==(const Coins &, const Coins &) = default;
};

/// What is selected on an Affichage. It is found again on the next one by its RefRDV or its hours.
struct Selection {
    int grille = -1; ///< place of its grid; -1: nothing is selected
    Coins coins;     ///< what is outlined
    QDate jour;
    PlageHoraire contour; ///< hours of the outlined rows
    PlageHoraire horaire; ///< the appointment's own hours, or the outlined ones
    int ChoixHoraire = 0; ///< against the working hours, see HoraireProf
    std::optional<RendezVous> rdv;
    int rang = 0;         ///< of the appointment among those that the clicked cells hold, from 1
    int nombre = 0;       ///< of these
    bool suivant = false; ///< a second click went on to the next of them

    bool vide() const { return grille < 0; }
    friend bool operator==(const Selection &, const Selection &) = default;
};

/// A click may mean the next appointment of a row; a drag and the arrow keys never do.
enum class Geste { Clic, Glisse };

/// Whether the corners lie in several columns, which the week grid refuses with a message.
bool PlusieursColonnes(const Affichage &affichage, const Coins &coins);

/// The day that `coins` select; invalid where they select nothing.
QDate JourDesCoins(const Affichage &affichage, int grille, const Coins &coins);

/// What `coins` of a grid select. Hour columns select nothing: `avant` stays, and so does it where there is
/// nothing to select. The header and the closing row of the week, and several columns, give its first cell; a
/// day grid's closing row, its whole day. An appointment is taken whole, and a second click on cells that
/// hold several goes on to the next.
Selection Selectionne(const Affichage &affichage, int grille, const Coins &coins, Geste geste,
                      const Selection &avant);

/// The free selection `avant` with one row more or less at its end, at least one; itself where the grid ends
/// or an appointment comes, and where an appointment is selected.
Selection Etend(const Affichage &affichage, const Selection &avant, Sens sens);

/// `avant`, made on `ancien`, on what is shown now: the same appointment or the same hours; elsewhere the
/// same hours of the same weekday. An appointment that nobody clicked on is never selected: where one lies
/// there now, nothing is.
Selection Reprend(const Affichage &affichage, const Affichage &ancien, const Selection &avant);

/// The selection of an appointment by its key; nothing when it is not shown.
Selection SelectionneRDV(const Affichage &affichage, qint64 RefRDV);

/// The selection of a free place's hours; nothing where no row shows them, or where an appointment lies.
Selection SelectionnePlace(const Affichage &affichage, const PlaceRDV &place);

/// The current date: the selected day, else the one that is shown.
QDate JourCourant(const Affichage &affichage, const Selection &selection);

/// Where a selection books.
PlaceRDV PlaceDe(const Affichage &affichage, const Selection &selection);

/// "14:45–15:15" of the appointment, or of what is selected; empty when nothing is.
QString HeuresSelection(const Selection &selection);
/// "30 min" of a free selection; empty on an appointment.
QString DureeSelection(const Selection &selection);

/// The grid's tool-tip for the selection; empty when it holds no appointment.
QString InfoBulleRDV(const Selection &selection);
/// The status bar's text for the selection: empty names leave a blank.
QString TexteEtatRDV(const Selection &selection);

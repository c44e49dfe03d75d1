#pragma once

#include "schedule/Creneaux.h"
#include "grid/RendezVous.h"

#include <QList>
#include <optional>

/// What a selection of grid cells means: rules on values, no grid.

/// The two corners of a grid's selection: where it began and where it ends.
struct CoinsSelection {
    int ligne = 0;
    int colonne = 0;
    int ligneFin = 0;
    int colonneFin = 0;

    int premiereLigne() const { return std::min(ligne, ligneFin); }
    int derniereLigne() const { return std::max(ligne, ligneFin); }
    int premiereColonne() const { return std::min(colonne, colonneFin); }
    int derniereColonne() const { return std::max(colonne, colonneFin); }
    friend bool operator==(const CoinsSelection &, const CoinsSelection &) = default;
};

/// What the week grid must do with a selection before it means anything.
enum class Correction {
    Aucune,
    PlusieursColonnes, ///< back to the first cell, and a message
    PremiereCellule,   ///< header, hour column or closing row: back to the first cell
    RemonteFin         ///< the end has reached the closing row: one row higher
};
Correction CorrigeSelection(const CoinsSelection &coins, int lignes, int colonnes);

/// Times of rows `ligneDebut` … `ligneFin` of slots that begin at `depart`, `intervalle` minutes each.
PlageHoraire HorairesDesLignes(QTime depart, int intervalle, int ligneDebut, int ligneFin);

/// The displayed day of column `colonne` in the week of `courant`; nothing when the week has no such column.
std::optional<QDate> JourDeColonne(QDate courant, const std::array<int, 7> &jourAffich, int colonne);

/// What lies under a selection of one day.
struct ContexteSelection {
    bool SelectionLibre = true;
    bool RDVPartiel = false;    ///< the appointment's bounds differ from the selection's
    bool RDVHorsGrille = false; ///< it begins or ends outside the grid: the selection is left as it is
    PlageHoraire horaire;       ///< the appointment's own times, or the selection's in whole minutes
    RendezVous rdv;             ///< the first appointment that overlaps; empty when the selection is free
    int premiereLigne = 0;      ///< rows of the week grid to select, 0 for none
    int derniereLigne = 0;
};

/// `jour` holds the day's appointments of the practitioner and chair, by start; `lignes` counts the week
/// grid's rows. The overlap is the half-open one: what ends when the selection begins does not overlap.
ContexteSelection AnalyseSelection(const Configuration &config, const PlageHoraire &selection,
                                   const QList<RendezVous> &jour, int lignes);

/// The grid's tool-tip for an appointment.
QString InfoBulleRDV(const QString &nom, const QString &prenom, const QString &description,
                     const QString &debut, const QString &fin);
/// The status bar's text for an appointment.
QString TexteEtatRDV(const QString &nom, const QString &prenom, const QString &description);

#pragma once

#include "grid/Affichage.h"

#include <QDateTime>

class FlexGridModel;
class ImagesRDV;
struct FlexCell;

/// Drawing into the cells of the week grid and of the day grids; no widget takes part.

/// A grey, centred hour label.
void EcritHeure(FlexCell &cellule, const QString &texte);
/// "Heure" in row 0 and the time of every row from 1 on, closing row included, in the first
/// and in the last column.
void EcritHeures(FlexGridModel &cellules, const Creneaux &creneaux);
/// Background 0xA0A0A0 on rows `premiere` … `derniere` of `col`; none when the first is greater.
void Grise(FlexGridModel &cellules, int premiere, int derniere, int col);

/// What is read aloud of the slots of `grille`, whose columns stand for `jours` (an invalid one: no slots).
void EcritLecture(FlexGridModel &cellules, const Grille &grille, const QList<QDate> &jours, QDate aujourdhui);

/// Draws one appointment in `colonne`: picture strip, text, the colours of attendance and lateness, and the
/// block that looks draw over its rows.
/// The first drawn row's label in column 0 is what lateness is measured against, at `maintenant`.
void AfficheFourchette(FlexGridModel &cellules, const Creneaux &creneaux, const RendezVous &rdv, int colonne,
                       ImagesRDV &images, const QDateTime &maintenant, bool epingle);

#pragma once

#include "grid/ImagesRDV.h"

#include <QDate>
#include <QObject>

class FlexGrid;
struct VariablesGlobales;

/// The week grid: one row a slot, one column a displayed day of the week that holds the current date.
/// What reads the book throws DbError and leaves the grid as far as it was drawn.
class GrilleSemaine : public QObject {
    Q_OBJECT
  public:
    GrilleSemaine(FlexGrid &GrilleRDV, VariablesGlobales &etat, QObject *parent = nullptr);

    /// Builds the whole grid from the loaded configuration and draws the week's appointments. A configuration
    /// that cannot be drawn gives a grid without rows.
    void Trace();
    /// The day headers.
    void AfficheDate();
    /// Empties the appointment cells, greyed ones stay grey.
    void ErazeGrilleRDV();
    /// Draws the week's appointments.
    void AfficheRDV();
    /// Another week in the grid that stands: headers and appointment cells only.
    void ChangeSemaine();
    /// Column widths for the grid's current width.
    void ResizingGrille();
    /// Brings the current hour into sight when the shown week holds today.
    void MontreHeureCourante();

  signals:
    /// The current date was written into the headers.
    void dateAffichee(QDate date);

  private:
    /// Lunch break and greyed half-days.
    void grise();
    /// The column of a displayed weekday, 0 for any other.
    int colonne(int jour) const;

    FlexGrid &m_grille;
    VariablesGlobales &v;
    ImagesRDV m_images;
};

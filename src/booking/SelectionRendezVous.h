#pragma once

#include "booking/Selection.h"

#include <QObject>
#include <functional>

class FlexGrid;
struct VariablesGlobales;

/// Turns what is selected in the three grids into the selection context: day, times, the appointment there.
/// It tells the user what the book refuses, once for each selection.
class SelectionRendezVous : public QObject {
    Q_OBJECT
  public:
    SelectionRendezVous(FlexGrid &GrilleRDV, FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03,
                        VariablesGlobales &etat, QObject *parent = nullptr);

    /// Looks again at what the last selection holds, after a redraw.
    void rafraichit();

  signals:
    /// The context was rewritten.
    void contexteChange();
    /// The right button was released over a grid.
    void menuDemande(const QPoint &position);
    /// A free selection or an appointment was double-clicked, or Enter pressed on it.
    void ouvertureDemandee();

  private:
    void selectionSemaine();
    void selectionJour(FlexGrid &grille);
    void metEnPremiereCellule();
    /// HoraireSelection and HoraireSelectionPM.
    void HoraireSelection(QTime depart);
    void AnalyseSelection();
    void boutonRelache(FlexGrid &grille, Qt::MouseButton bouton, const QPoint &position);
    /// Loads the configuration that a day grid shows, and with it its chair. True when it was not loaded yet.
    bool prendFauteuil(const FlexGrid &grille);
    void metInfoBulle();
    /// Runs a handler, which its own changes of the selection may run again inside.
    void traite(const std::function<void()> &gestionnaire);

    FlexGrid &m_semaine;
    FlexGrid &m_jour2;
    FlexGrid &m_jour3;
    FlexGrid *m_jourCourant;
    VariablesGlobales &v;
    int m_profondeur = 0;
    bool m_enErreur = false;
};

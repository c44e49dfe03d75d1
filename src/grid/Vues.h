#pragma once

#include "grid/GrilleSemaine.h"
#include "grid/GrillesJour.h"
#include "grid/LigneHeure.h"
#include "grid/Pointeur.h"
#include "platform/ui/FlexGrid.h"

#include <QObject>

/// The three grids of the window, of which the week's or the day's are shown. `grille` is a grid's place in
/// the Affichage.
class Vues : public QObject {
    Q_OBJECT
  public:
    Vues(FlexGrid &GrilleRDV, FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03, const Environnement &env,
         QObject *parent);

    void dessine(const Affichage &affichage);
    /// Outlines these cells of one grid (-1: none) and nothing elsewhere.
    void contourne(int grille, const FlexGrid::Corners &coins, const FlexGrid::OutlineText &texte,
                   const QString &infoBulle);
    void dimensionne();
    void habille(const Aspect &aspect);
    const Aspect &aspect() const;
    /// Where an appointment is drawn on the screen; empty where it is out of sight.
    QRect placeBloc(qint64 RefRDV) const;
    /// Where the outline is on the screen; empty where it is out of sight.
    QRect placeChoix() const;
    /// Brings the hour of `affichage.lu` into sight where that day is shown.
    void montreHeureCourante(const Affichage &affichage);
    /// Brings the outlined cells into sight.
    void montreContour();
    bool glisse() const;
    /// A message takes the release of the button away; an appointment in hand is let go.
    void finGlisse();

    /// Whether appointments can be taken in hand. Positions are the screen's.
    void permetPrise(bool permise);
    Pointeur pointeur(const QPoint &position) const;
    /// Beside the slots, at their height: -1 at their left, 1 at their right.
    int bord(const QPoint &position) const;
    /// The appointment in hand, which its block shows; 0: none.
    void montrePrise(qint64 RefRDV);
    /// Where a drop would put it, in one grid; nothing elsewhere.
    void montreFantome(int grille, const std::optional<FlexGrid::Ghost> &fantome);
    /// What is about to happen at that side of the slots; empty: nothing.
    void annonce(int bord, const QString &texte);
    void montreMain(std::optional<Qt::CursorShape> forme);

  signals:
    /// `RefRDV`: the one that is meant among several side by side; else 0.
    void selectionDemandee(int grille, const FlexGrid::Corners &coins, FlexGrid::Gesture geste,
                           qint64 RefRDV);
    void ouvertureDemandee(bool parSouris);
    void menuDemande(const QPoint &position);
    /// The card of an appointment is wanted; 0: not any more.
    void ficheDemandee(qint64 RefRDV);
    /// An appointment is taken in hand in a grid, by its lower edge or whole; then moved, and dropped or let
    /// go.
    void rdvPris(int grille, qint64 RefRDV, bool bord, const QPoint &position);
    void rdvBouge(const QPoint &position, bool avecCtrl);
    void rdvDepose(const QPoint &position, bool avecCtrl);
    void rdvLache();
    /// What is drawn has moved under what stands over it.
    void deplacee();

  private:
    QList<FlexGrid *> montrees() const;

    FlexGrid &m_vueSemaine;
    const QList<FlexGrid *> m_vuesJour;
    GrilleSemaine m_semaine;
    GrillesJour m_jour;
    LigneHeure *m_heure;
    bool m_parSemaine = true;
};

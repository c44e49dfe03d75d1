#pragma once

#include "schedule/Creneaux.h"
#include "grid/ImagesRDV.h"

#include <QObject>
#include <array>

class Database;
class FlexGrid;
struct RendezVous;
struct VariablesGlobales;

/// The two grids of the day view: two chairs side by side when the practitioner works with chairs, else the
/// morning and the afternoon. What reads the book throws DbError.
class GrillesJour : public QObject {
    Q_OBJECT
  public:
    GrillesJour(FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03, VariablesGlobales &etat,
                QObject *parent = nullptr);

    /// Draws the current day. `fauteuilCoche` is the place of the chair menu's ticked item, -1 for none: with
    /// chairs, nothing is drawn then.
    void AffichageJournée(int fauteuilCoche);
    /// Draws the day of two chairs, the one at place `index` of the practitioner's configurations first.
    void AffichageParJour(int index);
    /// Column widths for the grids' current widths.
    void Dimensionne();
    /// Brings the current hour into sight when today is shown.
    void MontreHeureCourante();

  signals:
    /// The current date was written into the headers.
    void dateAffichee(QDate date);

  private:
    /// One of the two grids, and the slots that it shows.
    struct Volet {
        FlexGrid *grille = nullptr;
        Creneaux creneaux;
    };
    void TraceGrille2Et3Jour(Database &base);
    void TraceGrille(Volet &volet, Database &base, int fauteuil);
    void construit(Volet &volet, const Creneaux &creneaux);
    void AfficheDate2_3();
    void AfficheDate2Et3(const QString &fauteuilA, const QString &fauteuilB);
    void ecritEntetes(const QString &suiteA, const QString &suiteB);
    /// AfficheFourchette2 and AfficheFourchette3: each appointment of the day into one grid.
    void dessine(const Volet &volet, const QList<RendezVous> &jour);

    std::array<Volet, 2> m_volets;
    VariablesGlobales &v;
    ImagesRDV m_images;
};

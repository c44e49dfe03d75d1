#include "grid/GrilleSemaine.h"

#include "grid/DessinGrille.h"
#include "grid/Disposition.h"
#include "grid/RendezVousTables.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGrid.h"
#include "platform/ui/Sablier.h"
#include "platform/ui/Twips.h"
#include "start/VariablesGlobales.h"

GrilleSemaine::GrilleSemaine(FlexGrid &GrilleRDV, VariablesGlobales &etat, QObject *parent)
    : QObject(parent), m_grille(GrilleRDV), v(etat), m_images(v.chemins, v.CheminRacine) {}

void GrilleSemaine::Trace() {
    const Sablier sablier;
    {
        FlexGridModel &cellules = m_grille.cells();
        const FlexGridWriting ecriture(cellules);
        if (!DefautConfiguration(v.config).isEmpty()) {
            cellules.clear(0, 0);
            return;
        }
        cellules.clear(NbLignes(v.config), v.config.NbJours + 2);
        EcritHeures(cellules, CreneauxSemaine(v.config), 0);
        EcritHeures(cellules, CreneauxSemaine(v.config), cellules.cols() - 1);
        AfficheDate();
        grise();
        AfficheRDV();
    }
    const FlexGridModel &cellules = m_grille.cells();
    m_grille.setKeyboardArea(QRect(1, 1, cellules.cols() - 2, cellules.rows() - 2));
    m_grille.setRowSel(m_grille.row());
    m_grille.setColSel(m_grille.col());
}

void GrilleSemaine::grise() {
    FlexGridModel &cellules = m_grille.cells();
    const int midi = PremiereLigneMidi(v.config);
    const int finMidi = DerniereLigneMidi(v.config);
    for (int jour = 1; jour <= 7; ++jour) {
        const int col = colonne(jour);
        if (col == 0) {
            continue;
        }
        Grise(cellules, midi, finMidi, col);
        const int demiJournees = v.config.JourGrise[size_t(jour - 1)];
        if (demiJournees == 1) {
            Grise(cellules, 1, midi, col);
        } else if (demiJournees == 2) {
            Grise(cellules, finMidi + 1, cellules.rows() - 1, col);
        } else if (demiJournees == 3) {
            Grise(cellules, 1, cellules.rows() - 1, col);
        }
    }
}

void GrilleSemaine::AfficheDate() {
    v.JourSemaineCourant = Jour(v.txtNumJourEnCours);
    const QDate lundi = Lundi(v.txtNumJourEnCours);
    for (int jour = 1; jour <= 7; ++jour) {
        const int col = colonne(jour);
        if (col > 0) {
            m_grille.cells().at(0, col) = {DatesFr::enteteJour(lundi.addDays(jour - 1)),
                                           QColor(couleurWindows(CouleurJour(jour))), Qt::white,
                                           Qt::AlignCenter, QImage()};
        }
    }
    emit dateAffichee(v.txtNumJourEnCours);
}

void GrilleSemaine::ErazeGrilleRDV() {
    EffaceRendezVous(m_grille.cells());
    grise(); // where an attended appointment had covered the grey
}

void GrilleSemaine::AfficheRDV() {
    const QDate lundi = Lundi(v.txtNumJourEnCours);
    Database base = v.ouvreCarnet();
    const QList<RendezVous> semaine =
        RendezVousEntre(base, lundi, lundi.addDays(6), v.numPraticien(), CLng(v.config.FauteuilCourant));
    const QDateTime maintenant = v.maintenant();
    for (const RendezVous &rdv : semaine) {
        v.prendRendezVous(rdv);
        const int col = colonne(Jour(rdv.Date1));
        if (col > 0) {
            v.ColonneJour = col;
            AfficheFourchette(m_grille.cells(), CreneauxSemaine(v.config), rdv, col, m_images, maintenant);
        }
    }
}

void GrilleSemaine::ChangeSemaine() {
    const Sablier sablier;
    const FlexGridWriting ecriture(m_grille.cells());
    AfficheDate();
    ErazeGrilleRDV();
    AfficheRDV();
}

int GrilleSemaine::colonne(int jour) const {
    const int col = ColonneDuJour(jour, v.config.JourAffich);
    return col <= v.config.NbJours ? col : 0;
}

void GrilleSemaine::ResizingGrille() {
    const int colonnes = m_grille.cells().cols();
    const LargeursColonnes largeurs = LargeursSemaine(twipsFromPixels(m_grille.width()), colonnes);
    for (int col = 0; col < colonnes; ++col) {
        const bool heures = col == 0 || col == colonnes - 1;
        m_grille.setColumnWidth(col, pixelsFromTwips(heures ? largeurs.heures : largeurs.jours));
    }
}

void GrilleSemaine::MontreHeureCourante() {
    const QDateTime maintenant = v.maintenant();
    if (m_grille.cells().rows() > 0 && Lundi(maintenant.date()) == Lundi(v.txtNumJourEnCours)) {
        m_grille.showAtTop(std::max(CreneauxSemaine(v.config).premiereLigne(maintenant.time()) - 2, 1));
    }
}

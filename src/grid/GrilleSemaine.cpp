#include "grid/GrilleSemaine.h"

#include "grid/DessinGrille.h"
#include "grid/Disposition.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGrid.h"
#include "platform/ui/Twips.h"

namespace {

void ecritEntete(FlexCell &cellule, QDate jour) {
    cellule = {DatesFr::enteteJour(jour), QColor(couleurWindows(CouleurJour(Jour(jour)))), Qt::white,
               Qt::AlignCenter, QImage()};
}

/// Lunch break and greyed half-days of one day.
void griseJour(FlexGridModel &cellules, const Configuration &config, int jour, int col) {
    const int midi = PremiereLigneMidi(config);
    const int finMidi = DerniereLigneMidi(config);
    Grise(cellules, midi, finMidi, col);
    switch (config.JourGrise[size_t(jour - 1)]) {
    case 1:
        Grise(cellules, 1, midi, col);
        break;
    case 2:
        Grise(cellules, finMidi + 1, cellules.rows() - 1, col);
        break;
    case 3:
        Grise(cellules, 1, cellules.rows() - 1, col);
        break;
    default:
        break;
    }
}

} // namespace

void GrilleSemaine::dessine(const Affichage &affichage) {
    const Grille &grille = affichage.grilles.first();
    FlexGridModel &cellules = m_grille.cells();
    m_grille.setPlaceholder(grille.empechement);
    const FlexGridWriting ecriture(cellules);
    if (!grille.tracable()) {
        cellules.clear(0, 0);
        return;
    }
    const Configuration &config = grille.config;
    cellules.clear(grille.creneaux.lignes(), config.NbJours + 2);
    EcritHeures(cellules, grille.creneaux);
    const QDate lundi = Lundi(affichage.demande.jour);
    QList<QDate> jours(cellules.cols());
    for (int jour = 1; jour <= 7; ++jour) {
        if (const int col = ColonneDuJour(jour, config.JourAffich)) {
            jours[col] = lundi.addDays(jour - 1);
            ecritEntete(cellules.at(0, col), jours[col]);
            cellules.setDay(col, jour);
            griseJour(cellules, config, jour, col);
        }
    }
    for (const RendezVous &rdv : grille.rendezVous) {
        if (const int col = ColonneDuJour(Jour(rdv.Date1), config.JourAffich)) {
            AfficheFourchette(cellules, grille.creneaux, rdv, col, m_images, affichage.lu,
                              EstEpingle(affichage.aReplacer, rdv.RefRDV));
        }
    }
    cellules.setToday(int(jours.indexOf(affichage.lu.date())));
    EcritLecture(cellules, grille, jours, affichage.lu.date());
    m_grille.setSelectableArea(QRect(1, 1, cellules.cols() - 2, cellules.rows() - 2));
}

void GrilleSemaine::dimensionne() {
    const int colonnes = m_grille.cells().cols();
    const LargeursColonnes largeurs = LargeursSemaine(twipsFromPixels(m_grille.width()), colonnes);
    for (int col = 0; col < colonnes; ++col) {
        const bool heures = col == 0 || col == colonnes - 1;
        m_grille.setColumnWidth(col, pixelsFromTwips(heures ? largeurs.heures : largeurs.jours));
    }
}

void GrilleSemaine::montreHeureCourante(const Affichage &affichage) {
    const Grille &grille = affichage.grilles.first();
    if (grille.tracable() && Lundi(affichage.lu.date()) == Lundi(affichage.demande.jour)) {
        m_grille.showAtTop(std::max(grille.creneaux.premiereLigne(affichage.lu.time()) - 2, 1));
    }
}

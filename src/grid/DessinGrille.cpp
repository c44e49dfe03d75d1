#include "grid/DessinGrille.h"

#include "grid/Fourchette.h"
#include "grid/ImagesRDV.h"
#include "grid/TexteLu.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGridModel.h"

#include <algorithm>

namespace {

const QColor gris(couleurWindows(couleurGris));
const QColor texteHeure(couleurWindows(0xF0F0F0));
const QColor texteRetard(couleurWindows(0x0000FF));

/// Of each appointment that the cell shows, or of the slot.
QString lecture(const FlexGridModel &cellules, const Grille &grille, int ligne, int col, QDate jour,
                QDate aujourdhui) {
    QStringList lus;
    for (const FlexBlock &bloc : cellules.blocks()) {
        const auto rdv = std::ranges::find(grille.rendezVous, bloc.id, &RendezVous::RefRDV);
        if (bloc.col == col && bloc.first <= ligne && ligne <= bloc.last && rdv != grille.rendezVous.end()) {
            lus << TexteLuRDV(*rdv, bloc.late, aujourdhui) +
                       (bloc.pinned ? QStringLiteral(", à replacer") : QString());
        }
    }
    return lus.isEmpty() ? TexteLuCase(jour, grille.creneaux.heure(ligne),
                                       cellules.cell(ligne, col).use == FlexUse::Shut)
                         : lus.join(QStringLiteral(" ; "));
}

} // namespace

void EcritLecture(FlexGridModel &cellules, const Grille &grille, const QList<QDate> &jours,
                  QDate aujourdhui) {
    cellules.setSpoken([&cellules, grille, jours, aujourdhui](int ligne, int col) {
        const bool creneau = ligne > 0 && ligne < cellules.rows() - 1 && jours.value(col).isValid();
        return creneau ? lecture(cellules, grille, ligne, col, jours[col], aujourdhui) : QString();
    });
}

void EcritHeure(FlexCell &cellule, const QString &texte) {
    cellule.text = texte;
    cellule.alignment = Qt::AlignCenter;
    cellule.back = gris;
    cellule.fore = texteHeure;
    cellule.use = FlexUse::Label;
}

void EcritHeures(FlexGridModel &cellules, const Creneaux &creneaux) {
    EcritHeure(cellules.at(0, 0), QStringLiteral("Heure"));
    for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
        EcritHeure(cellules.at(ligne, 0), DatesFr::heure(creneaux.heure(ligne)));
    }
    for (int ligne = 0; ligne < cellules.rows(); ++ligne) {
        cellules.at(ligne, cellules.cols() - 1) = cellules.cell(ligne, 0);
    }
}

void Grise(FlexGridModel &cellules, int premiere, int derniere, int col) {
    for (int ligne = premiere; ligne <= derniere; ++ligne) {
        FlexCell &cellule = cellules.at(ligne, col);
        cellule.back = gris;
        cellule.use = FlexUse::Shut;
    }
}

void AfficheFourchette(FlexGridModel &cellules, const Creneaux &creneaux, const RendezVous &rdv, int colonne,
                       ImagesRDV &images, const QDateTime &maintenant, bool epingle) {
    if (!rdv.aUneDuree()) {
        return;
    }
    const Fourchette fourchette = CoupeFourchette(creneaux.premiereLigne(rdv.HeureDebut),
                                                  creneaux.derniereLigne(rdv.HeureFin), cellules.rows() - 1);
    if (!fourchette.dessinee()) {
        return;
    }
    const int jour = Jour(rdv.Date1);
    for (int ligne = fourchette.premiere; ligne <= fourchette.derniere; ++ligne) {
        FlexCell &cellule = cellules.at(ligne, colonne);
        cellule.picture = images.image(fourchette.forme(ligne), jour);
        if (rdv.Present) {
            cellule.back = QColor(couleurWindows(CouleurJour(jour)));
            cellule.fore = Qt::white;
        }
    }
    FlexCell &premiere = cellules.at(fourchette.premiere, colonne);
    const bool enRetard = rdv.Date1 == maintenant.date() &&
                          DatesFr::heure(maintenant.time()) > cellules.cell(fourchette.premiere, 0).text;
    if (!rdv.Present && enRetard) {
        premiere.fore = texteRetard;
    }
    cellules.addBlock({.id = rdv.RefRDV,
                       .col = colonne,
                       .first = fourchette.premiere,
                       .last = fourchette.derniere,
                       .day = jour,
                       .start = rdv.HeureDebut,
                       .end = rdv.HeureFin,
                       .name = NomComplet(rdv.Nom, rdv.Prenom),
                       .detail = rdv.Description.trimmed(),
                       .present = rdv.Present,
                       .late = !rdv.Present && enRetard,
                       .past = EstPasse(rdv, maintenant),
                       .pinned = epingle,
                       .cutAbove = fourchette.coupeeEnHaut,
                       .cutBelow = fourchette.coupeeEnBas});
}

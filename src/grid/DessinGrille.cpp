#include "grid/DessinGrille.h"

#include "grid/Fourchette.h"
#include "grid/ImagesRDV.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGridModel.h"

namespace {

const QColor gris(couleurWindows(couleurGris));
const QColor texteHeure(couleurWindows(0xF0F0F0));
const QColor texteRetard(couleurWindows(0x0000FF));

} // namespace

void EcritHeure(FlexCell &cellule, const QString &texte) {
    cellule.text = texte;
    cellule.alignment = Qt::AlignCenter;
    cellule.back = gris;
    cellule.fore = texteHeure;
}

void EcritHeures(FlexGridModel &cellules, const Creneaux &creneaux, int col) {
    EcritHeure(cellules.at(0, col), QStringLiteral("Heure"));
    for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
        EcritHeure(cellules.at(ligne, col), DatesFr::heure(creneaux.heure(ligne)));
    }
}

void Grise(FlexGridModel &cellules, int premiere, int derniere, int col) {
    for (int ligne = premiere; ligne <= derniere; ++ligne) {
        cellules.at(ligne, col).back = gris;
    }
}

void AfficheFourchette(FlexGridModel &cellules, const Creneaux &creneaux, const RendezVous &rdv, int colonne,
                       ImagesRDV &images, const QDateTime &maintenant) {
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
        cellule.picture = images.image(NomImage(fourchette.forme(ligne), jour));
        if (rdv.Present) {
            cellule.back = QColor(couleurWindows(CouleurJour(jour)));
            cellule.fore = Qt::white;
        }
    }
    FlexCell &premiere = cellules.at(fourchette.premiere, colonne);
    premiere.text = TexteRDV(rdv.Nom, rdv.Prenom, rdv.Description);
    const bool enRetard = rdv.Date1 == maintenant.date() &&
                          DatesFr::heure(maintenant.time()) > cellules.cell(fourchette.premiere, 0).text;
    if (!rdv.Present && enRetard) {
        premiere.fore = texteRetard;
    }
}

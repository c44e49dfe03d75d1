#include "grid/GrillesJour.h"

#include "grid/DessinGrille.h"
#include "grid/Disposition.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGrid.h"
#include "platform/ui/Twips.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScrollBar>

namespace {

/// A label of a day grid: no grey here, the desktop's own button colours.
void ecritEtiquette(FlexCell &cellule, const QString &texte) {
    cellule.text = texte;
    cellule.alignment = Qt::AlignCenter;
    cellule.use = FlexUse::Label;
    cellule.back = QGuiApplication::palette().color(QPalette::Button);
    cellule.fore = QGuiApplication::palette().color(QPalette::ButtonText);
}

} // namespace

GrillesJour::GrillesJour(FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03, const Environnement &env)
    : m_grilles{&GrilleRDV02, &GrilleRDV03}, m_images(env) {
    for (const auto &[une, autre] : {std::pair(&GrilleRDV02, &GrilleRDV03), {&GrilleRDV03, &GrilleRDV02}}) {
        QScrollBar *suit = autre->verticalScrollBar();
        QObject::connect(une->verticalScrollBar(), &QScrollBar::valueChanged, suit,
                         [grille = une, suit](int valeur) {
                             if (grille->hasTimeScale()) {
                                 suit->setValue(valeur);
                             }
                         });
    }
}

void GrillesJour::metAEchelle(const Affichage &affichage) {
    const Grille &premiere = affichage.grilles[0];
    const Grille &seconde = affichage.grilles[1];
    if (!affichage.AvecFauteuils() || !premiere.tracable() || !seconde.tracable()) {
        for (FlexGrid *vue : m_grilles) {
            vue->setTimeScale(std::nullopt);
        }
        return;
    }
    const std::array<EchelleGrille, 2> echelles = EchellesJour(premiere.creneaux, seconde.creneaux);
    for (size_t i = 0; i < m_grilles.size(); ++i) {
        const auto &[avant, pas, total, pasMin] = echelles[i];
        m_grilles[i]->setTimeScale(FlexGrid::TimeScale{avant, pas, total, pasMin});
    }
}

void GrillesJour::dessine(const Affichage &affichage) {
    metAEchelle(affichage);
    for (size_t i = 0; i < m_grilles.size(); ++i) {
        dessineGrille(*m_grilles[i], affichage.grilles[int(i)], affichage);
    }
}

void GrillesJour::dessineGrille(FlexGrid &vue, const Grille &grille, const Affichage &affichage) {
    FlexGridModel &cellules = vue.cells();
    vue.setPlaceholder(grille.empechement);
    const FlexGridWriting ecriture(cellules);
    cellules.clear(grille.tracable() ? grille.creneaux.lignes() : 1, 2);
    ecritEtiquette(cellules.at(0, 0), QStringLiteral("Heure"));
    ecritEtiquette(cellules.at(0, 1), DatesFr::enteteJourLong(affichage.demande.jour) +
                                          QStringLiteral("       ") + grille.entete);
    for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
        FlexCell &heure = cellules.at(ligne, 0);
        ecritEtiquette(heure, DatesFr::heure(grille.creneaux.heure(ligne)));
        if (vue.hasTimeScale()) { // rows of different heights: the hour is where it begins
            heure.alignment = Qt::AlignHCenter | Qt::AlignTop;
        }
    }
    const QDate jour = affichage.demande.jour;
    cellules.setDay(1, Jour(jour));
    cellules.setToday(jour == affichage.lu.date() ? 1 : -1);
    EcritLecture(cellules, grille, {QDate(), jour}, affichage.lu.date());
    for (const RendezVous &rdv : grille.rendezVous) {
        AfficheFourchette(cellules, grille.creneaux, rdv, 1, m_images, affichage.lu,
                          EstEpingle(affichage.aReplacer, rdv.RefRDV));
    }
    vue.setSelectableArea(QRect(1, 1, 1, cellules.rows() - 2));
}

void GrillesJour::dimensionne() {
    for (FlexGrid *vue : m_grilles) {
        const LargeursColonnes largeurs = LargeursJour(twipsFromPixels(vue->width()));
        vue->setColumnWidth(0, pixelsFromTwips(largeurs.heures));
        vue->setColumnWidth(1, pixelsFromTwips(largeurs.jours));
    }
}

void GrillesJour::montreHeureCourante(const Affichage &affichage) {
    for (size_t i = 0; i < m_grilles.size(); ++i) {
        const Grille &grille = affichage.grilles[int(i)];
        if (grille.tracable() && affichage.lu.date() == affichage.demande.jour) {
            m_grilles[i]->showAtTop(std::max(grille.creneaux.premiereLigne(affichage.lu.time()) - 2, 1));
        }
    }
}

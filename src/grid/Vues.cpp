#include "grid/Vues.h"

#include "platform/ui/FlexGridDelegate.h"

#include <algorithm>

Vues::Vues(FlexGrid &GrilleRDV, FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03, const Environnement &env,
           QObject *parent)
    : QObject(parent), m_vueSemaine(GrilleRDV), m_vuesJour{&GrilleRDV02, &GrilleRDV03},
      m_semaine(GrilleRDV, env), m_jour(GrilleRDV02, GrilleRDV03, env), m_heure(new LigneHeure(env, this)) {
    const QList<std::pair<FlexGrid *, int>> places{{&GrilleRDV, 0}, {&GrilleRDV02, 0}, {&GrilleRDV03, 1}};
    for (const auto &[vue, grille] : places) {
        connect(
            vue, &FlexGrid::selectionAsked, this,
            [this, grille = grille](const FlexGrid::Corners &coins, FlexGrid::Gesture geste, qint64 RefRDV) {
                emit selectionDemandee(grille, coins, geste, RefRDV);
            });
        connect(vue, &FlexGrid::opened, this, &Vues::ouvertureDemandee);
        connect(vue, &FlexGrid::contextMenuAsked, this, &Vues::menuDemande);
        connect(vue, &FlexGrid::cardAsked, this, &Vues::ficheDemandee);
        connect(vue, &FlexGrid::moved, this, &Vues::deplacee);
        connect(vue, &FlexGrid::blockTaken, this,
                [this, grille = grille](qint64 RefRDV, bool bord, const QPoint &position) {
                    emit rdvPris(grille, RefRDV, bord, position);
                });
        connect(vue, &FlexGrid::blockMoved, this, &Vues::rdvBouge);
        connect(vue, &FlexGrid::blockDropped, this, &Vues::rdvDepose);
        connect(vue, &FlexGrid::blockLetGo, this, &Vues::rdvLache);
    }
}

QList<FlexGrid *> Vues::montrees() const {
    return m_parSemaine ? QList<FlexGrid *>{&m_vueSemaine} : m_vuesJour;
}

void Vues::dessine(const Affichage &affichage) {
    m_parSemaine = affichage.demande.VueSemaine;
    if (m_parSemaine) {
        m_semaine.dessine(affichage);
        m_semaine.dimensionne();
    } else {
        m_jour.dessine(affichage);
        m_jour.dimensionne();
    }
    m_heure->montre(affichage, montrees());
}

void Vues::contourne(int grille, const FlexGrid::Corners &coins, const FlexGrid::OutlineText &texte,
                     const QString &infoBulle) {
    const QList<FlexGrid *> vues = montrees();
    for (int i = 0; i < vues.size(); ++i) {
        const bool ici = i == grille;
        vues[i]->showOutline(ici ? std::optional(coins) : std::nullopt,
                             ici ? texte : FlexGrid::OutlineText{{}, {}, 0});
        vues[i]->setOutlineToolTip(ici ? infoBulle : QString());
    }
}

void Vues::habille(const Aspect &aspect) {
    m_vueSemaine.setAspect(aspect);
    for (FlexGrid *vue : m_vuesJour) {
        vue->setAspect(aspect);
    }
}

const Aspect &Vues::aspect() const {
    return m_vueSemaine.painting().aspect();
}

QRect Vues::placeBloc(qint64 RefRDV) const {
    for (const FlexGrid *vue : montrees()) {
        const QRect bloc = vue->blockRect(RefRDV);
        if (!bloc.isEmpty()) {
            return {vue->viewport()->mapToGlobal(bloc.topLeft()), bloc.size()};
        }
    }
    return {};
}

QRect Vues::placeChoix() const {
    for (const FlexGrid *vue : montrees()) {
        const QRect choix = vue->outlineRect();
        if (!choix.isEmpty()) {
            return {vue->viewport()->mapToGlobal(choix.topLeft()), choix.size()};
        }
    }
    return {};
}

void Vues::dimensionne() {
    m_semaine.dimensionne();
    m_jour.dimensionne();
}

void Vues::montreHeureCourante(const Affichage &affichage) {
    if (m_parSemaine) {
        m_semaine.montreHeureCourante(affichage);
    } else {
        m_jour.montreHeureCourante(affichage);
    }
}

void Vues::montreContour() {
    for (FlexGrid *vue : montrees()) {
        vue->showOutlined();
    }
}

bool Vues::glisse() const {
    return std::ranges::any_of(montrees(), [](const FlexGrid *vue) { return vue->isDragging(); });
}

void Vues::finGlisse() {
    for (FlexGrid *vue : montrees()) {
        vue->endDrag();
    }
}

// ---- An appointment in hand

void Vues::permetPrise(bool permise) {
    for (FlexGrid *vue : m_vuesJour + QList{&m_vueSemaine}) {
        vue->setBlocksMovable(permise);
    }
}

Pointeur Vues::pointeur(const QPoint &position) const {
    const QList<FlexGrid *> vues = montrees();
    for (int i = 0; i < vues.size(); ++i) {
        if (const auto place = vues[i]->spotAt(position)) {
            return {i, place->row, place->col};
        }
    }
    return {};
}

int Vues::bord(const QPoint &position) const {
    const QRect premiere = montrees().first()->slotsRect();
    const QRect derniere = montrees().last()->slotsRect();
    if (position.y() < premiere.top() || position.y() > premiere.bottom()) {
        return 0;
    }
    return position.x() < premiere.left() ? -1 : (position.x() > derniere.right() ? 1 : 0);
}

void Vues::montrePrise(qint64 RefRDV) {
    for (FlexGrid *vue : montrees()) {
        vue->showTaken(RefRDV);
    }
}

void Vues::montreFantome(int grille, const std::optional<FlexGrid::Ghost> &fantome) {
    const QList<FlexGrid *> vues = montrees();
    for (int i = 0; i < vues.size(); ++i) {
        vues[i]->showGhost(i == grille ? fantome : std::nullopt);
    }
}

void Vues::annonce(int bord, const QString &texte) {
    const QList<FlexGrid *> vues = montrees();
    vues.first()->showHint(bord < 0 ? texte : QString(), Qt::LeftEdge);
    if (bord > 0) {
        vues.last()->showHint(texte, Qt::RightEdge);
    } else if (vues.size() > 1) {
        vues.last()->showHint({}, Qt::RightEdge);
    }
}

void Vues::montreMain(std::optional<Qt::CursorShape> forme) {
    for (FlexGrid *vue : montrees()) {
        vue->showHand(forme);
    }
}

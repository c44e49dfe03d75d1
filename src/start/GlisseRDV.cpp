#include "start/GlisseRDV.h"

#include "booking/ActionsRDV.h"
#include "grid/Fourchette.h"
#include "grid/Vues.h"
#include "platform/ui/DatesFr.h"
#include "start/CarnetMontre.h"

#include <QWidget>

#include <algorithm>

namespace {

constexpr int attenteAuBord = 700; // ms

/// "ven. 27 · 09:00–09:45", by day without the day; its length where that changes.
QString texteFantome(const Cible &cible, bool semaine, bool allonge) {
    const auto &[debut, fin] = cible.place.horaire;
    const QString heures = DatesFr::heure(debut) + QChar(0x2013) + DatesFr::heure(fin);
    if (cible.accueil == Accueil::Occupe) {
        return heures + QStringLiteral(" : déjà pris");
    }
    if (allonge) {
        return heures + QStringLiteral(" · %1 min").arg(Minutes(debut, fin));
    }
    return semaine ? DatesFr::jourCourt(cible.place.jour) + QStringLiteral(" · ") + heures : heures;
}

FlexGrid::Ghost fantomeDe(const EnMain &main, const Cible &cible, bool semaine) {
    const bool refuse = cible.accueil == Accueil::Occupe;
    const Coins &c = cible.coins;
    return {{c.ligne, c.colonne, c.ligneFin, c.colonneFin},
            (refuse ? QStringLiteral("✕ ") : QString()) + NomComplet(main.rdv.Nom, main.rdv.Prenom),
            texteFantome(cible, semaine, main.bord),
            DatesFr::heure(cible.place.horaire.debut),
            DatesFr::heure(cible.place.horaire.fin),
            refuse};
}

Qt::CursorShape formeMain(const EnMain &main, const Cible &cible, bool encore) {
    if (cible.accueil == Accueil::Refus || cible.accueil == Accueil::Occupe) {
        return Qt::ForbiddenCursor;
    }
    return main.bord ? Qt::SizeVerCursor : (encore ? Qt::DragCopyCursor : Qt::ClosedHandCursor);
}

} // namespace

GlisseRDV::GlisseRDV(CarnetMontre &carnet, ActionsRDV &actions, Vues &vues, QObject *parent)
    : QObject(parent), m_carnet(carnet), m_actions(actions), m_vues(vues) {
    m_tourne.setInterval(attenteAuBord);
    m_suite.setSingleShot(true);
    connect(&vues, &Vues::rdvPris, this, &GlisseRDV::prend);
    connect(&vues, &Vues::rdvBouge, this, &GlisseRDV::bouge);
    connect(&vues, &Vues::rdvDepose, this, &GlisseRDV::depose);
    connect(&vues, &Vues::rdvLache, this, &GlisseRDV::lache);
    connect(&vues, &Vues::deplacee, &m_suite, [this] { m_suite.start(0); }); // many at once
    connect(&m_suite, &QTimer::timeout, this, [this] { bouge(m_position, m_encore); });
    connect(&m_tourne, &QTimer::timeout, this, &GlisseRDV::tourne);
}

void GlisseRDV::accueille(QWidget &voisine, const Recoit &recoit) {
    m_voisines.append({&voisine, recoit});
}

const GlisseRDV::Voisine *GlisseRDV::voisineSous(const QPoint &position) const {
    const auto sous = std::ranges::find_if(m_voisines, [&](const Voisine &voisine) {
        const QWidget &fenetre = *voisine.fenetre;
        return fenetre.isVisible() && fenetre.rect().contains(fenetre.mapFromGlobal(position));
    });
    return sous == m_voisines.end() ? nullptr : &*sous;
}

void GlisseRDV::prend(int grille, qint64 RefRDV, bool bord, const QPoint &position) {
    const QList<RendezVous> &montres = m_carnet.affichage().grilles[grille].rendezVous;
    const auto rdv = std::ranges::find(montres, RefRDV, &RendezVous::RefRDV);
    const Pointeur prise = m_vues.pointeur(position);
    if (rdv == montres.end() || prise.grille != grille) {
        m_vues.finGlisse();
        return;
    }
    m_main = PrendEnMain(m_carnet.affichage(), *rdv, prise, bord);
    m_vues.montrePrise(RefRDV);
    if (m_carnet.selection().rdv != *rdv) { // one of several under one row
        m_carnet.selectionneRDV(RefRDV);
    }
}

void GlisseRDV::prendDeCote(const RendezVous &rdv, const QPoint &position) {
    m_main = PrendDeCote(rdv);
    m_vues.montrePrise(rdv.RefRDV);
    bouge(position, false);
}

void GlisseRDV::bouge(const QPoint &position, bool avecCtrl) {
    if (!m_main) {
        return;
    }
    m_position = position;
    m_encore = avecCtrl && !m_main->bord;
    const bool ailleurs = voisineSous(position) != nullptr;
    annonceBord(ailleurs || m_main->bord ? 0 : m_vues.bord(position));
    m_cible =
        ailleurs ? Cible() : CibleDe(m_carnet.affichage(), *m_main, m_vues.pointeur(position), m_encore);
    montre(ailleurs);
}

void GlisseRDV::montre(bool ailleurs) {
    const bool semaine = m_carnet.affichage().demande.VueSemaine;
    m_vues.montreFantome(m_cible.grille, m_cible.accueil == Accueil::Refus
                                             ? std::nullopt
                                             : std::optional(fantomeDe(*m_main, m_cible, semaine)));
    m_vues.montreMain(ailleurs || m_bord != 0 ? Qt::ClosedHandCursor : formeMain(*m_main, m_cible, m_encore));
}

void GlisseRDV::annonceBord(int bord) {
    if (bord == m_bord) {
        return;
    }
    m_bord = bord;
    const bool semaine = m_carnet.affichage().demande.VueSemaine;
    const QString avant =
        semaine ? QStringLiteral("‹ Semaine précédente") : QStringLiteral("‹ Jour précédent");
    const QString apres = semaine ? QStringLiteral("Semaine suivante ›") : QStringLiteral("Jour suivant ›");
    m_vues.annonce(bord, bord == 0 ? QString() : (bord < 0 ? avant : apres));
    if (bord == 0) {
        m_tourne.stop();
    } else {
        m_tourne.start();
    }
}

void GlisseRDV::tourne() {
    const QDate avant = m_carnet.affichage().demande.jour;
    m_tourne.stop(); // a book that is busy is waited for meanwhile
    m_carnet.tourne(m_bord);
    if (m_main && m_carnet.affichage().demande.jour == avant) { // it could not be read, or ends here
        m_vues.finGlisse();
        lache();
    }
    if (m_main) {
        m_tourne.start();
        bouge(m_position, m_encore);
    }
}

void GlisseRDV::lache() {
    m_main.reset();
    annonceBord(0);
    m_vues.montrePrise(0);
    m_vues.montreFantome(-1, std::nullopt);
    m_vues.montreMain(std::nullopt);
}

void GlisseRDV::depose(const QPoint &position, bool avecCtrl) {
    bouge(position, avecCtrl);
    if (!m_main) {
        return;
    }
    const RendezVous rdv = m_main->rdv;
    const bool deCote = m_main->grille < 0;
    const Voisine *voisine = m_main->bord ? nullptr : voisineSous(position);
    lache();
    if (voisine != nullptr) {
        if (!deCote) {
            voisine->recoit(rdv);
        }
    } else if (m_cible.accueil == Accueil::Occupe) { // what was shown is what is done
        m_actions.refuse(m_encore);
    } else if (m_cible.accueil == Accueil::Libre) {
        ecrit(rdv, m_cible, m_encore);
    }
}

void GlisseRDV::ecrit(const RendezVous &rdv, const Cible &cible, bool encore) {
    if (!m_carnet.relit()) {
        return;
    }
    if (encore) {
        m_actions.reserveEncore(rdv, cible.rdv, cible.place);
    } else {
        m_actions.deplace(rdv, cible.rdv, cible.place);
    }
}

#include "start/FicheMontree.h"

#include "booking/FicheRDV.h"
#include "grid/Vues.h"
#include "patients/ActesTables.h"
#include "practice/Essai.h"
#include "start/CarnetMontre.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds unMoment{20};

} // namespace

FicheMontree::FicheMontree(const Environnement &env, const CarnetMontre &carnet, const Vues &vues,
                           QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_vues(vues), m_fenetre(fenetre) {
    m_suite.setParent(this);
    m_suite.setSingleShot(true);
    fenetre.installEventFilter(this);
    connect(&vues, &Vues::ficheDemandee, this, &FicheMontree::demande);
    connect(&vues, &Vues::deplacee, &m_suite, [this] { m_suite.start(0); }); // many at once
    connect(&carnet, &CarnetMontre::affichageChange, &m_suite, [this] { m_suite.start(0); });
    connect(&carnet, &CarnetMontre::selectionChange, &m_suite, [this] { m_suite.start(0); });
    connect(&carnet, &CarnetMontre::lectureChange, this, [this] {
        if (!m_carnet.lectureManquee().isEmpty()) {
            ferme();
        }
    });
    connect(&m_suite, &QTimer::timeout, this, &FicheMontree::montre);
}

void FicheMontree::demande(qint64 RefRDV) {
    if (RefRDV == 0) {
        ferme();
    } else if (RefRDV != m_ref) {
        m_ref = RefRDV;
        montre();
    }
}

std::optional<RendezVous> FicheMontree::trouve() const {
    for (const Grille &grille : m_carnet.affichage().grilles) {
        const auto rdv = std::ranges::find(grille.rendezVous, m_ref, &RendezVous::RefRDV);
        if (rdv != grille.rendezVous.end()) {
            return *rdv;
        }
    }
    return std::nullopt;
}

/// What it reads may be waited for with the event loop turning: it begins in no other action's wait, and what
/// closes it meanwhile has the last word.
void FicheMontree::montre() {
    if (m_ref == 0) {
        return;
    }
    if (*m_env.actions > 0) {
        m_suite.start(unMoment);
        return;
    }
    const std::optional<RendezVous> rdv = trouve();
    const QRect bloc = m_vues.placeBloc(m_ref);
    if (!rdv || bloc.isEmpty() || QApplication::activeModalWidget() != nullptr) {
        ferme();
        return;
    }
    if (m_fiche == nullptr) {
        m_fiche = new FicheRDV(&m_fenetre);
    }
    const QString aFaire = acte(*rdv);
    if (m_ref != rdv->RefRDV) {
        return;
    }
    if (!m_fiche->montre(*rdv, aFaire, m_carnet.selection().rdv == *rdv, m_vues.aspect(), bloc,
                         m_vues.placeChoix())) {
        ferme();
    }
}

void FicheMontree::ferme() {
    m_ref = 0;
    if (m_fiche != nullptr) {
        m_fiche->hide();
    }
}

/// Nobody waits for a card: acts that cannot be read at once are told so.
QString FicheMontree::acte(const RendezVous &rdv) const {
    const qint64 numero = rdv.NumPatient.toLongLong();
    if (numero <= 0) {
        return {};
    }
    Environnement sansAttendre = m_env;
    sansAttendre.patience = std::chrono::milliseconds(0);
    QString trouve;
    const auto echec = tente(sansAttendre, [&] {
        Database actes = sansAttendre.ouvreActes();
        trouve = DernierActeAFaire(actes, numero);
    });
    return echec ? QStringLiteral("ne peut pas être lu") : trouve;
}

bool FicheMontree::eventFilter(QObject *objet, QEvent *evenement) {
    switch (evenement->type()) {
    case QEvent::WindowDeactivate:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
        ferme();
        break;
    default:
        break;
    }
    return QObject::eventFilter(objet, evenement);
}

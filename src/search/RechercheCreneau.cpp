#include "search/RechercheCreneau.h"

#include "practice/Essai.h"

#include <QDeadlineTimer>

RechercheCreneau::RechercheCreneau(const Environnement &env, QObject *parent) : QObject(parent), m_env(env) {
    m_suite.setSingleShot(true);
    connect(&m_suite, &QTimer::timeout, this, &RechercheCreneau::poursuit);
}

void RechercheCreneau::lance(const DemandeCreneau &demande) {
    if (!m_enCours) {
        m_demande = demande;
        m_jour = demande.depart;
        m_enCours = true;
        poursuit();
    }
}

void RechercheCreneau::arrete() {
    m_enCours = false;
    m_suite.stop();
}

void RechercheCreneau::poursuit() {
    constexpr std::chrono::milliseconds parTroncon{40};
    EtapeCreneau etape;
    const std::optional<DbError> echec = tente(m_env, [&] {
        const QDeadlineTimer limite(parTroncon);
        Database carnet = m_env.ouvreCarnet();
        etape = ChercheCreneau(carnet, m_demande, m_jour, [&] { return !limite.hasExpired(); });
    });
    if (!m_enCours) { // stopped while a busy book was waited for
        return;
    }
    if (!echec && etape.etat == EtapeCreneau::Etat::EnCours) {
        m_jour = etape.jour;
        m_suite.start(0);
        emit avance(m_jour);
        return;
    }
    m_enCours = false;
    if (echec) {
        emit manquee(echec->message());
    } else {
        emit finie(etape);
    }
}

#include "start/Veille.h"

#include "grid/Changement.h"
#include "practice/Essai.h"
#include "start/CarnetMontre.h"

#include <algorithm>

Veille::Veille(const Environnement &env, CarnetMontre &carnet, QObject *parent)
    : QObject(parent), m_env(env), m_carnet(carnet) {
    connect(&carnet, &CarnetMontre::lectureCommence, this, [this] {
        m_enRetard = false;
        if (m_guet) {
            m_guet->catchUp();
        }
    });
    m_reprise.setSingleShot(true);
    connect(&carnet, &CarnetMontre::lectureChange, this, &Veille::reprendra);
    connect(&m_reprise, &QTimer::timeout, this, &Veille::relira);
}

void Veille::commence() {
    if (!m_guet) {
        m_guet = Watch::start(m_env.chemins.realDatabase(m_env.CheminBaseRDV), m_env.rythme,
                              {.changed = [this](const QStringList &annonces) { change(annonces); },
                               .touch = [this](const std::optional<DbError> &perdu) { contact(perdu); }});
    }
}

EtatLecture Veille::etat() const {
    return {.manquee = m_carnet.lectureManquee(),
            .lectureSeule = *m_env.lectureSeule,
            .lieu = placeLabel(m_env.chemins.realDatabase(m_env.CheminBaseRDV)),
            .enContact = m_carnet.enContact(),
            .suivi = m_suit};
}

void Veille::change(const QStringList &annonces) {
    const Affichage &affichage = m_carnet.affichage();
    const bool concerne = std::ranges::any_of(
        annonces, [&](const QString &annonce) { return Concerne(affichage, LitChangement(annonce)); });
    if (annonces.isEmpty() || concerne) {
        relira();
    }
}

void Veille::contact(const std::optional<DbError> &perdu) {
    m_suit = !perdu;
    m_carnet.perdContact(perdu ? perdu->message() : QString());
    if (m_suit) { // what was written before is not told any more
        desQueLibre(m_env, *this, [this] { regleDoutes(m_env); });
        relira();
    }
}

void Veille::reprendra() {
    constexpr std::chrono::milliseconds apres{2000};
    if (m_suit && !m_carnet.lectureManquee().isEmpty()) {
        m_reprise.start(apres);
    }
}

void Veille::relira() {
    m_enRetard = true;
    emit aRelire();
}

#include "grid/LigneHeure.h"

#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGrid.h"
#include "practice/Environnement.h"

LigneHeure::LigneHeure(const Environnement &env, QObject *parent) : QObject(parent), m_env(env) {
    m_minute.setObjectName(QStringLiteral("Minute"));
    m_minute.setParent(this);
    m_minute.setSingleShot(true);
    m_minute.setTimerType(Qt::PreciseTimer);
    connect(&m_minute, &QTimer::timeout, this, &LigneHeure::place);
}

void LigneHeure::montre(const Affichage &affichage, const QList<FlexGrid *> &vues) {
    m_vues.clear();
    for (int i = 0; i < vues.size() && i < affichage.grilles.size(); ++i) {
        m_vues << Vue{vues[i], affichage.grilles[i].creneaux};
    }
    m_aujourdhui = affichage.lu.date();
    place();
}

void LigneHeure::place() {
    const QDateTime maintenant = m_env.maintenant();
    const bool memeJour = maintenant.date() == m_aujourdhui;
    for (const Vue &vue : m_vues) {
        const bool montre = memeJour && vue.creneaux.debut.isValid() && vue.grille->cells().today() > 0;
        vue.grille->showNow(montre ? vue.creneaux.place(maintenant.time()) : std::nullopt,
                            DatesFr::heure(maintenant.time()));
    }
    constexpr int minute = 60'000; // ms
    m_minute.start(minute - int(maintenant.time().msecsSinceStartOfDay() % minute));
}

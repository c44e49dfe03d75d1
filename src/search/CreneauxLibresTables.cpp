#include "search/CreneauxLibresTables.h"

#include "grid/RendezVousTables.h"
#include "platform/db/DbError.h"

#include <algorithm>

namespace {

/// The stored slot length: zoom and unsaved settings do not move the starts.
std::optional<int> intervalle(Database &carnet, const DemandeCreneau &demande) {
    const Records rows = carnet.query(SqlText("Select Intervalle from Config where clng(NumPraticien) =")
                                      << nombre(demande.numPraticien()) << " and Fauteuil = "
                                      << nombre(demande.numFauteuil()) << " order by CleLigne");
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    constexpr int minutesDuJour = 24 * 60;
    const qint64 pas = rows.first()[u"Intervalle"].toInteger();
    if (pas < 1 || pas >= minutesDuJour) {
        throw DbError(DbError::Kind::Structure, carnet.path(),
                      QStringLiteral("un créneau de %1 minutes").arg(pas));
    }
    return int(pas);
}

QList<RendezVous> duJour(const QList<RendezVous> &lus, QDate jour) {
    return {std::ranges::lower_bound(lus, jour, {}, &RendezVous::Date1),
            std::ranges::upper_bound(lus, jour, {}, &RendezVous::Date1)};
}

/// The days from `jour` to `dernier`, whose appointments are read at once.
EtapeCreneau chercheDans(Database &carnet, const DemandeCreneau &demande, QDate jour, QDate dernier) {
    const QList<RendezVous> lus =
        RendezVousEntre(carnet, jour, dernier, demande.numPraticien(), demande.numFauteuil());
    for (; jour <= dernier; jour = jour.addDays(1)) {
        const std::optional<int> pas = intervalle(carnet, demande);
        if (!pas) {
            return {EtapeCreneau::Etat::SansConfiguration, jour};
        }
        const QList<QTime> debuts =
            DebutsLibres(demande.config, jour, demande.duree, *pas, duJour(lus, jour));
        if (!debuts.isEmpty()) {
            return {EtapeCreneau::Etat::Trouve, jour, debuts};
        }
    }
    return {EtapeCreneau::Etat::EnCours, jour};
}

} // namespace

EtapeCreneau ChercheCreneau(Database &carnet, const DemandeCreneau &demande, QDate jour,
                            const std::function<bool()> &encore) {
    constexpr int joursLusAuPlus = 32;
    for (int jours = 1; jour <= demande.dernierJour(); jours = std::min(2 * jours, joursLusAuPlus)) {
        const QDate dernier = std::min(jour.addDays(jours - 1), demande.dernierJour());
        const EtapeCreneau etape = chercheDans(carnet, demande, jour, dernier);
        if (etape.etat != EtapeCreneau::Etat::EnCours || !encore()) {
            return etape;
        }
        jour = etape.jour;
    }
    return {EtapeCreneau::Etat::Epuise, jour};
}

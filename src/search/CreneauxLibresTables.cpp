#include "search/CreneauxLibresTables.h"

#include "grid/RendezVousTables.h"

namespace {

/// The stored slot length: zoom and unsaved settings do not move the starts.
std::optional<int> intervalle(Database &carnet, const DemandeCreneau &demande) {
    const Records rows = carnet.query(SqlText("Select Intervalle from Config where clng(NumPraticien) =")
                                      << nombre(demande.numPraticien())
                                      << " and Fauteuil = " << nombre(demande.numFauteuil()));
    return rows.isEmpty() ? std::nullopt : std::optional(int(rows.first()[u"Intervalle"].toInteger()));
}

} // namespace

EtapeCreneau ChercheCreneau(Database &carnet, const DemandeCreneau &demande, QDate jour,
                            const std::function<bool()> &encore) {
    using Etat = EtapeCreneau::Etat;
    do {
        const std::optional<int> pas = intervalle(carnet, demande);
        if (!pas) {
            return {Etat::SansConfiguration, jour};
        }
        const auto travaille = PremierJourTravaille(demande.config, jour, demande.dernierJour());
        if (!travaille) {
            return {Etat::Epuise, jour};
        }
        jour = *travaille;
        const QList<RendezVous> pris =
            RendezVousEntre(carnet, jour, jour, demande.numPraticien(), demande.numFauteuil());
        const QList<QTime> debuts = DebutsLibres(demande.config, jour, demande.duree, *pas, pris);
        if (!debuts.isEmpty()) {
            return {Etat::Trouve, jour, debuts};
        }
        jour = jour.addDays(1);
    } while (encore());
    return {Etat::EnCours, jour};
}

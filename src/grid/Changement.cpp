#include "grid/Changement.h"

namespace {

/// What one view shows of which days.
bool montre(const Demande &demande, QDate jour) {
    const auto [premier, dernier] = JoursLus(demande);
    const bool auBandeau = !demande.VueSemaine && jour.year() == demande.jour.year() &&
                           jour.month() == demande.jour.month(); // how full the month is
    return auBandeau || (premier <= jour && jour <= dernier);
}

} // namespace

Changement LitChangement(const QString &annonce) {
    const QString praticien = annonce.section(u'|', 0, 0);
    const QString jour = annonce.section(u'|', 1).left(10);
    return {.NumPraticien = praticien.isEmpty() ? std::nullopt : std::optional(CLng(praticien)),
            .jour = QDate::fromString(jour, Qt::ISODate)};
}

bool Concerne(const Affichage &affichage, const Changement &changement) {
    const Demande &demande = affichage.demande;
    return changement.NumPraticien.value_or(demande.numPraticien()) == demande.numPraticien() &&
           (!changement.jour.isValid() || montre(demande, changement.jour));
}

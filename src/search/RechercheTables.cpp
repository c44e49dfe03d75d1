#include "search/RechercheTables.h"

#include "search/Graphies.h"

#include <algorithm>
#include <tuple>

namespace {

/// Lets the index serve where it can; the names themselves decide.
SqlText parmiGraphies(const QString &nom) {
    const QStringList graphies = Graphies(nom);
    if (graphies.isEmpty()) {
        return SqlText("");
    }
    SqlText sql("upper(Nom) in (");
    for (qsizetype i = 0; i < graphies.size(); ++i) {
        (i > 0 ? sql << ", " : sql) << texte(graphies[i]);
    }
    return sql << ") AND ";
}

QString propre(const QString &nom) {
    return nom.trimmed().toUpper();
}

} // namespace

RDVsTrouves RendezVousDuPatient(Database &carnet, const CritereRDV &critere) {
    RDVsTrouves trouves;
    carnet.forEach(
        SqlText("Select RefRDV, Nom, Prenom, Date1, HeureDebut, HeureFin, Professionnel from RDV Where ")
            << parmiGraphies(critere.nom) << "Date1 >= " << dateSql(critere.depuis) << " AND ucase(Nom) = "
            << texte(critere.nom.toUpper()) << " AND ucase(Prenom) = " << texte(critere.prenom.toUpper()),
        [&](const RowView &r) {
            if (propre(r.text(1)) != propre(critere.nom) || propre(r.text(2)) != propre(critere.prenom)) {
                return;
            }
            if (r.boolean(6)) {
                trouves.liste.append({r.integer(0), r.date(3), r.time(4), r.time(5)});
            } else {
                ++trouves.horsHoraires;
            }
        });
    // sorted here: a start may be stored behind a date, whose text sorts elsewhere
    std::ranges::sort(trouves.liste, {},
                      [](const RDVTrouve &r) { return std::tuple(r.Date1, r.HeureDebut, r.RefRDV); });
    return trouves;
}

IndexDef IndexRecherche() {
    return {QStringLiteral("RDVParNom"), SqlText("upper(Nom)")};
}

#include "search/RechercheTables.h"

#include "search/Graphies.h"

#include <algorithm>
#include <tuple>

namespace {

/// Usually none: rows whose name or first name has a character that is not ordinary. The ordinary ones are
/// those of which upper and lower case are one character each, and each other's only one: ß, ı and ſ are not.
SqlText pasOrdinaires() {
    return SqlText("Nom glob '*[^ -~\u00A0-\u00B4\u00B6-\u00DE\u00E0-\u0130\u0132-\u0148\u014A-\u017E"
                   "\u0300-\u0344\u2010-\u2027]*' Or Prenom glob '*[^ -~\u00A0-\u00B4\u00B6-\u00DE"
                   "\u00E0-\u0130\u0132-\u0148\u014A-\u017E\u0300-\u0344\u2010-\u2027]*'");
}

SqlText parmi(const QStringList &graphies) {
    SqlText sql(" in (");
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
    const auto &[nom, prenom, depuis] = critere;
    RDVsTrouves trouves;
    const auto cherche = [&](const SqlText &ou) {
        const SqlText sql = SqlText("Select RefRDV, Nom, Prenom, Date1, HeureDebut, HeureFin, Professionnel "
                                    "from RDV Where ")
                            << ou << "Date1 >= " << dateSql(depuis)
                            << " AND ucase(Nom) = " << texte(nom.toUpper())
                            << " AND ucase(Prenom) = " << texte(prenom.toUpper());
        carnet.forEach(sql, [&](const RowView &r) {
            const RDVTrouve rdv{r.integer(0), r.date(3), r.time(4), r.time(5)};
            if (propre(r.text(1)) != propre(nom) || propre(r.text(2)) != propre(prenom)) {
                return;
            }
            if (r.boolean(6)) {
                trouves.liste << rdv;
            } else {
                ++trouves.horsHoraires;
            }
        });
    };
    const QStringList noms = Graphies(nom);
    const QStringList prenoms = Graphies(prenom);
    if (noms.isEmpty() || prenoms.isEmpty()) {
        cherche(SqlText(""));
    } else {
        cherche(SqlText("TexteIndex(Nom)") << parmi(noms) << "TexteIndex(Prenom)" << parmi(prenoms) << "Not ("
                                           << pasOrdinaires() << ") AND ");
        cherche(SqlText("(") << pasOrdinaires() << ") AND ");
    }
    // sorted here: a start may be stored behind a date, whose text sorts elsewhere
    std::ranges::sort(trouves.liste, {},
                      [](const RDVTrouve &r) { return std::tuple(r.Date1, r.HeureDebut, r.RefRDV); });
    return trouves;
}

std::vector<IndexDef> IndexRecherche() {
    return {{QStringLiteral("RDVParNom"), SqlText("TexteIndex(Nom), TexteIndex(Prenom), Date1")},
            {QStringLiteral("RDVNomsRares"), SqlText("Date1"), pasOrdinaires()}};
}

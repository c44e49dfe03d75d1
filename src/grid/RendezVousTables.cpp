#include "grid/RendezVousTables.h"

#include "platform/db/DateInverse.h"

#include <algorithm>
#include <tuple>

namespace {

SqlText duPraticien(long praticien, std::optional<long> fauteuil) {
    SqlText sql(" AND clng(NumPraticien) = ");
    sql << nombre(praticien);
    if (fauteuil) {
        sql << " AND clng(Fauteuil) = " << nombre(*fauteuil);
    }
    return sql;
}

RendezVous rendezVousDe(const RowView &r) {
    RendezVous lu{r.integer(0), r.text(1), r.text(2), r.text(3),    r.text(4),           r.text(5),
                  r.date(6),    r.time(7), r.time(8), r.boolean(9), long(r.integer(10)), long(r.integer(11))};
    if (!lu.Date1.isValid()) { // it lies where its key says
        lu.Date1 = QDate::fromString(r.text(12), QStringLiteral("yyyyMMdd"));
    }
    return lu;
}

} // namespace

Requete RequeteRDV(const SqlText &condition, QList<RendezVous> &liste) {
    return {SqlText("Select RefRDV, Nom, Prenom, Telephone, Description, NumPatient, Date1, HeureDebut, "
                    "HeureFin, Present, NumPraticien, Fauteuil, DateInv from RDV Where ")
                << condition,
            [&liste](const RowView &r) { liste.append(rendezVousDe(r)); }};
}

QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien,
                                  std::optional<long> fauteuil, const std::vector<Requete> &aussi) {
    QList<RendezVous> liste;
    QList<RendezVous> decales;
    // A row whose two dates disagree lies on its Date1: that is what its windows show and write. These few
    // rows are looked for without the practitioner, by whose index all that he ever had would be read
    // instead.
    std::vector<Requete> requetes{
        RequeteRDV(SqlText("DateInv >= ") << texte(InverseDate(premier)) << " AND DateInv<= "
                                          << texte(InverseDate(dernier)) << duPraticien(praticien, fauteuil),
                   liste),
        RequeteRDV(SqlText("(DateInv Is Null Or DateInv <> InverseDate(Date1)) AND Date1 >= ")
                       << dateSql(premier) << " AND Date1 < " << dateSql(dernier.addDays(1)),
                   decales)};
    requetes.insert(requetes.end(), aussi.begin(), aussi.end());
    rdv.forEach(requetes);
    decales.removeIf([&](const RendezVous &r) {
        return r.NumPraticien != praticien || (fauteuil && r.Fauteuil != *fauteuil);
    });
    liste.removeIf([&](const RendezVous &r) {
        return r.Date1 < premier || r.Date1 > dernier ||
               std::ranges::any_of(decales, [&](const RendezVous &d) { return d.RefRDV == r.RefRDV; });
    });
    liste += decales;
    // sorted here: a start may be stored behind a date, whose text sorts elsewhere, and the database would
    // copy every row to sort what its index gives nearly always in this order
    const auto place = [](const RendezVous &r) { return std::tuple(r.Date1, r.HeureDebut, r.RefRDV); };
    if (!std::ranges::is_sorted(liste, {}, place)) {
        std::ranges::sort(liste, {}, place);
    }
    return liste;
}

/// One practitioner after the other: the index of days begins with them.
QList<RendezVous> RendezVousDuJour(Database &rdv, QDate jour) {
    QList<RendezVous> tous;
    const auto suivant = [&](qint64 numero) {
        return rdv.query(SqlText("Select clng(NumPraticien) from RDV Where clng(NumPraticien) > ")
                         << nombre(numero) << " order by clng(NumPraticien) limit 1");
    };
    for (Records un = suivant(-1); !un.isEmpty(); un = suivant(un.at(0, 0).toInteger())) {
        tous += RendezVousEntre(rdv, jour, jour, long(un.at(0, 0).toInteger()), std::nullopt);
    }
    return tous;
}

QList<TempsPris> TempsDuMois(Database &rdv, QDate jour, long praticien) {
    const QDate premier(jour.year(), jour.month(), 1);
    const QDate dernier = premier.addDays(jour.daysInMonth() - 1);
    QList<TempsPris> pris;
    rdv.forEach(SqlText("Select Date1, Fauteuil, HeureDebut, HeureFin from RDV Where DateInv >= ")
                    << texte(InverseDate(premier)) << " AND DateInv<= " << texte(InverseDate(dernier))
                    << duPraticien(praticien, std::nullopt),
                [&](const RowView &r) {
                    const TempsPris temps{r.date(0), long(r.integer(1)), {r.time(2), r.time(3)}};
                    const bool lisible = temps.plage.debut.isValid() && temps.plage.fin.isValid();
                    if (lisible && temps.jour >= premier && temps.jour <= dernier) {
                        pris.append(temps);
                    }
                });
    return pris;
}

std::optional<RendezVous> LitRDV(Database &rdv, qint64 ref) {
    QList<RendezVous> lus;
    rdv.forEach({RequeteRDV(SqlText("RefRDV = ") << nombre(ref), lus)});
    return lus.isEmpty() ? std::nullopt : std::optional(lus.first());
}

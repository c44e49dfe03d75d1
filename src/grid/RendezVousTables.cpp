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

} // namespace

QList<RendezVous> RendezVousDe(const Records &rows) {
    const int refRDV = rows.field(u"RefRDV");
    const int nom = rows.field(u"Nom");
    const int prenom = rows.field(u"Prenom");
    const int telephone = rows.field(u"Telephone");
    const int description = rows.field(u"Description");
    const int numPatient = rows.field(u"NumPatient");
    const int date1 = rows.field(u"Date1");
    const int heureDebut = rows.field(u"HeureDebut");
    const int heureFin = rows.field(u"HeureFin");
    const int present = rows.field(u"Present");
    const int praticien = rows.field(u"NumPraticien");
    const int fauteuil = rows.field(u"Fauteuil");
    const int dateInv = rows.field(u"DateInv");
    QList<RendezVous> liste;
    liste.reserve(rows.count());
    for (const Record row : rows) {
        liste.append(RendezVous{row.at(refRDV).toInteger(), row.at(nom).toText(), row.at(prenom).toText(),
                                row.at(telephone).toText(), row.at(description).toText(),
                                row.at(numPatient).toText(), row.at(date1).toDate(),
                                row.at(heureDebut).toTime(), row.at(heureFin).toTime(),
                                row.at(present).toBoolean(), long(row.at(praticien).toInteger()),
                                long(row.at(fauteuil).toInteger())});
    }
    for (int i = 0; i < liste.size(); ++i) { // a day that cannot be read lies where its key says
        if (!liste[i].Date1.isValid()) {
            liste[i].Date1 = QDate::fromString(rows.at(i, dateInv).toText(), QStringLiteral("yyyyMMdd"));
        }
    }
    return liste;
}

QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien,
                                  std::optional<long> fauteuil) {
    QList<RendezVous> liste =
        RendezVousDe(rdv.query(SqlText("Select * from RDV Where DateInv >= ")
                               << texte(InverseDate(premier)) << " AND DateInv<= "
                               << texte(InverseDate(dernier)) << duPraticien(praticien, fauteuil)));
    // A row whose two dates disagree lies on its Date1: that is what its windows show and write. These few
    // rows are looked for without the practitioner, by whose index all that he ever had would be read
    // instead.
    QList<RendezVous> decales = RendezVousDe(
        rdv.query(SqlText("Select * from RDV Where (DateInv Is Null Or DateInv <> InverseDate(Date1)) AND "
                          "Date1 >= ")
                  << dateSql(premier) << " AND Date1 < " << dateSql(dernier.addDays(1))));
    decales.removeIf([&](const RendezVous &r) {
        return r.NumPraticien != praticien || (fauteuil && r.Fauteuil != *fauteuil);
    });
    liste.removeIf([&](const RendezVous &r) {
        return r.Date1 < premier || r.Date1 > dernier ||
               std::ranges::any_of(decales, [&](const RendezVous &d) { return d.RefRDV == r.RefRDV; });
    });
    liste += decales;
    // sorted here: a start may be stored behind a date, whose text sorts elsewhere, and the database would
    // copy every row to sort what its index gives nearly in this order
    std::ranges::sort(liste, {},
                      [](const RendezVous &r) { return std::tuple(r.Date1, r.HeureDebut, r.RefRDV); });
    return liste;
}

std::optional<RendezVous> LitRDV(Database &rdv, qint64 ref) {
    const QList<RendezVous> lus =
        RendezVousDe(rdv.query(SqlText("Select * from RDV Where RefRDV = ") << nombre(ref)));
    return lus.isEmpty() ? std::nullopt : std::optional(lus.first());
}

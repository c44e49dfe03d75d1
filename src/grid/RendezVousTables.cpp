#include "grid/RendezVousTables.h"

#include "platform/db/DateInverse.h"

namespace {

QList<RendezVous> rendezVousDe(const Records &rows) {
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
    return liste;
}

} // namespace

QList<RendezVous> RendezVousEntre(Database &rdv, QDate premier, QDate dernier, long praticien,
                                  long fauteuil) {
    return rendezVousDe(
        rdv.query(SqlText("Select * from RDV Where DateInv >= ")
                  << texte(InverseDate(premier)) << " AND DateInv<= " << texte(InverseDate(dernier))
                  << " AND clng(NumPraticien) = " << nombre(praticien)
                  << " AND clng(Fauteuil) = " << nombre(fauteuil) << " order by DateInv, HeureDebut"));
}

QList<RendezVous> RendezVousDuJour(Database &rdv, QDate jour, long praticien) {
    return rendezVousDe(rdv.query(SqlText("Select * from RDV Where DateInv = ")
                                  << texte(InverseDate(jour)) << " AND clng(NumPraticien) = "
                                  << nombre(praticien) << " order by DateInv, HeureDebut"));
}

QList<RendezVous> RendezVousALaDate(Database &rdv, QDate jour, long praticien, long fauteuil) {
    return rendezVousDe(rdv.query(SqlText("Select * from RDV Where Date1 = ")
                                  << dateSql(jour) << " AND clng(NumPraticien) = " << nombre(praticien)
                                  << " AND clng(Fauteuil) =" << nombre(fauteuil)
                                  << " order by Date1 , HeureDebut"));
}

QList<RendezVous> RendezVousOccupant(Database &rdv, QDate jour, long praticien, long fauteuil) {
    // Date1 may carry a time of day: it is then a longer text, between this day's and the next one's
    return rendezVousDe(rdv.query(SqlText("Select * from RDV Where (DateInv = ")
                                  << texte(InverseDate(jour)) << " OR (Date1 >= " << dateSql(jour)
                                  << " AND Date1 < " << dateSql(jour.addDays(1))
                                  << ")) AND clng(NumPraticien) = " << nombre(praticien)
                                  << " AND clng(Fauteuil) = " << nombre(fauteuil)));
}

std::optional<RendezVous> LitRDV(Database &rdv, qint64 ref) {
    const QList<RendezVous> lus =
        rendezVousDe(rdv.query(SqlText("Select * from RDV Where RefRDV = ") << nombre(ref)));
    return lus.isEmpty() ? std::nullopt : std::optional(lus.first());
}

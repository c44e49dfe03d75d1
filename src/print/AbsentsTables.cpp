#include "print/AbsentsTables.h"

#include "platform/db/DateInverse.h"
#include "schedule/Configuration.h"

#include <algorithm>
#include <tuple>

QList<Absent> Absents(Database &carnet, std::optional<long> praticien, QDate jour) {
    SqlText sql("select * from RDV where DateInv = "); // as the text that an index holds
    sql << texte(InverseDate(jour)) << " and Present = False";
    if (praticien) {
        sql << " and clng(NumPraticien) = " << nombre(*praticien)
            << " order by HeureDebut, clng(Fauteuil), RefRDV";
    } else {
        sql << " order by clng(NumPraticien), HeureDebut, clng(Fauteuil), RefRDV";
    }
    const Records rows = carnet.query(sql);
    QList<Absent> absents;
    for (const Record row : rows) {
        absents.append(Absent{row[u"NumPraticien"].toText(), row[u"nom"].toText(), row[u"PreNom"].toText(),
                              row[u"NumPatient"].toText(), row[u"HeureDebut"].toTime(),
                              row[u"HeureFin"].toTime(), row[u"telephone"].toText()});
    }
    // a start may be stored behind a date, whose text sorts elsewhere
    std::ranges::stable_sort(absents, {}, [&](const Absent &a) {
        return std::tuple(praticien ? 0 : CLng(a.NumPraticien), a.HeureDebut);
    });
    return absents;
}

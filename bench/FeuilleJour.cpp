// The day sheet of a practitioner's fullest day in a book of 500,000 appointments: the scratch table filled,
// which waits for the disk, and read back.
#include "Livres.h"
#include "Mesure.h"
#include "config/ConfigTables.h"
#include "print/FeuilleTables.h"

namespace {

constexpr long praticien = 1;

/// The day of most appointments.
QDate jourPlein(Database &carnet) {
    const Records rows =
        carnet.query(SqlText("Select Date1, count(*) as nb from RDV Where clng(NumPraticien) = ")
                     << nombre(praticien) << " group by Date1 order by count(*) desc, Date1");
    return rows.first()[u"Date1"].toDate();
}

Paire feuilleJour() {
    const Environnement env = environnement(livreCourant());
    Database carnet = env.ouvreCarnet();
    const QDate jour = jourPlein(carnet);
    const long fauteuil = CLng(LitConfigs(carnet, praticien).duPraticien.first().config.FauteuilCourant);
    const auto remplit = [env, jour, fauteuil] {
        Database base = env.ouvreCarnetPourEcrire();
        RemplitImpression(base, praticien, fauteuil, jour);
        return base.query(SqlText("Select * From Impression"));
    };
    const Records lignes = remplit();
    int occupees = 0;
    for (const Record ligne : lignes) {
        occupees +=
            int(!ligne[u"NomPatient"].toText().isEmpty()) + int(!ligne[u"NomPatientPM"].toText().isEmpty());
    }
    if (occupees < lignes.count()) {
        throw MesureImpossible(QStringLiteral("la journée est à moitié vide"));
    }
    return {[remplit, occupees](auto &chiffres) {
        chiffres["créneaux occupés"] = occupees;
        return millisecondes(remplit);
    }};
}

} // namespace

std::vector<Mesure> mesuresFeuille() {
    return {{.nom = "feuille_jour", .repetitions = 51, .prepare = feuilleJour, .valeurMax = 20}};
}

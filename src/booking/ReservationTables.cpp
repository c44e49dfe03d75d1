#include "booking/ReservationTables.h"

#include "platform/db/DateInverse.h"

namespace {

const QString tableRDV = QStringLiteral("RDV");
const QString cle = QStringLiteral("RefRDV");

SqlValue texteHeure(QTime heure) {
    return texte(heure.toString(QStringLiteral("HH:mm")) + QStringLiteral(":00"));
}

/// `sql` ends where the practitioner's number is due. The day is found by its key.
bool sansConflit(Database &rdv, SqlText sql, const CreneauRDV &voulu) {
    const SqlValue debut = texteHeure(voulu.horaire.debut);
    const SqlValue fin = texteHeure(voulu.horaire.fin);
    sql << nombre(voulu.praticien) << " AND Fauteuil = " << nombre(voulu.fauteuil)
        << " AND DateInv = " << texte(InverseDate(voulu.jour)) << " AND ( (str(HeureDebut) >= " << debut
        << " AND str(HeureDebut) < " << fin << " ) OR ( str(HeureFin) > " << debut
        << " AND str(HeureFin) <= " << fin << " ) OR ( str(HeureDebut) < " << debut << " AND str(HeureFin) > "
        << debut << ") )";
    return rdv.query(sql).isEmpty();
}

Records ligne(Database &rdv, qint64 RefRDV) {
    return rdv.query(SqlText("SELECT * FROM RDV WHERE RefRDV = ") << nombre(RefRDV));
}

CreneauRDV creneauDe(const SaisieRDV &saisie, long praticien, long fauteuil) {
    return {saisie.Date1, {saisie.HeureDebut, saisie.HeureFin}, praticien, fauteuil};
}

Fields champsDe(const SaisieRDV &saisie) {
    const auto [debut, fin] = EnMinutes({saisie.HeureDebut, saisie.HeureFin});
    return {{QStringLiteral("Nom"), saisie.Nom},
            {QStringLiteral("Prenom"), saisie.Prenom},
            {QStringLiteral("Telephone"), saisie.Telephone},
            {QStringLiteral("Description"), saisie.Description},
            {QStringLiteral("NumPatient"), qint64{CLng(saisie.NumPatient)}},
            {QStringLiteral("Date1"), Value::date(saisie.Date1)},
            {QStringLiteral("HeureDebut"), Value::time(debut)},
            {QStringLiteral("HeureFin"), Value::time(fin)},
            {QStringLiteral("DateInv"), InverseDate(saisie.Date1)}};
}

} // namespace

bool HoraireLibre(Database &rdv, const CreneauRDV &voulu) {
    return sansConflit(rdv, SqlText("SELECT * FROM RDV  WHERE clng(NumPraticien) = "), voulu);
}

bool HoraireLibreSauf(Database &rdv, qint64 RefRDV, const CreneauRDV &voulu) {
    return sansConflit(
        rdv, SqlText("SELECT * FROM RDV  WHERE RefRDV <> ") << nombre(RefRDV) << " AND clng(NumPraticien) = ",
        voulu);
}

bool RDVHere(Database &rdv, const CreneauRDV &voulu) {
    const PlageHoraire plage = EnMinutes(voulu.horaire);
    const SqlValue debut = heureSql(plage.debut);
    const SqlValue fin = heureSql(plage.fin);
    return !rdv.query(SqlText("Select * from RDV Where Date1 = ")
                      << dateSql(voulu.jour) << " AND clng(NumPraticien) = " << nombre(voulu.praticien)
                      << " AND clng(Fauteuil) = " << nombre(voulu.fauteuil)
                      << " AND ((HeureDebut <= " << debut << " And HeureFin > " << debut
                      << ") OR (HeureDebut < " << fin << " And HeureFin >= " << fin << "))")
                .isEmpty();
}

std::optional<qint64> AjouteRDV(Database &rdv, const NouveauRDV &nouveau) {
    const CreneauRDV voulu = creneauDe(nouveau.saisie, CLng(nouveau.NumPraticien), CLng(nouveau.Fauteuil));
    if (!EstReservable(voulu.horaire)) {
        return std::nullopt;
    }
    Fields champs = champsDe(nouveau.saisie);
    champs.emplace_back(QStringLiteral("NumPraticien"), nouveau.NumPraticien);
    champs.emplace_back(QStringLiteral("Professionnel"), Value::boolean(nouveau.Professionnel));
    champs.emplace_back(QStringLiteral("Fauteuil"), qint64{voulu.fauteuil});
    Transaction transaction(rdv);
    if (!HoraireLibre(rdv, voulu) || RDVHere(rdv, voulu)) {
        return std::nullopt;
    }
    const qint64 ref = rdv.insert(tableRDV, champs);
    transaction.commit();
    return ref;
}

ResultatEdition ModifieRDV(Database &rdv, qint64 RefRDV, const SaisieRDV &saisie, long praticien,
                           long fauteuil) {
    CreneauRDV voulu = creneauDe(saisie, praticien, fauteuil);
    Transaction transaction(rdv);
    if (!EstReservable(voulu.horaire) || !HoraireLibreSauf(rdv, RefRDV, voulu)) {
        return ResultatEdition::Occupe;
    }
    const Records rows = ligne(rdv, RefRDV);
    if (rows.isEmpty()) {
        return ResultatEdition::Disparu;
    }
    // The chair may have been changed since the appointment was selected.
    voulu.praticien = rows.first()[u"NumPraticien"].toInteger();
    voulu.fauteuil = rows.first()[u"Fauteuil"].toInteger();
    if (!HoraireLibreSauf(rdv, RefRDV, voulu)) {
        return ResultatEdition::Occupe;
    }
    rdv.update(tableRDV, cle, RefRDV, champsDe(saisie));
    transaction.commit();
    return ResultatEdition::Fait;
}

int WithCote(const QString &texte) {
    return int(texte.indexOf(u'\'')) + 1;
}

std::optional<qint64> RetrouveRDV(Database &rdv, const RendezVous &selection, long praticien) {
    SqlText sql("SELECT * FROM RDV WHERE ( ");
    if (WithCote(selection.Nom) == 0) {
        // a Null name reads as an empty one, in the grid as here
        sql << "(cstr(Nom) = " << texte(selection.Nom) << " ) AND (cstr(Prenom) = " << texte(selection.Prenom)
            << ") AND ";
    }
    sql << "(Date1 = " << dateSql(selection.Date1) << ") AND (clng(NumPraticien) = " << nombre(praticien)
        << ") AND (HeureDebut = " << heureSql(EnMinutes({selection.HeureDebut, {}}).debut) << "))";
    const Records rows = rdv.query(sql);
    const int ref = rows.field(cle);
    for (const Record row : rows) {
        if (row.at(ref).toInteger() == selection.RefRDV) {
            return selection.RefRDV;
        }
    }
    return std::nullopt;
}

bool SupprimeRDV(Database &rdv, qint64 RefRDV) {
    Transaction transaction(rdv);
    const int lignes = rdv.execute(SqlText("DELETE FROM RDV WHERE RefRDV = ") << nombre(RefRDV));
    transaction.commit();
    return lignes > 0;
}

std::optional<bool> BasculePresent(Database &rdv, qint64 RefRDV) {
    Transaction transaction(rdv);
    const Records rows = ligne(rdv, RefRDV);
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    const bool present = !rows.first()[u"Present"].toBoolean();
    rdv.update(tableRDV, cle, RefRDV, {{QStringLiteral("Present"), Value::boolean(present)}});
    transaction.commit();
    return present;
}

#include "booking/ReservationTables.h"

#include "platform/db/DateInverse.h"
#include "platform/db/DbError.h"

#include <functional>

namespace {

const QString tableRDV = QStringLiteral("RDV");
const QString cle = QStringLiteral("RefRDV");

PlageHoraire plageDe(const SaisieRDV &saisie) {
    return EnMinutes({saisie.HeureDebut, saisie.HeureFin});
}

Fields champsDe(const SaisieRDV &saisie) {
    const auto [debut, fin] = plageDe(saisie);
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

bool memeSaisie(RendezVous a, const RendezVous &b) {
    a.Present = b.Present;
    a.NumPraticien = b.NumPraticien;
    a.Fauteuil = b.Fauteuil;
    return a == b;
}

/// What occupies a practitioner and chair: what their day shows.
QList<RendezVous> duJour(Database &rdv, QDate jour, long praticien, long fauteuil) {
    return RendezVousEntre(rdv, jour, jour, praticien, fauteuil);
}

bool libreSauf(Database &rdv, qint64 ref, const SaisieRDV &saisie, long praticien, long fauteuil) {
    return HoraireLibreSauf(duJour(rdv, saisie.Date1, praticien, fauteuil), ref, plageDe(saisie));
}

// What a transaction concerns: whoever writes the same comes before it or after it.

QString verrouJour(long praticien, long fauteuil, QDate jour) {
    return QStringLiteral("%1|%2|%3").arg(praticien).arg(fauteuil).arg(jour.toString(Qt::ISODate));
}

QString verrouRDV(qint64 ref) {
    return QStringLiteral("RDV %1").arg(ref);
}

/// What `ecrit` writes ends the transaction; false when another program's row turned out to be in the way.
bool ecritSiLibre(Transaction &transaction, const std::function<void()> &ecrit) {
    try {
        ecrit();
        transaction.commit();
    } catch (const DbError &erreur) {
        if (erreur.kind() == DbError::Kind::Conflict) {
            return false;
        }
        throw;
    }
    return true;
}

/// Writes `champs` of an appointment whose place is that of `saisie`.
BilanEcriture reecrit(Database &rdv, const RendezVous &avant, const SaisieRDV &saisie, const Fields &champs,
                      long praticien, long fauteuil) {
    const qint64 ref = avant.RefRDV;
    Transaction transaction(rdv, {verrouRDV(ref), verrouJour(praticien, fauteuil, saisie.Date1),
                                  verrouJour(avant.NumPraticien, avant.Fauteuil, saisie.Date1)});
    const std::optional<RendezVous> actuel = LitRDV(rdv, ref);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (!memeSaisie(*actuel, avant)) {
        return {Ecriture::Change, *actuel};
    }
    const bool aSaPlace = actuel->NumPraticien == praticien && actuel->Fauteuil == fauteuil;
    if (!EstReservable(plageDe(saisie)) || !libreSauf(rdv, ref, saisie, praticien, fauteuil) ||
        (!aSaPlace && !libreSauf(rdv, ref, saisie, actuel->NumPraticien, actuel->Fauteuil))) {
        return {Ecriture::Occupe};
    }
    const bool ecrit = ecritSiLibre(transaction, [&] { rdv.update(tableRDV, cle, ref, champs); });
    return {ecrit ? Ecriture::Fait : Ecriture::Occupe};
}

} // namespace

RendezVous Rempli(RendezVous rdv, const SaisieRDV &saisie) {
    const auto [debut, fin] = plageDe(saisie);
    rdv.Nom = saisie.Nom;
    rdv.Prenom = saisie.Prenom;
    rdv.Telephone = saisie.Telephone;
    rdv.Description = saisie.Description;
    rdv.NumPatient = QString::number(CLng(saisie.NumPatient));
    rdv.Date1 = saisie.Date1;
    rdv.HeureDebut = debut;
    rdv.HeureFin = fin;
    return rdv;
}

std::optional<qint64> AjouteRDV(Database &rdv, const NouveauRDV &nouveau) {
    const PlageHoraire voulu = plageDe(nouveau.saisie);
    if (!EstReservable(voulu)) {
        return std::nullopt;
    }
    const long praticien = CLng(nouveau.NumPraticien);
    const long fauteuil = CLng(nouveau.Fauteuil);
    Fields champs = champsDe(nouveau.saisie);
    champs.emplace_back(QStringLiteral("NumPraticien"), nouveau.NumPraticien);
    champs.emplace_back(QStringLiteral("Professionnel"), Value::boolean(nouveau.Professionnel));
    champs.emplace_back(QStringLiteral("Fauteuil"), qint64{fauteuil});
    Transaction transaction(rdv, {verrouJour(praticien, fauteuil, nouveau.saisie.Date1)});
    const QList<RendezVous> jour = duJour(rdv, nouveau.saisie.Date1, praticien, fauteuil);
    if (!HoraireLibre(jour, voulu) || RDVHere(jour, voulu)) {
        return std::nullopt;
    }
    qint64 ref = 0;
    const bool ecrit = ecritSiLibre(transaction, [&] { ref = rdv.insert(tableRDV, champs); });
    return ecrit ? std::optional(ref) : std::nullopt;
}

BilanEcriture ModifieRDV(Database &rdv, const RendezVous &avant, const SaisieRDV &saisie, long praticien,
                         long fauteuil) {
    return reecrit(rdv, avant, saisie, champsDe(saisie), praticien, fauteuil);
}

BilanEcriture ChangeFin(Database &rdv, const RendezVous &avant, QTime fin, long praticien, long fauteuil) {
    SaisieRDV place;
    place.Date1 = avant.Date1;
    place.HeureDebut = avant.HeureDebut;
    place.HeureFin = fin;
    return reecrit(rdv, avant, place, {{QStringLiteral("HeureFin"), Value::time(fin)}}, praticien, fauteuil);
}

BilanEcriture SupprimeRDV(Database &rdv, const RendezVous &avant) {
    Transaction transaction(rdv, {verrouRDV(avant.RefRDV)});
    const std::optional<RendezVous> actuel = LitRDV(rdv, avant.RefRDV);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (*actuel != avant) {
        return {Ecriture::Change, *actuel};
    }
    rdv.execute(SqlText("DELETE FROM RDV WHERE RefRDV = ") << nombre(avant.RefRDV));
    transaction.commit();
    return {};
}

BilanEcriture MarquePresent(Database &rdv, const RendezVous &avant, bool present) {
    Transaction transaction(rdv, {verrouRDV(avant.RefRDV)});
    const std::optional<RendezVous> actuel = LitRDV(rdv, avant.RefRDV);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (!memeSaisie(*actuel, avant)) {
        return {Ecriture::Change, *actuel};
    }
    rdv.update(tableRDV, cle, avant.RefRDV, {{QStringLiteral("Present"), Value::boolean(present)}});
    transaction.commit();
    return {};
}

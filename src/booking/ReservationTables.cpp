#include "booking/ReservationTables.h"

#include "booking/RangeeTables.h"
#include "grid/ReplacerTables.h"
#include "journal/JournalTables.h"
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

/// The only place where a row of RDV is written: what it was and is then goes into the history with it.
/// `ecriture` gives the row's key.
BilanEcriture ecrit(Database &rdv, const Auteur &auteur, Operation quoi, qint64 ref,
                    const std::function<qint64()> &ecriture) {
    EcritureRDV faite{quoi, ref == 0 ? Rangee() : LitRangee(rdv, ref)};
    faite.apres = LitRangee(rdv, ecriture());
    NoteEcriture(rdv, auteur, faite);
    return {.ecriture = faite};
}

BilanEcriture ecritChamps(Database &rdv, const Auteur &auteur, Operation quoi, qint64 ref,
                          const Fields &champs) {
    return ecrit(rdv, auteur, quoi, ref, [&] {
        if (!champs.empty()) {
            rdv.update(tableRDV, cle, ref, champs);
        }
        return ref;
    });
}

BilanEcriture ecritNouvelle(Database &rdv, const Auteur &auteur, Operation quoi, const Fields &champs) {
    return ecrit(rdv, auteur, quoi, 0, [&] { return rdv.insert(tableRDV, champs); });
}

BilanEcriture efface(Database &rdv, const Auteur &auteur, Operation quoi, qint64 ref) {
    return ecrit(rdv, auteur, quoi, ref, [&] {
        rdv.execute(SqlText("DELETE FROM RDV WHERE RefRDV = ") << nombre(ref));
        return ref;
    });
}

/// What a dialog would ask for such a place.
SaisieRDV placeDe(const RendezVous &rdv) {
    SaisieRDV place;
    place.Date1 = rdv.Date1;
    place.HeureDebut = rdv.HeureDebut;
    place.HeureFin = rdv.HeureFin;
    return place;
}

struct Chaise {
    long praticien = 0;
    long fauteuil = 0;

    friend bool operator==(const Chaise &, const Chaise &) = default;
};

Chaise chaiseDe(const RendezVous &rdv) {
    return {rdv.NumPraticien, rdv.Fauteuil};
}

/// Why the appointment cannot lie where `apres` has it, which has to be free at the shown chair, `montree`,
/// and at its own; Fait: it can. `entier`: nothing of it may have changed meanwhile.
BilanEcriture obstacle(Database &rdv, const RendezVous &avant, const RendezVous &apres, const Chaise &montree,
                       bool entier) {
    const qint64 ref = avant.RefRDV;
    const std::optional<RendezVous> actuel = LitRDV(rdv, ref);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (entier ? *actuel != avant : !memeSaisie(*actuel, avant)) {
        return {Ecriture::Change, *actuel};
    }
    const SaisieRDV place = placeDe(apres);
    const Chaise sienne = chaiseDe(apres) == chaiseDe(avant) ? chaiseDe(*actuel) : chaiseDe(apres);
    const bool libre = EstReservable(plageDe(place)) &&
                       libreSauf(rdv, ref, place, montree.praticien, montree.fauteuil) &&
                       (sienne == montree || libreSauf(rdv, ref, place, sienne.praticien, sienne.fauteuil));
    return {libre ? Ecriture::Fait : Ecriture::Occupe, *actuel};
}

bool libreAjout(Database &rdv, const SaisieRDV &saisie, const Chaise &montree) {
    const PlageHoraire voulu = plageDe(saisie);
    if (!EstReservable(voulu)) {
        return false;
    }
    const QList<RendezVous> jour = duJour(rdv, saisie.Date1, montree.praticien, montree.fauteuil);
    return HoraireLibre(jour, voulu) && !RDVHere(jour, voulu);
}

// What a transaction concerns: whoever writes the same comes before it or after it.

QString verrouJour(const Chaise &chaise, QDate jour) {
    return QStringLiteral("%1|%2|%3")
        .arg(chaise.praticien)
        .arg(chaise.fauteuil)
        .arg(jour.toString(Qt::ISODate));
}

QString verrouRDV(qint64 ref) {
    return QStringLiteral("RDV %1").arg(ref);
}

/// What `ecrit` writes ends the transaction; Occupe when another program's row turned out to be in the way.
BilanEcriture ecritSiLibre(Transaction &transaction, const std::function<BilanEcriture()> &ecrit) {
    try {
        const BilanEcriture bilan = ecrit();
        transaction.commit();
        return bilan;
    } catch (const DbError &erreur) {
        if (erreur.kind() == DbError::Kind::Conflict) {
            return {Ecriture::Occupe};
        }
        throw;
    }
}

bool memeDepart(const RendezVous &a, const RendezVous &b) {
    return a.Date1 == b.Date1 && a.HeureDebut == b.HeureDebut && chaiseDe(a) == chaiseDe(b);
}

bool memePlace(const RendezVous &a, const RendezVous &b) {
    return memeDepart(a, b) && a.HeureFin == b.HeureFin;
}

/// Writes `champs` of an appointment that is to lie where `apres` has it. `deplace`: by hand; nothing of it
/// may have changed meanwhile, and where it is set aside it is placed by that.
BilanEcriture reecrit(Database &rdv, const Auteur &auteur, const RendezVous &avant, const RendezVous &apres,
                      const Fields &champs, const Chaise &montree, bool deplace = false) {
    const qint64 ref = avant.RefRDV;
    Transaction transaction(
        rdv, {verrouRDV(ref), verrouJour(montree, apres.Date1), verrouJour(chaiseDe(apres), apres.Date1)});
    const BilanEcriture empeche = obstacle(rdv, avant, apres, montree, deplace);
    if (empeche.resultat != Ecriture::Fait) {
        return empeche;
    }
    return ecritSiLibre(transaction, [&] {
        const BilanEcriture bilan = ecritChamps(rdv, auteur, Operation::Edition, ref, champs);
        if (deplace && !memeDepart(avant, apres)) { // one that gets longer goes on waiting
            NotePose(rdv, ref, apres);
        }
        return bilan;
    });
}

/// What of a place is another: the rest is not written again.
Fields champsDeplaces(const RendezVous &avant, const RendezVous &apres) {
    Fields champs;
    if (apres.Date1 != avant.Date1) {
        champs.emplace_back(QStringLiteral("Date1"), Value::date(apres.Date1));
        champs.emplace_back(QStringLiteral("DateInv"), InverseDate(apres.Date1));
    }
    if (apres.HeureDebut != avant.HeureDebut) {
        champs.emplace_back(QStringLiteral("HeureDebut"), Value::time(apres.HeureDebut));
    }
    if (apres.HeureFin != avant.HeureFin) {
        champs.emplace_back(QStringLiteral("HeureFin"), Value::time(apres.HeureFin));
    }
    if (apres.Fauteuil != avant.Fauteuil) {
        champs.emplace_back(QStringLiteral("Fauteuil"), qint64{apres.Fauteuil});
    }
    return champs;
}

/// A key that somebody else's appointment has got: books are in use that give one twice.
bool cleReprise(const Rangee &voulue, const RendezVous &actuel) {
    const RendezVous sien = RendezVousDe(voulue);
    return actuel.Nom != sien.Nom || actuel.Prenom != sien.Prenom || actuel.NumPatient != sien.NumPatient;
}

/// The row of that key is not what was expected: gone, or another's doing.
BilanEcriture autreEtat(Database &rdv, qint64 ref) {
    const std::optional<RendezVous> actuel = LitRDV(rdv, ref);
    return actuel ? BilanEcriture{Ecriture::Change, *actuel} : BilanEcriture{Ecriture::Disparu};
}

bool placeLibreSauf(Database &rdv, const Rangee &rangee, qint64 ref) {
    const RendezVous voulu = RendezVousDe(rangee);
    const SaisieRDV place = placeDe(voulu);
    return EstReservable(plageDe(place)) && libreSauf(rdv, ref, place, voulu.NumPraticien, voulu.Fauteuil);
}

/// `rangee` as a new row, of its old key where `garde`; fields that the table has lost are left out.
Fields champsNouveaux(Database &rdv, const Rangee &rangee, bool garde) {
    Fields champs = ChampsAutres(rangee, {});
    const TableDef table = rdv.tableDef(tableRDV);
    std::erase_if(champs, [&](const auto &champ) {
        return !table.hasField(champ.first) || (!garde && champ.first == cle);
    });
    return champs;
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

BilanEcriture AjouteRDV(Database &rdv, const Auteur &auteur, const NouveauRDV &nouveau) {
    const Chaise chaise{CLng(nouveau.NumPraticien), CLng(nouveau.Fauteuil)};
    if (!EstReservable(plageDe(nouveau.saisie))) {
        return {Ecriture::Occupe};
    }
    Fields champs = champsDe(nouveau.saisie);
    champs.emplace_back(QStringLiteral("NumPraticien"), nouveau.NumPraticien);
    champs.emplace_back(QStringLiteral("Professionnel"), Value::boolean(nouveau.Professionnel));
    champs.emplace_back(QStringLiteral("Fauteuil"), qint64{chaise.fauteuil});
    Transaction transaction(rdv, {verrouJour(chaise, nouveau.saisie.Date1)});
    if (!libreAjout(rdv, nouveau.saisie, chaise)) {
        return {Ecriture::Occupe};
    }
    return ecritSiLibre(transaction, [&] { return ecritNouvelle(rdv, auteur, Operation::Ajout, champs); });
}

BilanEcriture ModifieRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant,
                         const SaisieRDV &saisie, long praticien, long fauteuil) {
    RendezVous apres = avant;
    apres.Date1 = saisie.Date1;
    apres.HeureDebut = saisie.HeureDebut;
    apres.HeureFin = saisie.HeureFin;
    return reecrit(rdv, auteur, avant, apres, champsDe(saisie), {praticien, fauteuil});
}

BilanEcriture ChangeFin(Database &rdv, const Auteur &auteur, const RendezVous &avant, QTime fin,
                        long praticien, long fauteuil) {
    RendezVous apres = avant;
    apres.HeureFin = fin;
    return reecrit(rdv, auteur, avant, apres, {{QStringLiteral("HeureFin"), Value::time(fin)}},
                   {praticien, fauteuil});
}

BilanEcriture DeplaceRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant,
                         const RendezVous &apres, long praticien, long fauteuil) {
    return reecrit(rdv, auteur, avant, apres, champsDeplaces(avant, apres), {praticien, fauteuil}, true);
}

bool SeraitRefuse(Database &rdv, const Visee &visee) {
    const Chaise montree{CLng(visee.place.PraticienCourant), CLng(visee.place.FauteuilCourant)};
    return visee.avant ? obstacle(rdv, *visee.avant, visee.rdv, montree, false).resultat != Ecriture::Fait
                       : !libreAjout(rdv, placeDe(visee.rdv), montree);
}

BilanEcriture SupprimeRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant) {
    Transaction transaction(rdv, {verrouRDV(avant.RefRDV)});
    const std::optional<RendezVous> actuel = LitRDV(rdv, avant.RefRDV);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (*actuel != avant) {
        return {Ecriture::Change, *actuel};
    }
    const BilanEcriture bilan = efface(rdv, auteur, Operation::Suppression, avant.RefRDV);
    transaction.commit();
    return bilan;
}

BilanEcriture MarquePresent(Database &rdv, const Auteur &auteur, const RendezVous &avant, bool present) {
    Transaction transaction(rdv, {verrouRDV(avant.RefRDV)});
    const std::optional<RendezVous> actuel = LitRDV(rdv, avant.RefRDV);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (!memeSaisie(*actuel, avant)) {
        return {Ecriture::Change, *actuel};
    }
    const BilanEcriture bilan = ecritChamps(rdv, auteur, Operation::Presence, avant.RefRDV,
                                            {{QStringLiteral("Present"), Value::boolean(present)}});
    transaction.commit();
    return bilan;
}

// ---- Putting back

bool PlaceLibre(Database &rdv, const Rangee &rangee) {
    return placeLibreSauf(rdv, rangee, RendezVousDe(rangee).RefRDV);
}

BilanEcriture RemetRDV(Database &rdv, const Auteur &auteur, Operation quoi, const Rangee &attendue,
                       const Rangee &voulue) {
    const qint64 ref = EcritureRDV{quoi, attendue, voulue}.RefRDV();
    Transaction transaction(rdv);
    const Rangee actuelle = LitRangee(rdv, ref);
    const bool reprise =
        attendue.isEmpty() && !actuelle.isEmpty() && cleReprise(voulue, RendezVousDe(actuelle));
    if (actuelle != attendue && !reprise) {
        return autreEtat(rdv, ref);
    }
    const bool deplace = attendue.isEmpty() || !memePlace(RendezVousDe(attendue), RendezVousDe(voulue));
    if (!voulue.isEmpty() && deplace && !placeLibreSauf(rdv, voulue, reprise ? 0 : ref)) {
        return {Ecriture::Occupe};
    }
    return ecritSiLibre(transaction, [&] {
        if (voulue.isEmpty()) {
            return efface(rdv, auteur, quoi, ref);
        }
        return attendue.isEmpty() ? ecritNouvelle(rdv, auteur, quoi, champsNouveaux(rdv, voulue, !reprise))
                                  : ecritChamps(rdv, auteur, quoi, ref, ChampsAutres(voulue, attendue));
    });
}

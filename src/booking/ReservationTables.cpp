#include "booking/ReservationTables.h"

#include "booking/RangeeTables.h"
#include "grid/ReplacerTables.h"
#include "journal/JournalTables.h"
#include "platform/db/DateInverse.h"

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

struct Chaise {
    long praticien = 0;
    long fauteuil = 0;
};

/// Why the appointment cannot have the place of `saisie`, which has to be free at the shown chair, `montree`,
/// and where it stays, at its own; Fait: it can.
BilanEcriture obstacle(Database &rdv, const RendezVous &avant, const SaisieRDV &saisie, const Chaise &montree,
                       bool reste) {
    const std::optional<RendezVous> actuel = LitRDV(rdv, avant.RefRDV);
    if (!actuel) {
        return {Ecriture::Disparu};
    }
    if (!memeSaisie(*actuel, avant)) {
        return {Ecriture::Change, *actuel};
    }
    const bool libre =
        EstReservable(plageDe(saisie)) &&
        libreSauf(rdv, avant.RefRDV, saisie, montree.praticien, montree.fauteuil) &&
        (!reste || libreSauf(rdv, avant.RefRDV, saisie, actuel->NumPraticien, actuel->Fauteuil));
    return {libre ? Ecriture::Fait : Ecriture::Occupe, *actuel};
}

bool libreAjout(Database &rdv, const SaisieRDV &saisie, long praticien, long fauteuil) {
    const PlageHoraire voulu = plageDe(saisie);
    const QList<RendezVous> jour = duJour(rdv, saisie.Date1, praticien, fauteuil);
    return EstReservable(voulu) && HoraireLibre(jour, voulu) && !RDVHere(jour, voulu);
}

/// Writes `champs` of an appointment whose place is that of `saisie`.
BilanEcriture reecrit(Database &rdv, const Auteur &auteur, const RendezVous &avant, const SaisieRDV &saisie,
                      const Fields &champs, const Chaise &montree, bool reste = true,
                      const std::function<void()> &aussi = {}) {
    Transaction transaction(rdv);
    const BilanEcriture empeche = obstacle(rdv, avant, saisie, montree, reste);
    if (empeche.resultat != Ecriture::Fait) {
        return empeche;
    }
    const BilanEcriture bilan = ecritChamps(rdv, auteur, Operation::Edition, avant.RefRDV, champs);
    if (aussi) {
        aussi();
    }
    transaction.commit();
    return bilan;
}

/// What a dialog would ask for such a place.
SaisieRDV placeDe(const RendezVous &rdv) {
    SaisieRDV place;
    place.Date1 = rdv.Date1;
    place.HeureDebut = rdv.HeureDebut;
    place.HeureFin = rdv.HeureFin;
    return place;
}

bool memePlace(const RendezVous &a, const RendezVous &b) {
    return a.Date1 == b.Date1 && a.HeureDebut == b.HeureDebut && a.HeureFin == b.HeureFin &&
           a.NumPraticien == b.NumPraticien && a.Fauteuil == b.Fauteuil;
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
    const long fauteuil = CLng(nouveau.Fauteuil);
    Fields champs = champsDe(nouveau.saisie);
    champs.emplace_back(QStringLiteral("NumPraticien"), nouveau.NumPraticien);
    champs.emplace_back(QStringLiteral("Professionnel"), Value::boolean(nouveau.Professionnel));
    champs.emplace_back(QStringLiteral("Fauteuil"), qint64{fauteuil});
    Transaction transaction(rdv);
    if (!libreAjout(rdv, nouveau.saisie, CLng(nouveau.NumPraticien), fauteuil)) {
        return {Ecriture::Occupe};
    }
    const BilanEcriture bilan = ecritNouvelle(rdv, auteur, Operation::Ajout, champs);
    transaction.commit();
    return bilan;
}

BilanEcriture ModifieRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant,
                         const SaisieRDV &saisie, long praticien, long fauteuil) {
    return reecrit(rdv, auteur, avant, saisie, champsDe(saisie), {praticien, fauteuil});
}

BilanEcriture ChangeFin(Database &rdv, const Auteur &auteur, const RendezVous &avant, QTime fin,
                        long praticien, long fauteuil) {
    SaisieRDV place = placeDe(avant);
    place.HeureFin = fin;
    return reecrit(rdv, auteur, avant, place, {{QStringLiteral("HeureFin"), Value::time(fin)}},
                   {praticien, fauteuil});
}

BilanEcriture DeplaceRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant,
                         const PlaceRDV &place) {
    const RendezVous voulu = Place(avant, place);
    const auto [debut, fin] = EnMinutes({voulu.HeureDebut, voulu.HeureFin});
    Fields champs{{QStringLiteral("Date1"), Value::date(voulu.Date1)},
                  {QStringLiteral("HeureDebut"), Value::time(debut)},
                  {QStringLiteral("HeureFin"), Value::time(fin)},
                  {QStringLiteral("DateInv"), InverseDate(voulu.Date1)}};
    const bool reste = voulu.Fauteuil == avant.Fauteuil;
    if (!reste) {
        champs.emplace_back(QStringLiteral("Fauteuil"), qint64{voulu.Fauteuil});
    }
    return reecrit(rdv, auteur, avant, placeDe(voulu), champs, {avant.NumPraticien, voulu.Fauteuil}, reste,
                   [&] { NotePose(rdv, avant.RefRDV, voulu); });
}

bool SeraitRefuse(Database &rdv, const Visee &visee) {
    const long praticien = CLng(visee.place.PraticienCourant);
    const long fauteuil = CLng(visee.place.FauteuilCourant);
    const SaisieRDV place = placeDe(visee.rdv);
    if (!visee.avant) {
        return !libreAjout(rdv, place, praticien, fauteuil);
    }
    const bool reste = visee.rdv.Fauteuil == visee.avant->Fauteuil;
    return obstacle(rdv, *visee.avant, place, {praticien, fauteuil}, reste).resultat != Ecriture::Fait;
}

BilanEcriture SupprimeRDV(Database &rdv, const Auteur &auteur, const RendezVous &avant) {
    Transaction transaction(rdv);
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
    Transaction transaction(rdv);
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
    const BilanEcriture bilan = voulue.isEmpty() ? efface(rdv, auteur, quoi, ref)
                                : attendue.isEmpty()
                                    ? ecritNouvelle(rdv, auteur, quoi, champsNouveaux(rdv, voulue, !reprise))
                                    : ecritChamps(rdv, auteur, quoi, ref, ChampsAutres(voulue, attendue));
    transaction.commit();
    return bilan;
}

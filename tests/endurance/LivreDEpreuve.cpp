#include "LivreDEpreuve.h"

#include "Schema.h"
#include "booking/ReservationTables.h"
#include "start/MiseANiveauTables.h"

namespace {

SaisieRDV saisie(const Place &place, const QString &marque) {
    return {QStringLiteral("L'HER %1").arg(marque),
            QStringLiteral("Élise"),
            {},
            QString(100, u'é') + marque,
            QStringLiteral("7"),
            place.jour,
            place.debut,
            place.fin};
}

} // namespace

void creeLivre(const QString &livre) {
    creeBase(livre, schema(Base::RendezVous));
    Database rdv = Database::open(livre);
    MetANiveau(rdv);
}

std::optional<qint64> ajoute(Database &rdv, const Place &place, const QString &marque) {
    return AjouteRDV(rdv, {saisie(place, marque), QStringLiteral("0%1").arg(place.praticien),
                           QString::number(place.fauteuil)});
}

qint64 change(Database &rdv, unsigned tirage, const Place &place, const std::optional<QString> &marque) {
    const auto jour = RendezVousEntre(rdv, place.jour, place.jour, place.praticien, place.fauteuil);
    if (jour.isEmpty()) {
        return 0;
    }
    const RendezVous &choisi = jour[tirage % jour.size()];
    const BilanEcriture bilan =
        marque ? ModifieRDV(rdv, choisi, saisie(place, *marque), place.praticien, place.fauteuil)
               : SupprimeRDV(rdv, choisi);
    return bilan.resultat == Ecriture::Fait ? choisi.RefRDV : 0;
}

QString contenu(const Place &place, const QString &marque) {
    const SaisieRDV s = saisie(place, marque);
    return QStringList{s.Nom,
                       s.Description,
                       s.Date1.toString(Qt::ISODate),
                       s.Date1.toString(u"yyyyMMdd"),
                       s.HeureDebut.toString(Qt::ISODate),
                       s.HeureFin.toString(Qt::ISODate),
                       QStringLiteral("0%1").arg(place.praticien),
                       QString::number(place.fauteuil)}
        .join(u'|');
}

QString contenu(const Record &row) {
    QStringList champs;
    for (const char16_t *nom : {u"Nom", u"Description", u"Date1", u"DateInv", u"HeureDebut", u"HeureFin",
                                u"NumPraticien", u"Fauteuil"}) {
        champs << row[nom].toText();
    }
    return champs.join(u'|');
}

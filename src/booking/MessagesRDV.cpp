#include "booking/MessagesRDV.h"

#include "booking/RangeeTables.h"
#include "platform/ui/DatesFr.h"

#include <QStringList>

namespace {

/// Day, hours and patient always; the rest where the two differ.
QString decrit(const RendezVous &rdv, const RendezVous &autre) {
    QStringList parties{QStringLiteral("%1 de %2 à %3")
                            .arg(DatesFr::jourComplet(rdv.Date1), DatesFr::heure(rdv.HeureDebut),
                                 DatesFr::heure(rdv.HeureFin)),
                        (rdv.Nom + u' ' + rdv.Prenom).trimmed()};
    const auto ajoute = [&](bool differe, const QString &partie) {
        if (differe) {
            parties << partie;
        }
    };
    ajoute(rdv.NumPatient != autre.NumPatient, QStringLiteral("patient n° ") + rdv.NumPatient);
    ajoute(rdv.Telephone != autre.Telephone, QStringLiteral("tél. ") + rdv.Telephone);
    ajoute(rdv.Description != autre.Description, QStringLiteral("« %1 »").arg(rdv.Description));
    ajoute(rdv.NumPraticien != autre.NumPraticien, QStringLiteral("praticien %1").arg(rdv.NumPraticien));
    ajoute(rdv.Fauteuil != autre.Fauteuil, QStringLiteral("fauteuil %1").arg(rdv.Fauteuil));
    ajoute(rdv.Present != autre.Present,
           rdv.Present ? QStringLiteral("présent") : QStringLiteral("non présent"));
    return parties.join(QStringLiteral(", "));
}

} // namespace

QString MessageModifie(const RendezVous &avant, const RendezVous &actuel) {
    return QStringLiteral("Ce rendez-vous a été modifié sur un autre poste.\n\nVous aviez : %1.\n"
                          "Il est maintenant : %2.\n\nRien n'a été enregistré.")
        .arg(decrit(avant, actuel), decrit(actuel, avant));
}

QString MessageRefus(const QString &geste, bool annule, const BilanEcriture &bilan, const Rangee &attendue,
                     const Rangee &voulue) {
    const RendezVous attendu = RendezVousDe(attendue);
    const RendezVous voulu = RendezVousDe(voulue);
    QString raison = QStringLiteral("ce rendez-vous n'existe plus.");
    if (bilan.resultat == Ecriture::Occupe) {
        raison = QStringLiteral("la place du %1, de %2 à %3, n'est plus libre.")
                     .arg(DatesFr::jourComplet(voulu.Date1), DatesFr::heure(voulu.HeureDebut),
                          DatesFr::heure(voulu.HeureFin));
    } else if (bilan.resultat == Ecriture::Change && attendue.isEmpty()) {
        raison = QStringLiteral("ce rendez-vous est déjà de nouveau dans le carnet.");
    } else if (bilan.resultat == Ecriture::Change) {
        raison = QStringLiteral("ce rendez-vous a été modifié depuis sur un autre poste.\n\nIl était : %1.\n"
                                "Il est maintenant : %2.")
                     .arg(decrit(attendu, bilan.actuel), decrit(bilan.actuel, attendu));
    }
    return QStringLiteral("« %1 » ne peut pas être %2 : %3\n\nRien n'a été enregistré.")
        .arg(geste, annule ? QStringLiteral("annulé") : QStringLiteral("refait"), raison);
}

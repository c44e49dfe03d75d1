#include "booking/MessagesRDV.h"

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

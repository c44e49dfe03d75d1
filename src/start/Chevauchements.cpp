#include "start/Chevauchements.h"

#include <QStringList>

QString TexteChevauchements(int combien, const QList<RendezVous> &premiers) {
    if (combien == 0) {
        return {};
    }
    QStringList lignes{
        combien == 1 ? QStringLiteral("Un rendez-vous en chevauche déjà un autre. Il est gardé tel quel :")
                     : QStringLiteral("%1 rendez-vous en chevauchent déjà un autre. Ils sont gardés tels "
                                      "quels :")
                           .arg(combien)};
    for (const RendezVous &rdv : premiers) {
        lignes << QStringLiteral("%1 %2, le %3 de %4 à %5 (praticien %6, fauteuil %7)")
                      .arg(rdv.Nom, rdv.Prenom, rdv.Date1.toString(QStringLiteral("dd/MM/yyyy")),
                           rdv.HeureDebut.toString(QStringLiteral("HH:mm")),
                           rdv.HeureFin.toString(QStringLiteral("HH:mm")))
                      .arg(rdv.NumPraticien)
                      .arg(rdv.Fauteuil);
    }
    if (combien > premiers.size()) {
        lignes << QStringLiteral("… et %1 de plus.").arg(combien - premiers.size());
    }
    return lignes.join(u'\n');
}

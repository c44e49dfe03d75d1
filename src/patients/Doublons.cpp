#include "patients/Doublons.h"

QString LibelleDoublon(const QList<Identite> &homonymes, const Identite &nouveau) {
    QString libelle;
    for (const Identite &homonyme : homonymes) {
        if (homonyme.DateNais != nouveau.DateNais) {
            libelle = QStringLiteral("nom et le même prénom");
        } else if (homonyme.NumeroSS != nouveau.NumeroSS) {
            libelle = QStringLiteral("nom,le même prénom et la même date de naissance");
        } else {
            return QStringLiteral("nom,le même prénom,la même date de naissance et le même numero de sécu");
        }
    }
    return libelle;
}

QString QuestionDoublon(const QString &libelle) {
    return QStringLiteral("Un patient portant le %1 existe déja!\nVoulez vous quand même créez un nouveau "
                          "patient")
        .arg(libelle);
}

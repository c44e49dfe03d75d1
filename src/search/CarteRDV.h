#pragma once

#include "platform/printing/Page.h"

/// One found appointment as the results and the card spell it.
struct LigneResultat {
    QString jour;  ///< "lundi"
    QString date;  ///< "07 mars 2005"
    QString debut; ///< "09:00"
    QString fin;
};

constexpr int lignesDeLaCarte = 8; ///< appointments; what comes after them is left out

/// The card that the patient takes home, to be cut out of the sheet along its dashes.
Page CarteRDV(const QString &nom, const QString &prenom, const QList<LigneResultat> &lignes);

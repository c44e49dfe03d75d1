#pragma once

#include "journal/Ecriture.h"

#include <QList>

/// The history in the words of the book.

/// "Déplacé"
QString QuoiEnMots(const EcritureRDV &ecriture);
/// What has changed: "mar. 24 nov. 2026 11:30 → mer. 25 nov. 2026 10:00". `avecPatient`: whose it is comes
/// first.
QString DetailEnMots(const EcritureRDV &ecriture, bool avecPatient);

struct ChampEnMots {
    QString champ;
    QString avant;
    QString apres;
};
/// Both rows, field by field; those that neither has are left out.
QList<ChampEnMots> ChampsEnMots(const EcritureRDV &ecriture);

/// Of a list of so many.
QString NombreEnMots(qsizetype ecritures);

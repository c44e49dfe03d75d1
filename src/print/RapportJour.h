#pragma once

#include "platform/printing/Page.h"
#include "print/FeuilleJour.h"

inline const QString titreRapport = QStringLiteral("CARNET DE RENDEZ-VOUS");

/// The day sheet as A4 pages for practices without the word processor: the title, the practitioner and the
/// day above each, and six columns between rules.
QList<Page> RapportJour(const QList<LigneFeuille> &lignes, const QString &praticien, const QString &jour);

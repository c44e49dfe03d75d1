#pragma once

#include "platform/printing/Printer.h"

struct Environnement;

/// Prints on the default printer. Without one the document becomes a PDF in the suite's folder "\Word\",
/// whose name is `nom` with day and hour, and the user is told where it is; and what fails, is told. `titre`
/// is the document's own.
void imprime(const Environnement &env, const QList<Page> &pages, const QString &nom, const QString &titre);
/// The same on another printer.
void imprime(const Environnement &env, const Printer &imprimante, const QList<Page> &pages,
             const QString &nom, const QString &titre);

/// What the user is told about a document that was written because there is no printer.
QString EnregistreSansImprimante(const QString &fichier);

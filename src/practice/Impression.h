#pragma once

#include "platform/printing/Page.h"

struct Environnement;

/// Prints on the default printer. Without one the document becomes a PDF in the suite's folder "\Word\",
/// whose name is `nom` with day and hour, and the user is told where it is; and what fails, is told. `titre`
/// is the document's own.
void imprime(const Environnement &env, const QList<Page> &pages, const QString &nom, const QString &titre);

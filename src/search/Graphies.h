#pragma once

#include <QStringList>

/// The texts under which an index that ignores the case of unaccented letters only holds every text that is
/// `texte` in upper case; empty when they would be too many. Texts with characters that are not
/// `ordinaires` (see RechercheTables) may be missing.
QStringList Graphies(const QString &texte);

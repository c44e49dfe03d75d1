#pragma once

#include <QStringList>

/// The texts under which an index that ignores the case of unaccented letters only holds every text that
/// differs from `texte` by letter case alone: "é" may stand there as "É". Empty when they would be too many.
QStringList Graphies(const QString &texte);

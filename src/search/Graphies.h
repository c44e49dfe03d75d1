#pragma once

#include <QStringList>

/// What an index of upper-cased unaccented letters holds for the texts that differ from `texte` by letter
/// case alone: "é" may stand there as "É". Empty when they would be too many.
QStringList Graphies(const QString &texte);

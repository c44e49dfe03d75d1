#pragma once

#include <QByteArrayView>

/// Alphabetical order of two UTF-8 texts as a French reader expects it: letter case never counts, accents and
/// ligatures only between texts that are the same without them ("Élodie" stands between "Edith" and "Emma").
/// Negative, 0 or positive; 0 exactly for texts that differ by letter case alone.
int compareTexts(QByteArrayView left, QByteArrayView right);

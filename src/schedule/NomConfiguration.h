#pragma once

#include <QString>

/// Whether `texte` has a character and all of them are, by their Windows-1252 codes, the blank (32), digits,
/// unaccented letters or 224 … 255 (lower-case accented letters).
bool IsAlphaNum(const QString &texte);

/// Whether a configuration may bear this name, surrounding blanks removed: IsAlphaNum and at most 255
/// characters.
bool NomValide(const QString &nom);

/// Whether `texte` is a chair number: 1 to 4 digits.
bool FauteuilValide(const QString &texte);

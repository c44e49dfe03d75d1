#pragma once

#include <QString>

/// The two-digit key of a social-security number: 97 less the rest, by 97, of the number that its first 13
/// characters begin with. Blanks between digits are skipped and anything else ends the number, so that of a
/// Corsican one (2A, 2B) only the digits before the letter count.
QString CleNumeroSecu(const QString &numero);

/// Whether the last two characters are the key. That of a provisional number, which starts with 7 or 8, is
/// not tested; an empty text has nothing to test.
bool NumeroSecuValide(const QString &numero);

#include "schedule/NomConfiguration.h"

#include <algorithm>

namespace {

constexpr int plusLongNom = 255;

bool estChiffre(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Windows-1252 and Unicode agree on every code accepted here; the codes where they part (128 … 159) are
/// refused.
bool estAlphaNum(QChar c) {
    return c == u' ' || estChiffre(c) || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           (c >= u'\u00E0' && c <= u'\u00FF');
}

} // namespace

bool IsAlphaNum(const QString &texte) {
    return !texte.isEmpty() && std::ranges::all_of(texte, estAlphaNum);
}

bool NomValide(const QString &nom) {
    return nom.size() <= plusLongNom && IsAlphaNum(nom);
}

bool FauteuilValide(const QString &texte) {
    constexpr int plusLongNumero = 4;
    return !texte.isEmpty() && texte.size() <= plusLongNumero && std::ranges::all_of(texte, estChiffre);
}

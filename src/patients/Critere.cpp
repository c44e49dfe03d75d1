#include "patients/Critere.h"

#include "patients/TexteSaisi.h"

#include <algorithm>

namespace {

bool estChiffre(QChar c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

Critere LitCritere(const QString &texte) {
    const QString propre = TexteSaisi(texte);
    if (propre.isEmpty()) {
        return std::monostate();
    }
    if (std::ranges::all_of(propre, estChiffre)) {
        bool tient = false;
        const qint64 numero = propre.toLongLong(&tient);
        return tient ? numero : qint64{-1};
    }
    return texte.endsWith(u' ') ? propre + u' ' : propre;
}

bool EstNumeroPatient(const QString &texte) {
    const QString propre = texte.trimmed();
    bool tient = true;
    const bool positif = propre.isEmpty() || propre.toInt(&tient) >= 0;
    return tient && positif;
}

QString MotifDebut(const QString &debut) {
    QString motif;
    for (const QChar c : debut) {
        if (c == u'*' || c == u'?' || c == u'#' || c == u'[') {
            motif += QStringLiteral("[%1]").arg(c);
        } else {
            motif += c;
        }
    }
    return motif + u'*';
}

Plage PlageDebut(const QString &debut) {
    constexpr char16_t horsAscii = 0x80;
    // From the first accented letter on, É and é lie apart: the bounds stop before it.
    const auto *fin = std::ranges::find_if(debut, [](QChar c) { return c.unicode() >= horsAscii; });
    const QString ascii = QString(debut.constData(), fin - debut.constBegin()).toLower();
    if (ascii.isEmpty()) {
        return {QString(QChar(horsAscii)), QString::fromUcs4(U"\U0010FFFF", 1)};
    }
    QString apres = ascii;
    apres.back() = QChar(apres.back().unicode() + 1);
    return {ascii, apres};
}

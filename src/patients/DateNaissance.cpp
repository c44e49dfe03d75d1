#include "patients/DateNaissance.h"

#include <algorithm>

namespace {

constexpr int ageLimite = 150; // years; beyond, a digit of the year went wrong

/// Eight digits and two slashes. QDate alone would read digits of other scripts too.
bool estComplete(const QString &date) {
    const QString modele = QStringLiteral("00/00/0000");
    return date.size() == modele.size() && std::ranges::equal(date, modele, [](QChar lu, QChar attendu) {
               return attendu == u'/' ? lu == u'/' : lu >= u'0' && lu <= u'9';
           });
}

} // namespace

QString DateNaissanceSaisie(const QString &saisie) {
    const bool vide = std::ranges::all_of(saisie, [](QChar c) { return c == u'/' || c.isSpace(); });
    return vide ? QString() : saisie;
}

QString DefautDateNaissance(const QString &date, QDate aujourdhui) {
    if (date.isEmpty()) {
        return {};
    }
    if (!estComplete(date)) {
        return QStringLiteral("La date de naissance est incomplète. Veuillez la saisir sous la forme "
                              "25/03/1980, ou la laisser vide.");
    }
    const QDate jour = QDate::fromString(date, QStringLiteral("dd/MM/yyyy"));
    if (!jour.isValid()) {
        return QStringLiteral("La date de naissance %1 n'existe pas.").arg(date);
    }
    if (jour > aujourdhui) {
        return QStringLiteral("La date de naissance %1 est dans le futur.").arg(date);
    }
    if (jour < aujourdhui.addYears(-ageLimite)) {
        return QStringLiteral("La date de naissance %1 est trop ancienne.").arg(date);
    }
    return {};
}

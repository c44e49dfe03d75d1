#include "grid/Fourchette.h"

#include <QStringBuilder>
#include <algorithm>
#include <array>

FormeCellule Fourchette::forme(int ligne) const {
    if (ligne < premiere || ligne > derniere) {
        return FormeCellule::Aucune;
    }
    const bool top = ligne == premiere && !coupeeEnHaut;
    const bool low = ligne == derniere && !coupeeEnBas;
    if (top && low) {
        return FormeCellule::Dbl;
    }
    return top ? FormeCellule::Top : (low ? FormeCellule::Low : FormeCellule::Mid);
}

Fourchette CoupeFourchette(int premiere, int derniere, int fermeture) {
    if (derniere < premiere || derniere < 1 || premiere >= fermeture) {
        return {};
    }
    return {std::max(premiere, 1), std::min(derniere, fermeture - 1), premiere < 1, derniere >= fermeture};
}

QString NomComplet(const QString &nom, const QString &prenom) {
    return QStringView(nom).trimmed() % u' ' % QStringView(prenom).trimmed();
}

QString NomImage(FormeCellule forme, int jour) {
    constexpr std::array<QStringView, 5> formes{u"", u"Dbl", u"Top", u"Mid", u"Low"};
    constexpr std::array<QStringView, 7> couleurs{u"Bleu", u"Violet", u"Orange", u"Jaune",
                                                  u"Vert", u"Brown",  u"BleuF"};
    if (forme == FormeCellule::Aucune || jour < 1 || jour > 7) {
        return {};
    }
    return formes[size_t(forme)] % couleurs[size_t(jour - 1)] % u".bmp";
}

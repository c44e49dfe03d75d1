#include "platform/ui/Aspect.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double lisible = 4.5; // contrast that text needs
constexpr int demi = 128;
constexpr QRgb blanc = 0xFFFFFF;
constexpr QRgb noir = 0x000000;

/// The table of looks: a row for a light sheet, one for a dark one. What is not in it is mixed from it.
struct Rangee {
    QRgb fond, feuille, encre, encre2, encre3, trait, trait2, hachure, hachure2;
    QRgb accent, surAccent, alerte, fondAlerte, bordAlerte, refus;
};
constexpr Rangee clair{0xF3F4F6, 0xFFFFFF, 0x1A1D21, 0x454C55, 0x5C646E, 0xCBD1D8, 0xEBEEF1, 0xEEF0F3,
                       0xD3D8DE, 0x1346B5, 0xFFFFFF, 0xA3100F, 0xFFE4DF, 0xC62828, 0xFFD9D4};
constexpr Rangee sombre{0x14161A, 0x1C1F24, 0xEDEFF2, 0xC3CAD3, 0x9FA8B3, 0x414852, 0x292D34, 0x23272D,
                        0x363C45, 0x9DBBFF, 0x0C1A3A, 0xFFB9B0, 0x4B2220, 0xFF8A80, 0x5A2522};
constexpr std::array<QRgb, 8> bords{0, 0x0080FF, 0x800080, 0xFF8000, 0x808000, 0x008080, 0x804000, 0x000080};

// Parts of the accent or of a weekday's colour on the sheet.
constexpr double partSurvol = 0.07;
constexpr double partChoix = 0.12;
constexpr double partJourDit = 0.035;
constexpr double partFantome = 0.18;
constexpr double partTeinte = 0.25;
constexpr double partPasse = 0.10;
constexpr double partContour = 0.60;

double luminance(const QColor &couleur) {
    const auto part = [](double v) { return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(couleur.redF()) + 0.7152 * part(couleur.greenF()) + 0.0722 * part(couleur.blueF());
}

/// White is mixed in until the colour stands out on the sheet.
QColor eclairci(const QColor &couleur, const QColor &feuille) {
    constexpr double pas = 0.05;
    QColor bord = couleur;
    for (double part = pas; part < 1 && Contraste(bord, feuille) < lisible; part += pas) {
        bord = Melange(QColor(blanc), couleur, part);
    }
    return bord;
}

bool estSombre(const QPalette &palette) {
    return palette.color(QPalette::Base).lightness() < demi;
}

/// Of light that is all there or not at all, in each of its three parts.
bool estPure(const QColor &couleur) {
    constexpr int pleine = 255;
    const auto entiere = [](int part) { return part == 0 || part == pleine; };
    return entiere(couleur.red()) && entiere(couleur.green()) && entiere(couleur.blue());
}

/// Two pure colours, or nearly black and white: what the desktop offers to those who need it.
bool contrasteEleve(const QPalette &palette) {
    constexpr double tout = 20;
    constexpr double fort = 7;
    const QColor feuille = palette.color(QPalette::Base);
    const QColor texte = palette.color(QPalette::Text);
    const double contraste = Contraste(feuille, texte);
    return palette.color(QPalette::Window) == feuille &&
           (contraste >= tout || (contraste >= fort && estPure(feuille) && estPure(texte)));
}

/// A line that the desktop does not tell from its sheet is mixed.
QColor traitSur(const QColor &feuille, const QColor &trait, const QColor &encre) {
    constexpr double visible = 1.3;
    constexpr double part = 0.3;
    return Contraste(trait, feuille) >= visible ? trait : Melange(encre, feuille, part);
}

/// As pale as can be read on all of these grounds.
QColor pale(const QColor &texte, const QColor &feuille, std::initializer_list<QColor> fonds) {
    constexpr double pas = 0.05;
    constexpr double premiere = 0.55;
    const auto seLit = [&fonds](const QColor &couleur) {
        return std::ranges::all_of(fonds,
                                   [&](const QColor &fond) { return Contraste(couleur, fond) >= lisible; });
    };
    double part = premiere;
    while (part < 1 && !seLit(Melange(texte, feuille, part))) {
        part += pas;
    }
    return Melange(texte, feuille, std::min(part, 1.0));
}

void mele(Aspect &a, bool eclaircit) {
    a.survol = Melange(a.accent, a.feuille, partSurvol);
    a.choix = Melange(a.accent, a.feuille, partChoix);
    a.jourDit = Melange(a.accent, a.feuille, partJourDit);
    a.fantome = Melange(a.accent, a.feuille, partFantome);
    for (size_t jour = 1; jour < a.jours.size(); ++jour) {
        CouleursDuJour &j = a.jours[jour];
        j.bord = eclaircit ? eclairci(QColor(bords[jour]), a.feuille) : QColor(bords[jour]);
        j.teinte = Melange(j.bord, a.feuille, partTeinte);
        j.passe = Melange(j.bord, a.feuille, partPasse);
        j.contour = Melange(j.bord, a.feuille, partContour);
        j.coche = QColor(Contraste(QColor(blanc), j.bord) >= lisible ? blanc : noir);
    }
}

/// The desktop's own colours only: what stands out is told by lines, marks and weight.
void sansTeinte(Aspect &a, const QPalette &palette) {
    a.fond = a.feuille = a.hachure = a.surAccent = a.fondAlerte = a.survol = a.choix = a.jourDit = a.fantome =
        a.refus = palette.color(QPalette::Base);
    a.encre = a.encre2 = a.encre3 = a.trait = a.trait2 = a.hachure2 = a.alerte = a.bordAlerte =
        palette.color(QPalette::Text);
    const QColor marque = palette.color(QPalette::Highlight);
    a.accent = Contraste(marque, a.feuille) >= lisible ? marque : a.encre;
    a.jours.fill({a.encre, a.feuille, a.feuille, a.encre, a.feuille});
}

} // namespace

Aspect AspectDe(Presentation presentation, const QPalette &palette) {
    Aspect a;
    a.presentation = presentation;
    const bool nuit = estSombre(palette);
    const Rangee &r = nuit ? sombre : clair;
    const std::initializer_list<std::pair<QColor *, QRgb>> places{{&a.fond, r.fond},
                                                                  {&a.feuille, r.feuille},
                                                                  {&a.encre, r.encre},
                                                                  {&a.encre2, r.encre2},
                                                                  {&a.encre3, r.encre3},
                                                                  {&a.trait, r.trait},
                                                                  {&a.trait2, r.trait2},
                                                                  {&a.hachure, r.hachure},
                                                                  {&a.hachure2, r.hachure2},
                                                                  {&a.accent, r.accent},
                                                                  {&a.surAccent, r.surAccent},
                                                                  {&a.alerte, r.alerte},
                                                                  {&a.bordAlerte, r.bordAlerte},
                                                                  {&a.fondAlerte, r.fondAlerte},
                                                                  {&a.refus, r.refus}};
    for (const auto &[couleur, valeur] : places) {
        *couleur = QColor(valeur);
    }
    if (contrasteEleve(palette)) {
        sansTeinte(a, palette);
        return a;
    }
    if (!a.contemporaine()) { // its sheet and its lines are the desktop's
        a.feuille = palette.color(QPalette::Base);
        a.trait = a.trait2 = traitSur(a.feuille, palette.color(QPalette::Mid), palette.color(QPalette::Text));
    }
    mele(a, nuit);
    return a;
}

QPalette PaletteDe(const Aspect &aspect, QPalette palette) {
    const std::initializer_list<std::pair<QPalette::ColorRole, QColor>> roles{
        {QPalette::Window, aspect.fond},      {QPalette::WindowText, aspect.encre},
        {QPalette::Base, aspect.feuille},     {QPalette::Text, aspect.encre},
        {QPalette::Button, aspect.fond},      {QPalette::ButtonText, aspect.encre},
        {QPalette::Highlight, aspect.accent}, {QPalette::HighlightedText, aspect.surAccent},
        {QPalette::Mid, aspect.trait}};
    for (const auto &[role, couleur] : roles) {
        palette.setColor(QPalette::Active, role, couleur);
        palette.setColor(QPalette::Inactive, role, couleur);
    }
    return palette;
}

QPalette TextesPales(const QPalette &bureau) {
    const QColor texte = bureau.color(QPalette::Active, QPalette::Text);
    const QColor feuille = bureau.color(QPalette::Active, QPalette::Base);
    const QColor fond = bureau.color(QPalette::Active, QPalette::Window);
    QPalette pales;
    pales.setColor(QPalette::PlaceholderText, pale(texte, feuille, {feuille, fond}));
    pales.setColor(QPalette::Disabled, QPalette::Text,
                   pale(texte, feuille, {feuille, fond, bureau.color(QPalette::Disabled, QPalette::Base)}));
    return pales;
}

QPalette PaletteBouton(const Aspect &aspect, bool enfonce) {
    QPalette palette;
    palette.setColor(QPalette::Button, enfonce ? aspect.encre : aspect.feuille);
    palette.setColor(QPalette::ButtonText, enfonce ? aspect.feuille : aspect.encre);
    return palette;
}

QColor Melange(const QColor &a, const QColor &b, double part) {
    const auto mele = [part](int x, int y) { return int(std::lround(x * part + y * (1 - part))); };
    return {mele(a.red(), b.red()), mele(a.green(), b.green()), mele(a.blue(), b.blue())};
}

double Contraste(const QColor &a, const QColor &b) {
    constexpr double lumiereAmbiante = 0.05;
    const auto [sombreDesDeux, clairDesDeux] = std::minmax({luminance(a), luminance(b)});
    return (clairDesDeux + lumiereAmbiante) / (sombreDesDeux + lumiereAmbiante);
}

#include "platform/ui/Aspect.h"

#include <gtest/gtest.h>

namespace {

QPalette bureau(QRgb feuille, QRgb texte, QRgb fenetre) {
    QPalette palette(QColor(texte), QColor(fenetre), Qt::white, Qt::black, Qt::gray, QColor(texte),
                     QColor(feuille));
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8C, 0xC6));
    return palette;
}

const std::pair<const char *, QPalette> bureaux[] = {
    {"light", bureau(0xFFFFFF, 0x000000, 0xEFEFEF)},
    {"dark", bureau(0x1E1E1E, 0xF0F0F0, 0x2D2D2D)},
    {"black on white", bureau(0xFFFFFF, 0x000000, 0xFFFFFF)},
    {"white on black", bureau(0x000000, 0xFFFFFF, 0x000000)},
    {"yellow on black", bureau(0x000000, 0xFFFF00, 0x000000)},
    {"a black sheet", bureau(0x000000, 0xE0E0E0, 0x101010)},
};

} // namespace

TEST(Aspect, EveryTextOfOursCanBeRead) {
    constexpr double lisible = 4.5;
    for (const auto &[nom, palette] : bureaux) {
        for (const Presentation presentation : {Presentation::Classique, Presentation::Contemporaine}) {
            const Aspect a = AspectDe(presentation, palette);
            QList<std::pair<QColor, QColor>> textes{
                {a.encre, a.feuille},     {a.encre, a.fond},        {a.encre2, a.feuille},
                {a.encre3, a.fond},       {a.encre2, a.survol},     {a.accent, a.choix},
                {a.surAccent, a.accent},  {a.alerte, a.feuille},    {a.feuille, a.encre},
                {a.alerte, a.fondAlerte}, {a.encre2, a.fondAlerte}, {a.feuille, a.encre3},
                {a.accent, a.feuille},    {a.encre, a.jourDit}};
            const QPalette pales = TextesPales(palette);
            for (const QPalette::ColorRole fond : {QPalette::Base, QPalette::Window}) {
                textes += {{pales.color(QPalette::PlaceholderText), palette.color(fond)},
                           {pales.color(QPalette::Disabled, QPalette::Text), palette.color(fond)}};
            }
            EXPECT_GE(Contraste(a.trait2, a.feuille), a.contemporaine() ? 1.1 : 1.3) << nom;
            for (size_t jour = 1; jour <= 7; ++jour) {
                const CouleursDuJour &j = a.jours[jour];
                textes += {{a.encre, j.teinte}, {a.encre2, j.teinte}, {a.encre2, j.passe}, {j.coche, j.bord}};
            }
            for (int i = 0; i < textes.size(); ++i) {
                EXPECT_GE(Contraste(textes[i].first, textes[i].second), lisible)
                    << nom << ' ' << int(presentation) << ' ' << i << ' '
                    << textes[i].first.name().toStdString() << " on "
                    << textes[i].second.name().toStdString();
            }
        }
    }
    EXPECT_NEAR(Contraste(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(Contraste(QColor(0x00, 0x80, 0xFF), Qt::white), 3.8, 0.05);
}

TEST(Aspect, FollowsTheDesktop) {
    const Aspect clair = AspectDe(Presentation::Contemporaine, bureaux[0].second);
    EXPECT_EQ(clair.jours[1].teinte.name().toStdString(), "#bfdfff");
    EXPECT_EQ(clair.jours[3].bord.name().toStdString(), "#ff8000");
    const Aspect sombre = AspectDe(Presentation::Contemporaine, bureaux[1].second);
    EXPECT_EQ(sombre.jours[7].bord.name().toStdString(), "#8c8cc6");
    EXPECT_EQ(sombre.jours[2].teinte.name().toStdString(), "#433449");
    EXPECT_EQ(AspectDe(Presentation::Classique, bureaux[1].second).feuille.name().toStdString(), "#1e1e1e");
    EXPECT_EQ(AspectDe(Presentation::Contemporaine, bureaux[3].second).jours[4].teinte, QColor(Qt::black))
        << "no tints";
    EXPECT_EQ(AspectDe(Presentation::Classique, bureaux[4].second).trait.name().toStdString(), "#ffff00");
    EXPECT_NE(TextesPales(bureaux[0].second).color(QPalette::PlaceholderText), QColor(Qt::black)) << "a hint";
    for (const auto &[nom, palette] : bureaux) {
        const Aspect a = AspectDe(Presentation::Contemporaine, palette);
        EXPECT_EQ(AspectDe(Presentation::Contemporaine, PaletteDe(a, palette)), a)
            << nom << ": the window's own palette gives the same look";
    }
}

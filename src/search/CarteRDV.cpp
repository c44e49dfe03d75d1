#include "search/CarteRDV.h"

namespace {

constexpr int epaisseur = 10; // twips, as fine a line as printers draw well
constexpr unsigned jaune = 0xFFFFFFAA;
constexpr QRect bandeau(0, 100, 4500, 450);
constexpr QRect corps(0, 600, 4500, 2100);

constexpr QPoint premierTexte(50, 200);
constexpr int hauteurLigne = 230;
constexpr int largeurTexte = bandeau.width() - 2 * premierTexte.x();
/// All behind the longest date, so that the three tabs of every line end at the last one.
constexpr int tabulations[] = {3300, 3550, 3800};

/// Dashes of 100 twips, as many apart.
QList<Page::Line> pointilles(QPoint de, QPoint pas, int nombre) {
    QList<Page::Line> traits;
    for (int i = 0; i < nombre; ++i) {
        const QPoint debut = de + 2 * i * pas;
        traits.append({{debut, debut + pas}, epaisseur});
    }
    return traits;
}

Page::Text texte(int ligne, const QString &quoi) {
    constexpr int corpsDuTexte = 10; // points
    return {premierTexte + QPoint(0, ligne * hauteurLigne),
            quoi,
            QStringLiteral("Arial"),
            corpsDuTexte,
            true,
            QList<int>(std::begin(tabulations), std::end(tabulations)),
            largeurTexte};
}

} // namespace

Page CarteRDV(const QString &nom, const QString &prenom, const QList<LigneResultat> &lignes) {
    constexpr int droite = 15;
    constexpr int dessous = 23;
    Page page;
    page.rectangles = {{bandeau, epaisseur, jaune}, {corps, epaisseur, 0}};
    page.lines = pointilles({4600, 0}, {0, 100}, droite) + pointilles({0, 2900}, {100, 0}, dessous);
    page.texts << texte(0, QStringLiteral("Rendez-vous de ") + nom.trimmed() + u' ' + prenom.trimmed());
    for (int i = 0; i < lignes.size() && i < lignesDeLaCarte; ++i) {
        page.texts << texte(i + 2, lignes[i].jour + QStringLiteral("  ") + lignes[i].date +
                                       QStringLiteral("\t\t\t") + lignes[i].debut);
    }
    return page;
}

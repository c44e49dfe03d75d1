#include "print/RapportJour.h"

#include <algorithm>
#include <array>

// Everything is in twips, in the middle of an A4 sheet, far enough from its edges for any printer.

namespace {

constexpr int gauche = 550;
constexpr int haut = 600;
constexpr int hauteurTitre = 520;
constexpr int hautTableau = haut + 1300;
constexpr int basTableau = 15400;
constexpr int basPage = 15500;
/// An hour, a name and a description, twice; the halves are a little apart.
constexpr std::array<int, 6> largeurs{680, 2480, 2000, 680, 2480, 2000};
constexpr int ecart = 80;
constexpr int trait = 5;
constexpr int traitFort = 15;
constexpr unsigned grisClair = 0xFFE8E8E8;

int largeur() {
    int somme = ecart;
    for (const int l : largeurs) {
        somme += l;
    }
    return somme;
}

/// The left edge of a column; of column 6, the right edge of the last.
int bord(size_t colonne) {
    int x = gauche + (colonne >= 3 ? ecart : 0);
    for (size_t i = 0; i < colonne; ++i) {
        x += largeurs[i];
    }
    return x;
}

Page::Text texte(QPoint ou, QString quoi, int points, bool gras, int place) {
    for (QChar &c : quoi) {
        c = c.isSpace() ? QChar(u' ') : c; // one line, whatever was typed
    }
    return {ou, quoi, QStringLiteral("Arial"), points, gras, {}, place};
}

/// Few lines are written large, many as narrow as reads well.
int hauteurLigne(qsizetype lignes) {
    constexpr int basse = 310;
    constexpr int haute = 460;
    return std::clamp(int((basTableau - hautTableau) / std::max<qsizetype>(lignes, 1)), basse, haute);
}

Page enTete(const QString &praticien, const QString &jour) {
    constexpr int corpsTitre = 16;
    constexpr int corpsLibelles = 12;
    constexpr int hautLibelles = haut + 740;
    constexpr int marge = 120;
    const int moitie = largeur() / 2;
    Page page;
    page.rectangles << Page::Rectangle{QRect(gauche, haut, largeur(), hauteurTitre), traitFort, grisClair};
    page.texts << texte({gauche + marge, haut + marge / 2 + 10}, titreRapport, corpsTitre, true,
                        largeur() - 2 * marge)
               << texte({gauche + marge, hautLibelles}, praticien, corpsLibelles, true, moitie - marge)
               << texte({gauche + moitie + marge, hautLibelles}, jour, corpsLibelles, true, moitie - marge);
    return page;
}

/// One half of a line. A full hour has a stronger rule above it.
void ecrit(Page &page, int y, int hauteur, size_t colonne, const std::array<QString, 3> &textes) {
    constexpr int corps = 9;
    constexpr int interligne = 207; // of that size
    constexpr int marge = 60;
    if (textes[0].isEmpty()) {
        return;
    }
    const bool pleine = textes[0].endsWith(QStringLiteral(":00"));
    page.lines << Page::Line{{bord(colonne), y, bord(colonne) + largeurs[0] + largeurs[1] + largeurs[2], y},
                             pleine ? traitFort : trait};
    for (size_t i = 0; i < textes.size(); ++i) {
        if (!textes[i].isEmpty()) {
            page.texts << texte({bord(colonne + i) + marge, y + (hauteur - interligne) / 2}, textes[i], corps,
                                i == 0 && pleine, largeurs[i] - 2 * marge);
        }
    }
}

/// The frame of both halves and the rules between their columns.
void encadre(Page &page, int bas) {
    const int demi = largeurs[0] + largeurs[1] + largeurs[2];
    for (const size_t colonne : {size_t(0), size_t(3)}) {
        page.rectangles << Page::Rectangle{QRect(bord(colonne), hautTableau, demi, bas - hautTableau),
                                           traitFort, 0};
        for (const size_t i : {colonne + 1, colonne + 2}) {
            page.lines << Page::Line{{bord(i), hautTableau, bord(i), bas}, trait};
        }
    }
}

} // namespace

QList<Page> RapportJour(const QList<LigneFeuille> &lignes, const QString &praticien, const QString &jour) {
    constexpr int corpsNumero = 8;
    constexpr int largeurNumero = 1000;
    const int hauteur = hauteurLigne(lignes.size());
    const qsizetype parPage = (basTableau - hautTableau) / hauteur;
    const qsizetype nombre = std::max<qsizetype>((lignes.size() + parPage - 1) / parPage, 1);
    QList<Page> pages;
    for (qsizetype p = 0; p < nombre; ++p) {
        Page page = enTete(praticien, jour);
        int y = hautTableau;
        for (qsizetype i = p * parPage; i < std::min((p + 1) * parPage, lignes.size()); ++i, y += hauteur) {
            const LigneFeuille &l = lignes[i];
            ecrit(page, y, hauteur, 0, {l.Heure, l.NomPatient, l.PrenomPatient});
            ecrit(page, y, hauteur, 3, {l.HeurePM, l.NomPatientPM, l.PrenomPatientPM});
        }
        encadre(page, y);
        page.texts << texte({gauche + largeur() - largeurNumero, basPage},
                            QStringLiteral("Page %1 sur %2").arg(p + 1).arg(nombre), corpsNumero, false,
                            largeurNumero);
        pages << page;
    }
    return pages;
}

#include "grid/GrilleSemaine.h"
#include "grid/GrillesJour.h"
#include "platform/ui/FlexGrid.h"
#include "practice/Environnement.h"
#include "support/Livre.h"

#include <QDir>
#include <QGuiApplication>
#include <gtest/gtest.h>

namespace {

/// A picture for every shape and weekday but one, told by its size: 11, 12 … wide, 21, 22 … high.
struct Images {
    Images() {
        QDir(dossier.path()).mkdir(q("Images"));
        int largeur = 10;
        for (const char *forme : {"Dbl", "Top", "Mid", "Low"}) {
            ++largeur;
            int hauteur = 20;
            for (const char *couleur : {"Bleu", "Violet", "Orange", "Jaune", "Vert", "Brown", "BleuF"}) {
                QImage(largeur, ++hauteur, QImage::Format_RGB32)
                    .save(dossier.filePath(q("Images/%1%2.bmp").arg(q(forme), q(couleur))));
            }
        }
        QFile::remove(dossier.filePath(q("Images/LowVert.bmp")));
        QFile::resize(dossier.filePath(q("Images/MidVert.bmp")), 40);
        env.CheminRacine = dossier.path();
    }
    QTemporaryDir dossier;
    Environnement env;
};

/// What a cell shows: shape and weekday of its picture, background and text colour by a letter, text.
QString vu(const FlexGridModel &cellules, int ligne, int col) {
    const FlexCell &cellule = cellules.cell(ligne, col);
    const QString bouton = QGuiApplication::palette().color(QPalette::Button).name();
    const auto lettre = [](const QColor &couleur) {
        static const QMap<QString, QString> connues{
            {q("#a0a0a0"), q("#")}, {q("#ff0000"), q("!")}, {q("#ffffff"), q("w")}, {q("#f0f0f0"), q("l")}};
        return couleur.isValid() ? connues.value(couleur.name(), couleur.name()) : QString();
    };
    const QSize image = cellule.picture.size();
    const QString forme =
        image.isEmpty() ? QString() : q(".DTML")[image.width() - 10] + QString::number(image.height() - 20);
    const bool etiquette = cellule.back.isValid() && cellule.back.name() == bouton;
    return forme + (etiquette ? q("b") : lettre(cellule.back) + lettre(cellule.fore)) +
           cellules.text(ligne, col);
}

std::string dessin(const FlexGrid &grille) {
    QString texte;
    for (int i = 0; i < grille.cells().rows() * grille.cells().cols(); ++i) {
        const int col = i % grille.cells().cols();
        texte += vu(grille.cells(), i / grille.cells().cols(), col) +
                 (col + 1 < grille.cells().cols() ? u'|' : u'\n');
    }
    return texte.toStdString();
}

RendezVous rdv(const char *nom, int jour, const char *debut, const char *fin, bool present = false) {
    static qint64 ref = 0;
    RendezVous rdv;
    rdv.RefRDV = ++ref;
    rdv.Nom = q(nom);
    rdv.Prenom = q(" Léa ");
    rdv.Description = jour == 1 ? q("bilan ") : QString();
    rdv.Date1 = QDate(2026, 3, 8 + jour);
    rdv.HeureDebut = QTime::fromString(q(debut), Qt::ISODate);
    rdv.HeureFin = QTime::fromString(q(fin), Qt::ISODate);
    rdv.Present = present;
    return rdv;
}

} // namespace

TEST(Dessin, AWeek) {
    const Configuration config = configDe({.intervalle = 30,
                                           .heures = {"08:00", "09:40", "11:00", "13:10"},
                                           .affich = {1, 2, 3, 0, 5, 0, 0},
                                           .grise = {0, 1, 2, 0, 3, 0, 0}});
    const QList<RendezVous> liste{
        rdv("VENU", 1, "08:00", "09:30", true), rdv("SEUL", 1, "09:40", "10:00"),
        rdv("AVANT", 2, "07:00", "08:45"),      rdv("APRES", 2, "12:45", "14:00"),
        rdv("LOIN", 2, "13:35", "14:00"),       rdv("RETARD", 3, "08:00", "08:30"),
        rdv("BIENTOT", 3, "09:35", "10:00"),    rdv("PRESENT", 3, "09:00", "09:30", true),
        rdv("TARD", 3, "12:00", "12:30"),       rdv("NUL", 3, "10:30", "10:30"),
        rdv("CACHE", 4, "08:00", "08:30"),      rdv("SANS", 5, "08:00", "09:30")};
    FlexGrid grille;
    const Images images;
    GrilleSemaine semaine(grille, images.env);
    const Demande mercredi{.PraticienCourant = {}, .jour = QDate(2026, 3, 11), .fauteuil = {}, .config = {}};
    Affichage affichage{mercredi, {}, 0, {{config, CreneauxSemaine(config), {}, liste, {}}}, {}};
    affichage.lu = QDateTime(mercredi.jour, QTime(9, 31));
    semaine.dessine(affichage);
    EXPECT_EQ(
        dessin(grille),
        R"(#lHeure|#0080ffwlundi 09 mars|#800080wmardi 10 mars|#ff8000wmercredi 11 mars|#008080wvendredi 13 mars|#lHeure
#l08:00|T1#0080ffw  VENU Léa  [bilan]|M2#  AVANT Léa|D3!  RETARD Léa|T5#  SANS Léa|#l08:00
#l08:30|M1#0080ffw|L2#||#|#l08:30
#l09:00|L1#0080ffw|#|D3#ff8000w  PRESENT Léa|#|#l09:00
#l09:30|D1  SEUL Léa  [bilan]|#|D3!  BIENTOT Léa|#|#l09:30
#l10:00|#|#|#|#|#l10:00
#l10:30|#|#|#|#|#l10:30
#l11:00|||#|#|#l11:00
#l11:30|||#|#|#l11:30
#l12:00|||D3#  TARD Léa|#|#l12:00
#l12:30||T2  APRES Léa|#|#|#l12:30
#l13:00||M2|#|#|#l13:00
#l13:30|||#|#|#l13:30
)");
    const auto lu = [&](int ligne, int col) {
        return grille.cells().index(ligne, col).data(Qt::AccessibleTextRole).toString().toStdString();
    };
    EXPECT_EQ(lu(2, 1), "lundi 9 mars, 8 heures à 9 heures 30, VENU Léa, bilan, présent");
    EXPECT_EQ(lu(1, 2), "mardi 10 mars, 7 heures à 8 heures 45, AVANT Léa, absent");
    EXPECT_EQ(lu(1, 3), "mercredi 11 mars, 8 heures à 8 heures 30, RETARD Léa, en retard");
    EXPECT_EQ(lu(3, 4), "vendredi 13 mars, 8 heures à 9 heures 30, SANS Léa, à venir");
    EXPECT_EQ(
        lu(8, 1) + "; " + lu(8, 3) + "; " + lu(1, 0) + "; " + lu(0, 1),
        "lundi 9 mars, 11 heures 30, libre; mercredi 11 mars, 11 heures 30, grisé; 08:00; lundi 09 mars");
    affichage.lu = QDateTime(mercredi.jour, QTime(9, 30, 59));
    semaine.dessine(affichage);
    EXPECT_EQ(vu(grille.cells(), 4, 3), q("D3  BIENTOT Léa")) << "its row's minute has not passed";
    affichage.lu = QDateTime(mercredi.jour.addDays(7), QTime(9, 31));
    semaine.dessine(affichage);
    EXPECT_EQ(vu(grille.cells(), 1, 3), q("D3  RETARD Léa")) << "lateness is today's";
    affichage.grilles = {{config, {}, {}, liste, q("pourquoi")}};
    semaine.dessine(affichage);
    EXPECT_EQ(dessin(grille), "");
}

TEST(Dessin, ADay) {
    const Configuration config = configDe(
        {.intervalle = 120, .heures = {"08:00", "12:00", "12:00", "13:00"}, .grise = {3, 3, 3, 3, 3, 3, 3}});
    FlexGrid gauche;
    FlexGrid droite;
    const Images images;
    const Demande jour{.PraticienCourant = {},
                       .VueSemaine = false,
                       .jour = QDate(2026, 2, 11),
                       .fauteuil = {},
                       .config = {}};
    GrillesJour(gauche, droite, images.env)
        .dessine({jour,
                  {},
                  0,
                  {{config, CreneauxSemaine(config), q("Fauteuil 1"), {rdv("ROUX", 3, "08:00", "12:30")}, {}},
                   {{}, {}, q("Fauteuil 2"), {}, q("pourquoi")}},
                  QDateTime(QDate(2026, 3, 11), QTime(12, 0))});
    EXPECT_EQ(dessin(gauche), R"(bHeure|bmercredi 11 février       Fauteuil 1
b08:00|T3!  ROUX Léa
b10:00|M3
b12:00|L3
b14:00|
)");
    EXPECT_EQ(dessin(droite), "bHeure|bmercredi 11 février       Fauteuil 2\n");
}

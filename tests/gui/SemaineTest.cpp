#include "gui/SemaineAttendue.h"
#include "gui/Souris.h"
#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"
#include "support/WaitUntil.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

/// Whether a cell's picture looks, on white, like the file.
bool memeImage(const QImage &image, const QString &fichier) {
    const QImage attendue = QImage(fichier).convertToFormat(QImage::Format_RGB32);
    QImage surBlanc(image.size(), QImage::Format_RGB32);
    surBlanc.fill(Qt::white);
    QPainter(&surBlanc).drawImage(0, 0, image);
    if (attendue.isNull() || surBlanc.size() != attendue.size()) {
        return false;
    }
    constexpr int arrondi = 2;
    for (int y = 0; y < attendue.height(); ++y) {
        for (int x = 0; x < attendue.width(); ++x) {
            const QRgb a = attendue.pixel(x, y);
            const QRgb b = surBlanc.pixel(x, y);
            if (std::abs(qRed(a) - qRed(b)) > arrondi || std::abs(qGreen(a) - qGreen(b)) > arrondi ||
                std::abs(qBlue(a) - qBlue(b)) > arrondi) {
                return false;
            }
        }
    }
    return true;
}

struct Comptes {
    int textes = 0;
    int images = 0;
    int presents = 0;
    int retards = 0;
};

class Semaine : public testing::Test {
  protected:
    void ouvre() {
        v = cabinet.variables();
        fenetre = std::make_unique<FrmEntree>(v);
        fenetre->Form_Load();
        fenetre->resize(1100, 850);
        ASSERT_TRUE(montre(*fenetre));
        grille = fenetre->findChild<FlexGrid *>(QStringLiteral("GrilleRDV"));
        ASSERT_NE(grille, nullptr);
        EXPECT_TRUE(cabinet.messages.shown.isEmpty()) << qPrintable(cabinet.messages.shown.value(0).text);
    }
    QString panneau(int numero) const {
        return fenetre->findChild<QLabel *>(QStringLiteral("StatusBar1_%1").arg(numero))->text();
    }
    QMenu &menu(const char *nom) const { return *fenetre->findChild<QMenu *>(QString::fromLatin1(nom)); }
    QAction &action(const char *nom) const {
        return *fenetre->findChild<QAction *>(QString::fromLatin1(nom));
    }

    QStringList praticiens() const {
        QStringList libelles;
        const Records rows =
            cabinet.ouvre(Base::Parametres).query(SqlText("Select nom, PreNom from Praticien"));
        for (const Record row : rows) {
            libelles << QStringLiteral("docteur ") + row.at(0).toText() + u' ' + row.at(1).toText();
        }
        return libelles;
    }
    QString faute(int ligne, int col, const CelluleAttendue &attendue) const;
    Comptes compare(const SemaineAttendue &attendue) const;

    CabinetDEssai cabinet;
    VariablesGlobales v;
    std::unique_ptr<FrmEntree> fenetre;
    FlexGrid *grille = nullptr;
};

/// What is wrong with a cell; empty when nothing is.
QString Semaine::faute(int ligne, int col, const CelluleAttendue &attendue) const {
    const FlexCell &cellule = grille->cells().cell(ligne, col);
    QStringList fautes;
    if (cellule.text != attendue.texte) {
        fautes << QStringLiteral("« %1 » au lieu de « %2 »").arg(cellule.text, attendue.texte);
    }
    if (cellule.back != attendue.fond) {
        fautes << QStringLiteral("fond %1 au lieu de %2").arg(cellule.back.name(), attendue.fond.name());
    }
    if (cellule.fore != attendue.encre) {
        fautes << QStringLiteral("encre %1 au lieu de %2").arg(cellule.fore.name(), attendue.encre.name());
    }
    const QString fichier = cabinet.dossier() + QStringLiteral("/Donnees/Images/") + attendue.image;
    if (attendue.image.isEmpty() ? !cellule.picture.isNull() : !memeImage(cellule.picture, fichier)) {
        fautes << QStringLiteral("l'image n'est pas « %1 »").arg(attendue.image);
    }
    if (attendue.centree && cellule.alignment != Qt::Alignment(Qt::AlignCenter)) {
        fautes << QStringLiteral("pas centrée");
    }
    return fautes.join(QStringLiteral(", "));
}

/// Compares every cell of the grid; gives how many of each kind there were to compare.
Comptes Semaine::compare(const SemaineAttendue &attendue) const {
    Comptes comptes;
    EXPECT_EQ(grille->cells().rows(), attendue.lignes());
    EXPECT_EQ(grille->cells().cols(), attendue.colonnes());
    QStringList fautes;
    for (int ligne = 0; ligne < attendue.lignes(); ++ligne) {
        for (int col = 0; col < attendue.colonnes(); ++col) {
            const CelluleAttendue cellule = attendue.cellule(ligne, col);
            const QString faite = faute(ligne, col, cellule);
            if (!faite.isEmpty()) {
                fautes << QStringLiteral("(%1, %2) : %3").arg(ligne).arg(col).arg(faite);
            }
            const bool rdv = !cellule.image.isEmpty();
            comptes.images += rdv ? 1 : 0;
            comptes.textes += rdv && !cellule.texte.isEmpty() ? 1 : 0;
            comptes.presents += rdv && cellule.encre == Qt::white ? 1 : 0;
            comptes.retards += rdv && cellule.encre == Qt::red ? 1 : 0;
        }
    }
    EXPECT_TRUE(fautes.isEmpty()) << fautes.size() << " cellules\n"
                                  << qPrintable(fautes.mid(0, 8).join(u'\n'));
    return comptes;
}

struct Ouverture {
    const char *nom;
    int praticien;
    int fauteuil; ///< of the practitioner's default configuration
    QDateTime maintenant;
    QDate jour; ///< the current date after the start
    const char *panneau4;
    int lignes;
    int colonnes;
    QList<SqlText> changements = {}; ///< of the appointment database
};
void PrintTo(const Ouverture &ouverture, std::ostream *sortie) {
    *sortie << ouverture.nom;
}

QDateTime mars(int jour, int heure, int minute) {
    return {QDate(2026, 3, jour), QTime(heure, minute)};
}

using Changements = QList<SqlText>;
const Changements pasEntiers{SqlText(
    "Update Config Set HeureMatFin = #12:10:00#, HeurePMFin = #18:50:00#, LunAffich = 0, NbJours = 5, "
    "MerGrise = 1, JeuGrise = 3 Where clng(NumPraticien) = 1 and clng(Fauteuil) = 1")};
const Changements journeeCourte{
    SqlText("Update Config Set HeureMatDebut = #09:10:00#, HeurePMFin = #15:10:00# "
            "Where clng(NumPraticien) = 1 and clng(Fauteuil) = 1")};
const Changements dimanche{
    SqlText("Update Config Set DimAffich = 7, NbJours = 6 Where clng(NumPraticien) = 2"),
    SqlText("Update RDV Set Date1 = #03 15 2026#, DateInv = '20260315' Where Date1 = #03 13 2026#")};

const Ouverture ouvertures[] = {
    {"MercrediMatin", 1, 1, mars(11, 10, 5), {2026, 3, 11}, "11 mars 2026", 42, 8},
    {"LeSoirToutEstEnRetard", 2, 0, mars(11, 20, 0), {2026, 3, 11}, "11 mars 2026", 42, 7},
    {"SansConfiguration", 3, 0, mars(11, 12, 0), {2026, 3, 11}, "11 mars 2026", 24, 7},
    {"LeSamediEstAffiche", 1, 1, mars(14, 9, 0), {2026, 3, 14}, "14 mars 2026", 42, 8},
    {"DuDimancheAuLundi", 1, 1, mars(15, 9, 0), {2026, 3, 16}, "16 mars 2026", 42, 8},
    {"DuSamediAuLundi", 2, 0, mars(7, 9, 0), {2026, 3, 9}, "09 mars 2026", 42, 7},
    {"HorairesQuiTombentMal", 1, 1, mars(11, 10, 5), {2026, 3, 11}, "11 mars 2026", 46, 7, pasEntiers},
    {"RendezVousCoupes", 1, 1, mars(11, 10, 5), {2026, 3, 11}, "11 mars 2026", 26, 8, journeeCourte},
    {"LeDimancheAussi", 2, 0, mars(11, 18, 0), {2026, 3, 11}, "11 mars 2026", 42, 8, dimanche},
};

class SemaineOuverte : public Semaine, public testing::WithParamInterface<Ouverture> {};

TEST_P(SemaineOuverte, EveryCellIsWhatTheDatabaseSays) {
    const Ouverture &o = GetParam();
    cabinet.maintenant = o.maintenant;
    for (const SqlText &changement : o.changements) {
        cabinet.ouvre(Base::RendezVous).execute(changement);
    }
    cabinet.ouvre(Base::PatientTransmis)
        .execute(SqlText("Update LePraticien Set NumPraticien = ")
                 << texte(QStringLiteral("0%1").arg(o.praticien)));
    ouvre();
    const Comptes comptes = compare(SemaineAttendue(cabinet, o.praticien, o.fauteuil, o.jour));
    EXPECT_GT(comptes.textes, 5);
    EXPECT_GT(comptes.images, comptes.textes);
    EXPECT_EQ(grille->cells().rows(), o.lignes);
    EXPECT_EQ(grille->cells().cols(), o.colonnes);
    EXPECT_EQ(v.txtNumJourEnCours, o.jour);
    EXPECT_EQ(panneau(4), QString::fromUtf8(o.panneau4));
    EXPECT_EQ(panneau(2), praticiens()[o.praticien - 1]);
    if (o.maintenant.date() == QDate(2026, 3, 11)) {
        EXPECT_GT(comptes.presents, 0);
        EXPECT_GT(comptes.retards, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Ouvertures, SemaineOuverte, testing::ValuesIn(ouvertures),
                         [](const auto &cas) { return std::string(cas.param.nom); });

QString coche(const QString &libelle) {
    return QStringLiteral("x ") + libelle;
}
QString decoche(const QString &libelle) {
    return QStringLiteral("- ") + libelle;
}

QStringList coches(const QMenu &menu) {
    QStringList liste;
    for (const QAction *action : menu.actions()) {
        liste << (action->isChecked() ? coche(action->text()) : decoche(action->text()));
    }
    return liste;
}

TEST_F(Semaine, MenusTitleAndViewAfterTheStart) {
    ouvre();
    const QStringList docteurs = praticiens();
    EXPECT_EQ(fenetre->windowTitle(), QStringLiteral("Carnet de rendez-vous du ") + docteurs[0]);
    EXPECT_EQ(coches(menu("mnuPraticien")),
              QStringList({coche(docteurs[0]), decoche(docteurs[1]), decoche(docteurs[2])}));
    EXPECT_TRUE(menu("menuFaut").menuAction()->isVisible());
    EXPECT_EQ(coches(menu("menuFaut")),
              QStringList({QStringLiteral("x Fauteuil 1"), QStringLiteral("- Fauteuil 2")}));
    EXPECT_FALSE(action("mnuReporter").isVisible());
    EXPECT_FALSE(action("mnuPresent").isChecked());
    for (const char *cache :
         {"GrilleRDV02", "GrilleRDV03", "Frame4", "BtnPrecedent2", "BtnSuivant2", "BtnAujourdhui2"}) {
        EXPECT_FALSE(fenetre->findChild<QWidget *>(QString::fromLatin1(cache))->isVisible()) << cache;
    }
    EXPECT_TRUE(grille->isVisible());
    EXPECT_EQ(v.NbPraticiens, 3);
    EXPECT_TRUE(v.AvecWord);
}

/// How many slots hear of an action being chosen.
class Ecoute : public QAction {
  public:
    static int oreilles(const QAction &action) {
        return (action.*(&Ecoute::receivers))(SIGNAL(triggered(bool)));
    }
};

TEST_F(Semaine, WhatNothingAnswersCannotBeChosen) {
    ouvre();
    QMenu temoin;
    const int sansGestionnaire = Ecoute::oreilles(*temoin.addAction(QStringLiteral("sans gestionnaire")));
    for (const QAction *action : fenetre->findChildren<QAction *>()) {
        if (action->menu() == nullptr && !action->isSeparator() && action->isEnabled()) {
            EXPECT_GT(Ecoute::oreilles(*action), sansGestionnaire) << qPrintable(action->text());
        }
    }
    for (const char *toujours : {"mnuquitter", "mnuAPropos", "mnuDocteur", "mnuFauteuil"}) {
        EXPECT_TRUE(action(toujours).isEnabled()) << toujours;
    }
    for (const char *sansSelection : {"mnuEditer", "mnuSupprimer", "mnuPresent", "mnuReporter"}) {
        EXPECT_FALSE(action(sansSelection).isEnabled()) << sansSelection;
    }
}

TEST_F(Semaine, PractitionersAndChairsAreChosenWithTheMouse) {
    ouvre();
    const QStringList docteurs = praticiens();
    const auto choisitPraticien = [&](int place) {
        Souris::choisit(*fenetre, *menu("mnuPraticien").actions()[place]);
        const QString titre = QStringLiteral("Carnet de rendez-vous du ") + docteurs[place];
        ASSERT_TRUE(waitUntil([&] { return fenetre->windowTitle() == titre; }));
        EXPECT_EQ(panneau(2), docteurs[place]);
        EXPECT_EQ(v.PraticienCourant, QStringLiteral("0%1").arg(place + 1));
        EXPECT_EQ(coches(menu("mnuPraticien")).indexOf(coche(docteurs[place])), place);
        EXPECT_EQ(coches(menu("mnuPraticien")).filter(QStringLiteral("x ")).size(), 1);
    };
    const QDate jour(2026, 3, 11);
    choisitPraticien(1);
    compare(SemaineAttendue(cabinet, 2, 0, jour));
    EXPECT_FALSE(menu("menuFaut").menuAction()->isVisible());
    choisitPraticien(2);
    compare(SemaineAttendue(cabinet, 3, 0, jour));
    EXPECT_FALSE(menu("menuFaut").menuAction()->isVisible());
    EXPECT_FALSE(v.ConfigExiste);
    choisitPraticien(0);
    compare(SemaineAttendue(cabinet, 1, 1, jour));
    ASSERT_TRUE(menu("menuFaut").menuAction()->isVisible());

    Souris::choisit(*fenetre, *menu("menuFaut").actions()[1]);
    ASSERT_TRUE(waitUntil([&] { return v.config.FauteuilCourant == u"2"; }));
    const Comptes comptes = compare(SemaineAttendue(cabinet, 1, 2, jour));
    EXPECT_GT(comptes.textes, 20);
    EXPECT_EQ(coches(menu("menuFaut")),
              QStringList({QStringLiteral("- Fauteuil 1"), QStringLiteral("x Fauteuil 2")}));
    EXPECT_TRUE(cabinet.messages.shown.isEmpty());
}

TEST_F(Semaine, AboutListsThePractitionersAndCloses) {
    ouvre();
    for (const bool auClavier : {false, true}) {
        SCOPED_TRACE(auClavier);
        QStringList liste;
        EXPECT_TRUE(pendant(
            QStringLiteral("FrmAPropos"), [&] { Souris::choisit(*fenetre, action("mnuAPropos")); },
            [&](QWidget &propos) {
                const auto *praticiens = propos.findChild<QListWidget *>();
                for (int i = 0; i < praticiens->count(); ++i) {
                    liste << praticiens->item(i)->text();
                }
                if (auClavier) {
                    Clavier::touches({QStringLiteral("Escape")});
                } else {
                    Souris::clic(*propos.findChild<QPushButton *>(QStringLiteral("BtnOK")));
                }
            }));
        EXPECT_EQ(liste, praticiens());
    }
}

} // namespace

#include "booking/CodesRapidesDescription.h"
#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmHistorique.h"
#include "booking/FrmInsolite.h"
#include "booking/FrmJourMois.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "config/FrmJourExclure.h"
#include "config/FrmSauvegarde.h"
#include "config/FrmTrancheHoraire.h"
#include "config/SuppConfig.h"
#include "grid/FrmMois.h"
#include "maintenance/FrmPurger.h"
#include "patients/FrmNouveauPatient.h"
#include "print/FrmDateImpression.h"
#include "print/ListingAbsent.h"
#include "search/FrmRDVlibre.h"
#include "search/FrmRecherche.h"
#include "search/FrmResultatRech.h"
#include "start/FrmAPropos.h"
#include "start/FrmQuit.h"
#include "start/FrmTouches.h"
#include "start/MiseANiveauTables.h"
#include "support/Fenetre.h"
#include "transfer/FrmDeplacer.h"

#include <QAccessible>
#include <QGroupBox>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QThreadPool>
#include <gtest/gtest.h>

namespace {

/// One of each window, on a practice.
class ToutesFenetres : public testing::Test, public Fenetre {
  protected:
    ToutesFenetres() {
        livre.config();
        livre.config({.nom = "Cabinet2", .fauteuil = 2, .defaut = false});
        const Environnement &env = cabinet.environnement();
        const PlaceRDV place{q("01"), q("1"), QDate(2026, 3, 11), {QTime(9, 0), QTime(10, 0)}, 15, 1};
        RendezVous rdv;
        rdv.RefRDV = livre.rdv();
        rdv.Nom = q("ROUX");
        rdv.Date1 = place.jour;
        rdv.HeureDebut = place.horaire.debut;
        rdv.HeureFin = place.horaire.fin;
        const Configuration config = configDe();
        const RDVsTrouves trouves{{{1, place.jour, place.horaire.debut, place.horaire.fin}}, 0};
        ouvre<FrmAjouter>(env, place);
        ouvre<FrmEditer>(env, rdv, place);
        ouvre<FrmSupprimer>(env, rdv, place);
        ouvre<FrmHistorique>(env, CibleHistorique{rdv, place.jour, 1});
        ouvre<FrmQuelHoraire>(QList<Insolite>{{Insolite::Genre::Midi, q("Midi"), q("12:00")}});
        ouvre<FrmInsolite>(Visee{rdv, rdv, place}, QList<Insolite>{{Insolite::Genre::Passe, q("Passé"), {}}});
        ouvre<FrmJourMois>(place.jour);
        ouvre<CodesRapidesDescription>();
        ouvre<FrmTrancheHoraire>(env, config);
        ouvre<FrmJourExclure>(env, config);
        ouvre<FrmSauvegarde>(env, q("01"), config);
        ouvre<SuppConfig>(env, 1L);
        ouvre<FrmMois>(env, place.jour, FrmMois::Foyer::Date);
        ouvre<FrmPurger>(env, 1L, q("docteur UN"));
        ouvre<FrmDeplacer>(env, MetANiveauDeplace);
        ouvre<FrmNouveauPatient>(env);
        ouvre<FrmRDVlibre>(env, q("01"), config);
        ouvre<FrmRecherche>(env, q("ROUX"), q("Zoé"));
        ouvre<FrmResultatRech>(env, CritereRDV{q("ROUX"), q("Zoé"), place.jour}, trouves);
        ouvre<FrmDateImpression>(env, 1L, 1L, q("docteur UN"));
        ouvre<ListingAbsent>(env, q("01"));
        ouvre<FrmAPropos>(QStringList{q("docteur UN")});
        ouvre<FrmQuit>();
        ouvre<FrmTouches>();
        Fenetre::ouvre();
    }
    void TearDown() override { QThreadPool::globalInstance()->waitForDone(); } // indexes may be on their way
    template <typename F, typename... Arguments>
    void ouvre(const Arguments &...arguments) {
        fenetres.push_back(std::make_unique<F>(arguments...));
        fenetres.back()->show();
    }

    std::vector<std::unique_ptr<QDialog>> fenetres;
};

/// The texts whose mnemonics work in a window.
QStringList legendes(const QWidget &fenetre) {
    QStringList textes;
    for (const QWidget *enfant : fenetre.findChildren<const QWidget *>()) {
        const auto *etiquette = qobject_cast<const QLabel *>(enfant);
        const auto *groupe = qobject_cast<const QGroupBox *>(enfant);
        const bool agit = qobject_cast<const QAbstractButton *>(enfant) != nullptr ||
                          (etiquette != nullptr && etiquette->buddy() != nullptr);
        if (enfant->isVisible() && agit) {
            textes << enfant->property("text").toString();
        } else if (enfant->isVisible() && groupe != nullptr) {
            textes << groupe->title();
        }
    }
    return textes;
}

template <typename Barre>
QStringList entrees(const Barre &barre) {
    QStringList textes;
    for (const QAction *action : barre.actions()) {
        textes << (action->isVisible() ? action->text() : QString());
    }
    return textes;
}

/// Those of `textes` whose mnemonic another one has.
QString doubles(const QStringList &textes) {
    QMap<QString, QStringList> parTouche;
    for (const QString &texte : textes) {
        const QKeySequence touche = QKeySequence::mnemonic(texte);
        parTouche[touche.toString()] << (touche.isEmpty() ? QStringList() : QStringList{texte});
    }
    QStringList deux;
    for (const QStringList &memes : parTouche) {
        deux << (memes.size() > 1 ? memes : QStringList());
    }
    return deux.join(u' ');
}

/// What Tab reaches, in its order.
QList<const QWidget *> chaine(const QWidget &fenetre) {
    QList<const QWidget *> tous;
    const QWidget *w = &fenetre;
    do {
        const bool atteint = (w->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && w->focusProxy() == nullptr;
        if (w->window() == &fenetre && w->isVisible() && w->isEnabled() && atteint) {
            tous << w;
        }
        w = w->nextInFocusChain();
    } while (w != &fenetre);
    return tous;
}

QString nom(const QObject &objet) {
    return objet.objectName().isEmpty() ? q(objet.metaObject()->className()) : objet.objectName();
}

/// Steps that go neither down nor to the right, and a beginning that is not the top.
QString rebours(const QWidget &fenetre) {
    QStringList pas;
    const QList<const QWidget *> tous = chaine(fenetre);
    QRect avant;
    for (const QWidget *w : tous) {
        const QRect ici(w->mapTo(&fenetre, QPoint()), w->size());
        const bool plusLoin = ici.left() > avant.right() || ici.top() > avant.bottom();
        if (!avant.isNull() && !plusLoin) {
            pas << nom(*tous[tous.indexOf(w) - 1]) + u'>' + nom(*w);
        }
        if (ici.bottom() < tous[0]->mapTo(&fenetre, QPoint()).y()) {
            pas << nom(*w) + q(" is above the first");
        }
        avant = ici;
    }
    return pas.join(u' ');
}

} // namespace

TEST_F(ToutesFenetres, NoMnemonicTwice) {
    int vus = 0;
    for (const auto &dialogue : fenetres) {
        EXPECT_EQ(doubles(legendes(*dialogue)), QString()) << nom(*dialogue);
        vus += int(legendes(*dialogue).join(QString()).count(u'&'));
    }
    for (const char *vue : {"BtnSemaine", "BtnJour"}) {
        fait(q(vue));
        EXPECT_EQ(doubles(legendes(*fenetre) + entrees(objet<QMenuBar>("menubar"))), QString()) << vue;
    }
    for (const QMenu *menu : fenetre->findChildren<const QMenu *>()) {
        EXPECT_EQ(doubles(entrees(*menu)), QString()) << nom(*menu);
        vus += int(entrees(*menu).join(QString()).count(u'&'));
    }
    EXPECT_GT(vus, 25) << "the captions were not found";
}

TEST_F(ToutesFenetres, WhatTakesAValueHasAName) {
    for (const auto &dialogue : fenetres) {
        QStringList fleches;
        for (QWidget *enfant : dialogue->findChildren<QWidget *>()) {
            const bool saisie = enfant->inherits("QComboBox") || enfant->inherits("QLineEdit");
            const bool calendrier =
                enfant->inherits("QToolButton") && enfant->parent()->inherits("ChampDate");
            if (enfant->isVisible() && (saisie || calendrier)) {
                const QAccessibleInterface *lu = QAccessible::queryAccessibleInterface(enfant);
                EXPECT_NE(lu->text(QAccessible::Name), QString()) << nom(*dialogue) << ' ' << nom(*enfant);
            }
            fleches << (enfant->inherits("UpDown") ? enfant->accessibleName() : QString());
        }
        fleches.removeAll(QString());
        EXPECT_EQ(fleches.removeDuplicates(), 0) << nom(*dialogue);
        const auto paires = dialogue->findChildren<QWidget *>(QRegularExpression(q("^UpDown\\d$"))).size();
        EXPECT_EQ(fleches.size(), paires) << nom(*dialogue);
    }
}

TEST_F(ToutesFenetres, EscapeClosesTheListingFromItsList) {
    const auto listing = std::ranges::find(fenetres, q("ListingAbsent"), &QObject::objectName);
    ASSERT_NE(listing, fenetres.end());
    QTest::keyClick((*listing)->findChild<QWidget *>(q("ListAbsent")), Qt::Key_Escape);
    EXPECT_FALSE((*listing)->isVisible());
}

TEST_F(ToutesFenetres, TabFollowsTheEye) {
    for (const auto &dialogue : fenetres) {
        EXPECT_EQ(rebours(*dialogue), QString()) << nom(*dialogue);
        EXPECT_GT(chaine(*dialogue).size(), 0) << nom(*dialogue);
    }
    for (const char *vue : {"BtnSemaine", "BtnJour"}) {
        fait(q(vue));
        EXPECT_EQ(rebours(*fenetre), QString()) << vue;
    }
}

TEST_F(ToutesFenetres, EnterLosesNothing) {
    for (const auto &[quoi, voulu] : {std::pair("FrmSupprimer", "BtnAnnuler"),
                                      {"FrmPurger", "BtnAnnuler"},
                                      {"FrmDeplacer", "BtnAnnuler"},
                                      {"SuppConfig", ""}}) {
        const auto dialogue = std::ranges::find(fenetres, q(quoi), &QObject::objectName);
        ASSERT_NE(dialogue, fenetres.end());
        QStringList defauts;
        for (const auto *bouton : (*dialogue)->findChildren<const QPushButton *>()) {
            defauts << (bouton->isDefault() ? nom(*bouton) : QString());
        }
        EXPECT_EQ(defauts.join(QString()), q(voulu)) << quoi;
    }
}

#include "grid/GrillesJour.h"

#include "config/ConfigTables.h"
#include "grid/DessinGrille.h"
#include "grid/Disposition.h"
#include "grid/RendezVousTables.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGrid.h"
#include "platform/ui/Sablier.h"
#include "platform/ui/Twips.h"
#include "start/VariablesGlobales.h"

#include <QGuiApplication>
#include <QPalette>

namespace {

/// A label of a day grid: no grey here, the desktop's own button colours.
void ecritEtiquette(FlexCell &cellule, const QString &texte) {
    cellule.text = texte;
    cellule.alignment = Qt::AlignCenter;
    cellule.back = QGuiApplication::palette().color(QPalette::Button);
    cellule.fore = QGuiApplication::palette().color(QPalette::ButtonText);
}

} // namespace

GrillesJour::GrillesJour(FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03, VariablesGlobales &etat,
                         QObject *parent)
    : QObject(parent), m_volets{{{&GrilleRDV02, {}}, {&GrilleRDV03, {}}}}, v(etat),
      m_images(v.chemins, v.CheminRacine) {}

void GrillesJour::AffichageJournée(int fauteuilCoche) {
    if (v.AvecFauteuils) {
        if (fauteuilCoche >= 0) {
            AffichageParJour(fauteuilCoche);
        }
        return;
    }
    const Sablier sablier;
    const FlexGridWriting ecriture2(m_volets[0].grille->cells());
    const FlexGridWriting ecriture3(m_volets[1].grille->cells());
    Database base = v.ouvreCarnet();
    TraceGrille2Et3Jour(base);
    AfficheDate2_3();
    const QList<RendezVous> jour = RendezVousDuJour(base, v.txtNumJourEnCours, v.numPraticien());
    for (const Volet &volet : m_volets) {
        dessine(volet, jour);
    }
}

void GrillesJour::AffichageParJour(int index) {
    const Sablier sablier;
    const FlexGridWriting ecriture2(m_volets[0].grille->cells());
    const FlexGridWriting ecriture3(m_volets[1].grille->cells());
    Database base = v.ouvreCarnet();
    const QList<LigneConfig> configs = ConfigsDuPraticien(base, v.numPraticien());
    const int nombre = int(configs.size());
    if (nombre < 2) {
        AfficheDate2_3();
        return;
    }
    const bool deux = nombre == 2;
    const int premier = deux ? 0 : std::min(index, nombre - 1);
    const int second = deux ? 1 : (premier + 1) % nombre;
    const QString fauteuilA = configs[premier].Fauteuil;
    const QString fauteuilB = configs[second].Fauteuil;
    TraceGrille(m_volets[0], base, int(CLng(fauteuilA)));
    TraceGrille(m_volets[1], base, int(CLng(fauteuilB)));
    AfficheDate2Et3(fauteuilA, fauteuilB);
    if (!deux) {
        v.config.JourAffich =
            JourAffichDuFauteuil(base, int(CLng(configs[0].Fauteuil))).value_or(v.config.JourAffich);
    }
    const QDate jour = v.txtNumJourEnCours;
    dessine(m_volets[0], RendezVousEntre(base, jour, jour, v.numPraticien(), CLng(fauteuilA)));
    dessine(m_volets[1], RendezVousEntre(base, jour, jour, v.numPraticien(), CLng(fauteuilB)));
}

void GrillesJour::TraceGrille2Et3Jour(Database &base) {
    const QList<LigneConfig> configs = ConfigsDuPraticien(base, v.numPraticien());
    Configuration config = v.config; // without a configuration of his own, the fall-back that is loaded
    if (!configs.isEmpty()) {
        const int fauteuil = int(CLng(configs.first().Fauteuil));
        config = LitConfig(base, configs.first().NomConfig, v.numPraticien(), fauteuil).value_or(config);
    }
    const bool tracable = DefautConfiguration(config).isEmpty();
    const auto creneaux = [&](QTime debut, QTime fin) {
        return tracable ? Creneaux{debut, fin, config.Intervalle} : Creneaux();
    };
    construit(m_volets[0], creneaux(config.HeureMatDebut, config.HeureMatFin));
    construit(m_volets[1], creneaux(config.HeurePMDebut, config.HeurePMFin));
}

void GrillesJour::TraceGrille(Volet &volet, Database &base, int fauteuil) {
    const auto config = LitConfig(base, QString(), v.numPraticien(), fauteuil);
    const bool tracable = config && DefautConfiguration(*config).isEmpty();
    construit(volet, tracable ? CreneauxSemaine(*config) : Creneaux());
}

void GrillesJour::construit(Volet &volet, const Creneaux &creneaux) {
    volet.creneaux = creneaux;
    FlexGridModel &cellules = volet.grille->cells();
    if (!creneaux.debut.isValid()) {
        cellules.clear(1, 2); // only the header: this chair has no usable configuration
        return;
    }
    cellules.clear(creneaux.lignes(), 2);
    for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
        ecritEtiquette(cellules.at(ligne, 0), DatesFr::heure(creneaux.heure(ligne)));
    }
    volet.grille->setKeyboardArea(QRect(1, 1, 1, cellules.rows() - 2));
}

void GrillesJour::AfficheDate2_3() {
    ecritEntetes(QStringLiteral("Matin"), QStringLiteral("Après-midi"));
}

void GrillesJour::AfficheDate2Et3(const QString &fauteuilA, const QString &fauteuilB) {
    ecritEntetes(LibelleFauteuil(fauteuilA), LibelleFauteuil(fauteuilB));
}

void GrillesJour::ecritEntetes(const QString &suiteA, const QString &suiteB) {
    const QString date = DatesFr::enteteJourLong(v.txtNumJourEnCours) + QStringLiteral("       ");
    const std::array<QString, 2> suites{suiteA, suiteB};
    for (size_t i = 0; i < m_volets.size(); ++i) {
        FlexGridModel &cellules = m_volets[i].grille->cells();
        if (cellules.cols() < 2) {
            cellules.clear(1, 2);
        }
        ecritEtiquette(cellules.at(0, 0), QStringLiteral("Heure"));
        ecritEtiquette(cellules.at(0, 1), date + suites[i]);
    }
    emit dateAffichee(v.txtNumJourEnCours);
}

void GrillesJour::dessine(const Volet &volet, const QList<RendezVous> &jour) {
    const QDateTime maintenant = v.maintenant();
    for (const RendezVous &rdv : jour) {
        v.prendRendezVous(rdv);
        v.ColonneJour = 1;
        if (volet.creneaux.debut.isValid()) {
            AfficheFourchette(volet.grille->cells(), volet.creneaux, rdv, 1, m_images, maintenant);
        }
    }
}

void GrillesJour::Dimensionne() {
    for (const Volet &volet : m_volets) {
        const LargeursColonnes largeurs = LargeursJour(twipsFromPixels(volet.grille->width()));
        volet.grille->setColumnWidth(0, pixelsFromTwips(largeurs.heures));
        volet.grille->setColumnWidth(1, pixelsFromTwips(largeurs.jours));
    }
}

void GrillesJour::MontreHeureCourante() {
    const QDateTime maintenant = v.maintenant();
    for (const Volet &volet : m_volets) {
        if (volet.creneaux.debut.isValid() && maintenant.date() == v.txtNumJourEnCours) {
            volet.grille->showAtTop(std::max(volet.creneaux.premiereLigne(maintenant.time()) - 2, 1));
        }
    }
}

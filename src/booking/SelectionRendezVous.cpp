#include "booking/SelectionRendezVous.h"

#include "config/ConfigTables.h"
#include "schedule/Creneaux.h"
#include "grid/RendezVousTables.h"
#include "platform/db/DbError.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGrid.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"

namespace {

CoinsSelection coinsDe(const FlexGrid &grille) {
    return {grille.row(), grille.col(), grille.rowSel(), grille.colSel()};
}

} // namespace

SelectionRendezVous::SelectionRendezVous(FlexGrid &GrilleRDV, FlexGrid &GrilleRDV02, FlexGrid &GrilleRDV03,
                                         VariablesGlobales &etat, QObject *parent)
    : QObject(parent), m_semaine(GrilleRDV), m_jour2(GrilleRDV02), m_jour3(GrilleRDV03),
      m_jourCourant(&GrilleRDV02), v(etat) {
    connect(&m_semaine, &FlexGrid::selectionChanging, this,
            [this] { traite([this] { selectionSemaine(); }); });
    connect(&m_semaine, &FlexGrid::clicked, this, &SelectionRendezVous::metInfoBulle);
    for (FlexGrid *grille : {&m_jour2, &m_jour3}) {
        connect(grille, &FlexGrid::selectionChanging, this,
                [this, grille] { traite([this, grille] { selectionJour(*grille); }); });
    }
    for (FlexGrid *grille : {&m_semaine, &m_jour2, &m_jour3}) {
        connect(grille, &FlexGrid::buttonReleased, this,
                [this, grille](Qt::MouseButton bouton, const QPoint &position) {
                    boutonRelache(*grille, bouton, position);
                });
        connect(grille, &FlexGrid::activatedSelection, this, &SelectionRendezVous::ouvertureDemandee);
    }
}

void SelectionRendezVous::traite(const std::function<void()> &gestionnaire) {
    if (m_enErreur) {
        return; // told already; the outer run ends too
    }
    ++m_profondeur;
    QString erreur;
    try {
        gestionnaire();
    } catch (const DbError &echec) {
        m_enErreur = true;
        erreur = echec.message();
    }
    --m_profondeur;
    if (!erreur.isEmpty()) {
        v.messages->error(erreur);
    }
    if (m_profondeur == 0) {
        m_enErreur = false;
    }
}

// ---- Selection changes

void SelectionRendezVous::selectionSemaine() {
    if (!v.VueSemaine) {
        return;
    }
    const CoinsSelection coins = coinsDe(m_semaine);
    v.LigneDebut = coins.premiereLigne();
    v.LigneFin = coins.derniereLigne();
    v.ColonneDebut = coins.premiereColonne();
    v.ColonneFin = coins.derniereColonne();
    const FlexGridModel &cellules = m_semaine.cells();
    switch (CorrigeSelection(coins, cellules.rows(), cellules.cols())) {
    case Correction::PlusieursColonnes:
        metEnPremiereCellule();
        v.messages->show(QStringLiteral("Vous ne pouvez pas sélectionner plusieurs colonnes !"),
                         QStringLiteral("Erreur de sélection !"));
        return;
    case Correction::PremiereCellule:
        metEnPremiereCellule();
        return;
    case Correction::RemonteFin:
        m_semaine.setRowSel(m_semaine.rowSel() - 1); // a selection change of its own, handled there
        return;
    case Correction::Aucune:
        break;
    }
    HoraireSelection(v.config.HeureMatDebut);
    v.ChoixHoraire =
        HoraireProf(v.config, Jour(v.txtNumJourEnCours), v.HeureDebutCourante, v.HeureFinCourante);
    AnalyseSelection();
}

void SelectionRendezVous::metEnPremiereCellule() {
    m_semaine.select(1, 1, 1, 1);
}

void SelectionRendezVous::selectionJour(FlexGrid &grille) {
    const CoinsSelection coins = coinsDe(grille);
    m_jourCourant = &grille;
    v.LigneDebut = coins.premiereLigne();
    v.LigneFin = coins.derniereLigne();
    if (&grille == &m_jour2 && coins.ligne == 1) {
        return;
    }
    prendFauteuil(grille); // before the times: they are those of this chair's slots
    const int fermeture = grille.cells().rows() - 1;
    if (coins.ligne == fermeture) {
        grille.select(1, 1, fermeture, 1);
        return;
    }
    if (coins.derniereLigne() == fermeture) {
        grille.setRowSel(grille.rowSel() - 1);
        return;
    }
    const bool apresMidi = &grille == &m_jour3 && !v.AvecFauteuils;
    HoraireSelection(apresMidi ? v.config.HeurePMDebut : v.config.HeureMatDebut);
    AnalyseSelection();
}

void SelectionRendezVous::rafraichit() {
    traite([this] {
        const bool semaine = v.VueSemaine && m_semaine.row() > 0 && m_semaine.cells().rows() > 0;
        // a day grid whose configuration is not loaded has slots that nothing here knows yet
        const bool jour = !v.VueSemaine && v.ConfigGrilleJour >= 0 &&
                          m_jourCourant->row() > (m_jourCourant == &m_jour2 ? 1 : 0);
        if (semaine) {
            selectionSemaine();
        } else if (jour) {
            selectionJour(*m_jourCourant);
        } else { // drawing wrote the last appointment into the context
            v.prendRendezVous(RendezVous());
            v.SelectionLibre = true;
            emit contexteChange();
        }
    });
}

// ---- Context

void SelectionRendezVous::HoraireSelection(QTime depart) {
    const PlageHoraire plage = HorairesDesLignes(depart, v.config.Intervalle, v.LigneDebut, v.LigneFin);
    v.HeureDebutCourante = plage.debut;
    v.HeureFinCourante = plage.fin;
    if (v.VueSemaine) { // a day grid keeps the day that it shows
        v.txtNumJourEnCours = JourDeColonne(v.txtNumJourEnCours, v.config.JourAffich, v.ColonneDebut)
                                  .value_or(v.txtNumJourEnCours);
        v.ColonneJour = v.ColonneDebut;
    }
    v.JourSemaineCourant = Jour(v.txtNumJourEnCours);
}

void SelectionRendezVous::AnalyseSelection() {
    Database base = v.ouvreCarnet();
    const QList<RendezVous> jour =
        RendezVousALaDate(base, v.txtNumJourEnCours, v.numPraticien(), CLng(v.config.FauteuilCourant));
    const ContexteSelection contexte = ::AnalyseSelection(
        v.config, {v.HeureDebutCourante, v.HeureFinCourante}, jour, m_semaine.cells().rows());
    const QString numPatient = v.NumPatientCourant;
    v.prendRendezVous(contexte.rdv);
    v.HeureDebutCourante = contexte.horaire.debut;
    v.HeureFinCourante = contexte.horaire.fin;
    v.SelectionLibre = contexte.SelectionLibre;
    v.RDVPartiel = contexte.RDVPartiel;
    if (contexte.SelectionLibre) {
        v.NumPatientCourant = v.txtUnPatientBelmor.isEmpty() ? QStringLiteral("0") : numPatient;
    } else {
        v.RefRDVCourant = contexte.rdv.RefRDV;
    }
    if (contexte.RDVPartiel) {
        v.RDVHorsGrille = contexte.RDVHorsGrille;
    }
    emit contexteChange();
    if (contexte.premiereLigne > 0) {
        m_semaine.select(contexte.premiereLigne, v.ColonneJour, contexte.derniereLigne, v.ColonneJour);
    }
}

// ---- Mouse

void SelectionRendezVous::boutonRelache(FlexGrid &grille, Qt::MouseButton bouton, const QPoint &position) {
    traite([&] {
        if (&grille != &m_semaine && prendFauteuil(grille)) {
            selectionJour(grille); // what was selected means this chair's slots now
        }
    });
    if (bouton == Qt::RightButton) {
        emit menuDemande(position);
    }
}

bool SelectionRendezVous::prendFauteuil(const FlexGrid &grille) {
    const int place = v.AvecFauteuils && &grille == &m_jour3 ? 1 : 0;
    if (v.ConfigGrilleJour == place) {
        return false;
    }
    Database base = v.ouvreCarnet();
    const QList<LigneConfig> configs = ConfigsDuPraticien(base, v.numPraticien());
    // Without chairs both grids show the practitioner's first configuration, or the fall-back.
    const int fauteuil = v.AvecFauteuils     ? NumeroFauteuil(grille.cells().cell(0, 1).text)
                         : configs.isEmpty() ? -1
                                             : int(CLng(configs.first().Fauteuil));
    const auto nom =
        configs.isEmpty() ? NomConfigDeRepli(base) : NomConfigDuFauteuil(base, v.numPraticien(), fauteuil);
    if (nom) {
        v.config = LitConfig(base, *nom, v.numPraticien(), fauteuil).value_or(v.config);
        v.intervalleSansZoom = 0;
    }
    v.ConfigExiste = !configs.isEmpty();
    v.ConfigGrilleJour = place;
    return true;
}

void SelectionRendezVous::metInfoBulle() {
    if (!v.NomRDV.isEmpty()) {
        m_semaine.setToolTip(InfoBulleRDV(v.NomRDV, v.PrenomRDV, v.DescriptionRDV,
                                          DatesFr::heure(v.HeureDebutCourante),
                                          DatesFr::heure(v.HeureFinCourante)));
    }
}

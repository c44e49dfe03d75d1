#include "start/ActionsPatient.h"

#include "booking/Annulation.h"
#include "booking/FrmAjouter.h"
#include "patients/HistoriqueTables.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "print/FrmDateImpression.h"
#include "print/LettrePatient.h"
#include "print/ListingAbsent.h"
#include "search/FrmRDVlibre.h"
#include "search/FrmRecherche.h"
#include "start/CarnetMontre.h"
#include "start/MenusPraticien.h"

ActionsPatient::ActionsPatient(const Environnement &env, CarnetMontre &carnet, Annulation &annulation,
                               const MenusPraticien &menus, QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_annulation(annulation), m_menus(menus),
      m_fenetre(fenetre) {}

void ActionsPatient::mnurechercher_Click() {
    const RendezVous rdv = m_carnet.selection().rdv.value_or(RendezVous());
    FrmRecherche fenetre(m_env, rdv.Nom, rdv.Prenom, &m_fenetre);
    fenetre.exec();
    if (fenetre.choisi()) {
        m_fenetre.activateWindow(); // two windows have closed together
        m_carnet.montreRDV(*fenetre.choisi());
    }
}

// ---- Free slots

void ActionsPatient::mnuRDVlibre_Click() {
    const Grille &montree = m_carnet.affichage().grilles.first();
    if (montree.config == Configuration()) { // the day view, and no chair to show
        m_env.messages->show(montree.empechement);
        return;
    }
    FrmRDVlibre recherche(m_env, m_carnet.affichage().demande.PraticienCourant, m_carnet.reglages(),
                          &m_fenetre);
    connect(&recherche, &FrmRDVlibre::creneauChoisi, this,
            [&](const PlaceRDV &place) { reserve(recherche, place); });
    recherche.exec();
    m_fenetre.activateWindow(); // two windows may have closed together
}

void ActionsPatient::reserve(FrmRDVlibre &recherche, const PlaceRDV &place) {
    if (!m_carnet.montrePlace(place)) {
        return;
    }
    if (PlaceDuFauteuil(m_carnet.affichage().configs, CLng(place.FauteuilCourant)) < 0) {
        m_env.messages->show(QStringLiteral("Ce praticien n'a plus de configuration pour ce fauteuil."));
        recherche.BtnOK_Click();
        return;
    }
    const Insolite dite{Insolite::Genre::NonAffiche, {}, {}}; // by a line under the list
    FrmAjouter ajouter(m_env, place, &recherche, {dite});
    const bool reservee = ajouter.exec() == QDialog::Accepted;
    m_annulation.note(ajouter.ecriture());
    if (reservee) {
        m_carnet.montreRDV(ajouter.rdvEcrit().RefRDV); // by day where the week leaves its weekday out
    } else {
        m_carnet.relit();
    }
    if (reservee || !ajouter.refuse()) {
        recherche.accept();
    } else {
        recherche.BtnOK_Click();
    }
}

// ---- Letters

void ActionsPatient::mnuListAbs_Click() {
    ListingAbsent(m_env, m_carnet.affichage().demande.PraticienCourant, &m_fenetre).exec();
}

/// What is selected counts, also when another workstation has deleted it since: that may be what the letter
/// is about.
void ActionsPatient::mnuLettre_Click() {
    const RendezVous choisi = m_carnet.selection().rdv.value_or(RendezVous());
    LettreAnnulation(m_env, &m_fenetre,
                     {m_carnet.affichage().demande.numPraticien(), CLng(choisi.NumPatient),
                      DatesFr::courte(m_carnet.jourCourant())});
}

// ---- History

/// What is selected counts, also when another workstation has deleted it since: the patient has other
/// appointments. Without one, empty names are looked for.
void ActionsPatient::menuAllerHisto_Click() {
    const RendezVous choisi = m_carnet.selection().rdv.value_or(RendezVous());
    qint64 numero = 0;
    if (!essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnet();
            numero = DernierNumero(carnet, choisi.Nom, choisi.Prenom);
        })) {
        return;
    }
    if (numero == 0) {
        m_env.messages->show(
            QStringLiteral("Le patient ne possède pas de numéro Belmor !\nActin Impossible à exécuter."),
            QStringLiteral("Action Impossible"), Messages::Icon::Critical);
        return;
    }
    if (essaie(m_env, [&] {
            Database historique = m_env.ouvreHistorique();
            DemandeHistorique(historique, numero);
        })) {
        m_fenetre.showMinimized();
    }
}

// ---- Paper

/// The chair is that of the grid that holds the selection: in the day view, one that this practitioner has.
void ActionsPatient::mnuImprimer_Click() {
    const Demande &montree = m_carnet.affichage().demande;
    FrmDateImpression(m_env, montree.numPraticien(), CLng(m_carnet.reglages().FauteuilCourant),
                      m_menus.libelle(montree.PraticienCourant), &m_fenetre)
        .exec();
}

#include "start/ActionsPatient.h"

#include "booking/FrmAjouter.h"
#include "platform/ui/Messages.h"
#include "search/FrmRDVlibre.h"
#include "start/CarnetMontre.h"

ActionsPatient::ActionsPatient(const Environnement &env, CarnetMontre &carnet, QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_fenetre(fenetre) {}

// ---- Free slots

void ActionsPatient::mnuRDVlibre_Click() {
    FrmRDVlibre recherche(m_env, m_carnet.affichage().demande.PraticienCourant, m_carnet.reglages(),
                          &m_fenetre);
    connect(&recherche, &FrmRDVlibre::creneauChoisi, this,
            [&](const PlaceRDV &place) { reserve(recherche, place); });
    recherche.exec();
    m_fenetre.activateWindow(); // two windows that close together leave some window managers with none active
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
    FrmAjouter ajouter(m_env, place, &recherche);
    const bool reservee = ajouter.exec() == QDialog::Accepted;
    if (reservee) {
        montreEcrit(ajouter.rdvEcrit());
    } else {
        m_carnet.relit();
    }
    if (reservee || !ajouter.refuse()) {
        recherche.accept();
    } else {
        recherche.BtnOK_Click();
    }
}

void ActionsPatient::montreEcrit(const RendezVous &rdv) {
    const Affichage &affichage = m_carnet.affichage();
    const bool cache =
        affichage.demande.VueSemaine && !Dans(Jour(rdv.Date1), affichage.grilles.first().config.JourAffich);
    if (cache && m_carnet.montreJour(rdv.Date1)) {
        if (m_carnet.selectionneRDV(rdv.RefRDV)) {
            return;
        }
        m_carnet.montreSemaine(); // the day view has no grid for a practitioner's only chair
    }
    m_carnet.montreEcrit(rdv);
}

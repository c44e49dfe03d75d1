#include "booking/ActionsRDV.h"

#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmJourMois.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "booking/ReservationTables.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"

ActionsRDV::ActionsRDV(VariablesGlobales &etat, QWidget &fenetre) : v(etat), m_fenetre(fenetre) {}

void ActionsRDV::mnuAjouter_Click() {
    constexpr int aCheval = 2;
    if (v.ChoixHoraire == aCheval) {
        FrmQuelHoraire question(&m_fenetre);
        if (question.exec() != QDialog::Accepted) {
            return;
        }
        v.ChoixHoraire = question.ChoixHoraire();
    }
    FrmAjouter fenetre(v, &m_fenetre);
    connect(&fenetre, &FrmAjouter::rdvEcrit, this, &ActionsRDV::rdvEcrit);
    fenetre.exec();
}

void ActionsRDV::mnuEditer_Click() {
    std::optional<qint64> ref;
    try {
        Database base = v.ouvreCarnet();
        ref = RetrouveRDV(base, v.rdvSelectionne(), v.numPraticien());
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    if (!ref) { // deleted from another workstation: there is nothing to edit
        v.messages->show(QStringLiteral("Ce rendez-vous n'existe pas !!!!!"), QStringLiteral("Erreur !"));
        emit rdvEcrit();
        return;
    }
    FrmEditer fenetre(v, *ref, &m_fenetre);
    connect(&fenetre, &FrmEditer::rdvEcrit, this, &ActionsRDV::rdvEcrit);
    fenetre.exec();
}

void ActionsRDV::mnuReporter_Click() {
    FrmJourMois(v.maintenant().date(), &m_fenetre).exec();
}

void ActionsRDV::mnuSupprimer_Click() {
    FrmSupprimer fenetre(v, &m_fenetre);
    connect(&fenetre, &FrmSupprimer::rdvEcrit, this, &ActionsRDV::rdvEcrit);
    fenetre.exec();
}

void ActionsRDV::mnuPresent_Click() {
    try {
        Database base = v.ouvreCarnet();
        if (!BasculePresent(base, v.RefRDVCourant)) {
            v.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"));
        }
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
    }
    emit rdvEcrit(); // the drawn book says what Present is, also where nothing could be written
}

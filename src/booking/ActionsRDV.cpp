#include "booking/ActionsRDV.h"

#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmInsolite.h"
#include "booking/FrmJourMois.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "booking/MessagesRDV.h"
#include "booking/ReservationTables.h"
#include "grid/ReplacerTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

ActionsRDV::ActionsRDV(const Environnement &env, QWidget &fenetre) : m_env(env), m_fenetre(fenetre) {}

void ActionsRDV::ajoute(const PlaceRDV &place) {
    constexpr int aCheval = 2;
    PlaceRDV choisie = place;
    QList<Insolite> dits;
    if (place.ChoixHoraire == aCheval) {
        RendezVous personne; // who comes is not known yet
        personne.Date1 = place.jour;
        personne.HeureDebut = place.horaire.debut;
        personne.HeureFin = place.horaire.fin;
        dits = InsoliteDe({.rdv = personne, .place = place}, {}, m_env.maintenant());
        FrmQuelHoraire question(dits, &m_fenetre);
        if (question.exec() != QDialog::Accepted) {
            return;
        }
        choisie.ChoixHoraire = question.ChoixHoraire();
    }
    FrmAjouter fenetre(m_env, choisie, &m_fenetre, dits);
    if (fenetre.exec() == QDialog::Accepted) {
        emit rdvEcrit(fenetre.rdvEcrit(), fenetre.ecriture());
    }
}

void ActionsRDV::edite(const RendezVous &rdv, const PlaceRDV &place) {
    FrmEditer fenetre(m_env, rdv, place, &m_fenetre);
    if (fenetre.exec() == QDialog::Accepted) {
        emit rdvEcrit(fenetre.rdvEcrit(), fenetre.ecriture());
    } else if (fenetre.rdvEcrit() != rdv) { // another workstation's, which was told
        emit rdvEcrit({}, {});
    }
}

void ActionsRDV::supprime(const RendezVous &rdv, const PlaceRDV &place) {
    FrmSupprimer fenetre(m_env, rdv, place, &m_fenetre);
    if (fenetre.exec() == QDialog::Accepted) {
        emit rdvEcrit({}, fenetre.ecriture()); // what is left of it is another workstation's, and was told
    }
}

void ActionsRDV::marquePresent(const RendezVous &rdv, bool present) {
    BilanEcriture bilan;
    RendezVous apres; // nothing, where another workstation was first
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        bilan = MarquePresent(base, m_env.auteur(), rdv, present);
    });
    if (!ecrit) {
        return;
    }
    if (bilan.resultat == Ecriture::Disparu) {
        m_env.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"));
    } else if (bilan.resultat == Ecriture::Change) {
        m_env.messages->show(MessageModifie(rdv, bilan.actuel), titreModifie);
    } else {
        apres = rdv;
        apres.Present = present;
    }
    emit rdvEcrit(apres, bilan.ecriture);
}

void ActionsRDV::changeDuree(const RendezVous &rdv, const PlaceRDV &place, Sens sens) {
    const QTime fin = FinChangee({rdv.HeureDebut, rdv.HeureFin}, sens, place.Intervalle);
    if (fin == rdv.HeureFin) {
        return;
    }
    RendezVous voulu = rdv;
    voulu.HeureFin = fin;
    if (!Confirme(m_env, {voulu, rdv, place}, &m_fenetre)) {
        return;
    }
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        bilan = ChangeFin(base, m_env.auteur(), rdv, fin, CLng(place.PraticienCourant),
                          CLng(place.FauteuilCourant));
    });
    if (!ecrit) {
        return;
    }
    conclut(bilan, rdv, voulu);
}

void ActionsRDV::conclut(const BilanEcriture &bilan, const RendezVous &rdv, const RendezVous &voulu) {
    RendezVous apres = rdv; // what is in the way may not be shown yet
    switch (bilan.resultat) {
    case Ecriture::Occupe:
        m_env.messages->show(messagePasLibre, titrePasLibre);
        break;
    case Ecriture::Change:
        m_env.messages->show(MessageModifie(rdv, bilan.actuel), titreModifie);
        apres = {};
        break;
    case Ecriture::Disparu:
        m_env.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"));
        apres = {};
        break;
    case Ecriture::Fait:
        apres = voulu;
        break;
    }
    emit rdvEcrit(apres, bilan.ecriture);
}

void ActionsRDV::deplace(const RendezVous &rdv, const PlaceRDV &place) {
    const RendezVous voulu = Place(rdv, place);
    if (!Confirme(m_env, {voulu, rdv, place}, &m_fenetre)) {
        return;
    }
    BilanEcriture bilan;
    if (essaie(m_env, [&] {
            Database base = m_env.ouvreCarnetPourEcrire();
            bilan = DeplaceRDV(base, m_env.auteur(), rdv, place);
        })) {
        conclut(bilan, rdv, voulu);
    }
}

void ActionsRDV::metDeCote(const RendezVous &rdv) {
    bool garde = false;
    if (!essaie(m_env, [&] {
            Database base = m_env.ouvreCarnetPourEcrire();
            garde = MetDeCote(base, rdv, m_env.maintenant());
        })) {
        return;
    }
    if (!garde) {
        m_env.messages->show(QStringLiteral("Ce carnet ne peut pas garder de rendez-vous à replacer : ses "
                                            "tables ne peuvent pas être changées."));
    }
    emit rdvEcrit(rdv, {});
}

void ActionsRDV::reporte() {
    FrmJourMois(m_env.maintenant().date(), &m_fenetre).exec();
}

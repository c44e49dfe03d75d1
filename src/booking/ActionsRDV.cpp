#include "booking/ActionsRDV.h"

#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmJourMois.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "booking/MessagesRDV.h"
#include "booking/RangeeTables.h"
#include "booking/ReservationTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

ActionsRDV::ActionsRDV(const Environnement &env, QWidget &fenetre) : m_env(env), m_fenetre(fenetre) {}

std::optional<PlaceRDV> ActionsRDV::classee(const PlaceRDV &place) {
    constexpr int aCheval = 2;
    PlaceRDV choisie = place;
    if (place.ChoixHoraire == aCheval) {
        FrmQuelHoraire question(&m_fenetre);
        if (question.exec() != QDialog::Accepted) {
            return std::nullopt;
        }
        choisie.ChoixHoraire = question.ChoixHoraire();
    }
    return choisie;
}

void ActionsRDV::ajoute(const PlaceRDV &place) {
    const std::optional<PlaceRDV> choisie = classee(place);
    if (!choisie) {
        return;
    }
    FrmAjouter fenetre(m_env, *choisie, &m_fenetre);
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
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        bilan = ChangeFin(base, m_env.auteur(), rdv, fin, CLng(place.PraticienCourant),
                          CLng(place.FauteuilCourant));
    });
    if (!ecrit) {
        return;
    }
    RendezVous apres = rdv;
    apres.HeureFin = fin;
    rend(rdv, apres, bilan);
}

void ActionsRDV::rend(const RendezVous &rdv, const RendezVous &apres, const BilanEcriture &bilan,
                      bool encore) {
    switch (bilan.resultat) {
    case Ecriture::Occupe: // what is in the way may not be shown yet
        refuse(encore);
        return;
    case Ecriture::Change:
        m_env.messages->show(MessageModifie(rdv, bilan.actuel), titreModifie);
        break;
    case Ecriture::Disparu:
        m_env.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"));
        break;
    case Ecriture::Fait:
        break;
    }
    emit rdvEcrit(bilan.resultat == Ecriture::Fait ? apres : RendezVous(), bilan.ecriture);
}

void ActionsRDV::refuse(bool encore) {
    m_env.messages->show(encore ? messageOccupe : messagePasLibre, encore ? titreOccupe : titrePasLibre);
    emit rdvEcrit({}, {});
}

void ActionsRDV::deplace(const RendezVous &rdv, const RendezVous &apres, const PlaceRDV &place) {
    BilanEcriture bilan;
    if (essaie(m_env, [&] {
            Database base = m_env.ouvreCarnetPourEcrire();
            bilan = DeplaceRDV(base, m_env.auteur(), rdv, apres, CLng(place.PraticienCourant),
                               CLng(place.FauteuilCourant));
        })) {
        rend(rdv, apres, bilan);
    }
}

void ActionsRDV::reserveEncore(const RendezVous &rdv, const PlaceRDV &place) {
    const std::optional<PlaceRDV> choisie = classee(place);
    if (!choisie) {
        return;
    }
    const auto &[debut, fin] = choisie->horaire;
    const NouveauRDV nouveau{
        {rdv.Nom, rdv.Prenom, rdv.Telephone, rdv.Description, rdv.NumPatient, choisie->jour, debut, fin},
        choisie->PraticienCourant,
        choisie->FauteuilCourant,
        choisie->ChoixHoraire != 0};
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        const std::optional<RendezVous> actuel = LitRDV(base, rdv.RefRDV);
        bilan = actuel == rdv ? AjouteRDV(base, m_env.auteur(), nouveau)
                : actuel      ? BilanEcriture{Ecriture::Change, *actuel}
                              : BilanEcriture{Ecriture::Disparu};
    });
    if (!ecrit) {
        return;
    }
    rend(rdv, bilan.resultat == Ecriture::Fait ? RendezVousDe(bilan.ecriture.apres) : RendezVous(), bilan,
         true);
}

void ActionsRDV::reporte() {
    FrmJourMois(m_env.maintenant().date(), &m_fenetre).exec();
}

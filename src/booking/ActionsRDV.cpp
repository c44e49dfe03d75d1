#include "booking/ActionsRDV.h"

#include "booking/FrmAjouter.h"
#include "booking/FrmEditer.h"
#include "booking/FrmInsolite.h"
#include "booking/FrmJourMois.h"
#include "booking/FrmQuelHoraire.h"
#include "booking/FrmSupprimer.h"
#include "booking/MessagesRDV.h"
#include "booking/RangeeTables.h"
#include "booking/ReservationTables.h"
#include "grid/ReplacerTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

namespace {

constexpr int aCheval = 2; // on the working hours

BilanEcriture autreQueVu(const std::optional<RendezVous> &actuel) {
    return actuel ? BilanEcriture{Ecriture::Change, *actuel} : BilanEcriture{Ecriture::Disparu};
}

} // namespace

ActionsRDV::ActionsRDV(const Environnement &env, QWidget &fenetre) : m_env(env), m_fenetre(fenetre) {}

std::optional<PlaceRDV> ActionsRDV::classee(const PlaceRDV &place, const QList<Insolite> &insolites) {
    PlaceRDV choisie = place;
    FrmQuelHoraire question(insolites, &m_fenetre);
    if (question.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    choisie.ChoixHoraire = question.ChoixHoraire();
    return choisie;
}

void ActionsRDV::ajoute(const PlaceRDV &place) {
    PlaceRDV choisie = place;
    QList<Insolite> dits;
    if (place.ChoixHoraire == aCheval) {
        RendezVous personne; // who comes is not known yet
        personne.Date1 = place.jour;
        personne.HeureDebut = place.horaire.debut;
        personne.HeureFin = place.horaire.fin;
        dits = InsoliteDe({.rdv = personne, .place = place}, {}, m_env.maintenant());
        const std::optional<PlaceRDV> voulue = classee(place, dits);
        if (!voulue) {
            return;
        }
        choisie = *voulue;
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
    RendezVous apres = rdv;
    apres.HeureFin = fin;
    reecrit({apres, rdv, place}, [&](Database &base) {
        return ChangeFin(base, m_env.auteur(), rdv, fin, CLng(place.PraticienCourant),
                         CLng(place.FauteuilCourant));
    });
}

/// Asked first, where something is odd.
void ActionsRDV::reecrit(const Visee &visee, const std::function<BilanEcriture(Database &)> &ecriture) {
    if (!Confirme(m_env, visee, &m_fenetre)) {
        return;
    }
    BilanEcriture bilan;
    if (essaie(m_env, [&] {
            Database base = m_env.ouvreCarnetPourEcrire();
            bilan = ecriture(base);
        })) {
        rend(*visee.avant, visee.rdv, bilan);
    }
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
    reecrit({apres, rdv, place}, [&](Database &base) {
        return DeplaceRDV(base, m_env.auteur(), rdv, apres, CLng(place.PraticienCourant),
                          CLng(place.FauteuilCourant));
    });
}

void ActionsRDV::reserveEncore(const RendezVous &rdv, const RendezVous &encore, const PlaceRDV &place) {
    const Visee visee{.rdv = encore, .place = place};
    const auto insolites = LitInsolites(m_env, visee);
    if (!insolites) {
        return;
    }
    std::optional<PlaceRDV> choisie = place;
    if (place.ChoixHoraire == aCheval) {
        choisie = classee(place, *insolites);
    } else if (!DemandeQuandMeme(visee, *insolites, &m_fenetre)) {
        return;
    }
    if (!choisie) {
        return;
    }
    const NouveauRDV nouveau{{rdv.Nom, rdv.Prenom, rdv.Telephone, rdv.Description, rdv.NumPatient,
                              encore.Date1, encore.HeureDebut, encore.HeureFin},
                             choisie->PraticienCourant,
                             choisie->FauteuilCourant,
                             choisie->ChoixHoraire != 0};
    BilanEcriture bilan;
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        const std::optional<RendezVous> actuel = LitRDV(base, rdv.RefRDV);
        bilan = actuel == rdv ? AjouteRDV(base, m_env.auteur(), nouveau) : autreQueVu(actuel);
    });
    if (!ecrit) {
        return;
    }
    rend(rdv, bilan.resultat == Ecriture::Fait ? RendezVousDe(bilan.ecriture.apres) : RendezVous(), bilan,
         true);
}

void ActionsRDV::metDeCote(const RendezVous &rdv) {
    MiseDeCote mise = MiseDeCote::Fait;
    std::optional<RendezVous> actuel;
    if (!essaie(m_env, [&] {
            Database base = m_env.ouvreCarnetPourEcrire();
            mise = MetDeCote(base, rdv, m_env.maintenant());
            actuel = mise == MiseDeCote::Change ? LitRDV(base, rdv.RefRDV) : rdv;
        })) {
        return;
    }
    if (mise == MiseDeCote::Change) {
        rend(rdv, {}, autreQueVu(actuel));
        return;
    }
    if (mise == MiseDeCote::SansTable) {
        m_env.messages->show(QStringLiteral("Ce carnet ne peut pas garder de rendez-vous à replacer : ses "
                                            "tables ne peuvent pas être changées."));
    }
    emit rdvEcrit(rdv, {});
}

void ActionsRDV::retireDeCote(qint64 RefRDV) {
    if (essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnetPourEcrire();
            RetireReplacer(carnet, RefRDV);
        })) {
        emit rdvEcrit({}, {});
    }
}

void ActionsRDV::reporte() {
    FrmJourMois(m_env.maintenant().date(), &m_fenetre).exec();
}

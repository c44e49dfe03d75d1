#include "start/CarnetMontre.h"

#include "grid/AffichageTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

bool CarnetMontre::montre(const Demande &demande, Annonce annonce) {
    Affichage lu;
    if (!lit([&](Database &carnet) { lu = LitAffichage(carnet, demande, m_env.maintenant()); }, annonce)) {
        return false;
    }
    m_selection = Reprend(lu, m_affichage, m_selection);
    m_affichage = lu;
    emit affichageChange();
    return true;
}

bool CarnetMontre::lit(const std::function<void(Database &)> &lecture, Annonce annonce) {
    const bool dejaManquee = !m_lectureManquee.isEmpty();
    m_enLecture = true;
    const std::optional<DbError> echec = tente(m_env, [&] {
        Database carnet = m_env.ouvreCarnet();
        lecture(carnet);
    });
    m_enLecture = false;
    m_lectureManquee = echec ? echec->message() : QString();
    emit lectureChange();
    if (echec && (annonce == Annonce::Toujours || !dejaManquee)) {
        m_env.messages->error(m_lectureManquee);
    }
    return !echec;
}

bool CarnetMontre::relitJour(int grille, QDate jour) {
    QList<RendezVous> relus;
    const auto lecture = [&](Database &carnet) { relus = RelitJour(carnet, m_affichage, grille, jour); };
    return lit(lecture, Annonce::Toujours) && (relus == DuJour(m_affichage.grilles[grille], jour) || relit());
}

void CarnetMontre::selectionne(int grille, const Coins &coins, Geste geste) {
    if (grille >= m_affichage.grilles.size()) {
        return;
    }
    const QDate jour = JourDesCoins(m_affichage, grille, coins);
    if (geste == Geste::Clic && jour.isValid()) {
        m_avantClic = m_selection;
        if (!relitJour(grille, jour)) {
            emit selectionChange(); // the outline stays where it was
            return;
        }
    }
    prendSelection(Selectionne(m_affichage, grille, coins, geste, m_selection));
}

bool CarnetMontre::selectionneRDV(qint64 RefRDV) {
    const Selection trouvee = SelectionneRDV(m_affichage, RefRDV);
    if (!trouvee.vide()) {
        prendSelection(trouvee);
    }
    return !trouvee.vide();
}

void CarnetMontre::annuleSuivant() {
    if (m_selection.suivant) {
        prendSelection(m_avantClic);
    }
}

void CarnetMontre::prendSelection(const Selection &selection) {
    m_selection = selection;
    emit selectionChange();
}

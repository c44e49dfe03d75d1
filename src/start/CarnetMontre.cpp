#include "start/CarnetMontre.h"

#include "config/PraticienTables.h"
#include "grid/AffichageTables.h"
#include "grid/Navigation.h"
#include "grid/RendezVousTables.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

bool CarnetMontre::montre(const Demande &demande, Annonce annonce) {
    const std::optional<Affichage> lu = lit(demande, annonce);
    if (lu) {
        prend(*lu);
    }
    return lu.has_value();
}

void CarnetMontre::prend(const Affichage &lu) {
    prend(lu, Reprend(lu, m_affichage, m_selection));
}

void CarnetMontre::prend(const Affichage &lu, const Selection &selection) {
    m_selection = selection;
    m_affichage = lu;
    emit affichageChange();
}

std::optional<Affichage> CarnetMontre::lit(const Demande &demande, Annonce annonce) {
    Affichage lu;
    const auto lecture = [&](Database &carnet) { lu = LitAffichage(carnet, demande, m_env.maintenant()); };
    return lit(lecture, annonce) ? std::optional(lu) : std::nullopt;
}

bool CarnetMontre::lit(const std::function<void(Database &)> &lecture, Annonce annonce) {
    const bool dejaManquee = !m_lectureManquee.isEmpty();
    m_lectureManquee = m_contactPerdu;
    if (enContact()) {
        emit lectureCommence();
        const std::optional<DbError> echec = tente(m_env, [&] {
            Database carnet = m_env.ouvreCarnet();
            lecture(carnet);
        });
        m_lectureManquee = echec ? echec->message() : QString();
    }
    emit lectureChange();
    const bool reussie = m_lectureManquee.isEmpty();
    if (!reussie && (annonce == Annonce::Toujours || !dejaManquee)) {
        m_env.messages->error(m_lectureManquee);
    }
    return reussie;
}

void CarnetMontre::perdContact(const QString &pourquoi) {
    m_contactPerdu = pourquoi;
    if (!enContact()) {
        m_lectureManquee = pourquoi;
    }
    emit lectureChange();
}

// ---- What is asked for

/// The practitioner, view and current date that are shown.
Demande CarnetMontre::courante() const {
    const Demande &montree = m_affichage.demande;
    return {.PraticienCourant = montree.PraticienCourant,
            .VueSemaine = montree.VueSemaine,
            .jour = jourCourant()};
}

void CarnetMontre::montrePraticien(const QString &numero) {
    Demande demande = courante();
    demande.PraticienCourant = numero;
    montre(demande);
}

void CarnetMontre::montreFauteuil(long fauteuil) {
    Demande demande = courante();
    demande.fauteuil = fauteuil;
    montre(demande);
}

bool CarnetMontre::montreSemaine() {
    Demande demande = courante();
    demande.VueSemaine = true;
    return montre(demande);
}

bool CarnetMontre::montreJour() {
    Demande demande = courante();
    demande.VueSemaine = false;
    demande.jour = m_env.maintenant().date();
    if (m_affichage.fauteuilCoche >= 0) {
        demande.fauteuil = CLng(m_affichage.configs[m_affichage.fauteuilCoche].config.FauteuilCourant);
    }
    return montre(demande);
}

void CarnetMontre::rafraichit() {
    montre(m_affichage.demande.VueSemaine ? courante() : m_affichage.suite());
}

void CarnetMontre::vaAu(QDate jour) {
    if (!estVide()) {
        Demande demande = m_affichage.suite();
        demande.jour = jour;
        montre(demande);
    }
}

bool CarnetMontre::montrePlace(const PlaceRDV &place) {
    Demande demande = m_affichage.suite();
    demande.jour = place.jour;
    const std::optional<Affichage> lu = lit(demande, Annonce::Toujours);
    if (lu) {
        prend(*lu, SelectionnePlace(*lu, place));
        emit selectionAMontrer();
    }
    return lu.has_value();
}

void CarnetMontre::tourne(int sens) {
    const int jours = m_affichage.demande.VueSemaine ? 7 * sens : sens;
    const QDate jour = estVide() ? QDate() : DecaleDate(jourCourant(), jours);
    if (jour.isValid()) {
        vaAu(jour);
    } else if (!estVide()) {
        m_env.messages->show(
            QStringLiteral("Le carnet va du %1 au %2.")
                .arg(DatesFr::courte(premierJourDuCarnet), DatesFr::courte(dernierJourDuCarnet)));
    }
}

bool CarnetMontre::basculeZoom() {
    Demande demande = m_affichage.suite();
    if (demande.VueSemaine && demande.config) {
        demande.config->Intervalle = BasculeZoom(demande.config->Intervalle, demande.intervalleSansZoom);
    }
    return montre(demande);
}

void CarnetMontre::prendReglages(const Configuration &config) {
    Demande demande = m_affichage.suite();
    demande.config = config;
    demande.intervalleSansZoom = 0;
    montre(demande);
}

// ---- Selection

bool CarnetMontre::relitJour(int grille, QDate jour) {
    QList<RendezVous> relus;
    const auto lecture = [&](Database &carnet) { relus = RelitJour(carnet, m_affichage, grille, jour); };
    return lit(lecture, Annonce::Toujours) && (relus == DuJour(m_affichage.grilles[grille], jour) || relit());
}

void CarnetMontre::selectionne(int grille, const Coins &coins, Geste geste, qint64 RefRDV) {
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
    if (RefRDV == 0 || !selectionneRDV(RefRDV)) {
        prendSelection(Selectionne(m_affichage, grille, coins, geste, m_selection));
    }
}

void CarnetMontre::etend(Sens sens) {
    prendSelection(Etend(m_affichage, m_selection, sens));
    emit selectionAMontrer();
}

bool CarnetMontre::selectionneRDV(qint64 RefRDV) {
    const Selection trouvee = SelectionneRDV(m_affichage, RefRDV);
    if (!trouvee.vide()) {
        prendSelection(trouvee);
    }
    return !trouvee.vide();
}

/// What may show an appointment, the nearest to what is shown first.
QList<Demande> CarnetMontre::demandesPour(const RendezVous &rdv) const {
    if (!rdv.Date1.isValid()) {
        return {};
    }
    Demande autreFauteuil = courante();
    const bool lui = autreFauteuil.numPraticien() == rdv.NumPraticien;
    if (!lui) {
        autreFauteuil.PraticienCourant = Praticien{rdv.NumPraticien, {}, {}}.numero();
    }
    autreFauteuil.fauteuil = rdv.Fauteuil;
    Demande autreVue = autreFauteuil;
    autreVue.VueSemaine = !autreVue.VueSemaine;
    QList<Demande> demandes{autreFauteuil, autreVue};
    if (lui && CLng(reglages().FauteuilCourant) == rdv.Fauteuil) { // settings hide it: the other view first
        demandes = {autreVue, autreFauteuil};
    }
    if (lui) {
        demandes.prepend(m_affichage.suite()); // zoom and unsaved settings kept
    }
    for (Demande &demande : demandes) {
        demande.jour = rdv.Date1;
    }
    return demandes;
}

void CarnetMontre::montreRDV(qint64 RefRDV) {
    std::optional<RendezVous> rdv;
    Affichage lu;
    Selection trouvee;
    const auto lecture = [&](Database &carnet) {
        rdv = LitRDV(carnet, RefRDV);
        for (const Demande &demande : rdv ? demandesPour(*rdv) : QList<Demande>()) {
            lu = LitAffichage(carnet, demande, m_env.maintenant());
            trouvee = SelectionneRDV(lu, RefRDV);
            if (!trouvee.vide()) {
                return;
            }
        }
        lu = LitAffichage(carnet, m_affichage.suite(), m_env.maintenant()); // told on a fresh picture
    };
    if (!lit(lecture, Annonce::Toujours)) {
        return;
    }
    if (!trouvee.vide()) {
        prend(lu, trouvee);
        emit selectionAMontrer();
        return;
    }
    prend(lu);
    if (rdv) {
        m_env.messages->show(
            QStringLiteral("Le rendez-vous du %1, de %2 à %3, n'est montré ni par la semaine ni par le jour.")
                .arg(DatesFr::jourComplet(rdv->Date1), DatesFr::heure(rdv->HeureDebut),
                     DatesFr::heure(rdv->HeureFin)));
    } else {
        m_env.messages->show(QStringLiteral("Ce rendez-vous n'existe plus !"));
    }
}

void CarnetMontre::montreEcrit(const RendezVous &rdv) {
    const bool cache = m_affichage.demande.VueSemaine && rdv.RefRDV != 0 && rdv.Date1.isValid() &&
                       !Dans(Jour(rdv.Date1), reglages().JourAffich);
    if (cache) { // which the question has told: the day shows it
        montreRDV(rdv.RefRDV);
        return;
    }
    if (relit() && !selectionneRDV(rdv.RefRDV) && rdv.RefRDV != 0) {
        m_env.messages->show(
            QStringLiteral(
                "Le rendez-vous est enregistré au %1, de %2 à %3 : il n'est pas dans ce qui est affiché.")
                .arg(DatesFr::jourComplet(rdv.Date1), DatesFr::heure(rdv.HeureDebut),
                     DatesFr::heure(rdv.HeureFin)));
    }
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

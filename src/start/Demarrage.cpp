#include "start/Demarrage.h"

#include "grid/AffichageTables.h"
#include "grid/ReplacerTables.h"
#include "journal/JournalTables.h"
#include "patients/TransmissionTables.h"
#include "practice/Essai.h"
#include "schedule/Configuration.h"
#include "start/Chevauchements.h"
#include "start/MiseANiveauTables.h"

#include <QFileInfo>

namespace {

constexpr std::chrono::milliseconds patienceAuDemarrage{800};

/// Runs one step; what it fails of is to be told. True when it went through.
bool etape(const Environnement &env, Depart &depart, const std::function<void()> &operation) {
    const std::optional<DbError> echec = tente(env, operation);
    if (echec) {
        depart.messages << echec->message();
    }
    return !echec;
}

/// A book whose tables cannot be changed is used without a history; gives why.
QString prepareJournal(Database &carnet) {
    try {
        if (!JournalEstPret(carnet)) {
            PrepareJournal(carnet);
        }
        if (!ReplacerEstPret(carnet)) {
            PrepareReplacer(carnet);
        }
        return JournalEstPret(carnet) ? QString() : QStringLiteral("« TavJournal » n'y est pas une table.");
    } catch (const DbError &echec) {
        if (echec.kind() == DbError::Kind::Locked) { // the start is tried again
            throw;
        }
        return JournalEstPret(carnet) ? QString() : echec.cause(); // who sets aside is told
    }
}

bool metBaseANiveau(const Environnement &env, Depart &depart) {
    QString erreur;
    MiseANiveau bilan;
    QString sansJournal;
    const bool lue = etape(env, depart, [&] {
        Database carnet = env.ouvreCarnet();
        const bool estANiveau = EstANiveau(carnet);
        if (const QString raison = carnet.whyReadOnly(); estANiveau && !raison.isEmpty()) {
            *env.lectureSeule = raison;
            return;
        }
        // a damaged book is not written into
        erreur = estANiveau && JournalEstPret(carnet) && ReplacerEstPret(carnet) ? QString()
                                                                                 : checkBook(carnet.path());
        if (erreur.isEmpty()) {
            bilan = MetANiveau(carnet);
            erreur = bilan.erreur;
        }
        sansJournal = erreur.isEmpty() ? prepareJournal(carnet) : QString();
    });
    if (!erreur.isEmpty()) {
        depart.messages << erreur;
    }
    if (bilan.chevauchements > 0) {
        depart.messages << TexteChevauchements(bilan.chevauchements, bilan.premiers);
    }
    if (!sansJournal.isEmpty()) {
        depart.messages << QStringLiteral("Ce carnet ne peut pas garder l'historique de ses rendez-vous ; il "
                                          "s'utilise sans.\n\nLa raison : ") +
                               sansJournal;
    }
    return lue && erreur.isEmpty();
}

/// The practitioner whom the suite hands over; empty without one.
QString litPraticienTransmis(const Environnement &env, Depart &depart) {
    Transmission lue;
    etape(env, depart, [&] {
        Database transmission = env.ouvreTransmission();
        lue = LitTransmission(transmission);
    });
    if (lue.NumPraticien.isEmpty() || CLng(lue.NumPraticien) > 0) {
        return lue.NumPraticien;
    }
    depart.messages << QStringLiteral(
                           "Le numéro de praticien « %1 » transmis par la gestion du cabinet n'est pas "
                           "un numéro valable : le carnet s'ouvre sur le premier praticien.")
                           .arg(lue.NumPraticien.left(50));
    return {};
}

bool litPraticiens(const Environnement &env, Depart &depart) {
    const bool lus = etape(env, depart, [&] {
        Database parametres = env.ouvreParametres();
        depart.praticiens = Praticiens(parametres);
    });
    if (lus && depart.praticiens.isEmpty()) {
        depart.messages << QStringLiteral("Aucun praticien n'est enregistré dans les paramètres du cabinet.");
    }
    return !depart.praticiens.isEmpty();
}

void litPremier(const Environnement &env, const QString &praticien, Depart &depart) {
    etape(env, depart, [&] {
        const QDateTime maintenant = env.maintenant();
        Database carnet = env.ouvreCarnet();
        Affichage lu =
            LitAffichage(carnet, {.PraticienCourant = praticien, .jour = maintenant.date()}, maintenant);
        const QDate premier = PremierJourAffiche(maintenant.date(), lu.grilles.first().config.JourAffich);
        if (premier != maintenant.date()) {
            lu = LitAffichage(carnet, {.PraticienCourant = praticien, .jour = premier}, maintenant);
        }
        depart.premier = lu;
    });
}

} // namespace

QString LitEmplacements(Environnement &env, const QString &fichier) {
    std::optional<Emplacements> lus;
    const auto echec = tente(env, [&] {
        Database chemin = Database::open(fichier, std::chrono::milliseconds(100));
        lus = LitChemin(chemin);
    });
    if (echec) {
        return echec->message();
    }
    if (!lus || lus->LeChemin.isEmpty()) {
        return QStringLiteral("Le fichier « %1 » n'indique pas le dossier des données du cabinet.")
            .arg(fichier);
    }
    env.CheminDesChemins = fichier;
    env.prendEmplacements(*lus, QFileInfo(fichier).absolutePath());
    return {};
}

Depart Demarre(const Environnement &monde) {
    // No window stands yet, and the start is tried again by itself: it does not wait for long.
    Environnement env = monde;
    env.patience = std::min(env.patience, patienceAuDemarrage);
    Depart depart;
    if (!metBaseANiveau(env, depart)) {
        return depart;
    }
    const QString transmis = litPraticienTransmis(env, depart);
    if (litPraticiens(env, depart)) {
        litPremier(env, transmis.isEmpty() ? depart.praticiens.first().numero() : transmis, depart);
    }
    return depart;
}

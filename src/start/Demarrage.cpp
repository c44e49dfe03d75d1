#include "start/Demarrage.h"

#include "patients/TransmissionTables.h"
#include "practice/Essai.h"
#include "schedule/Configuration.h"
#include "start/MiseANiveauTables.h"

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

bool metBaseANiveau(const Environnement &env, Depart &depart) {
    QString erreur;
    const bool lue = etape(env, depart, [&] {
        Database carnet = env.ouvreCarnet();
        // a damaged book is not written into
        erreur = EstANiveau(carnet) ? QString() : checkBook(carnet.path());
        erreur = erreur.isEmpty() ? MetANiveau(carnet) : erreur;
    });
    if (!erreur.isEmpty()) {
        depart.messages << erreur;
    }
    return lue && erreur.isEmpty();
}

void litPraticienTransmis(const Environnement &env, Depart &depart) {
    Transmission lue;
    etape(env, depart, [&] {
        Database transmission = env.ouvreTransmission();
        lue = LitTransmission(transmission);
    });
    if (lue.NumPraticien.isEmpty() || CLng(lue.NumPraticien) > 0) {
        depart.PraticienCourant = lue.NumPraticien;
        return;
    }
    depart.messages << QStringLiteral(
                           "Le numéro de praticien « %1 » transmis par la gestion du cabinet n'est pas "
                           "un numéro valable : le carnet s'ouvre sur le premier praticien.")
                           .arg(lue.NumPraticien.left(50));
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
    env.prendEmplacements(*lus);
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
    litPraticienTransmis(env, depart);
    const bool lus = etape(env, depart, [&] {
        Database parametres = env.ouvreParametres();
        depart.praticiens = Praticiens(parametres);
    });
    if (lus && depart.praticiens.isEmpty()) {
        depart.messages << QStringLiteral("Aucun praticien n'est enregistré dans les paramètres du cabinet.");
    }
    depart.complet = !depart.praticiens.isEmpty();
    if (depart.complet && depart.PraticienCourant.isEmpty()) {
        depart.PraticienCourant = depart.praticiens.first().numero();
    }
    return depart;
}

#include "grid/AffichageTables.h"

#include "config/ConfigTables.h"
#include "grid/RendezVousTables.h"
#include "grid/ReplacerTables.h"

#include <utility>

namespace {

Grille grilleDe(const Configuration &config, QTime debut, QTime fin, const QString &entete) {
    const QString defaut = DefautConfiguration(config);
    if (defaut.isEmpty()) {
        return {config, {debut, fin, config.Intervalle}, entete, {}, {}};
    }
    return {config,
            {},
            entete,
            {},
            QStringLiteral("La configuration « %1 » ne peut pas être affichée : %2.")
                .arg(config.NomConfig.left(100), defaut)};
}

Grille grilleDeLaJournee(const Configuration &config, const QString &entete) {
    return grilleDe(config, config.HeureMatDebut, config.HeurePMFin, entete);
}

Grille grilleVide(const QString &entete, const QString &empechement) {
    return {{}, {}, entete, {}, empechement};
}

QString sansRepli() {
    return QStringLiteral(
        "Ce praticien n'a pas de configuration et la configuration « Défaut » n'existe pas : "
        "le carnet ne peut pas être affiché.");
}

QString matin() {
    return QStringLiteral("Matin");
}

QString apresMidi() {
    return QStringLiteral("Après-midi");
}

/// The week's configuration: the one kept, the chair's, or the fall-back.
std::optional<Configuration> configDeLaSemaine(const std::optional<Configuration> &repli,
                                               const Affichage &affichage) {
    if (affichage.demande.config) {
        return affichage.demande.config;
    }
    const int place = PlaceDuFauteuil(affichage.configs, affichage.demande.fauteuil);
    return place < 0 ? repli : std::optional(affichage.configs[place].config);
}

void litSemaine(const std::optional<Configuration> &repli, Affichage &affichage) {
    const std::optional<Configuration> config = configDeLaSemaine(repli, affichage);
    if (!config) {
        affichage.grilles = {grilleVide({}, sansRepli())};
        return;
    }
    affichage.grilles = {grilleDeLaJournee(*config, {})};
    for (int i = int(affichage.configs.size()) - 1; i >= 0; --i) {
        if (affichage.configs[i].config.NomConfig == config->NomConfig) {
            affichage.fauteuilCoche = i;
        }
    }
}

/// Morning and afternoon of the practitioner's first configuration.
void litMatinEtApresMidi(const std::optional<Configuration> &repli, Affichage &affichage) {
    const std::optional<Configuration> config =
        affichage.configs.isEmpty() ? repli : std::optional(affichage.configs.first().config);
    if (!config) {
        affichage.grilles = {grilleVide(matin(), sansRepli()), grilleVide(apresMidi(), sansRepli())};
        return;
    }
    affichage.grilles = {grilleDe(*config, config->HeureMatDebut, config->HeureMatFin, matin()),
                         grilleDe(*config, config->HeurePMDebut, config->HeurePMFin, apresMidi())};
}

void litDeuxFauteuils(Affichage &affichage) {
    const int nombre = int(affichage.configs.size());
    if (nombre < 2 || affichage.fauteuilCoche < 0) {
        const QString pourquoi =
            nombre < 2 ? QStringLiteral("Ce praticien n'a qu'un fauteuil : la vue par jour en montre deux.")
                       : QStringLiteral("Aucun fauteuil n'est choisi dans le menu Fauteuil.");
        affichage.grilles = {grilleVide(matin(), pourquoi), grilleVide(apresMidi(), pourquoi)};
        return;
    }
    const auto [premier, second] = FauteuilsDuJour(nombre, affichage.fauteuilCoche);
    for (const int place : {premier, second}) {
        // the chair's configuration is its first row, whichever row the menu lists
        const QString fauteuil = affichage.configs[place].config.FauteuilCourant;
        const int ligne = PlaceDuFauteuil(affichage.configs, CLng(fauteuil));
        affichage.grilles << grilleDeLaJournee(affichage.configs[ligne].config, LibelleFauteuil(fauteuil));
    }
}

bool toutesLesChaises(const Affichage &affichage) {
    return !affichage.demande.VueSemaine && !affichage.AvecFauteuils();
}

QList<RendezVous> rendezVous(Database &carnet, const Affichage &affichage, const Grille &grille,
                             QDate premier, QDate dernier, const std::vector<Requete> &aussi = {}) {
    const std::optional<long> fauteuil =
        toutesLesChaises(affichage) ? std::nullopt : std::optional(CLng(grille.config.FauteuilCourant));
    return RendezVousEntre(carnet, premier, dernier, affichage.demande.numPraticien(), fauteuil, aussi);
}

/// Morning and afternoon are one configuration, and count once.
void litRemplissage(Database &carnet, Affichage &affichage) {
    const bool parFauteuil = affichage.AvecFauteuils();
    QList<Configuration> configs;
    for (const Grille &grille : affichage.grilles) {
        if (grille.tracable() && (parFauteuil || configs.isEmpty())) {
            configs << grille.config;
        }
    }
    const QDate jour = affichage.demande.jour;
    affichage.remplissage =
        Remplissage(jour, configs, parFauteuil, TempsDuMois(carnet, jour, affichage.demande.numPraticien()));
}

} // namespace

Affichage LitAffichage(Database &carnet, const Demande &demande, const QDateTime &maintenant) {
    Affichage affichage;
    affichage.demande = demande;
    affichage.lu = maintenant;
    const ConfigsLues configs = LitConfigs(carnet, demande.numPraticien());
    affichage.configs = configs.duPraticien;
    if (demande.VueSemaine) {
        litSemaine(configs.repli, affichage);
    } else if (affichage.AvecFauteuils()) {
        affichage.fauteuilCoche = PlaceDuFauteuil(affichage.configs, demande.fauteuil);
        litDeuxFauteuils(affichage);
    } else {
        affichage.fauteuilCoche = PlaceDuFauteuil(affichage.configs, demande.fauteuil);
        litMatinEtApresMidi(configs.repli, affichage);
    }
    const auto [premier, dernier] = JoursLus(demande);
    LectureReplacer aReplacer(carnet, demande.numPraticien());
    std::vector<Requete> aussi = aReplacer.requetes();
    for (Grille &grille : affichage.grilles) {
        if (grille.tracable()) {
            grille.rendezVous =
                rendezVous(carnet, affichage, grille, premier, dernier, std::exchange(aussi, {}));
        }
    }
    carnet.forEach(aussi); // where no grid is drawn
    affichage.aReplacer = aReplacer.lus(carnet);
    if (!demande.VueSemaine) {
        litRemplissage(carnet, affichage);
    }
    return affichage;
}

QList<RendezVous> RelitJour(Database &carnet, const Affichage &affichage, int grille, QDate jour) {
    return rendezVous(carnet, affichage, affichage.grilles[grille], jour, jour);
}

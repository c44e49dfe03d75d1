#include "booking/Selection.h"

#include "schedule/Creneaux.h"

Correction CorrigeSelection(const CoinsSelection &coins, int lignes, int colonnes) {
    if (coins.premiereColonne() != coins.derniereColonne()) {
        return Correction::PlusieursColonnes;
    }
    const int colonne = coins.premiereColonne();
    if (coins.premiereLigne() == 0 || colonne == 0 || colonne == colonnes - 1 || coins.ligne == lignes - 1) {
        return Correction::PremiereCellule;
    }
    return coins.derniereLigne() == lignes - 1 ? Correction::RemonteFin : Correction::Aucune;
}

PlageHoraire HorairesDesLignes(QTime depart, int intervalle, int ligneDebut, int ligneFin) {
    return {depart.addSecs((ligneDebut - 1) * intervalle * 60), depart.addSecs(ligneFin * intervalle * 60)};
}

std::optional<QDate> JourDeColonne(QDate courant, const std::array<int, 7> &jourAffich, int colonne) {
    for (int jour = 1; jour <= 7; ++jour) {
        if (colonne > 0 && ColonneDuJour(jour, jourAffich) == colonne) {
            return Lundi(courant).addDays(jour - 1);
        }
    }
    return std::nullopt;
}

namespace {

QTime enMinutes(QTime t) {
    return QTime(t.hour(), t.minute());
}

/// The rows of the whole appointment, unless it leaves the grid.
void elargit(ContexteSelection &contexte, const Configuration &config, int lignes) {
    const Creneaux creneaux = CreneauxSemaine(config);
    const int premiere = creneaux.premiereLigne(contexte.rdv.HeureDebut);
    const int derniere = creneaux.derniereLigne(contexte.rdv.HeureFin);
    contexte.RDVHorsGrille = premiere < 1 || derniere > lignes - 1;
    if (!contexte.RDVHorsGrille) {
        contexte.premiereLigne = premiere;
        contexte.derniereLigne = derniere;
    }
}

} // namespace

ContexteSelection AnalyseSelection(const Configuration &config, const PlageHoraire &selection,
                                   const QList<RendezVous> &jour, int lignes) {
    ContexteSelection contexte;
    contexte.horaire = {enMinutes(selection.debut), enMinutes(selection.fin)};
    const QTime debut = contexte.horaire.debut;
    const QTime fin = contexte.horaire.fin;
    const auto chevauche = [&](const RendezVous &rdv) {
        return rdv.aUneDuree() && rdv.HeureDebut < fin && rdv.HeureFin > debut;
    };
    const auto trouve = std::find_if(jour.begin(), jour.end(), chevauche);
    if (trouve == jour.end()) {
        return contexte;
    }
    contexte.SelectionLibre = false;
    contexte.RDVPartiel = trouve->HeureDebut != debut || trouve->HeureFin != fin;
    contexte.rdv = *trouve;
    contexte.horaire = {trouve->HeureDebut, trouve->HeureFin};
    if (contexte.RDVPartiel) {
        elargit(contexte, config, lignes);
    }
    return contexte;
}

QString InfoBulleRDV(const QString &nom, const QString &prenom, const QString &description,
                     const QString &debut, const QString &fin) {
    return QStringLiteral("RDV: %1 à %2 pour %3 %4, descripif : %5")
        .arg(debut, fin, nom, prenom, description);
}

QString TexteEtatRDV(const QString &nom, const QString &prenom, const QString &description) {
    const QString texte = nom.trimmed() + u' ' + prenom.trimmed();
    const bool avecDescription = !description.isEmpty() && description != QStringLiteral(" ");
    return avecDescription ? texte + QStringLiteral("   [ %1 ]").arg(description) : texte;
}

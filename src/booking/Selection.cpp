#include "booking/Selection.h"

#include <algorithm>

namespace {

int derniereLigne(const Grille &grille) {
    return grille.creneaux.lignes() - 2;
}

/// Slots that end at midnight or later end a minute before it: no appointment goes on into the next day.
PlageHoraire heuresDesLignes(const Creneaux &creneaux, int premiere, int derniere) {
    const int secondes = QTime(0, 0).secsTo(creneaux.debut) + derniere * creneaux.intervalle * 60;
    constexpr int jour = 24 * 60 * 60;
    return {creneaux.heure(premiere), secondes < jour ? QTime(0, 0).addSecs(secondes) : QTime(23, 59)};
}

QDate jourDeColonne(const Affichage &affichage, int grille, int colonne) {
    if (!affichage.demande.VueSemaine) {
        return affichage.demande.jour;
    }
    for (int jour = 1; jour <= 7; ++jour) {
        if (ColonneDuJour(jour, affichage.grilles[grille].config.JourAffich) == colonne) {
            return Lundi(affichage.demande.jour).addDays(jour - 1);
        }
    }
    return {};
}

/// The grid column of a day, 0 when it is not shown.
int colonneDuJour(const Affichage &affichage, int grille, QDate jour) {
    const auto [premier, dernier] = JoursLus(affichage.demande);
    if (jour < premier || jour > dernier) {
        return 0;
    }
    return affichage.demande.VueSemaine
               ? ColonneDuJour(Jour(jour), affichage.grilles[grille].config.JourAffich)
               : 1;
}

QList<RendezVous> dessous(const Grille &grille, QDate jour, const PlageHoraire &plage) {
    QList<RendezVous> trouves;
    for (const RendezVous &rdv : DuJour(grille, jour)) {
        if (rdv.aUneDuree() && Minutes(rdv.HeureDebut, plage.fin) > 0 &&
            Minutes(plage.debut, rdv.HeureFin) > 0) {
            trouves << rdv;
        }
    }
    return trouves;
}

int rangDe(const QList<RendezVous> &liste, qint64 RefRDV) {
    const auto trouve =
        std::ranges::find_if(liste, [RefRDV](const RendezVous &rdv) { return rdv.RefRDV == RefRDV; });
    return trouve == liste.end() ? -1 : int(trouve - liste.begin());
}

bool depasse(const RendezVous &rdv, const Grille &grille) {
    return grille.creneaux.premiereLigne(rdv.HeureDebut) < 1 ||
           grille.creneaux.derniereLigne(rdv.HeureFin) > derniereLigne(grille) + 1;
}

/// To the rows that the appointment covers; one that begins before the first row or ends after the closing
/// one leaves the outline as the user made it.
void elargit(Selection &selection, const Grille &grille) {
    if (!depasse(*selection.rdv, grille)) {
        selection.coins.ligne = grille.creneaux.premiereLigne(selection.rdv->HeureDebut);
        selection.coins.ligneFin =
            std::min(grille.creneaux.derniereLigne(selection.rdv->HeureFin), derniereLigne(grille));
        selection.contour = heuresDesLignes(grille.creneaux, selection.coins.ligne, selection.coins.ligneFin);
    }
}

/// What rows `premiere` to `ligneFin` of a day hold: the appointment at `rang` of those there.
Selection analyse(const Affichage &affichage, int numero, const Coins &coins, QDate jour, int rang) {
    const Grille &grille = affichage.grilles[numero];
    Selection selection;
    selection.grille = numero;
    selection.coins = coins;
    selection.jour = jour;
    selection.contour = heuresDesLignes(grille.creneaux, coins.premiereLigne(), coins.derniereLigne());
    const QList<RendezVous> trouves = dessous(grille, jour, selection.contour);
    selection.horaire = selection.contour;
    if (!trouves.isEmpty()) {
        selection.rang = std::clamp(rang, 0, int(trouves.size()) - 1) + 1;
        selection.nombre = int(trouves.size());
        selection.rdv = trouves[selection.rang - 1];
        selection.horaire = {selection.rdv->HeureDebut, selection.rdv->HeureFin};
        elargit(selection, grille);
    }
    selection.ChoixHoraire =
        HoraireProf(grille.config, Jour(jour), selection.horaire.debut, selection.horaire.fin);
    return selection;
}

/// The selectable cells that the user's corners mean; nothing in an hour column or where there is none.
std::optional<Coins> corrige(const Affichage &affichage, int numero, const Coins &coins) {
    const Grille &grille = affichage.grilles[numero];
    const int derniere = grille.tracable() ? derniereLigne(grille) : 0;
    const bool semaine = affichage.demande.VueSemaine;
    const int colonnes = semaine ? grille.config.NbJours : 1;
    if (derniere < 1) {
        return std::nullopt;
    }
    const Coins premiereCellule{1, 1, 1, 1};
    if (PlusieursColonnes(affichage, coins)) {
        return premiereCellule;
    }
    const bool heures = coins.colonne < 1 || coins.colonne > colonnes;
    if (heures || (!semaine && coins.premiereLigne() < 1)) {
        return std::nullopt;
    }
    if (coins.ligne > derniere) {
        return semaine ? premiereCellule : Coins{1, 1, derniere, 1};
    }
    if (coins.premiereLigne() < 1) {
        return premiereCellule;
    }
    return Coins{coins.ligne, coins.colonne, std::min(coins.ligneFin, derniere), coins.colonne};
}

/// The cells that show these hours of a day; nothing where no row does.
std::optional<Coins> cellules(const Affichage &affichage, int numero, QDate jour, const PlageHoraire &plage) {
    const Grille &grille = affichage.grilles[numero];
    const int colonne = grille.tracable() ? colonneDuJour(affichage, numero, jour) : 0;
    if (colonne == 0) {
        return std::nullopt;
    }
    const int premiere = std::max(grille.creneaux.premiereLigne(plage.debut), 1);
    const int derniere = std::min(grille.creneaux.derniereLigne(plage.fin), derniereLigne(grille));
    return premiere > derniere ? std::nullopt : std::optional(Coins{premiere, colonne, derniere, colonne});
}

Selection selectionneRDV(const Affichage &affichage, int numero, const RendezVous &rdv,
                         const PlageHoraire &contour) {
    const Grille &grille = affichage.grilles[numero];
    const PlageHoraire entier{rdv.HeureDebut, rdv.HeureFin};
    const bool garde = contour.debut.isValid() && depasse(rdv, grille) &&
                       Minutes(contour.debut, rdv.HeureFin) > 0 && Minutes(rdv.HeureDebut, contour.fin) > 0;
    const auto lignes = cellules(affichage, numero, rdv.Date1, garde ? contour : entier);
    if (!lignes || !rdv.aUneDuree()) {
        return {};
    }
    const PlageHoraire montre =
        heuresDesLignes(grille.creneaux, lignes->premiereLigne(), lignes->derniereLigne());
    const int rang = rangDe(dessous(grille, rdv.Date1, montre), rdv.RefRDV);
    if (rang < 0) { // the rows of the outline that are left may be those of others
        return garde ? selectionneRDV(affichage, numero, rdv, {}) : Selection();
    }
    return analyse(affichage, numero, *lignes, rdv.Date1, rang);
}

/// The first appointment of rows that the user did not choose one by one: the outline keeps that one only.
Selection premierDe(const Affichage &affichage, int numero, const Coins &coins, QDate jour) {
    const Selection lignes = analyse(affichage, numero, coins, jour, 0);
    return lignes.rdv ? selectionneRDV(affichage, numero, *lignes.rdv, lignes.contour) : lignes;
}

/// The appointment in the grid `prefere` where that shows it, else in another; nothing when none does.
Selection retrouve(const Affichage &affichage, qint64 RefRDV, int prefere, const PlageHoraire &contour) {
    Selection trouvee;
    for (int i = 0; i < affichage.grilles.size(); ++i) {
        const int place = rangDe(affichage.grilles[i].rendezVous, RefRDV);
        if (place >= 0 && (trouvee.vide() || i == prefere)) {
            const Selection ici =
                selectionneRDV(affichage, i, affichage.grilles[i].rendezVous[place], contour);
            trouvee = ici.vide() ? trouvee : ici;
        }
    }
    return trouvee;
}

bool memePlace(const Affichage &a, const Affichage &b) {
    return a.demande.PraticienCourant == b.demande.PraticienCourant &&
           a.demande.VueSemaine == b.demande.VueSemaine && JoursLus(a.demande) == JoursLus(b.demande);
}

/// The grid that shows what another one showed: in another view, the one of the same chair.
int grilleSemblable(const Affichage &affichage, const Affichage &ancien, const Selection &avant) {
    if (affichage.demande.VueSemaine == ancien.demande.VueSemaine) {
        return std::min(avant.grille, int(affichage.grilles.size()) - 1);
    }
    const QString &fauteuil = ancien.grilles[avant.grille].config.FauteuilCourant;
    for (int i = 0; i < affichage.grilles.size(); ++i) {
        if (affichage.grilles[i].config.FauteuilCourant == fauteuil) {
            return i;
        }
    }
    return 0;
}

} // namespace

bool PlusieursColonnes(const Affichage &affichage, const Coins &coins) {
    return affichage.demande.VueSemaine && coins.colonne != coins.colonneFin;
}

QDate JourDesCoins(const Affichage &affichage, int grille, const Coins &coins) {
    const std::optional<Coins> corriges = corrige(affichage, grille, coins);
    return corriges ? jourDeColonne(affichage, grille, corriges->colonne) : QDate();
}

Selection Selectionne(const Affichage &affichage, int grille, const Coins &coins, Geste geste,
                      const Selection &avant) {
    const std::optional<Coins> corriges = corrige(affichage, grille, coins);
    if (!corriges) {
        return avant;
    }
    const QDate jour = jourDeColonne(affichage, grille, corriges->colonne);
    if (geste == Geste::Glisse || corriges->ligne != corriges->ligneFin) {
        return premierDe(affichage, grille, *corriges, jour);
    }
    Selection selection = analyse(affichage, grille, *corriges, jour, 0);
    const bool memeGrille = avant.rdv && avant.grille == grille && avant.jour == jour;
    if (memeGrille && selection.nombre > 1) {
        const PlageHoraire plage = heuresDesLignes(affichage.grilles[grille].creneaux,
                                                   corriges->premiereLigne(), corriges->derniereLigne());
        const int rang = rangDe(dessous(affichage.grilles[grille], jour, plage), avant.rdv->RefRDV);
        if (rang >= 0) {
            selection = analyse(affichage, grille, *corriges, jour, (rang + 1) % selection.nombre);
            selection.suivant = true;
        }
    }
    return selection;
}

Selection Etend(const Affichage &affichage, const Selection &avant, Sens sens) {
    if (avant.vide() || avant.rdv) {
        return avant;
    }
    const int premiere = avant.coins.premiereLigne();
    const int fin = avant.coins.derniereLigne() + (sens == Sens::PlusTard ? 1 : -1);
    if (fin < premiere || fin > derniereLigne(affichage.grilles[avant.grille])) {
        return avant;
    }
    const Coins coins{premiere, avant.coins.colonne, fin, avant.coins.colonne};
    const Selection etendue = analyse(affichage, avant.grille, coins, avant.jour, 0);
    return etendue.rdv ? avant : etendue;
}

Selection Reprend(const Affichage &affichage, const Affichage &ancien, const Selection &avant) {
    if (avant.vide() || affichage.grilles.isEmpty()) {
        return {};
    }
    if (avant.rdv && memePlace(affichage, ancien)) {
        const Selection meme = retrouve(affichage, avant.rdv->RefRDV, avant.grille, avant.contour);
        if (!meme.vide()) {
            return meme;
        }
    }
    const int grille = grilleSemblable(affichage, ancien, avant);
    QDate jour = avant.jour;
    const bool memeVue = affichage.demande.VueSemaine == ancien.demande.VueSemaine;
    if (memeVue && colonneDuJour(affichage, grille, jour) == 0) {
        jour = affichage.demande.VueSemaine ? Lundi(affichage.demande.jour).addDays(Jour(jour) - 1)
                                            : affichage.demande.jour;
    }
    const auto lignes = cellules(affichage, grille, jour, avant.contour);
    if (!lignes) {
        return {};
    }
    const Selection reprise = analyse(affichage, grille, *lignes, jour, 0);
    const bool autreJour =
        affichage.demande.jour != ancien.demande.jour && reprise.jour != affichage.demande.jour;
    return reprise.rdv || autreJour ? Selection() : reprise;
}

Selection SelectionneRDV(const Affichage &affichage, qint64 RefRDV) {
    return retrouve(affichage, RefRDV, 0, {});
}

Selection SelectionnePlace(const Affichage &affichage, const PlaceRDV &place) {
    for (int i = 0; i < affichage.grilles.size(); ++i) {
        const QString &fauteuil = affichage.grilles[i].config.FauteuilCourant;
        const auto lignes = cellules(affichage, i, place.jour, place.horaire);
        if (lignes && CLng(fauteuil) == CLng(place.FauteuilCourant)) {
            const Selection selection = analyse(affichage, i, *lignes, place.jour, 0);
            return selection.rdv ? Selection() : selection;
        }
    }
    return {};
}

QDate JourCourant(const Affichage &affichage, const Selection &selection) {
    return selection.vide() ? affichage.demande.jour : selection.jour;
}

PlaceRDV PlaceDe(const Affichage &affichage, const Selection &selection) {
    const Configuration &config = affichage.grilles[selection.grille].config;
    return {affichage.demande.PraticienCourant,
            config.FauteuilCourant,
            selection.jour,
            selection.horaire,
            config.Intervalle,
            selection.ChoixHoraire,
            config};
}

QString HeuresSelection(const Selection &selection) {
    const QString forme = QStringLiteral("HH:mm");
    return selection.vide() ? QString()
                            : selection.horaire.debut.toString(forme) + QChar(0x2013) +
                                  selection.horaire.fin.toString(forme);
}

QString DureeSelection(const Selection &selection) {
    return selection.vide() || selection.rdv
               ? QString()
               : QStringLiteral("%1 min").arg(Minutes(selection.horaire.debut, selection.horaire.fin));
}

QString InfoBulleRDV(const Selection &selection) {
    if (!selection.rdv) {
        return {};
    }
    const RendezVous &rdv = *selection.rdv;
    return QStringLiteral("RDV: %1 à %2 pour %3 %4, descripif : %5")
        .arg(rdv.HeureDebut.toString(QStringLiteral("HH:mm")), rdv.HeureFin.toString(QStringLiteral("HH:mm")),
             rdv.Nom, rdv.Prenom, rdv.Description);
}

QString TexteEtatRDV(const Selection &selection) {
    const RendezVous rdv = selection.rdv.value_or(RendezVous());
    QString texte = rdv.Nom.trimmed() + u' ' + rdv.Prenom.trimmed();
    if (!rdv.Description.isEmpty() && rdv.Description != QStringLiteral(" ")) {
        texte += QStringLiteral("   [ %1 ]").arg(rdv.Description);
    }
    texte.replace(u'\n', u' '); // another program's row: the status bar has one line
    return selection.nombre > 1
               ? QStringLiteral("%1 sur %2 : ").arg(selection.rang).arg(selection.nombre) + texte
               : texte;
}

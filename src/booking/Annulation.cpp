#include "booking/Annulation.h"

namespace {

constexpr QLatin1StringView cle("RefRDV");
constexpr QLatin1StringView champFin("HeureFin");

bool autre(const EcritureRDV &ecriture, QLatin1StringView champ) {
    return ecriture.avant[champ] != ecriture.apres[champ];
}

/// A row without a name is named by its hour.
QString nomDe(const Rangee &rangee) {
    constexpr qsizetype assezLong = 30;
    const QString nom = rangee[QLatin1StringView("Nom")].toString().simplified();
    const QString debut = rangee[QLatin1StringView("HeureDebut")].toString().right(8).left(5);
    const QString dit = nom.isEmpty() ? QStringLiteral("le rendez-vous de ") + debut : nom;
    return dit.size() > assezLong ? dit.left(assezLong - 1).trimmed() + u'…' : dit;
}

QString verbe(const EcritureRDV &ecriture) {
    switch (ecriture.quoi) {
    case Operation::Ajout:
        return QStringLiteral("Ajouter");
    case Operation::Suppression:
        return QStringLiteral("Supprimer");
    case Operation::Presence:
        return QStringLiteral("Présence de");
    case Operation::Retabli:
        return QStringLiteral("Rétablir");
    default:
        break;
    }
    switch (GenreDe(ecriture)) {
    case GenreEdition::Deplace:
        return QStringLiteral("Déplacer");
    case GenreEdition::Allonge:
        return QStringLiteral("Allonger");
    case GenreEdition::Raccourci:
        return QStringLiteral("Raccourcir");
    case GenreEdition::Autre:
        break;
    }
    return QStringLiteral("Éditer");
}

/// A row of the key `ancienne` stands under `nouvelle`.
void renumerote(QList<EcritureRDV> &pas, qint64 ancienne, qint64 nouvelle) {
    for (EcritureRDV &ecriture : pas) {
        for (Rangee *rangee : {&ecriture.avant, &ecriture.apres}) {
            if (!rangee->isEmpty() && (*rangee)[cle].toInteger() == ancienne) {
                (*rangee)[cle] = nouvelle;
            }
        }
    }
}

} // namespace

GenreEdition GenreDe(const EcritureRDV &ecriture) {
    for (const char *champ : {"Date1", "HeureDebut", "NumPraticien", "Fauteuil"}) {
        if (autre(ecriture, QLatin1StringView(champ))) {
            return GenreEdition::Deplace;
        }
    }
    Rangee avant = ecriture.avant;
    avant[champFin] = ecriture.apres[champFin];
    if (avant != ecriture.apres || !autre(ecriture, champFin)) { // an edit of more than the end
        return GenreEdition::Autre;
    }
    return ecriture.apres[champFin].toString() > ecriture.avant[champFin].toString()
               ? GenreEdition::Allonge
               : GenreEdition::Raccourci;
}

QString NomDuGeste(const EcritureRDV &ecriture) {
    return verbe(ecriture) + u' ' + nomDe(ecriture.avant.isEmpty() ? ecriture.apres : ecriture.avant);
}

void Annulation::note(const EcritureRDV &ecriture) {
    if (ecriture.vide()) {
        return;
    }
    m_annules.clear();
    m_faits.append(ecriture);
    if (m_faits.size() > pasGardes) {
        m_faits.removeFirst();
    }
}

void Annulation::passe(QList<EcritureRDV> &de, QList<EcritureRDV> &vers, qint64 ref) {
    vers.append(de.takeLast());
    const qint64 ancienne = vers.last().RefRDV();
    if (ref != ancienne) {
        renumerote(de, ancienne, ref);
        renumerote(vers, ancienne, ref);
    }
}

Retour RetourA(const std::optional<RendezVous> &avant, const std::optional<RendezVous> &actuel, bool libre,
               const QDateTime &maintenant) {
    if (!avant) {
        return Retour::SansAvant;
    }
    if (avant == actuel) {
        return Retour::Actuel;
    }
    const bool place = actuel && actuel->Date1 == avant->Date1 && actuel->HeureDebut == avant->HeureDebut &&
                       actuel->HeureFin == avant->HeureFin && actuel->NumPraticien == avant->NumPraticien &&
                       actuel->Fauteuil == avant->Fauteuil;
    if (place) {
        return Retour::SurPlace;
    }
    if (!libre) {
        return Retour::Occupe;
    }
    return QDateTime(avant->Date1, avant->HeureDebut) < maintenant ? Retour::Passe : Retour::Libre;
}

#include "grid/AReplacer.h"

#include "grid/Fourchette.h"
#include "schedule/Creneaux.h"

#include <QLocale>

#include <algorithm>

namespace {

QString jourEtHeure(const RendezVous &rdv) {
    return QLocale(QLocale::French, QLocale::France).toString(rdv.Date1, QStringLiteral("ddd d MMM ")) +
           rdv.HeureDebut.toString(QStringLiteral("HH:mm"));
}

bool memePlace(const RendezVous &a, const RendezVous &b) {
    return a.Date1 == b.Date1 && a.HeureDebut == b.HeureDebut && a.NumPraticien == b.NumPraticien &&
           a.Fauteuil == b.Fauteuil;
}

/// Books are in use that give a key twice.
bool autrePatient(const RendezVous &a, const RendezVous &b) {
    return a.NumPatient != b.NumPatient && a.Nom != b.Nom;
}

QString compte(qint64 nombre, const char *un, const char *plusieurs) {
    return QString::number(nombre) + u' ' + QString::fromUtf8(nombre < 2 ? un : plusieurs);
}

QString duree(qint64 secondes) {
    constexpr qint64 minute = 60;
    constexpr qint64 heure = 60 * minute;
    constexpr qint64 jour = 24 * heure;
    if (secondes >= jour) {
        return compte(secondes / jour, "jour", "jours");
    }
    return secondes >= heure ? compte(secondes / heure, "heure", "heures")
                             : compte(std::max<qint64>(secondes / minute, 0), "minute", "minutes");
}

} // namespace

EtatReplacer EtatDe(const AReplacer &un) {
    if (!un.actuel || autrePatient(*un.actuel, un.note)) {
        return EtatReplacer::Disparu;
    }
    if (un.pose && memePlace(*un.actuel, *un.pose)) {
        return EtatReplacer::Pose;
    }
    return memePlace(*un.actuel, un.note) ? EtatReplacer::EnAttente : EtatReplacer::Deplace;
}

QList<AReplacer> Listes(const QList<AReplacer> &tous) {
    QList<AReplacer> listes = tous;
    listes.removeIf([](const AReplacer &un) { return EtatDe(un) == EtatReplacer::Pose; });
    std::ranges::stable_sort(listes, {}, &AReplacer::depuis);
    return listes;
}

bool EstEpingle(const QList<AReplacer> &tous, qint64 RefRDV) {
    return std::ranges::any_of(tous, [RefRDV](const AReplacer &un) {
        return un.note.RefRDV == RefRDV && EtatDe(un) == EtatReplacer::EnAttente;
    });
}

std::optional<AReplacer> APoser(const QList<AReplacer> &tous, qint64 voulu) {
    std::optional<AReplacer> premier;
    for (const AReplacer &un : Listes(tous)) {
        if (un.note.RefRDV == voulu) {
            return un;
        }
        if (!premier && EtatDe(un) == EtatReplacer::EnAttente) {
            premier = un;
        }
    }
    return premier;
}

QString NomReplacer(const AReplacer &un) {
    const RendezVous &rdv = EtatDe(un) == EtatReplacer::Disparu ? un.note : *un.actuel;
    return NomComplet(rdv.Nom, rdv.Prenom).simplified();
}

QString PlaceReplacer(const AReplacer &un) {
    return QStringLiteral("%1 · %2 min")
        .arg(jourEtHeure(un.note))
        .arg(Minutes(un.note.HeureDebut, un.note.HeureFin));
}

QString AttenteReplacer(const AReplacer &un, const QDateTime &maintenant) {
    switch (EtatDe(un)) {
    case EtatReplacer::Disparu:
        return QStringLiteral("ce rendez-vous n'existe plus");
    case EtatReplacer::Deplace:
        return QStringLiteral("déplacé depuis : ") + jourEtHeure(*un.actuel);
    default:
        return QStringLiteral("en attente depuis ") + duree(un.depuis.secsTo(maintenant));
    }
}

QString TitreReplacer(const QList<AReplacer> &tous) {
    const auto nombre = std::ranges::count(tous, EtatReplacer::EnAttente, EtatDe);
    return nombre == 0 ? QStringLiteral("À replacer")
                       : QStringLiteral("À replacer, %1 en attente").arg(nombre);
}

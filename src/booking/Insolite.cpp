#include "booking/Insolite.h"

#include "journal/Ecriture.h"

#include <QLocale>

#include <algorithm>

namespace {

using Genre = Insolite::Genre;

QString enHeure(QTime heure) {
    return heure.toString(QStringLiteral("HH:mm"));
}

QString enJour(QDate jour, const char *forme) {
    return QLocale(QLocale::French, QLocale::France).toString(jour, QString::fromLatin1(forme));
}

QString nomDuJour(QDate jour) {
    return enJour(jour, "dddd");
}

QString jourComplet(QDate jour) {
    return enJour(jour, "dddd d MMMM yyyy");
}

QString place(const RendezVous &rdv) {
    return QStringLiteral("%1, %2–%3")
        .arg(jourComplet(rdv.Date1), enHeure(rdv.HeureDebut), enHeure(rdv.HeureFin));
}

/// The same start at the same chair: its end alone moves.
bool memeDebut(const Visee &visee) {
    const auto &[rdv, avant, place] = visee;
    return avant && avant->Date1 == rdv.Date1 && Minutes(avant->HeureDebut, rdv.HeureDebut) == 0 &&
           avant->NumPraticien == rdv.NumPraticien && avant->Fauteuil == rdv.Fauteuil;
}

void ajoutePasse(QList<Insolite> &liste, const RendezVous &rdv, const QDateTime &maintenant) {
    const QDate aujourdhui = maintenant.date();
    if (rdv.Date1 < aujourdhui) {
        liste << Insolite{Genre::Passe, QStringLiteral("Ce jour est passé"),
                          QStringLiteral("Nous sommes le %1.").arg(jourComplet(aujourdhui))};
    } else if (rdv.Date1 == aujourdhui && Minutes(rdv.HeureDebut, maintenant.time()) > 0) {
        liste << Insolite{Genre::Passe, QStringLiteral("Cette heure est passée"),
                          QStringLiteral("Il est %1.").arg(enHeure(maintenant.time()))};
    }
}

/// A greyed half-day, and the lunch break that is not wholly in it.
void ajouteHeures(QList<Insolite> &liste, const RendezVous &rdv, const Configuration &config, int grise) {
    constexpr int matin = 1;
    constexpr int apresMidi = 2;
    const auto avant = [](QTime a, QTime b) { return Minutes(a, b) > 0; };
    const QTime finMatin = config.HeureMatFin;
    const QTime debutPM = config.HeurePMDebut;
    const bool leMatin = avant(rdv.HeureDebut, finMatin);
    const bool lApresMidi = avant(debutPM, rdv.HeureFin);
    if (avant(finMatin, debutPM) && avant(rdv.HeureDebut, debutPM) && avant(finMatin, rdv.HeureFin) &&
        (leMatin || lApresMidi)) {
        liste << Insolite{Genre::Midi, QStringLiteral("Il traverse la pause de midi"),
                          leMatin ? QStringLiteral("Le matin finit à %1.").arg(enHeure(finMatin))
                                  : QStringLiteral("L'après-midi commence à %1.").arg(enHeure(debutPM))};
    }
    const QString jour = nomDuJour(rdv.Date1);
    if (grise == matin && leMatin) {
        liste << Insolite{Genre::DemiJournee, QStringLiteral("Le matin de ce jour est grisé"),
                          QStringLiteral("Le %1 matin n'est pas travaillé.").arg(jour)};
    } else if (grise == apresMidi && lApresMidi) {
        liste << Insolite{Genre::DemiJournee, QStringLiteral("L'après-midi de ce jour est grisé"),
                          QStringLiteral("Le %1 après-midi n'est pas travaillé.").arg(jour)};
    }
}

void ajouteHoraire(QList<Insolite> &liste, const RendezVous &rdv, const Configuration &config) {
    constexpr int journeeGrisee = 3;
    if (!DefautConfiguration(config).isEmpty()) {
        return;
    }
    const int numero = Jour(rdv.Date1);
    const int grise = config.JourGrise[size_t(numero - 1)];
    const QString jour = nomDuJour(rdv.Date1);
    const bool repos = config.JourRepos == numero || grise == journeeGrisee;
    if (repos) {
        liste << Insolite{Genre::Repos, QStringLiteral("C'est un jour de repos"),
                          QStringLiteral("Le %1 n'est pas travaillé.").arg(jour)};
    }
    if (!Dans(numero, config.JourAffich)) {
        liste << Insolite{Genre::NonAffiche, QStringLiteral("Ce jour n'est pas affiché"),
                          QStringLiteral("La semaine ne montre pas le %1.").arg(jour)};
    }
    if (!repos) {
        ajouteHeures(liste, rdv, config, grise);
    }
}

void ajouteSecond(QList<Insolite> &liste, const Visee &visee, const QList<RendezVous> &jour) {
    QStringList heures;
    for (const RendezVous &autre : jour) {
        const bool lui = visee.avant && autre.RefRDV == visee.avant->RefRDV;
        if (!lui && autre.Date1 == visee.rdv.Date1 && MemePatient(autre, visee.rdv)) {
            heures << (autre.HeureDebut.isValid() ? enHeure(autre.HeureDebut)
                                                  : QStringLiteral("une heure illisible"));
        }
    }
    heures.sort();
    if (heures.size() == 1) {
        liste << Insolite{Genre::Second, QStringLiteral("Second rendez-vous de ce jour pour ce patient"),
                          QStringLiteral("L'autre est à %1.").arg(heures.first())};
    } else if (!heures.isEmpty()) {
        liste << Insolite{Genre::Second, QStringLiteral("Encore un rendez-vous de ce jour pour ce patient"),
                          QStringLiteral("Les autres sont à %1.").arg(heures.join(QStringLiteral(", ")))};
    }
}

} // namespace

bool MemePatient(const RendezVous &a, const RendezVous &b) {
    const long numeroA = CLng(a.NumPatient);
    const long numeroB = CLng(b.NumPatient);
    return numeroA != 0 && numeroB != 0 ? numeroA == numeroB
                                        : ClePatient(a.Nom, a.Prenom) == ClePatient(b.Nom, b.Prenom);
}

QList<Insolite> InsoliteDe(const Visee &visee, const QList<RendezVous> &jour, const QDateTime &maintenant) {
    QList<Insolite> liste;
    ajoutePasse(liste, visee.rdv, maintenant);
    ajouteHoraire(liste, visee.rdv, visee.place.config);
    ajouteSecond(liste, visee, jour);
    if (memeDebut(visee)) {
        QList<Insolite> deja;
        ajoutePasse(deja, *visee.avant, maintenant);
        ajouteHoraire(deja, *visee.avant, visee.place.config);
        liste.removeIf([&](const Insolite &une) {
            return une.genre == Genre::Second ||
                   std::ranges::any_of(deja, [&](const Insolite &autre) { return autre.genre == une.genre; });
        });
    }
    return liste;
}

RendezVous Place(RendezVous rdv, const PlaceRDV &place) {
    constexpr int derniereMinute = 24 * 60 - 1;
    const int longueur = Minutes(rdv.HeureDebut, rdv.HeureFin);
    const int fin = std::min(Minutes(QTime(0, 0), place.horaire.debut) + longueur, derniereMinute);
    rdv.Date1 = place.jour;
    rdv.HeureDebut = place.horaire.debut;
    rdv.HeureFin = QTime(0, 0).addSecs(fin * 60);
    rdv.Fauteuil = CLng(place.FauteuilCourant);
    return rdv;
}

ProjetEnMots ProjetDe(const Visee &visee) {
    const QString a = QStringLiteral("au ") + place(visee.rdv);
    if (!visee.avant) {
        return {QStringLiteral("Réserver ce rendez-vous ?"),
                QStringLiteral("Ré&server quand même"),
                {},
                QStringLiteral("le ") + place(visee.rdv)};
    }
    const QString de = QStringLiteral("du ") + place(*visee.avant);
    return memeDebut(visee) ? ProjetEnMots{QStringLiteral("Allonger ce rendez-vous ?"),
                                           QStringLiteral("&Allonger quand même"), de, a}
                            : ProjetEnMots{QStringLiteral("Déplacer ce rendez-vous ?"),
                                           QStringLiteral("&Déplacer quand même"), de, a};
}

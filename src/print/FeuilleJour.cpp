#include "print/FeuilleJour.h"

#include "schedule/Creneaux.h"

#include <cmath>

namespace {

QString hhnn(qint64 minute) {
    return QTime(0, 0).addSecs(int(minute) * 60).toString(QStringLiteral("HH:mm"));
}

/// Displayed days and the lunch break do not matter here: less is asked than of a grid.
QString defautHoraires(const Configuration &config) {
    if (!config.HeureMatDebut.isValid() || !config.HeurePMFin.isValid()) {
        return QStringLiteral("un horaire manque ou ne peut pas être lu");
    }
    if (config.HeurePMFin < config.HeureMatDebut) {
        return QStringLiteral("les horaires ne se suivent pas");
    }
    if (config.Intervalle < 1) {
        return QStringLiteral("la durée d'un créneau doit être d'au moins une minute");
    }
    return {};
}

/// The slots of a sheet, counted from 0: those of the left column come first.
struct Plan {
    qint64 debut;
    qint64 fin;
    qint64 pas;
    int parColonne;

    explicit Plan(const Configuration &config)
        : debut(Minutes(QTime(0, 0), config.HeureMatDebut)), fin(Minutes(QTime(0, 0), config.HeurePMFin)),
          pas(config.Intervalle), parColonne(int(std::nearbyint(double(fin - debut) / double(pas))) / 2 + 1) {
    } // a half to the even

    int creneaux() const { return 2 * parColonne; }
    qint64 minute(qint64 creneau) const { return debut + creneau * pas; }
    /// The last one may begin when the day ends.
    bool existe(int creneau) const { return minute(creneau) <= fin; }
    /// The slot that begins at that minute; -1: none.
    int creneauDe(qint64 quand) const {
        const bool surUneLigne = quand >= debut && quand <= fin && (quand - debut) % pas == 0;
        const qint64 creneau = surUneLigne ? (quand - debut) / pas : -1;
        return creneau < creneaux() ? int(creneau) : -1;
    }
};

/// Which appointment each slot shows (-1: none), and the slot that each one reaches first.
struct Placement {
    QList<int> occupants;
    QList<int> premiers;
};

Placement place(const Plan &plan, const QList<RendezVous> &rdvs) {
    Placement placement{QList<int>(plan.creneaux(), -1), QList<int>(rdvs.size(), -1)};
    for (int i = 0; i < rdvs.size(); ++i) {
        if (!rdvs[i].aUneDuree()) {
            continue;
        }
        const int fin = Minutes(QTime(0, 0), rdvs[i].HeureFin); // of this day: steps never go round midnight
        for (qint64 t = Minutes(QTime(0, 0), rdvs[i].HeureDebut); t < fin; t += plan.pas) {
            if (const int creneau = plan.creneauDe(t); creneau >= 0) {
                placement.occupants[creneau] = i;
                placement.premiers[i] = placement.premiers[i] < 0 ? creneau : placement.premiers[i];
            }
        }
    }
    return placement;
}

/// A name below itself becomes the ditto mark. A line without one forgets it.
void repete(QList<LigneFeuille> &lignes, QString LigneFeuille::*colonne) {
    QString retenu;
    for (LigneFeuille &ligne : lignes) {
        QString &nom = ligne.*colonne;
        if (!nom.isEmpty() && nom == retenu) {
            nom = QStringLiteral("''  ''  ''  ''");
        } else {
            retenu = nom;
        }
    }
}

QString pourCellule(const QString &texte) {
    constexpr int caracteres = 27; // what a cell of the template holds
    return texte.trimmed().left(caracteres);
}

} // namespace

FeuilleJour ComposeFeuille(const Configuration &config, const QList<RendezVous> &rdvs) {
    FeuilleJour feuille;
    if (const QString defaut = defautHoraires(config); !defaut.isEmpty()) {
        feuille.empechement =
            QStringLiteral("La feuille ne peut pas être imprimée avec la configuration « %1 » : %2.")
                .arg(config.NomConfig.left(100), defaut);
        return feuille;
    }
    const Plan plan(config);
    const Placement placement = place(plan, rdvs);
    for (int gauche = 0, droite = plan.parColonne; gauche < plan.parColonne; ++gauche, ++droite) {
        LigneFeuille ligne;
        ligne.Heure = hhnn(plan.minute(gauche));
        ligne.HeurePM = plan.existe(droite) ? hhnn(plan.minute(droite)) : QString();
        if (const int i = placement.occupants[gauche]; i >= 0) {
            ligne.NomPatient = rdvs[i].Nom + u' ' + rdvs[i].Prenom;
            ligne.PrenomPatient = rdvs[i].Description;
        }
        if (const int i = placement.occupants[droite]; i >= 0) {
            ligne.NomPatientPM = rdvs[i].Nom + u' ' + rdvs[i].Prenom;
            ligne.PrenomPatientPM = rdvs[i].Description;
        }
        feuille.lignes << ligne;
    }
    repete(feuille.lignes, &LigneFeuille::NomPatient);
    repete(feuille.lignes, &LigneFeuille::NomPatientPM);
    for (int i = 0; i < rdvs.size(); ++i) {
        if (placement.premiers[i] < 0 || placement.occupants[placement.premiers[i]] != i) {
            feuille.sansLigne << rdvs[i];
        }
    }
    return feuille;
}

QString TexteSansLigne(const QList<RendezVous> &sansLigne) {
    constexpr int nommes = 10;
    if (sansLigne.isEmpty()) {
        return {};
    }
    QStringList lignes{
        sansLigne.size() == 1
            ? QStringLiteral("1 rendez-vous ne tient pas sur la grille :")
            : QStringLiteral("%1 rendez-vous ne tiennent pas sur la grille :").arg(sansLigne.size())};
    for (const RendezVous &rdv : sansLigne.first(std::min<qsizetype>(nommes, sansLigne.size()))) {
        const QString nom = (rdv.Nom + u' ' + rdv.Prenom).simplified().left(100);
        const auto heure = [](QTime t) {
            return t.isValid() ? t.toString(QStringLiteral("HH:mm")) : QStringLiteral("?");
        };
        lignes << QStringLiteral("%1, de %2 à %3").arg(nom, heure(rdv.HeureDebut), heure(rdv.HeureFin));
    }
    if (sansLigne.size() > nommes) {
        lignes << QStringLiteral("…");
    }
    return lignes.join(u'\n');
}

word::Verbs DocumentFeuille(const QList<LigneFeuille> &lignes, const QString &modele, const QStringList &noms,
                            const QString &praticien, const QString &jour) {
    word::Cells cellules;
    for (const LigneFeuille &ligne : lignes) {
        cellules.texts << ligne.Heure.trimmed() << pourCellule(ligne.NomPatient)
                       << pourCellule(ligne.PrenomPatient) << ligne.HeurePM.trimmed()
                       << pourCellule(ligne.NomPatientPM) << pourCellule(ligne.PrenomPatientPM);
    }
    return {word::Open{modele},
            word::Reserve{noms},
            word::Select{QStringLiteral("DebTableau")},
            cellules,
            word::TypeIfAny{QStringLiteral("NomDocteur"), praticien},
            word::TypeIfAny{QStringLiteral("DateJourImprimé"), jour},
            word::Save{},
            word::Print{},
            word::Close{}};
}

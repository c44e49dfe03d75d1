#include "booking/TextesJournal.h"

#include "booking/Annulation.h"
#include "booking/RangeeTables.h"
#include "patients/TexteSaisi.h"
#include "platform/ui/DatesFr.h"

namespace {

const QString fleche = QStringLiteral(" → ");

QString patient(const RendezVous &rdv) {
    return UneLigne(rdv.Nom + u' ' + rdv.Prenom).trimmed();
}

QString numerote(const RendezVous &rdv) {
    const bool avec = !rdv.NumPatient.isEmpty() && rdv.NumPatient != u"0";
    return avec ? QStringLiteral("%1, n° %2").arg(patient(rdv), rdv.NumPatient) : patient(rdv);
}

QString heures(const RendezVous &rdv) {
    return DatesFr::heure(rdv.HeureDebut) + u'–' + DatesFr::heure(rdv.HeureFin);
}

QString place(const RendezVous &rdv) {
    return DatesFr::breve(rdv.Date1) + QStringLiteral(", ") + heures(rdv);
}

QString ouiNon(bool oui) {
    return oui ? QStringLiteral("oui") : QStringLiteral("non");
}

/// "mar. 24 nov. 2026 11:30 → mer. 25 nov. 2026 10:00"; an end of its own is told as well.
QString changementDePlace(const RendezVous &avant, const RendezVous &apres) {
    if (avant.HeureDebut.secsTo(avant.HeureFin) != apres.HeureDebut.secsTo(apres.HeureFin)) {
        return avant.Date1 == apres.Date1 ? heures(avant) + fleche + heures(apres)
                                          : place(avant) + fleche + place(apres);
    }
    const auto debut = [](const RendezVous &rdv) {
        return DatesFr::breve(rdv.Date1) + u' ' + DatesFr::heure(rdv.HeureDebut);
    };
    return debut(avant) + fleche + debut(apres);
}

QString changements(const RendezVous &avant, const RendezVous &apres) {
    QStringList tous;
    const auto ajoute = [&](const QString &champ, const QString &a, const QString &b) {
        if (a != b) {
            tous << QStringLiteral("%1 : %2 → %3")
                        .arg(champ, a.isEmpty() ? QStringLiteral("rien") : a,
                             b.isEmpty() ? QStringLiteral("rien") : b);
        }
    };
    const auto entreGuillemets = [](const QString &texte) {
        return texte.trimmed().isEmpty() ? QString()
                                         : QStringLiteral("« %1 »").arg(UneLigne(texte).trimmed());
    };
    if (place(avant) != place(apres)) {
        tous << changementDePlace(avant, apres);
    }
    ajoute(QStringLiteral("Patient"), numerote(avant), numerote(apres));
    ajoute(QStringLiteral("Téléphone"), avant.Telephone, apres.Telephone);
    ajoute(QStringLiteral("Description"), entreGuillemets(avant.Description),
           entreGuillemets(apres.Description));
    ajoute(QStringLiteral("Praticien"), QString::number(avant.NumPraticien),
           QString::number(apres.NumPraticien));
    ajoute(QStringLiteral("Fauteuil"), QString::number(avant.Fauteuil), QString::number(apres.Fauteuil));
    ajoute(QStringLiteral("Présent"), ouiNon(avant.Present), ouiNon(apres.Present));
    return tous.join(QStringLiteral(" ; "));
}

QString purge(const Rangee &notee) {
    const QDate jour = QDate::fromString(notee[QLatin1StringView("Date1")].toString(), Qt::ISODate);
    return QStringLiteral("%1 rendez-vous d'avant le %2, dans l'archive « %3 »")
        .arg(notee[champNombre].toInteger())
        .arg(DatesFr::courte(jour), notee[champArchive].toString());
}

} // namespace

QString QuoiEnMots(const EcritureRDV &ecriture) {
    switch (ecriture.quoi) {
    case Operation::Ajout:
        return QStringLiteral("Ajouté");
    case Operation::Suppression:
        return QStringLiteral("Supprimé");
    case Operation::Presence:
        return QStringLiteral("Présence");
    case Operation::Purge:
        return QStringLiteral("Purgé");
    case Operation::Annulation:
        return QStringLiteral("Annulé");
    case Operation::Refait:
        return QStringLiteral("Refait");
    case Operation::Retabli:
        return QStringLiteral("Rétabli");
    case Operation::Edition:
        break;
    }
    switch (GenreDe(ecriture)) {
    case GenreEdition::Deplace:
        return QStringLiteral("Déplacé");
    case GenreEdition::Allonge:
        return QStringLiteral("Allongé");
    case GenreEdition::Raccourci:
        return QStringLiteral("Raccourci");
    case GenreEdition::Autre:
        break;
    }
    return QStringLiteral("Édité");
}

QString DetailEnMots(const EcritureRDV &ecriture, bool avecPatient) {
    const auto &[quoi, avant, apres] = ecriture;
    if (quoi == Operation::Purge) {
        return purge(apres);
    }
    const RendezVous reste = RendezVousDe(apres.isEmpty() ? avant : apres);
    const QString fauteuil =
        reste.Fauteuil == 0 ? QString() : QStringLiteral(", fauteuil %1").arg(reste.Fauteuil);
    const QString detail = avant.isEmpty() || apres.isEmpty()
                               ? place(reste) + fauteuil
                               : changements(RendezVousDe(avant), RendezVousDe(apres));
    return avecPatient ? QStringLiteral("%1 : %2").arg(patient(reste), detail) : detail;
}

QList<ChampEnMots> ChampsEnMots(const EcritureRDV &ecriture) {
    QList<ChampEnMots> champs;
    if (ecriture.quoi == Operation::Purge) {
        return champs;
    }
    const Rangee &avant = ecriture.avant;
    const Rangee &apres = ecriture.apres;
    const RendezVous a = RendezVousDe(avant);
    const RendezVous b = RendezVousDe(apres);
    const auto ajoute = [&](const QString &champ, const auto &dit) {
        const ChampEnMots mots{champ, avant.isEmpty() ? QString() : dit(a),
                               apres.isEmpty() ? QString() : dit(b)};
        if (!mots.avant.trimmed().isEmpty() || !mots.apres.trimmed().isEmpty()) {
            champs << mots;
        }
    };
    ajoute(QStringLiteral("Date"), [](const RendezVous &r) { return DatesFr::jourComplet(r.Date1); });
    ajoute(QStringLiteral("Heures"), heures);
    ajoute(QStringLiteral("Patient"), numerote);
    ajoute(QStringLiteral("Téléphone"), [](const RendezVous &r) { return r.Telephone; });
    ajoute(QStringLiteral("Description"), [](const RendezVous &r) { return UneLigne(r.Description); });
    ajoute(QStringLiteral("Praticien"), [](const RendezVous &r) { return QString::number(r.NumPraticien); });
    ajoute(QStringLiteral("Fauteuil"), [](const RendezVous &r) { return QString::number(r.Fauteuil); });
    ajoute(QStringLiteral("Présent"), [](const RendezVous &r) { return ouiNon(r.Present); });
    return champs;
}

QString NombreEnMots(qsizetype ecritures) {
    if (ecritures == 0) {
        return QStringLiteral("aucune écriture");
    }
    return ecritures == 1 ? QStringLiteral("1 écriture") : QStringLiteral("%1 écritures").arg(ecritures);
}

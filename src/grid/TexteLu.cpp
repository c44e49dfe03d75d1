#include "grid/TexteLu.h"

#include "grid/Fourchette.h"
#include "schedule/Creneaux.h"

#include <QLocale>

namespace {

QString heureLue(QTime heure) {
    QString texte = QString::number(heure.hour()) +
                    (heure.hour() > 1 ? QStringLiteral(" heures") : QStringLiteral(" heure"));
    if (heure.minute() != 0) {
        texte += u' ' + QString::number(heure.minute());
    }
    return texte;
}

QString jourLu(QDate jour) {
    return QLocale(QLocale::French, QLocale::France).toString(jour, QStringLiteral("dddd d MMMM"));
}

QString presenceLue(const RendezVous &rdv, bool enRetard, QDate aujourdhui) {
    if (rdv.Present) {
        return QStringLiteral("présent");
    }
    if (enRetard) {
        return QStringLiteral("en retard");
    }
    return rdv.Date1 < aujourdhui ? QStringLiteral("absent") : QStringLiteral("à venir");
}

} // namespace

bool EstPasse(const RendezVous &rdv, const QDateTime &maintenant) {
    return rdv.Date1 < maintenant.date() ||
           (rdv.Date1 == maintenant.date() && Minutes(rdv.HeureFin, maintenant.time()) >= 0);
}

QString TexteLuRDV(const RendezVous &rdv, bool enRetard, QDate aujourdhui) {
    QStringList parts{
        jourLu(rdv.Date1), heureLue(rdv.HeureDebut) + QStringLiteral(" à ") + heureLue(rdv.HeureFin),
        NomComplet(rdv.Nom, rdv.Prenom), rdv.Description.trimmed(), presenceLue(rdv, enRetard, aujourdhui)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString TexteLuCase(QDate jour, QTime heure, bool grise) {
    return QStringList{jourLu(jour), heureLue(heure),
                       grise ? QStringLiteral("grisé") : QStringLiteral("libre")}
        .join(QStringLiteral(", "));
}

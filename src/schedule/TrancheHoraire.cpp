#include "schedule/TrancheHoraire.h"

#include "schedule/Creneaux.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int pasFleche = 5; // minutes
constexpr int derniereMinute = 23 * 60;
constexpr int minutesParJour = 24 * 60;
const QLocale francais(QLocale::French, QLocale::France);

int minuteDuJour(QTime t) {
    return Minutes(QTime(0, 0), t);
}

/// First boundary at or after minute `cible` of slots that go on from minute `depart`. Counted, not stepped
/// through: a boundary past midnight would never meet a bound.
qint64 prochaineLimite(qint64 depart, int cible, int intervalle) {
    if (cible <= depart) {
        return depart;
    }
    return depart + (cible - depart + intervalle - 1) / intervalle * intervalle;
}

/// Minute of a neighbouring bound, `sinon` when there is none or it is no time.
int limite(const Horaires &horaires, size_t champ, int sinon) {
    return champ < horaires.size() && horaires[champ].isValid() ? minuteDuJour(horaires[champ]) : sinon;
}

bool estNomDeJour(const QString &mot) {
    for (int jour = 1; jour <= 7; ++jour) {
        if (francais.dayName(jour).compare(mot, Qt::CaseInsensitive) == 0) {
            return true;
        }
    }
    return false;
}

/// 1 (January) … 12; 0 for another word.
int moisNomme(const QString &mot) {
    for (int mois = 1; mois <= 12; ++mois) {
        for (const auto forme : {QLocale::ShortFormat, QLocale::LongFormat}) {
            if (francais.monthName(mois, forme).compare(mot, Qt::CaseInsensitive) == 0) {
                return mois;
            }
        }
    }
    return 0;
}

} // namespace

Horaires HorairesDe(const Configuration &config) {
    return {config.HeureMatDebut, config.HeureMatFin, config.HeurePMDebut, config.HeurePMFin};
}

std::optional<QTime> LitHeure(const QString &texte) {
    static const QRegularExpression forme(
        QStringLiteral("^([0-9]{1,2})(?:[:hH]([0-9]{2})|[hH]|([0-9]{2}))$"));
    const QRegularExpressionMatch lue = forme.match(texte.trimmed());
    const QTime heure(lue.captured(1).toInt(), (lue.captured(2) + lue.captured(3)).toInt());
    return lue.hasMatch() && heure.isValid() ? std::optional(heure) : std::nullopt;
}

std::optional<QDate> LitDate(const QString &texte) {
    static const QRegularExpression chiffres(QStringLiteral(
        "^([0-9]{1,2})([/.-])([0-9]{1,2})\\2((?:[0-9]{2}){1,2})$|^([0-9]{2})([0-9]{2})([0-9]{4})$"));
    static const QRegularExpression longue(
        QStringLiteral("^(?:(\\p{L}+) )?([0-9]{1,2}) (\\p{L}+\\.?) ([0-9]{4})$"));
    QRegularExpressionMatch lue = chiffres.match(texte.trimmed());
    QDate date;
    if (lue.hasMatch()) {
        const QString annee = lue.captured(4) + lue.captured(7);
        date =
            QDate(annee.toInt() + (annee.size() == 2 ? 2000 : 0), (lue.captured(3) + lue.captured(6)).toInt(),
                  (lue.captured(1) + lue.captured(5)).toInt());
    } else {
        lue = longue.match(texte.simplified());
        if (lue.captured(1).isEmpty() || estNomDeJour(lue.captured(1))) {
            date = QDate(lue.captured(4).toInt(), moisNomme(lue.captured(3)), lue.captured(2).toInt());
        }
    }
    return date >= premiereDate && date <= derniereDate ? std::optional(date) : std::nullopt;
}

std::optional<QTime> HeureApresFleche(const Horaires &horaires, size_t champ, Fleche fleche) {
    const QTime heure = horaires[champ];
    if (!heure.isValid()) {
        return std::nullopt;
    }
    const int minute = minuteDuJour(heure);
    // Limits are compared after the step: hours typed between two steps must not jump over each other.
    if (fleche == Fleche::Augmenter) {
        const bool permis = minute + pasFleche <= limite(horaires, champ + 1, derniereMinute);
        return permis ? std::optional(heure.addSecs(pasFleche * 60)) : std::nullopt;
    }
    const bool journeeVide = champ == 0 && heure == horaires[3];
    const bool permis = minute - pasFleche >= limite(horaires, champ - 1, 0) && !journeeVide;
    return permis ? std::optional(heure.addSecs(-pasFleche * 60)) : std::nullopt;
}

std::array<QString, 3> MajInfoBulles(const Horaires &horaires, int intervalle) {
    std::array<QString, 3> bulles;
    if (intervalle < 1 || !horaires[0].isValid()) {
        return bulles;
    }
    qint64 t = minuteDuJour(horaires[0]);
    for (size_t i = 0; i < bulles.size(); ++i) {
        if (horaires[i + 1].isValid()) {
            t = prochaineLimite(t, minuteDuJour(horaires[i + 1]), intervalle);
            bulles[i] = QTime(0, 0).addSecs(int(t % minutesParJour) * 60).toString(QStringLiteral("HH:mm"));
        }
    }
    return bulles;
}

size_t PremierDesordre(const Horaires &horaires) {
    const auto fin = std::ranges::is_sorted_until(horaires);
    return fin == horaires.end() ? 0 : size_t(fin - horaires.begin());
}

bool TropRapproches(const Configuration &config) {
    constexpr int moins = 4; // two slots, the header and the closing row
    return NbLignes02(config) < moins || NbLignes03(config) < moins;
}

QString VerifieCoherence(const Configuration &config) {
    const std::array messages{
        QStringLiteral("Incohérence entre l'intervalle et l'heure de fin du matin."),
        QStringLiteral("Incohérence entre l'intervalle et l'heure de début de l'après-midi."),
        QStringLiteral("Incohérence entre l'intervalle et l'heure de fin de l'après-midi.")};
    const Horaires horaires = HorairesDe(config);
    for (size_t i = 0; i < messages.size(); ++i) {
        const int t = minuteDuJour(horaires[i]);
        const int cible = minuteDuJour(horaires[i + 1]);
        if (config.Intervalle < 1 || prochaineLimite(t, cible, config.Intervalle) != cible) {
            return messages[i];
        }
    }
    return {};
}

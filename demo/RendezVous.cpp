#include "RendezVous.h"

#include "Textes.h"
#include "platform/db/Database.h"

#include <algorithm>

namespace {

/// A stretch of time taken in an agenda: [debut, fin) in minutes after midnight.
struct Plage {
    const HorairesDemo *agenda = nullptr;
    QDate jour;
    int debut = 0;
    int fin = 0;
    bool professionnel = true;
    QDate prisLe = {};
};

/// The chance, per thousand, that an appointment starts at a free slot of the week that is `ecart` weeks
/// after this one. People book about three months ahead.
int frequence(int ecart, bool plein) {
    if (ecart == 0) {
        return plein ? 1000 : 640;
    }
    return std::max(20, (plein ? 650 : 420) - 25 * std::max(0, ecart - 13));
}

/// Fills a half-day slot by slot.
void remplit(const Plage &heures, int frequence, std::vector<Plage> &plages, Hasard &hasard) {
    const int durees[] = {1, 1, 1, 2, 2, 2, 2, 3, 3, 4};
    const bool plein = heures.agenda->plein;
    const int pas = heures.agenda->intervalle;
    // Now and then it begins early or ends late.
    const int fin = !plein && hasard.chance(100) ? heures.fin + pas : heures.fin;
    for (int t = !plein && hasard.chance(20) ? heures.debut - pas : heures.debut; t < fin;) {
        if (!hasard.chance(frequence)) {
            t += pas;
            continue;
        }
        const int tranches = plein ? 1 : std::min((fin - t) / pas, hasard.choix(durees));
        // Nor does every time fit a slot; kept inside its slots it meets no neighbour.
        const int retrait = tranches > 1 && hasard.chance(20) ? 5 : 0;
        plages.push_back({heures.agenda, heures.jour, t + retrait, t + tranches * pas - retrait});
        t += tranches * pas;
    }
}

void remplitSemaine(const HorairesDemo &agenda, QDate lundi, int ecart, std::vector<Plage> &plages,
                    Hasard &hasard) {
    for (int jour = 0; jour < agenda.jours; ++jour) {
        for (const size_t moitie : {0U, 1U}) {
            Plage heures{&agenda, lundi.addDays(qint64{7} * ecart + jour), agenda.heures[2 * moitie],
                         agenda.heures[2 * moitie + 1]};
            if (((agenda.grise[size_t(jour)] >> moitie) & 1) == 0) {
                remplit(heures, frequence(ecart, agenda.plein), plages, hasard);
            } else if (hasard.chance(30)) { // an emergency, when nobody works
                heures.fin = heures.debut + agenda.intervalle;
                heures.professionnel = false;
                plages.push_back(heures);
            }
        }
    }
}

std::vector<Plage> lesPlages(const std::vector<HorairesDemo> &agendas, const OptionsCabinet &options,
                             Hasard &hasard) {
    const QDate lundi = options.aujourdhui.addDays(1 - options.aujourdhui.dayOfWeek());
    const int semaines = options.annees * 26;
    const bool exact = options.rdv >= 0;
    std::vector<Plage> plages;
    const auto remplitTous = [&](int ecart) {
        for (const HorairesDemo &agenda : agendas) {
            remplitSemaine(agenda, lundi, ecart, plages, hasard);
        }
    };
    remplitTous(0);
    for (int ecart = 1; exact ? int(plages.size()) < options.rdv : ecart <= semaines; ++ecart) {
        if (ecart <= semaines) {
            remplitTous(ecart);
        }
        remplitTous(-ecart);
    }
    if (exact) {
        plages.resize(size_t(options.rdv));
    }
    return plages;
}

/// Most came; today those of the first hours, but for some who are awaited still.
bool present(const Plage &plage, QDate aujourdhui, Hasard &hasard) {
    if (plage.jour == aujourdhui) {
        return plage.debut < 10 * 60 + 30 && hasard.chance(670);
    }
    return plage.jour < aujourdhui && hasard.chance(920);
}

/// Real books hold both kinds of "no description", Null and the empty text.
Value description(const PatientDemo &patient, Hasard &hasard) {
    if (hasard.chance(150)) {
        return hasard.chance(500) ? Value() : Value(QString());
    }
    return hasard.choix(textes(patient.enfant ? QStringLiteral("motifs enfant") : QStringLiteral("motifs")));
}

Fields rangee(const Plage &plage, const PatientDemo &patient, const OptionsCabinet &options, Hasard &hasard) {
    const auto heure = [](int minutes) { return Value::time(QTime(minutes / 60, minutes % 60)); };
    const QString &praticien = plage.agenda->praticien;
    const bool sansTelephone = patient.telephone.isEmpty() || hasard.chance(50);
    Fields champs{{QStringLiteral("Nom"), patient.nom},
                  {QStringLiteral("Prenom"), patient.prenom},
                  {QStringLiteral("Telephone"), sansTelephone ? Value() : Value(patient.telephone)},
                  {QStringLiteral("Description"), description(patient, hasard)},
                  {QStringLiteral("NumPatient"), patient.numero},
                  {QStringLiteral("Date1"), Value::date(plage.jour)},
                  {QStringLiteral("HeureDebut"), heure(plage.debut)},
                  {QStringLiteral("HeureFin"), heure(plage.fin)},
                  {QStringLiteral("NumPraticien"), praticien == u"0" ? QStringLiteral("03") : praticien},
                  {QStringLiteral("Professionnel"), Value::boolean(plage.professionnel)},
                  {QStringLiteral("Present"), Value::boolean(present(plage, options.aujourdhui, hasard))}};
    if (!options.ancien) {
        champs.emplace_back(QStringLiteral("DateInv"), plage.jour.toString(u"yyyyMMdd"));
        champs.emplace_back(QStringLiteral("Fauteuil"), plage.agenda->fauteuil);
    }
    return champs;
}

} // namespace

int ecritRendezVous(Database &base, const std::vector<HorairesDemo> &agendas,
                    const std::vector<PatientDemo> &patients, const OptionsCabinet &options, Hasard &hasard) {
    std::vector<Plage> plages = lesPlages(agendas, options, hasard);
    for (Plage &plage : plages) {
        plage.prisLe = plage.jour.addDays(-hasard.entier(90));
    }
    std::ranges::stable_sort(plages, {}, &Plage::prisLe);
    for (size_t i = 0; i < plages.size(); ++i) { // nobody comes again before everybody came
        base.insert(QStringLiteral("RDV"), rangee(plages[i], patients[i % patients.size()], options, hasard));
    }
    return int(plages.size());
}

#include "RendezVousDemo.h"

#include "Noms.h"
#include "platform/db/Database.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int matineeDejaVue = 150; ///< minutes of today's book in which patients have come

/// Deals out the patients like cards: nobody comes again before everybody came.
class Tirage {
  public:
    Tirage(size_t combien, Hasard &hasard) : m_ordre(combien), m_suivant(combien), m_hasard(hasard) {
        std::iota(m_ordre.begin(), m_ordre.end(), size_t{0});
    }
    size_t suivant() {
        if (m_suivant == m_ordre.size()) {
            m_hasard.melange(std::span(m_ordre));
            m_suivant = 0;
        }
        return m_ordre[m_suivant++];
    }

  private:
    std::vector<size_t> m_ordre;
    size_t m_suivant;
    Hasard &m_hasard;
};

struct Reservation {
    const Plage *plage;
    const PatientDemo *patient;
    QDate prisLe;
    QStringView motif;
    bool sansMotif;
    bool sansTelephone;
    bool present;
};

/// Who came: most of the past; today the first hours, but for every third, who stays awaited.
class Presences {
  public:
    Presences(const std::vector<Agenda> &agendas, QDate aujourdhui, Hasard &hasard)
        : m_agendas(agendas), m_aujourdhui(aujourdhui), m_rang(agendas.size()), m_hasard(hasard) {}

    bool present(const Plage &plage) {
        if (plage.jour != m_aujourdhui) {
            return plage.jour < m_aujourdhui && m_hasard.chance(920);
        }
        const Agenda &agenda = m_agendas[size_t(plage.agenda)];
        const bool tot = plage.debut < agenda.horaires.matinDebut + matineeDejaVue;
        return tot && ++m_rang[size_t(plage.agenda)] % 3 != 0;
    }

  private:
    const std::vector<Agenda> &m_agendas;
    QDate m_aujourdhui;
    std::vector<int> m_rang;
    Hasard &m_hasard;
};

std::vector<Reservation> reserve(const std::vector<Plage> &plages, const std::vector<PatientDemo> &patients,
                                 Presences presences, Hasard &hasard) {
    Tirage tirage(patients.size(), hasard);
    std::vector<Reservation> reservations;
    reservations.reserve(plages.size());
    for (const Plage &plage : plages) {
        Reservation r{};
        r.plage = &plage;
        r.patient = &patients[tirage.suivant()];
        r.prisLe = plage.jour.addDays(-hasard.entier(90));
        r.sansMotif = hasard.chance(150);
        r.motif = hasard.choix(r.patient->estEnfant() ? Noms::motifsEnfant() : Noms::motifsAdulte());
        r.sansTelephone = hasard.chance(50);
        r.present = presences.present(plage);
        reservations.push_back(r);
    }
    std::ranges::stable_sort(reservations, {}, &Reservation::prisLe);
    return reservations;
}

Value telephone(const Reservation &r) {
    const QString &numero = r.patient->portable.isEmpty() ? r.patient->telephone : r.patient->portable;
    return r.sansTelephone || numero.isEmpty() ? Value() : Value(numero);
}

/// Real books hold both kinds of "no description", Null and the empty text.
Value description(const Reservation &r) {
    if (r.sansMotif) {
        return r.plage->jour.dayOfYear() % 2 == 0 ? Value() : Value(QString());
    }
    return {r.motif.toString()};
}

Value heure(int minutes) {
    return Value::time(QTime(minutes / 60, minutes % 60));
}

Fields rangee(const Reservation &r, const Agenda &agenda, bool avecAjouts) {
    const Plage &plage = *r.plage;
    Fields champs{{QStringLiteral("Nom"), r.patient->nom},
                  {QStringLiteral("Prenom"), r.patient->prenom},
                  {QStringLiteral("Telephone"), telephone(r)},
                  {QStringLiteral("Description"), description(r)},
                  {QStringLiteral("NumPatient"), r.patient->numero},
                  {QStringLiteral("Date1"), Value::date(plage.jour)},
                  {QStringLiteral("HeureDebut"), heure(plage.debut)},
                  {QStringLiteral("HeureFin"), heure(plage.fin)},
                  {QStringLiteral("NumPraticien"), agenda.praticien},
                  {QStringLiteral("Professionnel"), Value::boolean(plage.professionnel)},
                  {QStringLiteral("Present"), Value::boolean(r.present)}};
    if (avecAjouts) {
        champs.emplace_back(QStringLiteral("DateInv"), plage.jour.toString(u"yyyyMMdd"));
        champs.emplace_back(QStringLiteral("Fauteuil"), agenda.fauteuil);
    }
    return champs;
}

} // namespace

int ecritRendezVous(Database &base, const std::vector<Plage> &plages, const std::vector<Agenda> &agendas,
                    const std::vector<PatientDemo> &patients, QDate aujourdhui, bool avecAjouts,
                    Hasard &hasard) {
    const QString table = QStringLiteral("RDV");
    for (const Reservation &r : reserve(plages, patients, Presences(agendas, aujourdhui, hasard), hasard)) {
        base.insert(table, rangee(r, agendas[size_t(r.plage->agenda)], avecAjouts));
    }
    return int(plages.size());
}

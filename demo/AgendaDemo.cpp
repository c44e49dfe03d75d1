#include "AgendaDemo.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr int semainesParDemiAnnee = 26;
constexpr int semainesPrevues = 13; ///< people book about three months ahead
constexpr int semaineEnCours = 780;
constexpr int semaineOrdinaire = 600;
constexpr int carnetPlein = 900;

/// How full a week is to be, per thousand, by its distance from the current one.
int densite(int ecart, bool plein) {
    if (ecart == 0) {
        return plein ? 1000 : semaineEnCours;
    }
    const int habituelle = plein ? carnetPlein : semaineOrdinaire;
    return ecart <= semainesPrevues ? habituelle
                                    : std::max(30, habituelle - 25 * (ecart - semainesPrevues + 2));
}

/// Places the appointments of one agenda in one week.
class SemaineDemo {
  public:
    SemaineDemo(const Agenda &agenda, int numero, int densite, const Periode &periode, Hasard &hasard)
        : m_horaires(agenda.horaires), m_numero(numero), m_densite(densite), m_plein(periode.plein),
          m_mesuree(densite > semaineOrdinaire), m_hasard(hasard) {}

    void remplit(QDate lundi, std::vector<Plage> &plages) {
        for (int i = 0; i < 7; ++i) {
            if (m_horaires.affiche[size_t(i)]) {
                remplitJour(lundi.addDays(i), m_horaires.grise[size_t(i)], plages);
            }
        }
    }

  private:
    void remplitJour(QDate jour, int grise, std::vector<Plage> &plages);
    void remplitDemiJournee(QDate jour, int debut, int fin, std::vector<Plage> &plages);
    void urgenceHorsHoraires(QDate jour, int debut, int fin, std::vector<Plage> &plages);
    void deborde(Plage &derniere, int fin, int pourMille);
    bool prend();
    int duree(int reste);

    const HorairesDemo &m_horaires;
    int m_numero;
    int m_densite;
    bool m_plein;
    bool m_mesuree; ///< a busy week keeps count, so that it is as full as it should be
    int m_vus = 0;  ///< slots passed in this week, and those taken among them
    int m_pris = 0;
    Hasard &m_hasard;
};

/// Whether an appointment starts at the next slot.
bool SemaineDemo::prend() {
    if (m_densite >= 1000) {
        return true;
    }
    if (m_mesuree) {
        return m_hasard.chance(m_pris * 1000 < m_densite * m_vus ? 900 : 250);
    }
    constexpr int dureeMoyenne = 2;
    return m_hasard.chance(1000 * m_densite / (m_densite + dureeMoyenne * (1000 - m_densite)));
}

/// In slots, at most `reste`.
int SemaineDemo::duree(int reste) {
    if (m_plein) {
        return 1;
    }
    const int durees[] = {1, 1, 1, 2, 2, 2, 2, 3, 3, 4};
    return std::min(reste, m_hasard.choix(durees));
}

void SemaineDemo::remplitDemiJournee(QDate jour, int debut, int fin, std::vector<Plage> &plages) {
    const int pas = m_horaires.intervalle;
    for (int t = debut; t < fin;) {
        const bool pris = prend();
        const int tranches = pris ? duree((fin - t) / pas) : 1;
        m_vus += tranches;
        if (pris) {
            m_pris += tranches;
            // Now and then a time that fits no slot: kept inside its slots, so that it meets no neighbour.
            const int retrait = tranches > 1 && m_hasard.chance(20) ? 5 : 0;
            plages.push_back({jour, m_numero, t + retrait, t + tranches * pas - retrait});
        }
        t += tranches * pas;
    }
}

/// Lets the last appointment of a half-day run over its end.
void SemaineDemo::deborde(Plage &derniere, int fin, int pourMille) {
    if (derniere.fin == fin && m_hasard.chance(pourMille)) {
        derniere.fin += m_horaires.intervalle;
    }
}

/// An appointment in time that is not worked.
void SemaineDemo::urgenceHorsHoraires(QDate jour, int debut, int fin, std::vector<Plage> &plages) {
    const int pas = m_horaires.intervalle;
    const int t = debut + pas * m_hasard.entier((fin - debut) / pas);
    plages.push_back({jour, m_numero, t, t + pas, false});
}

void SemaineDemo::remplitJour(QDate jour, int grise, std::vector<Plage> &plages) {
    const HorairesDemo &h = m_horaires;
    if (m_hasard.chance(20)) {
        plages.push_back({jour, m_numero, h.matinDebut - h.intervalle, h.matinDebut});
    }
    const size_t avant = plages.size();
    if ((grise & 1) == 0) {
        remplitDemiJournee(jour, h.matinDebut, h.matinFin, plages);
    } else if (m_hasard.chance(30)) {
        urgenceHorsHoraires(jour, h.matinDebut, h.matinFin, plages);
    }
    if (plages.size() > avant) {
        deborde(plages.back(), h.matinFin, 200);
    }
    const size_t midi = plages.size();
    if ((grise & 2) == 0) {
        remplitDemiJournee(jour, h.apresMidiDebut, h.apresMidiFin, plages);
    } else if (m_hasard.chance(30)) {
        urgenceHorsHoraires(jour, h.apresMidiDebut, h.apresMidiFin, plages);
    }
    if (plages.size() > midi) {
        deborde(plages.back(), h.apresMidiFin, 80);
    }
}

/// Keeps `combien` of the plages from `debut` on, each with the same chance.
void eclaircit(std::vector<Plage> &plages, size_t debut, size_t combien, Hasard &hasard) {
    size_t garde = debut;
    for (size_t i = debut; i < plages.size(); ++i) {
        const size_t reste = plages.size() - i;
        if (size_t(hasard.entier(int(reste))) < debut + combien - garde) {
            plages[garde++] = plages[i];
        }
    }
    plages.resize(garde);
}

} // namespace

std::vector<Agenda> agendas(const std::vector<HorairesDemo> &horaires) {
    std::vector<Agenda> resultat;
    for (const HorairesDemo &h : horaires) {
        const bool secours = h.praticien == u"0";
        resultat.push_back({secours ? QStringLiteral("03") : h.praticien, h.fauteuil, h});
    }
    return resultat;
}

std::vector<Plage> remplitAgendas(const std::vector<Agenda> &agendas, const Periode &periode,
                                  Hasard &hasard) {
    const QDate lundi = periode.aujourdhui.addDays(1 - periode.aujourdhui.dayOfWeek());
    std::vector<Plage> plages;
    const auto semaine = [&](int ecart) {
        for (size_t i = 0; i < agendas.size(); ++i) {
            SemaineDemo(agendas[i], int(i), densite(ecart, periode.plein), periode, hasard)
                .remplit(lundi.addDays(qint64{7} * ecart), plages);
        }
    };
    semaine(0);
    const size_t enCours = plages.size();
    const int semaines = periode.annees * semainesParDemiAnnee;
    for (int ecart = 1; ecart <= semaines; ++ecart) {
        semaine(ecart);
        semaine(-ecart);
    }
    if (periode.exactement >= 0) {
        const auto voulus = size_t(periode.exactement);
        for (int ecart = semaines + 1; plages.size() < voulus; ++ecart) {
            semaine(-ecart);
        }
        // The current week stays as full as it can be.
        const size_t debut = voulus > enCours ? enCours : 0;
        plages.resize(debut == 0 ? enCours : plages.size());
        eclaircit(plages, debut, voulus - debut, hasard);
    }
    std::ranges::sort(plages, {}, [](const Plage &p) { return std::tuple(p.jour, p.debut, p.agenda); });
    return plages;
}

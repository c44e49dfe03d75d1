// postes LIEU COMBIEN SECONDES [presse]: as many desks as COMBIEN at the book that lies there, each with a
// connection of its own, behaving like people: a look at some week every two to four seconds, a booking every
// two minutes. "presse": one more that does both without a pause. Prints what each kind of action took.
#include "booking/ReservationTables.h"
#include "grid/AffichageTables.h"
#include "platform/db/DbError.h"

#include <QTextStream>
#include <algorithm>
#include <mutex>
#include <random>
#include <thread>

namespace {

using Horloge = std::chrono::steady_clock;
using namespace std::chrono_literals;

const QDate debut(2026, 3, 9);

/// What all desks together have seen.
class Releve {
  public:
    void ajoute(bool reservation, double ms) {
        const std::scoped_lock verrou(m_verrou);
        (reservation ? m_reservations : m_regards).push_back(ms);
    }
    void echoue(const DbError &erreur) {
        const std::scoped_lock verrou(m_verrou);
        ++m_echecs;
        m_dernier = erreur.message();
    }
    void refuse() {
        const std::scoped_lock verrou(m_verrou);
        ++m_refus;
    }
    QString texte(double secondes) {
        return ligne(QStringLiteral("regards"), m_regards, secondes) +
               ligne(QStringLiteral("réservations"), m_reservations, secondes) +
               QStringLiteral("places prises : %1 ; échecs : %2 %3\n")
                   .arg(m_refus)
                   .arg(m_echecs)
                   .arg(m_dernier);
    }
    bool sansEchec() const { return m_echecs == 0; }

  private:
    static QString ligne(const QString &nom, std::vector<double> &ms, double secondes) {
        std::ranges::sort(ms);
        const auto rang = [&](double part) {
            return ms.empty() ? 0 : ms[std::min(ms.size() - 1, size_t(double(ms.size()) * part))];
        };
        return QStringLiteral("%1 : %2, %3/s, médiane %4 ms, p99 %5 ms\n")
            .arg(nom)
            .arg(ms.size())
            .arg(double(ms.size()) / secondes, 0, 'f', 1)
            .arg(rang(0.5), 0, 'f', 1)
            .arg(rang(0.99), 0, 'f', 1);
    }

    std::mutex m_verrou;
    std::vector<double> m_regards;
    std::vector<double> m_reservations;
    int m_echecs = 0;
    int m_refus = 0;
    QString m_dernier;
};

class Poste {
  public:
    Poste(QString lieu, int numero, Releve &releve)
        : m_lieu(std::move(lieu)), m_hasard(unsigned(numero)), m_praticien(1 + numero % 3), m_releve(releve) {
    }

    void travaille(Horloge::time_point fin, bool presse) {
        auto regard = Horloge::now() + hasard(0ms, presse ? 0ms : 3s);
        auto reservation = Horloge::now() + hasard(0ms, presse ? 0ms : 120s);
        while (std::min(regard, reservation) < fin) {
            const bool reserve = reservation < regard;
            std::this_thread::sleep_until(reserve ? reservation : regard);
            mesure(reserve);
            if (reserve) {
                reservation = Horloge::now() + (presse ? 0ms : hasard(90s, 150s));
            } else {
                regard = Horloge::now() + (presse ? 0ms : hasard(2s, 4s));
            }
        }
    }

  private:
    std::chrono::milliseconds hasard(std::chrono::milliseconds de, std::chrono::milliseconds a) {
        return std::chrono::milliseconds(
            std::uniform_int_distribution<qint64>(de.count(), a.count())(m_hasard));
    }
    void mesure(bool reserve) {
        const auto depart = Horloge::now();
        try {
            Database carnet = Database::open(m_lieu);
            reserve ? ajoute(carnet) : regarde(carnet);
            m_releve.ajoute(reserve,
                            std::chrono::duration<double, std::milli>(Horloge::now() - depart).count());
        } catch (const DbError &erreur) {
            m_releve.echoue(erreur);
        }
    }
    void regarde(Database &carnet) {
        const QDate jour = debut.addDays(qint64{7} * std::uniform_int_distribution(-10, 10)(m_hasard));
        LitAffichage(carnet, {.PraticienCourant = QStringLiteral("0%1").arg(m_praticien), .jour = jour},
                     QDateTime(debut, QTime(9, 0)));
    }
    /// Anywhere in a year, so that a place is rarely taken.
    void ajoute(Database &carnet) {
        const QTime heure = QTime(8, 0).addSecs(900 * std::uniform_int_distribution(0, 40)(m_hasard));
        NouveauRDV nouveau{
            .saisie = {QStringLiteral("POSTE"),
                       {},
                       {},
                       {},
                       {},
                       debut.addYears(15).addDays(std::uniform_int_distribution(0, 365)(m_hasard)),
                       heure,
                       heure.addSecs(900)},
            .NumPraticien = QStringLiteral("0%1").arg(m_praticien),
            .Fauteuil = QStringLiteral("1")};
        if (AjouteRDV(carnet, {}, nouveau).resultat != Ecriture::Fait) {
            m_releve.refuse();
        }
    }

    QString m_lieu;
    std::mt19937 m_hasard;
    int m_praticien;
    Releve &m_releve;
};

} // namespace

int main(int argc, char **argv) {
    if (argc < 4) {
        QTextStream(stderr) << "postes LIEU COMBIEN SECONDES [presse]\n";
        return 2;
    }
    const QString lieu = QString::fromLocal8Bit(argv[1]);
    const int combien = QByteArray(argv[2]).toInt();
    const int secondes = QByteArray(argv[3]).toInt();
    Releve releve;
    const auto fin = Horloge::now() + std::chrono::seconds(secondes);
    std::vector<std::jthread> postes;
    postes.reserve(size_t(combien) + 1);
    for (int i = 0; i < combien + (argc > 4 ? 1 : 0); ++i) {
        postes.emplace_back([&, i] { Poste(lieu, i, releve).travaille(fin, i == combien); });
    }
    postes.clear();
    QTextStream(stdout) << combien << QStringLiteral(" postes\n") << releve.texte(secondes);
    return releve.sansEchec() ? 0 : 1;
}

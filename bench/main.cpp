#include "Livres.h"
#include "Mesure.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QSaveFile>
#include <QTextStream>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

constexpr int echec = 1;
constexpr int mauvaisAppel = 2;

QTextStream &sortie() {
    static QTextStream flux(stdout);
    return flux;
}

std::vector<Mesure> mesures() {
    return {traceSemaine(), peintureSemaine(), changementSemaine(), selection(), ajout(),      frappe1(),
            frappe3(),      listeNumero(),     memoire(),           demarrage(), miseANiveau()};
}

constexpr QStringView debutAide = uR"(Utilisation : tavelin-bench [NOM]

Mesure les chemins les plus empruntés du carnet, ou seulement celui qui est nommé. Chaque chiffre est une
médiane ; une référence est prise en alternance avec la valeur, et le rapport est celui des deux médianes.
Les carnets de 500 000 rendez-vous sont créés une fois, dans build/bench.

Les chiffres vont aussi dans build/bench/results.json. Un seul NOM n'y remplace que son entrée, les autres
gardent leur dernier résultat ; sans NOM, tout est récrit.

Noms :
)";

QString aide() {
    QString texte = debutAide.toString();
    for (const Mesure &mesure : mesures()) {
        texte += QStringLiteral("  %1\n").arg(mesure.nom);
    }
    return texte;
}

struct Resultat {
    double valeur = 0;
    std::optional<double> reference;
    double auMieux = 0; ///< the least value: far below the median, the machine was busy elsewhere

    std::optional<double> rapport() const {
        return reference ? std::optional(valeur / *reference) : std::nullopt;
    }
};

double mediane(std::vector<double> prises) {
    std::ranges::sort(prises);
    const size_t milieu = prises.size() / 2;
    return prises.size() % 2 == 1 ? prises[milieu] : (prises[milieu - 1] + prises[milieu]) / 2;
}

const std::string nomReference = "reference";

/// Keeps what each repetition took.
class Releve : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            if (run.run_type != Run::RT_Iteration) {
                continue;
            }
            m_valeurs.push_back(run.GetAdjustedRealTime());
            if (const auto prise = run.counters.find(nomReference); prise != run.counters.end()) {
                m_references.push_back(prise->second.value);
            }
        }
    }
    Resultat medianes() const {
        return {mediane(m_valeurs),
                m_references.empty() ? std::nullopt : std::optional(mediane(m_references)),
                *std::ranges::min_element(m_valeurs)};
    }

  private:
    std::vector<double> m_valeurs;
    std::vector<double> m_references;
};

/// Takes both sides one after the other in each repetition, so that a slow moment of the machine hits both.
Resultat prend(const Mesure &mesure, const Cotes &cotes) {
    std::exception_ptr erreur;
    const auto unePaire = [&](benchmark::State &etat) {
        for ([[maybe_unused]] auto tour : etat) {
            try {
                const double valeur = erreur ? 0 : cotes.valeur();
                if (cotes.reference && !erreur) {
                    etat.counters[nomReference] = cotes.reference();
                }
                etat.SetIterationTime(valeur / 1000); // seconds; a megabyte passes for a millisecond
            } catch (...) {
                erreur = std::current_exception();
            }
        }
    };
    benchmark::RegisterBenchmark(mesure.nom.toUtf8().constData(), unePaire)
        ->Iterations(1)
        ->Repetitions(mesure.repetitions)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    Releve releve;
    benchmark::RunSpecifiedBenchmarks(&releve);
    benchmark::ClearRegisteredBenchmarks();
    if (erreur) {
        std::rethrow_exception(erreur);
    }
    return releve.medianes();
}

QString chiffre(std::optional<double> nombre) {
    return nombre ? QString::number(*nombre, 'f', 2) : QStringLiteral("-");
}

void ligne(const QString &nom, const QStringList &colonnes) {
    sortie() << nom.leftJustified(20);
    for (const QString &colonne : colonnes) {
        sortie() << colonne.rightJustified(14);
    }
    sortie() << Qt::endl;
}

void imprime(const Mesure &mesure, const Resultat &resultat, const Cotes &cotes) {
    const bool tenue = resultat.rapport().value_or(resultat.valeur) <= mesure.cible;
    ligne(mesure.nom,
          {chiffre(resultat.valeur) + u' ' + mesure.unite, chiffre(resultat.auMieux),
           chiffre(resultat.reference), chiffre(resultat.rapport()), QString::number(mesure.cible),
           tenue ? QStringLiteral("tenue") : QStringLiteral("MANQUÉE")});
    if (cotes.remarque) {
        sortie() << "    " << cotes.remarque() << Qt::endl;
    }
}

QJsonValue nombreOuNul(std::optional<double> nombre) {
    return nombre ? QJsonValue(*nombre) : QJsonValue(QJsonValue::Null);
}

QJsonObject enJson(const QString &nom, const Resultat &resultat) {
    return {{QStringLiteral("name"), nom},
            {QStringLiteral("value_ms"), resultat.valeur},
            {QStringLiteral("reference_ms"), nombreOuNul(resultat.reference)},
            {QStringLiteral("ratio"), nombreOuNul(resultat.rapport())}};
}

/// Replaces the entries of the names in `pris`; the others stay when `garde`.
bool ecritResultats(const QMap<QString, QJsonValue> &pris, bool garde) {
    const QString fichier = dossierBench().filePath(QStringLiteral("results.json"));
    QFile ancien(fichier);
    QMap<QString, QJsonValue> entrees;
    if (garde && ancien.open(QIODevice::ReadOnly)) {
        const QJsonArray lues = QJsonDocument::fromJson(ancien.readAll()).array();
        for (const auto &entree : lues) {
            entrees[entree[QStringLiteral("name")].toString()] = entree;
        }
    }
    entrees.insert(pris);
    QJsonArray liste;
    for (const QJsonValue &entree : std::as_const(entrees)) {
        if (entree.isObject()) { // not one that failed
            liste.append(entree);
        }
    }
    QSaveFile nouveau(fichier);
    return nouveau.open(QIODevice::WriteOnly) && nouveau.write(QJsonDocument(liste).toJson()) > 0 &&
           nouveau.commit();
}

/// Takes the measures; gives the exit code. A missed target is told, not a failure: machines differ.
int mesure(const std::vector<Mesure> &choisies, bool seule) {
    QMap<QString, QJsonValue> pris;
    int code = 0;
    ligne(QStringLiteral("mesure"),
          {QStringLiteral("valeur"), QStringLiteral("au mieux"), QStringLiteral("référence"),
           QStringLiteral("rapport"), QStringLiteral("cible")});
    for (const Mesure &m : choisies) {
        pris[m.nom] = QJsonValue();
        try {
            const Cotes cotes = m.prepare();
            const Resultat resultat = prend(m, cotes);
            imprime(m, resultat, cotes);
            pris[m.nom] = enJson(m.nom, resultat);
        } catch (const std::exception &erreur) {
            sortie() << m.nom << " : " << QString::fromUtf8(erreur.what()) << Qt::endl;
            code = echec;
        }
    }
    return ecritResultats(pris, seule) ? code : echec;
}

} // namespace

int main(int argc, char **argv) {
    std::vector<Mesure> choisies = mesures();
    const QString demande = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (demande == QLatin1StringView("--help") || demande == QLatin1StringView("-h")) {
        sortie() << aide();
        return 0;
    }
    if (argc > 1) {
        std::erase_if(choisies, [&](const Mesure &m) { return m.nom != demande; });
    }
    if (choisies.empty() || argc > 2) {
        QTextStream(stderr) << aide();
        return mauvaisAppel;
    }
    const QApplication application(argc, argv);
    try {
        return mesure(choisies, argc > 1);
    } catch (const MesureImpossible &erreur) {
        QTextStream(stderr) << erreur.what() << '\n';
        return echec;
    }
}

// tavelin-bench [NAME] [--benchmark_…]: times the hot paths, or only the one named. Each figure is a median,
// and a ratio that of the medians of a path and of its reference, which are taken in turn.
#include "Livres.h"
#include "Mesure.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <deque>
#include <optional>

namespace {

const std::string nomReference = "reference";

struct Resultat {
    double valeur = 0;
    std::optional<double> reference;

    std::optional<double> rapport() const {
        return reference ? std::optional(valeur / *reference) : std::nullopt;
    }
};

/// A measure and what came of it.
struct Essai {
    Mesure mesure;
    std::optional<Paire> paire{};
    std::string erreur{};
    bool pris = false; ///< this time, with or without a result
    std::optional<Resultat> resultat{};

    bool tient() const {
        const double ecart = resultat->valeur - resultat->reference.value_or(0);
        return resultat->valeur <= mesure.valeurMax && resultat->rapport().value_or(0) <= mesure.rapportMax &&
               ecart <= mesure.ecartMax;
    }
};

/// Takes both sides once, one after the other: a slow moment of the machine hits both.
void prend(Essai &essai, benchmark::State &etat) {
    if (!essai.paire) {
        essai.paire = essai.mesure.prepare();
    }
    for ([[maybe_unused]] auto tour : etat) {
        const double valeur = essai.paire->valeur(etat.counters);
        if (essai.paire->reference) {
            etat.counters[nomReference] = essai.paire->reference(etat.counters);
        }
        etat.SetIterationTime(valeur / 1000); // seconds; a megabyte passes for a millisecond
    }
}

void enregistre(Essai &essai) {
    const auto repetition = [&essai](benchmark::State &etat) {
        try {
            if (essai.erreur.empty()) {
                prend(essai, etat);
            }
        } catch (const std::exception &erreur) {
            essai.erreur = erreur.what();
        }
        if (!essai.erreur
                 .empty()) { // and so for those that follow: a median of what is left would say nothing
            etat.SkipWithError(essai.erreur.c_str());
        }
    };
    benchmark::RegisterBenchmark(essai.mesure.nom, repetition)
        ->Iterations(1)
        ->Repetitions(essai.mesure.repetitions)
        ->ReportAggregatesOnly()
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

QString chiffre(std::optional<double> nombre) {
    return nombre ? QString::number(*nombre, 'f', 2) : QStringLiteral("-");
}

QString cible(const Mesure &mesure) {
    QStringList limites;
    if (std::isfinite(mesure.rapportMax)) {
        limites << QStringLiteral("%1 ×").arg(mesure.rapportMax);
    }
    if (std::isfinite(mesure.ecartMax)) {
        limites << QStringLiteral("+ %1 %2").arg(mesure.ecartMax).arg(QLatin1StringView(mesure.unite));
    }
    if (std::isfinite(mesure.valeurMax)) {
        limites << QStringLiteral("%1 %2").arg(mesure.valeurMax).arg(QLatin1StringView(mesure.unite));
    }
    return limites.join(QStringLiteral(", "));
}

void ligne(const QString &nom, const QStringList &colonnes) {
    QTextStream sortie(stdout);
    sortie << nom.leftJustified(20);
    for (const QString &colonne : colonnes) {
        sortie << colonne.rightJustified(14);
    }
    sortie << '\n';
}

void montre(const Essai &essai, const benchmark::UserCounters &chiffres) {
    const QString nom = QLatin1StringView(essai.mesure.nom);
    if (!essai.resultat) {
        ligne(nom, {u' ' + QString::fromStdString(essai.erreur)});
        return;
    }
    ligne(nom, {chiffre(essai.resultat->valeur) + u' ' + QLatin1StringView(essai.mesure.unite),
                chiffre(essai.resultat->reference), chiffre(essai.resultat->rapport()), cible(essai.mesure),
                essai.tient() ? QStringLiteral("tenue") : QStringLiteral("MANQUÉE")});
    for (const auto &[quoi, combien] : chiffres) {
        if (quoi != nomReference) {
            ligne({}, {QStringLiteral("%1 %2").arg(combien.value).arg(QString::fromStdString(quoi))});
        }
    }
}

/// Keeps the medians, and shows them line by line.
class Releve : public benchmark::BenchmarkReporter {
  public:
    explicit Releve(std::deque<Essai> &essais) : m_essais(essais) {}

    bool ReportContext(const Context &) override {
        ligne(QStringLiteral("mesure"), {QStringLiteral("valeur"), QStringLiteral("référence"),
                                         QStringLiteral("rapport"), QStringLiteral("cible")});
        return true;
    }
    void ReportRuns(const std::vector<Run> &prises) override {
        const std::string nom = prises.front().run_name.function_name;
        Essai &essai = *std::ranges::find(m_essais, nom, [](const Essai &e) { return e.mesure.nom; });
        essai.pris = true;
        const auto mediane = std::ranges::find(prises, "median", &Run::aggregate_name);
        if (mediane == prises.end() || !essai.erreur.empty()) {
            montre(essai, {});
            return;
        }
        const auto reference = mediane->counters.find(nomReference);
        essai.resultat = {mediane->GetAdjustedRealTime(), reference == mediane->counters.end()
                                                              ? std::nullopt
                                                              : std::optional(reference->second.value)};
        montre(essai, mediane->counters);
    }

  private:
    std::deque<Essai> &m_essais;
};

QJsonObject enJson(const Essai &essai) {
    const auto nombreOuNul = [](std::optional<double> nombre) {
        return nombre ? QJsonValue(*nombre) : QJsonValue(QJsonValue::Null);
    };
    return {{QStringLiteral("name"), QLatin1StringView(essai.mesure.nom)},
            {QStringLiteral("value_ms"), essai.resultat->valeur},
            {QStringLiteral("reference_ms"), nombreOuNul(essai.resultat->reference)},
            {QStringLiteral("ratio"), nombreOuNul(essai.resultat->rapport())}};
}

/// Writes results.json; what was not taken this time keeps its entry. False when that fails.
bool ecritResultats(const std::deque<Essai> &essais) {
    const QString fichier = dossierBench().filePath(QStringLiteral("results.json"));
    QFile ancien(fichier);
    const QJsonArray anciens =
        ancien.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(ancien.readAll()).array() : QJsonArray();
    QJsonArray liste;
    for (const Essai &essai : essais) {
        if (essai.resultat) {
            liste.append(enJson(essai));
        }
        for (const auto &entree : anciens) {
            if (!essai.pris &&
                entree[QStringLiteral("name")].toString() == QLatin1StringView(essai.mesure.nom)) {
                liste.append(entree);
            }
        }
    }
    QSaveFile nouveau(fichier);
    return nouveau.open(QIODevice::WriteOnly) && nouveau.write(QJsonDocument(liste).toJson()) > 0 &&
           nouveau.commit();
}

} // namespace

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    std::deque<Essai> essais; // the benchmarks refer to them
    for (const auto &mesures : {mesuresSemaine(), mesuresGlisse(), mesuresFrappe(), mesuresRecherche(),
                                mesuresCreneau(), mesuresProcessus(), mesuresPurge(), mesuresFeuille(),
                                mesuresLettre(), mesuresServeur(), mesuresVivant()}) {
        for (const Mesure &mesure : mesures) {
            enregistre(essais.emplace_back(Essai{mesure}));
        }
    }
    Releve releve(essais);
    const size_t nombre = argc > 1
                              ? benchmark::RunSpecifiedBenchmarks(&releve, std::string("^") + argv[1] + "/")
                              : benchmark::RunSpecifiedBenchmarks(&releve);
    const bool reussi = std::ranges::all_of(essais, [](const Essai &e) { return e.erreur.empty(); });
    return nombre > 0 && ecritResultats(essais) && reussi ? 0 : 1;
}

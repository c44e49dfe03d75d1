// Letters through the word processor: a frame of 27 cells, then the letter that shows it, saved and made a
// PDF. What stands still meanwhile is measured by a timer that should strike all the time.
#include "Livres.h"
#include "Mesure.h"
#include "platform/word/OfficeProcess.h"
#include "support/Modeles.h"

#include <QTimer>

#include <algorithm>

namespace {

constexpr int repos = 50; // ms that the window may stand still

/// The longest time between two turns of the event loop, in milliseconds.
class Battement {
  public:
    Battement() {
        QObject::connect(&m_horloge, &QTimer::timeout, [this] { bat(); });
        m_horloge.start(0);
    }
    double plusLong() const { return m_plusLong; }

  private:
    void bat() {
        const auto instant = std::chrono::steady_clock::now();
        m_plusLong =
            std::max(m_plusLong, std::chrono::duration<double, std::milli>(instant - m_dernier).count());
        m_dernier = instant;
    }

    QTimer m_horloge;
    std::chrono::steady_clock::time_point m_dernier = std::chrono::steady_clock::now();
    double m_plusLong = 0;
};

/// Templates in a folder of their own.
QString modeles() {
    const QDir dossier(dossierBench().filePath(QStringLiteral("lettres")));
    dossier.mkpath(QStringLiteral("Word"));
    const QString section = QStringLiteral(
        "<text:p>Madame, Monsieur,</text:p><text:section text:name=\"Cadre\"><text:section-source "
        "xlink:type=\"simple\" xlink:href=\"cadre1.doc\"/><text:p/></text:section>");
    if (!makeTemplates(dossier, {{QStringLiteral("cadre"), flatTable(QStringLiteral("Début"), 1, 27)}}) ||
        !makeTemplates(dossier, {{QStringLiteral("lettre"), section}}, QStringLiteral("odt"))) {
        throw MesureImpossible(QStringLiteral("soffice ne fait pas les modèles"));
    }
    return dossier.path() + u'/';
}

void ecrit(OfficeProcess &traitement, const QString &dossier, const QString &nom) {
    constexpr int cases = 27;
    const QString document = dossier + QStringLiteral("Word/") + nom;
    QFile::remove(document + QStringLiteral(".doc"));
    QFile::remove(document + QStringLiteral(".pdf"));
    const word::Verbs verbes{
        word::Open{dossier + QStringLiteral("cadre.doc")},
        word::Select{QStringLiteral("Début")},
        word::Cells{QList<std::optional<QString>>(cases, QStringLiteral("1 rue des Lilas"))},
        word::SaveOver{dossier + QStringLiteral("cadre1.doc")},
        word::Close(),
        word::Open{dossier + QStringLiteral("lettre.odt")},
        word::Reserve{{document + QStringLiteral(".doc")}},
        word::Save(),
        word::Print(),
        word::Close()};
    if (traitement.perform(verbes).pdf.isEmpty()) {
        throw MesureImpossible(QStringLiteral("la lettre n'est pas imprimée"));
    }
}

std::shared_ptr<OfficeProcess> demarre() {
    return std::make_shared<OfficeProcess>([] { return false; });
}

double chronometre(benchmark::UserCounters &chiffres, const std::function<void()> &travail) {
    const Battement battement;
    const double duree = millisecondes(travail);
    const double arret = battement.plusLong();
    chiffres["ms d'arrêt au plus"] = arret;
    if (arret > repos) {
        throw MesureImpossible(QStringLiteral("la fenêtre s'arrête %1 ms").arg(arret));
    }
    return duree;
}

/// `nombre` letters by an office that has made one before.
Paire lettres(int nombre) {
    const QString dossier = modeles();
    const auto traitement = demarre();
    ecrit(*traitement, dossier, QStringLiteral("0"));
    return {[=](auto &chiffres) {
        return chronometre(chiffres, [&] {
            for (int i = 1; i <= nombre; ++i) {
                ecrit(*traitement, dossier, QString::number(i));
            }
        });
    }};
}

/// The first letter, the start of the office included.
Paire aFroid() {
    return {[dossier = modeles()](auto &chiffres) {
        return chronometre(chiffres, [&] { ecrit(*demarre(), dossier, QStringLiteral("froid")); });
    }};
}

} // namespace

std::vector<Mesure> mesuresLettre() {
    return {
        {.nom = "lettre", .repetitions = 11, .prepare = [] { return lettres(1); }, .valeurMax = 1000},
        {.nom = "lettres_20", .repetitions = 3, .prepare = [] { return lettres(20); }, .valeurMax = 12'000},
        {.nom = "lettre_a_froid", .repetitions = 3, .prepare = aFroid, .valeurMax = 4000}};
}

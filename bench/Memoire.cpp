// Resident memory of the shipped program once it shows the week.
#include "Livres.h"
#include "MemoireProcessus.h"
#include "Processus.h"

namespace {

struct Memoire {
    double residente = 0;
    double proportionnelle = 0; ///< pages shared with other programs counted by their share
};

/// Waits until the resident memory has not moved for a second: the window is painted then.
Memoire stable(QProcess &carnet) {
    constexpr int pasMs = 50;
    constexpr int assez = 20;
    constexpr int limite = 1200;
    double avant = 0;
    int egales = 0;
    for (int i = 0; i < limite && !carnet.waitForFinished(pasMs); ++i) {
        const QString numero = QString::number(carnet.processId());
        const double lue = megaoctets(numero, QStringLiteral("status"), "VmRSS");
        egales = lue > 0 && lue == avant ? egales + 1 : 0;
        avant = lue;
        if (egales == assez) {
            return {lue, megaoctets(numero, QStringLiteral("smaps_rollup"), "Pss")};
        }
    }
    throw MesureImpossible(QStringLiteral("la mémoire du carnet ne se stabilise pas"));
}

Cotes prepare() {
    const auto derniere = std::make_shared<Memoire>();
    return {[options = optionsLivreCourant(), derniere] {
                QProcess carnet;
                lance(carnet, QStringLiteral("tavelin"), options);
                *derniere = stable(carnet);
                carnet.kill();
                carnet.waitForFinished();
                return derniere->residente;
            },
            {},
            [derniere] {
                return QStringLiteral("%1 Mo en ne comptant que sa part des pages partagées (Pss)")
                    .arg(derniere->proportionnelle, 0, 'f', 1);
            }};
}

} // namespace

Mesure memoire() {
    return {QStringLiteral("memoire"), QStringLiteral("Mo"), 5, 80, prepare};
}

// From the start of the process to the painted week, against an empty window of the same toolkit.
#include "Livres.h"
#include "Processus.h"

namespace {

double duree(const QString &programme, const QStringList &arguments) {
    return millisecondes([&] { execute(programme, arguments); });
}

Cotes prepare() {
    return {
        [options = optionsLivreCourant()] { return duree(QStringLiteral("tavelin-bench-carnet"), options); },
        [] { return duree(QStringLiteral("tavelin-bench-vide"), {}); }};
}

} // namespace

Mesure demarrage() {
    return {QStringLiteral("demarrage"), QStringLiteral("ms"), 31, 2, prepare};
}

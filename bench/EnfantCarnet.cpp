// The book as it is shipped, up to the first painting of its week.
#include "PremierDessin.h"
#include "start/Lancement.h"

#include <QAbstractScrollArea>

namespace {

bool estLaSemaine(const QObject *objet) {
    const auto *grille = qobject_cast<QAbstractScrollArea *>(objet->parent());
    return grille != nullptr && grille->viewport() == objet &&
           grille->objectName() == QLatin1StringView("GrilleRDV");
}

void surveille() {
    new PremierDessin(estLaSemaine, QCoreApplication::instance());
}

} // namespace

int main(int argc, char **argv) {
    qAddPreRoutine(surveille); // runs as soon as Lance has its application
    return Lance(argc, argv);
}

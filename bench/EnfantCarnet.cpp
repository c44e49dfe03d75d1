// The book as it is shipped, up to the first painting of its week.
#include "PremierDessin.h"
#include "start/Lancement.h"

int main(int argc, char **argv) {
    // runs as soon as Lance has its application
    qAddPreRoutine([] { new PremierDessin(QCoreApplication::instance()); });
    return Lance(argc, argv);
}

// Upgrades one appointment database; prints how many milliseconds and, at its highest, megabytes that took.
#include "MegaOctets.h"
#include "platform/db/DbError.h"
#include "start/MiseANiveauTables.h"

#include <QElapsedTimer>
#include <QTextStream>

int main(int argc, char **argv) {
    if (argc != 2) {
        return 2;
    }
    try {
        Database rdv = Database::open(QString::fromLocal8Bit(argv[1]));
        QElapsedTimer duree;
        duree.start();
        const QString erreur = MetANiveau(rdv).erreur;
        QTextStream(stdout) << double(duree.nsecsElapsed()) / 1e6 << ' '
                            << megaOctets(QStringLiteral("self"), QStringLiteral("status"), "VmHWM");
        QTextStream(stderr) << erreur;
        return erreur.isEmpty() ? 0 : 1;
    } catch (const DbError &erreur) {
        QTextStream(stderr) << erreur.message() << '\n';
        return 1;
    }
}

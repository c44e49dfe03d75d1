// Upgrades one appointment database and prints the megabytes that it took at its highest.
#include "MemoireProcessus.h"
#include "platform/db/DbError.h"
#include "start/MiseANiveauTables.h"

#include <QTextStream>

int main(int argc, char **argv) {
    if (argc != 2) {
        return 2;
    }
    try {
        Database rdv = Database::open(QString::fromLocal8Bit(argv[1]));
        const QString erreur = MetANiveau(rdv);
        QTextStream(stdout) << megaoctets(QStringLiteral("self"), QStringLiteral("status"), "VmHWM");
        return erreur.isEmpty() ? 0 : 1;
    } catch (const DbError &erreur) {
        QTextStream(stderr) << erreur.message() << '\n';
        return 1;
    }
}

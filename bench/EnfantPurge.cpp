// EnfantPurge CHEMIN CARNET JOUR ARCHIVE: purges the first practitioner's appointments of before a day from a
// copy of the book, as the window does; prints a line when it begins, then how many milliseconds and, at its
// highest, megabytes that took, and how many appointments were moved.
#include "Livres.h"
#include "MegaOctets.h"
#include "Mesure.h"
#include "maintenance/FrmPurger.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTextStream>
#include <QTimer>

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        return 2;
    }
    try {
        Environnement env = environnement(arguments[1]);
        env.CheminBaseRDV = arguments[2];
        FrmPurger purger(env, 1, QStringLiteral("praticien 1"));
        purger.demandeNom = [&](const QString &) { return arguments[4]; };
        purger.findChild<QLineEdit *>(QStringLiteral("DateFinPurge"))->setText(arguments[3]);
        auto *sauver = purger.findChild<QPushButton *>(QStringLiteral("Command1"));
        QTimer::singleShot(0, sauver, &QPushButton::click);
        QTextStream(stdout) << "début" << Qt::endl;
        bool faite = false;
        const double ms = millisecondes([&] { faite = purger.exec() == QDialog::Accepted; });
        QTextStream(stdout) << ms << ' '
                            << megaOctets(QStringLiteral("self"), QStringLiteral("status"), "VmHWM") << ' '
                            << purger.deplaces();
        return faite ? 0 : 1;
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << erreur.what() << '\n';
        return 1;
    }
}

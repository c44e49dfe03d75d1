#include "print/NomsDocument.h"

namespace {

constexpr int choix = 120; // more than are made within as many seconds

} // namespace

QStringList NomsDocument(const QString &debut, const QDateTime &maintenant) {
    QStringList noms;
    noms.reserve(choix);
    for (int secondes = 0; secondes < choix; ++secondes) {
        noms << debut + maintenant.addSecs(secondes).toString(QStringLiteral("ddMMyyyyhhmmss")) +
                    QStringLiteral(".doc");
    }
    return noms;
}
